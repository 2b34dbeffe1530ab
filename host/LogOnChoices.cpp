#include "host/LogOnChoices.h"

#include <QSettings>

namespace folvane::host {
namespace {

QSettings UserSettings() {
  return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Norvex"),
                   QStringLiteral("folvane-demo"));
}

const QString kUseOdbc = QStringLiteral("LogOn/UseOdbc"), kFile = QStringLiteral("LogOn/File"),
              kOdbc = QStringLiteral("LogOn/Odbc"), kUser = QStringLiteral("LogOn/User"),
              kKind = QStringLiteral("LogOn/Kind");

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
