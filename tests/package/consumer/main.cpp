// A host that looks closely: everything that the library promises from outside, with nothing but the public headers.
//   consumer HELP-FILE VERSION
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>
#include <QWidget>
#include <sqlite3.h>
#include <stdexcept>

#include <folvane/Catalogue.h>
#include <folvane/ClsFolvane.h>
#include <folvane/DataError.h>
#include <folvane/HostServices.h>
#include <folvane/ReportRequest.h>
#include <folvane/ResultSet.h>
#include <folvane/SqliteConnection.h>
#include <folvane/Version.h>

namespace {

using folvane::ClsFolvane;
using folvane::DataError;
using folvane::DataErrorKind;

int failures = 0;

void Expect(bool holds, const QString& what) {
  if (holds) return;
  QTextStream(stderr) << "not so: " << what << Qt::endl;
  ++failures;
}

// The work ends with the library's error of that kind.
template <typename Work>
void ExpectError(DataErrorKind kind, const QString& what, Work work) {
  try {
    work();
    Expect(false, what + QStringLiteral(": no error"));
  } catch (const DataError& error) {
    Expect(error.Kind() == kind, what + QStringLiteral(": ") + error.Message());
  }
}

void WithoutApplication(ClsFolvane& library) {
  for (const auto entry : {&ClsFolvane::FileOpen, &ClsFolvane::FileArchive, &ClsFolvane::DistributeFile,
                           &ClsFolvane::PassReadFile, &ClsFolvane::TransactFile, &ClsFolvane::HastenFile})
    ExpectError(DataErrorKind::Usage, QStringLiteral("an entry without QApplication"), [&] { (library.*entry)(); });
}

void MakeTables(folvane::Connection& connection, sqlite3* database) {
  Expect(!folvane::CheckTables(connection).isEmpty(), QStringLiteral("an empty database lacks tables"));
  folvane::CreateTables(connection);
  Expect(folvane::CheckTables(connection).isEmpty(), QStringLiteral("all tables are made"));
  const char* rows =
      "Create Table Lwdj (ArchiveID varchar(20) Primary Key);"
      "Insert Into UserPopedom (UserID, UserName) Values ('12', '张三');"
      "Insert Into Design_ClassRelation (ClassId, ClassName, Class_Parent) Values (2, '收文', 1);"
      "Insert Into Design_TableRelation (TableName, ChnTableName, ClassId, Table_Parent) Values ('Lwdj', '收文', 2, "
      "'')";
  Expect(sqlite3_exec(database, rows, nullptr, nullptr, nullptr) == SQLITE_OK, QStringLiteral("the first rows"));
}

void Errors(ClsFolvane& library) {
  ExpectError(DataErrorKind::Usage, QStringLiteral("an unknown user"), [&] { library.GetUser(QStringLiteral("99")); });
  library.GetUser(QStringLiteral("12"));
  // The error's own class stays inside the library; its base is caught here all the same.
  const QString profile = folvane::Services().programDirectory + QStringLiteral("/YearFormula.Ini");
  QDir().mkdir(profile);
  ExpectError(DataErrorKind::File, QStringLiteral("an unreadable file"), [&] { library.FileOpen(); });
  QDir().rmdir(profile);
}

// Nothing in a host names the help viewer or the help file; both come with the library.
void Help(ClsFolvane& library, const QString& installed) {
  Expect(bool(folvane::Services().showHelp), QStringLiteral("the help viewer is there"));
  QString shown;
  folvane::Services().showHelp = [&](QWidget*, const QString& file, const QString&) { shown = file; };
  QTimer::singleShot(500, qApp, [] {
    QWidget* window = QApplication::activeModalWidget();
    window->findChild<QAction*>(QStringLiteral("mnuHelpTitle"))->trigger();
    window->close();
  });
  library.FileOpen();
  Expect(shown == installed, QStringLiteral("help is shown of ") + shown);
}

// The report component comes with the library too; one of the host's own reads rows by a class of the library.
void Reports(const std::shared_ptr<folvane::Connection>& connection) {
  Expect(bool(folvane::Services().runReport), QStringLiteral("reports can be run"));
  Expect(bool(folvane::Services().designReport), QStringLiteral("reports can be designed"));
  folvane::ReportRequest request;
  request.connection = connection;
  request.mainTable = QStringLiteral("Lwdj");
  request.reportId = QStringLiteral("1");
  ExpectError(DataErrorKind::Usage, QStringLiteral("a report of no records"),
              [&] { folvane::Services().runReport(request); });
  const folvane::ResultSet users(*connection, QStringLiteral("Select UserName From UserPopedom"));
  Expect(users.RowCount() == 1 && users.Text(0, users.Find(QStringLiteral("username"))) == QStringLiteral("张三"),
         QStringLiteral("rows are read"));
}

}  // namespace

int main(int argc, char** argv) {
  const QTemporaryDir folder;
  sqlite3* database = nullptr;
  sqlite3_open(":memory:", &database);
  {
    const auto connection = folvane::AdoptSqlite(database);
    ClsFolvane library;
    library.Connection(connection);
    WithoutApplication(library);
    const QApplication application(argc, argv);
    folvane::Services().programDirectory = folder.path();
    Expect(folvane::Version() == QString::fromUtf8(argv[2]), folvane::Version());
    MakeTables(*connection, database);
    Errors(library);
    Help(library, QString::fromUtf8(argv[1]));
    Reports(connection);
  }
  sqlite3_close_v2(database);
  return failures;
}
