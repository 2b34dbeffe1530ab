#include "host/LogOnChoices.h"

#include <QSettings>

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

QSettings UserSettings() {
  return QSettings(QSettings::IniFormat, QSettings::UserScope, u"Norvex"_s, u"folvane-demo"_s);
}

const QString kUseOdbc = u"LogOn/UseOdbc"_s, kFile = u"LogOn/File"_s, kOdbc = u"LogOn/Odbc"_s, kUser = u"LogOn/User"_s,
              kKind = u"LogOn/Kind"_s;

}  // namespace

LogOnChoices LastChoices() {
  const QSettings settings = UserSettings();
  LogOnChoices choices;
  choices.useOdbc = settings.value(kUseOdbc).toBool();
  choices.file = settings.value(kFile).toString();
  choices.odbc = settings.value(kOdbc).toString();
  choices.user = settings.value(kUser).toString();
  choices.kind = settings.value(kKind, choices.kind).toString();
  return choices;
}

void RememberChoices(const LogOnChoices& choices) {
  QSettings settings = UserSettings();
  settings.setValue(kUseOdbc, choices.useOdbc);
  settings.setValue(kFile, choices.file);
  settings.setValue(kOdbc, choices.odbc);
  settings.setValue(kUser, choices.user);
  settings.setValue(kKind, choices.kind);
}

}  // namespace folvane::host
