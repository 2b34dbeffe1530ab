#include "base/TableProfile.h"

#include "base/IgnoreErrors.h"
#include "base/ProfileFile.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QString TableProfile::Read(const QString& table) const {
  const QString none = u"0"_s;
  const ProfileFile profile(path);
  if (!profile.Exists()) {
    const QStringList lines{u'[' + section + u']', table + u'=' + none};
    IgnoreErrors([&] { profile.Create(heading + lines); });
    return none;
  }
  const QString value = profile.Read(section, table, QString(), bufferSize);
  if (!value.isEmpty()) return value;
  IgnoreErrors([&] { profile.Write(section, table, none); });
  return none;
}

}  // namespace folvane
