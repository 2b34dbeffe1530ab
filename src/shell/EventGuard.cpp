#include "shell/EventGuard.h"

#include <QStringList>

#include <folvane/DataError.h>

#include "base/IgnoreErrors.h"
#include "shell/Messages.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QString ErrorText(const std::exception& error) { return QString::fromUtf8(error.what()); }

QString ErrorDetails(const std::exception& error) {
  const auto* known = dynamic_cast<const DataError*>(&error);
  if (!known) return {};
  QStringList lines;
  if (!known->Statement().isEmpty()) lines << u"语句："_s + known->Statement();
  if (!known->NativeCode().isEmpty()) lines << u"数据库错误代码："_s + known->NativeCode();
  return lines.join(u'\n');
}

void ShowError(const std::exception& error, const QString& note) {
  // Called from catch clauses right under the event loop; not even a host's own message box may throw from here.
  IgnoreErrors([&] {
    ShowMessage({ErrorText(error), MessageFlag::Critical, kSystemTitle, note, ErrorDetails(error)});
  });
}

}  // namespace folvane
