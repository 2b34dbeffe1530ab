#pragma once

#include <QStringList>
#include <functional>
#include <utility>

#include "widgets/ListCombo.h"

namespace folvane {

/// A box for free text whose list a function supplies each time it is shown.
class SuppliedCombo : public ListCombo {
 public:
  SuppliedCombo(std::function<QStringList()> supply, QWidget* parent) : ListCombo(parent), supply_(std::move(supply)) {}

 protected:
  void ReadList() override { addItems(supply_()); }

 private:
  std::function<QStringList()> supply_;
};

}  // namespace folvane
