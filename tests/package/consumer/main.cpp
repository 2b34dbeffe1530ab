// The smallest host: opens a database, tells the library of it and of the user, and hears of an unknown one.
#include <QApplication>
#include <QTextStream>
#include <sqlite3.h>

#include <folvane/ClsFolvane.h>
#include <folvane/DataError.h>
#include <folvane/HostServices.h>
#include <folvane/SqliteConnection.h>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  folvane::Services().programDirectory = QApplication::applicationDirPath();

  sqlite3* database = nullptr;
  sqlite3_open(":memory:", &database);
  sqlite3_exec(database,
               "Create Table UserPopedom (UserID varchar(20) Primary Key, UserName varchar(20));"
               "Insert Into UserPopedom (UserID, UserName) Values ('001', '张三')",
               nullptr, nullptr, nullptr);
  int status = 1;
  {
    const auto connection = folvane::AdoptSqlite(database);
    folvane::ClsFolvane library;
    library.Connection(connection);
    library.GetUser(QStringLiteral("001"));
    library.GetCopyRight(QStringLiteral("SQL SERVER"));
    try {
      library.GetUser(QStringLiteral("nobody"));
    } catch (const folvane::DataError& error) {
      QTextStream(stdout) << error.Message() << Qt::endl;
      // Nothing in a host names the help viewer; it has to come with the library by itself.
      status = folvane::Services().showHelp ? 0 : 1;
    }
  }
  sqlite3_close(database);
  return status;
}
