#pragma once

#include <QString>

#include "host/HostDatabase.h"

namespace folvane::host {

/// The kinds of database that the library tells apart; every other kind keeps originals in a local directory.
inline const QString kSqlServer = QStringLiteral("SQL SERVER");
inline const QString kSysbase = QStringLiteral("SYSBASE");
inline const QString kLocal = QStringLiteral("LOCAL");

/// What the log-on window shows and asks for. The way not in use keeps its text, so that one can switch back to it.
struct LogOnChoices {
  bool useOdbc = false;
  QString file, odbc;
  QString user;
  QString kind = kLocal;

  DatabaseChoice Database() const { return useOdbc ? DatabaseChoice{{}, odbc} : DatabaseChoice{file, {}}; }
};

/// The choices of the last successful log-on, from the user's settings.
LogOnChoices LastChoices();
void RememberChoices(const LogOnChoices& choices);

}  // namespace folvane::host
