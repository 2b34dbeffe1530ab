// Reading a whole table in the order of its key.
#include <QSqlDatabase>
#include <QSqlTableModel>
#include <cstdint>
#include <cstring>
#include <memory>
#include <sqlite3.h>
#include <vector>

#include <folvane/SqliteConnection.h>

#include "bench/Cases.h"
#include "bench/SampleTable.h"
#include "data/Recordset.h"

namespace folvane::bench {

namespace {

/// What a careful program without a record set would do: keep the bytes of all columns in chunks that never move.
class Chunks {
 public:
  void Append(const void* bytes, std::uint32_t length) {
    if (chunks_.empty() || used_ + length + sizeof length > kSize) {
      chunks_.push_back(std::make_unique_for_overwrite<char[]>(kSize));
      used_ = 0;
    }
    char* at = chunks_.back().get() + used_;
    std::memcpy(at, &length, sizeof length);
    std::memcpy(at + sizeof length, bytes, length);
    used_ += sizeof length + length;
  }

 private:
  static constexpr std::size_t kSize = std::size_t(1) << 20;
  std::vector<std::unique_ptr<char[]>> chunks_;
  std::size_t used_ = 0;
};

void ReadRaw(const Setting& setting, Meter& meter) {
  ReadAllRaw(setting, "SELECT * FROM Records ORDER BY ArchiveID", meter);
}

void ReadRecordset(const Setting& setting, Meter& meter) {
  sqlite3* database = OpenSqlite(setting.database);
  const std::shared_ptr<Connection> connection = AdoptSqlite(database);
  Recordset records;
  meter.Start();
  records.Open(QStringLiteral("Select * From Records Order By ArchiveID"), connection);
  meter.Stop();
  if (records.RecordCount() != setting.rows) qFatal("the record set has %lld rows", records.RecordCount());
}

void ReadSqlTableModel(const Setting& setting, Meter& meter) {
  QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
  database.setDatabaseName(setting.database);
  if (!database.open()) qFatal("Qt's driver for SQLite does not open the file");
  QSqlTableModel model;
  meter.Start();
  model.setTable(QStringLiteral("Records"));
  model.setSort(0, Qt::AscendingOrder);
  model.select();
  while (model.canFetchMore()) model.fetchMore();
  meter.Stop();
  if (model.rowCount() != setting.rows) qFatal("the model has %d rows", model.rowCount());
}

void StepRaw(const Setting& setting, Meter& meter) {
  StepThrough(setting, "SELECT * FROM Records ORDER BY ArchiveID", meter);
}

QString ByKey(qint64 row) { return QStringLiteral("ArchiveID = '%1'").arg(QString::fromUtf8(SampleRow(row).front())); }

/// The first search by key, far from the first row, which builds the index.
void FindFirst(const Setting& setting, Meter& meter) {
  Recordset records;
  records.Open(QStringLiteral("Select * From Records Order By ArchiveID"), AdoptSqlite(OpenSqlite(setting.database)));
  const QString wanted = ByKey(setting.rows / 3);
  meter.Start();
  records.Find(wanted);
  meter.Stop();
  if (records.AbsolutePosition() != setting.rows / 3 + 1) qFatal("the key was not found");
}

/// A thousand more all over the table; the time is that of one.
void FindAgain(const Setting& setting, Meter& meter) {
  constexpr int kSearches = 1000;
  Recordset records;
  records.Open(QStringLiteral("Select * From Records Order By ArchiveID"), AdoptSqlite(OpenSqlite(setting.database)));
  records.Find(ByKey(setting.rows - 1));
  QStringList wanted;
  for (int i = 0; i < kSearches; ++i) wanted << ByKey((i * 7919LL + 100) % setting.rows);
  qint64 found = 0;
  meter.Start();
  for (const QString& one : wanted) {
    records.MoveFirst();
    records.Find(one);
    found += records.AbsolutePosition();
  }
  meter.StopAfter(kSearches);
  if (found < kSearches) qFatal("keys were not found");
}

/// The same searches as the database does them, with a statement that is already prepared.
void FindKeyRaw(const Setting& setting, Meter& meter) {
  constexpr int kSearches = 1000;
  sqlite3* database = OpenSqlite(setting.database);
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database, "SELECT rowid FROM Records WHERE ArchiveID = ?", -1, &statement, nullptr),
        SQLITE_OK, database);
  QByteArrayList keys;
  for (int i = 0; i < kSearches; ++i) keys << SampleRow((i * 7919LL + 100) % setting.rows).front();
  meter.Start();
  for (const QByteArray& key : keys) {
    sqlite3_bind_text(statement, 1, key.constData(), -1, SQLITE_STATIC);
    Check(sqlite3_step(statement), SQLITE_ROW, database);
    sqlite3_reset(statement);
  }
  meter.StopAfter(kSearches);
  sqlite3_finalize(statement);
}

}  // namespace

void StepThrough(const Setting& setting, const char* query, Meter& meter) {
  sqlite3* database = OpenSqlite(setting.database);
  qint64 bytes = 0;
  meter.Start();
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database, query, -1, &statement, nullptr), SQLITE_OK, database);
  const int columns = sqlite3_column_count(statement);
  while (sqlite3_step(statement) == SQLITE_ROW) {
    for (int column = 0; column < columns; ++column) {
      sqlite3_column_text(statement, column);
      bytes += sqlite3_column_bytes(statement, column);
    }
  }
  sqlite3_finalize(statement);
  meter.Stop();
  if (bytes == 0) qFatal("the query gave no rows");
  sqlite3_close(database);
}

void ReadAllRaw(const Setting& setting, const char* query, Meter& meter) {
  sqlite3* database = OpenSqlite(setting.database);
  Chunks chunks;
  meter.Start();
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database, query, -1, &statement, nullptr), SQLITE_OK, database);
  while (sqlite3_step(statement) == SQLITE_ROW) {
    for (int column = 0; column < kColumns; ++column) {
      const void* bytes = sqlite3_column_text(statement, column);
      chunks.Append(bytes, std::uint32_t(sqlite3_column_bytes(statement, column)));
    }
  }
  sqlite3_finalize(statement);
  meter.Stop();
  sqlite3_close(database);
}

Cases ReadingCases() {
  return {
      {QStringLiteral("read-raw"), ReadRaw},
      {QStringLiteral("read-recordset"), ReadRecordset},
      {QStringLiteral("read-sqltablemodel"), ReadSqlTableModel},
      {QStringLiteral("step-raw"), StepRaw},
      {QStringLiteral("find-first"), FindFirst},
      {QStringLiteral("find-again"), FindAgain},
      {QStringLiteral("find-raw"), FindKeyRaw},
  };
}

}  // namespace folvane::bench
