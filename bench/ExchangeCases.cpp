// Records of a file added to an empty table, against prepared statements that look for each key and write the same
// rows.
#include <QFile>
#include <sqlite3.h>

#include <folvane/SqliteConnection.h>

#include "bench/Cases.h"
#include "bench/SampleTable.h"
#include "browser/RecordImport.h"
#include "shell/SharedState.h"

namespace folvane::bench {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kAllRecords = u"Select * From Records"_s;

void Empty(sqlite3* database) {
  Check(sqlite3_exec(database, "DELETE FROM Records", nullptr, nullptr, nullptr), SQLITE_OK, database);
}

void ImportFile(const Setting& setting, Meter& meter) {
  sqlite3* database = OpenCopy(setting.database);
  Shared().Connection = AdoptSqlite(database);
  const QString file = setting.database + u".Dat"_s;
  {
    Recordset saved;
    saved.Open(kAllRecords, Shared().Connection);
    saved.Save(file);
  }
  Empty(database);
  Recordset records;
  records.Open(kAllRecords, Shared().Connection);
  RecordImport import(u"Records"_s, records);
  meter.Start();
  const auto added = import.Run(file, [](qint64, qint64) { return true; });
  meter.Stop();
  if (added != setting.rows) qFatal("%lld records were added", added.value_or(-1));
  QFile::remove(file);
}

/// The rows lie ready, each with its values in UTF-8.
void ImportRaw(const Setting& setting, Meter& meter) {
  sqlite3* database = OpenCopy(setting.database);
  Empty(database);
  std::vector<QByteArrayList> rows;
  for (qint64 i = 0; i < setting.rows; ++i) rows.push_back(SampleRow(i));
  const auto prepared = [database](const QByteArray& text) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(database, text.constData(), -1, &statement, nullptr), SQLITE_OK, database);
    return statement;
  };
  const auto bind = [](sqlite3_stmt* statement, int at, const QByteArray& value) {
    sqlite3_bind_text(statement, at, value.constData(), int(value.size()), SQLITE_STATIC);
  };
  meter.Start();
  sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr);
  sqlite3_stmt *find = prepared("SELECT * FROM Records WHERE ArchiveID=?"), *insert = prepared(InsertText());
  for (const QByteArrayList& row : rows) {
    bind(find, 1, row[0]);
    Check(sqlite3_step(find), SQLITE_DONE, database);
    sqlite3_reset(find);
    for (int column = 0; column < kColumns; ++column) bind(insert, column + 1, row[column]);
    Check(sqlite3_step(insert), SQLITE_DONE, database);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(find);
  sqlite3_finalize(insert);
  sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
  meter.Stop();
}

}  // namespace

Cases ExchangeCases() { return {{u"import-file"_s, ImportFile}, {u"import-raw"_s, ImportRaw}}; }

}  // namespace folvane::bench
