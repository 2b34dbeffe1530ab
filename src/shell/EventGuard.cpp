#include "shell/EventGuard.h"

#include "base/IgnoreErrors.h"
#include "shell/Messages.h"

namespace folvane {

QString ErrorText(const std::exception& error) { return QString::fromUtf8(error.what()); }

void ShowError(const std::exception& error) {
  // Called from catch clauses right under the event loop; not even a host's own message box may throw from here.
  IgnoreErrors([&error] { ShowMessage(ErrorText(error), MessageFlag::Critical, kSystemTitle); });
}

}  // namespace folvane
