// The smallest host: opens a database, tells the library of it and of the user, and hears of an unknown one.
#include <sqlite3.h>

#include <QApplication>
#include <QTextStream>

#include <folvane/ClsFolvane.h>
#include <folvane/DataError.h>
#include <folvane/HostServices.h>
#include <folvane/SqliteConnection.h>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  folvane::Services().programDirectory = QApplication::applicationDirPath();

  sqlite3* database = nullptr;
  sqlite3_open(":memory:", &database);
  int status = 1;
  {
    const auto connection = folvane::AdoptSqlite(database);
    connection->Execute(QStringLiteral("Create Table UserPopedom (UserID varchar(20) Primary Key, UserName varchar(20))"));
    connection->Execute(QStringLiteral("Insert Into UserPopedom (UserID, UserName) Values ('001', '张三')"));
    folvane::ClsFolvane library;
    library.Connection(connection);
    library.GetUser(QStringLiteral("001"));
    library.GetCopyRight(QStringLiteral("SQL SERVER"));
    try {
      library.GetUser(QStringLiteral("nobody"));
    } catch (const folvane::DataError& error) {
      QTextStream(stdout) << error.Message() << Qt::endl;
      status = 0;
    }
  }
  sqlite3_close(database);
  return status;
}
