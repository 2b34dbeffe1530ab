#pragma once

#include <QString>
#include <QStringList>

namespace folvane::host {

/// What the program was started with; an empty text where nothing was said.
struct Options {
  QString database;  ///< a SQLite file
  QString odbc;      ///< an ODBC connection string
  QString user;      ///< a number of UserPopedom
  QString kind;      ///< "SQL SERVER", "SYSBASE" or anything else for a local directory
  bool makeDemo = false;
  int records = 2000;  ///< of the demo database, over all tables
  QString tour;        ///< folder for the pictures of the tour
};

/// Reads the arguments. --help, --version and a mistake end the program, with the words for it.
Options ReadCommandLine(const QStringList& arguments);

}  // namespace folvane::host
