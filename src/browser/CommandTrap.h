#pragma once

#include <exception>
#include <utility>

#include "browser/BrowserStatus.h"
#include "shell/EventGuard.h"

namespace folvane {

/// Runs a command whose errors end it without a message box: the status line tells what could not be done.
template <typename Work>
void RunTrapped(BrowserStatus& status, Work&& work) {
  try {
    std::forward<Work>(work)();
  } catch (const std::exception& error) {
    status.ShowNotice(QStringLiteral("未能完成：") + ErrorText(error));
  }
}

}  // namespace folvane
