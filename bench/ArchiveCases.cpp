// Records with two originals each transferred into the archive, against prepared statements that write the same rows.
#include <QApplication>
#include <functional>
#include <memory>
#include <sql.h>
#include <sqlext.h>
#include <sqlite3.h>
#include <vector>

#include <folvane/OdbcConnection.h>
#include <folvane/SqliteConnection.h>

#include "archiving/ArchiveTransfer.h"
#include "bench/Cases.h"
#include "bench/SampleTable.h"
#include "catalogue/Ddl.h"
#include "shell/SharedState.h"

namespace folvane::bench {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMapped = 14;  ///< columns of the records that the archive takes over, from the second one on

constexpr char kArchiveTable[] =
    "CREATE TABLE Archive (ArchiveID varchar(20) not null primary key, Reference varchar(40), Title varchar(200), "
    "SendUnit varchar(40), ReceiveUnit varchar(40), FileType varchar(10), Secret varchar(10), Urgency varchar(10), "
    "SignDate varchar(10), ReceiveDate varchar(10), Pages integer, Copies integer, Keeper varchar(20), Period "
    "varchar(10), BoxNumber integer, FondsNo varchar(10), DocYear varchar(10), ItemNo integer, InputDate varchar(10), "
    "ArchiveFlag varchar(10), ArchNo varchar(40))";
constexpr char kInsertRecord[] = "INSERT INTO Archive VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr char kInsertOriginal[] =
    "INSERT INTO Original_Text (ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath) VALUES (?,?,?,?,?,?,?)";
constexpr char kMark[] = "UPDATE Incoming SET FileStatus=? WHERE ArchiveID=? AND FileStatus=?";

// Of twenty digits, as all keys of records and originals are.
QByteArray Key(const char* start, qint64 row) {
  return start + QByteArray::number(row).rightJustified(20 - qsizetype(qstrlen(start)), '0');
}

QByteArrayList IncomingRow(qint64 row) {
  QByteArrayList values = SampleRow(row);
  values[0] = Key("2003", row);
  return values;
}

QByteArrayList OriginalRow(qint64 record, int order, const QByteArray& owner) {
  const QByteArray number = QByteArray::number(order);
  return {Key("5003", 2 * record + order), "正文 " + number, ".tif", owner, "40960", number, "2003/07"};
}

/// A database of a kind with statements in its own words, some of them prepared.
class Database {
 public:
  using Prepared = std::function<void(const QByteArrayList& values)>;
  virtual ~Database() = default;
  virtual std::shared_ptr<Connection> Adopt() = 0;
  virtual void Run(const QByteArray& statement) = 0;
  virtual Prepared Prepare(const QByteArray& statement) = 0;
};

class SqliteFile : public Database {
 public:
  explicit SqliteFile(const Setting& setting) : database_(OpenCopy(setting.database)) {}
  std::shared_ptr<Connection> Adopt() override { return AdoptSqlite(database_); }
  void Run(const QByteArray& statement) override {
    Check(sqlite3_exec(database_, statement.constData(), nullptr, nullptr, nullptr), SQLITE_OK, database_);
  }
  Prepared Prepare(const QByteArray& text) override {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(database_, text.constData(), -1, &statement, nullptr), SQLITE_OK, database_);
    return [this, statement](const QByteArrayList& values) {
      for (int i = 0; i < values.size(); ++i)
        sqlite3_bind_text(statement, i + 1, values[i].constData(), int(values[i].size()), SQLITE_STATIC);
      Check(sqlite3_step(statement), SQLITE_DONE, database_);
      sqlite3_reset(statement);
    };
  }

 private:
  sqlite3* database_;
};

class PostgresServer : public Database {
 public:
  PostgresServer() {
    Run("DROP SCHEMA IF EXISTS Archiving CASCADE");
    Run("CREATE SCHEMA Archiving");
  }
  std::shared_ptr<Connection> Adopt() override { return AdoptOdbc(handle_); }
  void Run(const QByteArray& statement) override {
    const SQLHSTMT handle = NewStatement();
    Require(SQLExecDirect(handle, Sql(statement), SQL_NTS), statement);
    SQLFreeHandle(SQL_HANDLE_STMT, handle);
  }
  Prepared Prepare(const QByteArray& text) override {
    const SQLHSTMT handle = NewStatement();
    Require(SQLPrepare(handle, Sql(text), SQL_NTS), text);
    return [this, handle, text](const QByteArrayList& values) {
      for (int i = 0; i < values.size(); ++i)
        SQLBindParameter(handle, SQLUSMALLINT(i + 1), SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR,
                         SQLULEN(std::max<qsizetype>(1, values[i].size())), 0, Sql(values[i]), values[i].size() + 1,
                         nullptr);
      Require(SQLExecute(handle), text);
    };
  }

 private:
  static SQLCHAR* Sql(const QByteArray& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.constData()));
  }
  static void Require(SQLRETURN answer, const QByteArray& statement) {
    if (!SQL_SUCCEEDED(answer)) qFatal("PostgreSQL refused %s", statement.constData());
  }
  SQLHSTMT NewStatement() {
    SQLHSTMT handle = SQL_NULL_HSTMT;
    SQLAllocHandle(SQL_HANDLE_STMT, handle_, &handle);
    return handle;
  }
  SQLHDBC handle_ = ConnectOdbc("Archiving");
};

/// Incoming records that wait to be archived, with their originals, and the archive that takes them.
std::shared_ptr<Connection> MakeArchive(Database& database, const Setting& setting) {
  const std::shared_ptr<Connection> connection = database.Adopt();
  CreateCatalogue(*connection);
  database.Run(CreateTableText().replace("Records", "Incoming"));
  database.Run("ALTER TABLE Incoming ADD COLUMN FileStatus varchar(20)");
  database.Run(kArchiveTable);
  database.Run("INSERT INTO DataTransfer_Ini (RecId,SourceTbl,DesTbl) VALUES (1,'Incoming','Archive')");
  const QByteArrayList columns = QByteArray(kArchiveTable).split('(').mid(1).join('(').split(',');
  const Database::Prepared map =
      database.Prepare("INSERT INTO DataTransfer_Details (IniRecId,SourceField,DesField,SourceChn) VALUES (1,?,?,'')");
  for (int i = 1; i <= kMapped; ++i) {
    const QByteArray name = columns[i].trimmed().split(' ')[0];
    map({name, name});
  }
  database.Run("BEGIN");
  const Database::Prepared insert =
      database.Prepare(InsertText().replace("Records", "Incoming").replace(")", ",'需归档')"));
  const Database::Prepared original = database.Prepare(kInsertOriginal);
  for (qint64 row = 0; row < setting.rows; ++row) {
    const QByteArrayList values = IncomingRow(row);
    insert(values);
    for (const int order : {1, 2}) original(OriginalRow(row, order, values[0]));
  }
  database.Run("COMMIT");
  return connection;
}

void TransferInto(Database& database, const Setting& setting, Meter& meter) {
  SharedState& shared = Shared();
  shared.Connection = MakeArchive(database, setting);
  shared.UserId = u"1"_s;
  shared.ArchNoFieldName = {QString(), u"FondsNo"_s, u"DocYear"_s, u"ItemNo"_s};
  shared.ArchNoFieldValue = {QString(), u"123"_s, u"2003"_s, QString()};
  shared.ArchNoSeparator = {QString(), u"-"_s, u"-"_s, u"-"_s};
  shared.ArchNoShowCode = {false, true, false, false};
  shared.ArchNoLength = {0, 4, 4, 5};
  shared.ArchNoStoreField = u"ArchNo"_s;
  shared.ArchNoFolderField = u"(无)"_s;
  QStringList records;
  for (qint64 row = 0; row < setting.rows; ++row) records << QString::fromUtf8(Key("2003", row));
  ArchiveTransfer transfer;
  meter.Start();
  transfer.DoFileArch({u"Incoming"_s, u"Archive"_s, u"Select * From Incoming"_s, true}, records, true);
  meter.Stop();
  if (transfer.SucceedCount() != setting.rows) qFatal("%d records were transferred", transfer.SucceedCount());
}

/// The rows lie ready, each with its values in UTF-8.
void WriteInto(Database& database, const Setting& setting, Meter& meter) {
  const std::shared_ptr<Connection> connection = MakeArchive(database, setting);
  std::vector<QByteArrayList> records, originals, marks;
  for (qint64 row = 0; row < setting.rows; ++row) {
    const QByteArrayList source = IncomingRow(row);
    const QByteArray key = Key("20030715", row);
    const QByteArray item = QByteArray::number(row + 1);
    records.push_back(
        QByteArrayList{key} + source.mid(1, kMapped) +
        QByteArrayList{"123", "2003", item, "2003-07-15", "已组卷", "123-2003-" + item.rightJustified(5, '0')});
    for (const int order : {1, 2}) originals.push_back(OriginalRow(row, order, key));
    marks.push_back({"已归档", source[0], "需归档"});
  }
  meter.Start();
  database.Run("BEGIN");
  const Database::Prepared record = database.Prepare(kInsertRecord), original = database.Prepare(kInsertOriginal),
                           mark = database.Prepare(kMark);
  for (size_t row = 0; row < records.size(); ++row) {
    record(records[row]);
    original(originals[2 * row]);
    original(originals[2 * row + 1]);
    mark(marks[row]);
  }
  database.Run("COMMIT");
  meter.Stop();
}

template <auto Measure>
void OnSqlite(const Setting& setting, Meter& meter) {
  SqliteFile database(setting);
  Measure(database, setting, meter);
}

template <auto Measure>
void OnPostgres(const Setting& setting, Meter& meter) {
  PostgresServer database;
  Measure(database, setting, meter);
}

}  // namespace

Cases ArchiveCases() {
  return {{u"archive-transfer"_s, OnSqlite<TransferInto>},
          {u"archive-raw"_s, OnSqlite<WriteInto>},
          {u"archive-transfer-odbc"_s, OnPostgres<TransferInto>},
          {u"archive-raw-odbc"_s, OnPostgres<WriteInto>}};
}

}  // namespace folvane::bench
