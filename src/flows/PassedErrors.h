#pragma once

#include <QStringList>
#include <exception>
#include <utility>

#include "shell/EventGuard.h"

namespace folvane {

/// Steps of a routine that goes on after each, whether it failed or not; keeps what there is to tell about them.
class PassedErrors {
 public:
  template <typename Step>
  void Try(Step&& step) {
    try {
      std::forward<Step>(step)();
    } catch (const std::exception& error) {
      texts_ << ErrorText(error);
    }
  }
  /// Each failure once, "" when every step went through.
  QString Text() const {
    QStringList texts = texts_;
    texts.removeDuplicates();
    return texts.join(QStringLiteral("；"));
  }

 private:
  QStringList texts_;
};

}  // namespace folvane
