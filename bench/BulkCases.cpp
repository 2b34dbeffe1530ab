// A value changed in every record of a table: by two statements, by a walk through the record set, and by find and
// replace; against loops over SQLite that write the same.
#include <cstring>
#include <sqlite3.h>
#include <string>
#include <vector>

#include <folvane/SqliteConnection.h>

#include "bench/Cases.h"
#include "bench/SampleTable.h"
#include "bulk/BatchUpdate.h"
#include "bulk/FindReplace.h"

namespace folvane::bench {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr char kFind[] = "Checked", kReplacement[] = "Compared";

QString Text(const char* text) { return QString::fromLatin1(text); }

void Run(sqlite3* database, const char* statement) {
  Check(sqlite3_exec(database, statement, nullptr, nullptr, nullptr), SQLITE_OK, database);
}

/// One whose remarks are null in one half of the records and empty in the other.
sqlite3* TableWithoutRemarks(const Setting& setting) {
  sqlite3* database = OpenCopy(setting.database);
  Run(database, "UPDATE Records SET Remark = CASE WHEN rowid % 2 THEN '' END");
  return database;
}

void RequireAll(const Setting& setting, qint64 changed) {
  if (changed != setting.rows) qFatal("%lld records were changed", static_cast<long long>(changed));
}

void OpenAll(Recordset& records, const std::shared_ptr<Connection>& connection) {
  records.Open(u"Select * From Records Order By ArchiveID"_s, connection);
}

bool GoOn(qint64, qint64) { return true; }

// By two statements.

void Fill(const Setting& setting, Meter& meter) {
  const std::shared_ptr<Connection> connection = AdoptSqlite(TableWithoutRemarks(setting));
  const FillOfEmpty fill{u"Records"_s, u"Remark"_s, u"checked"_s, BrowserFilter({}, {})};
  RequireAll(setting, fill.Count(connection));
  meter.Start();
  fill.Run(*connection);
  meter.Stop();
}

void FillRaw(const Setting& setting, Meter& meter) {
  sqlite3* database = TableWithoutRemarks(setting);
  meter.Start();
  Run(database, "UPDATE Records SET Remark = 'checked' WHERE 1=1 AND Remark IS NULL");
  Run(database, "UPDATE Records SET Remark = 'checked' WHERE 1=1 AND Remark = ''");
  meter.Stop();
}

// By a walk.

void Walk(const Setting& setting, Meter& meter) {
  const std::shared_ptr<Connection> connection = AdoptSqlite(OpenCopy(setting.database));
  Recordset records;
  OpenAll(records, connection);
  meter.Start();
  BatchWalk walk(records, u"Remark"_s, {Text(kFind), Text(kReplacement)}, BatchWalk::Direction::All, 1);
  walk.Run(GoOn);
  meter.Stop();
  RequireAll(setting, walk.Written());
}

struct Remark {
  std::string key, text;
};

std::vector<Remark> ReadRemarks(sqlite3* database) {
  std::vector<Remark> remarks;
  sqlite3_stmt* select = nullptr;
  Check(sqlite3_prepare_v2(database, "SELECT ArchiveID, Remark FROM Records ORDER BY ArchiveID", -1, &select, nullptr),
        SQLITE_OK, database);
  const auto text = [&](int column) { return reinterpret_cast<const char*>(sqlite3_column_text(select, column)); };
  while (sqlite3_step(select) == SQLITE_ROW) remarks.push_back({text(0), text(1)});
  sqlite3_finalize(select);
  return remarks;
}

/// The same changes with one prepared statement in one transaction. Of `original` the condition is that of a careful
/// writer: the value must still be the one that was read.
void WriteRemarks(sqlite3* database, const std::vector<Remark>& remarks, bool original) {
  const char* const update = original ? "UPDATE Records SET Remark = ? WHERE ArchiveID = ? AND Remark = ?"
                                      : "UPDATE Records SET Remark = ? WHERE ArchiveID = ?";
  sqlite3_stmt* statement = nullptr;
  Run(database, "BEGIN");
  Check(sqlite3_prepare_v2(database, update, -1, &statement, nullptr), SQLITE_OK, database);
  const auto bind = [&](int place, const std::string& text) {
    sqlite3_bind_text(statement, place, text.data(), int(text.size()), SQLITE_STATIC);
  };
  for (const Remark& remark : remarks) {
    std::string changed = remark.text;
    changed.replace(changed.find(kFind), std::strlen(kFind), kReplacement);
    bind(1, changed);
    bind(2, remark.key);
    if (original) bind(3, remark.text);
    Check(sqlite3_step(statement), SQLITE_DONE, database);
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
  Run(database, "COMMIT");
}

void WalkRaw(const Setting& setting, Meter& meter) {
  sqlite3* database = OpenCopy(setting.database);
  const std::vector<Remark> remarks = ReadRemarks(database);
  meter.Start();
  WriteRemarks(database, remarks, true);
  meter.Stop();
}

// By find and replace, in all fields.

void ReplaceAll(const Setting& setting, Meter& meter) {
  const std::shared_ptr<Connection> connection = AdoptSqlite(OpenCopy(setting.database));
  Recordset records;
  OpenAll(records, connection);
  meter.Start();
  FindReplace search(connection, u"Records"_s);
  search.SetTerms({Text(kFind), Text(kReplacement)});
  const qint64 replaced = search.ReplaceAll(records, SearchWay::All, GoOn);
  meter.Stop();
  RequireAll(setting, replaced);
}

void ReplaceAllRaw(const Setting& setting, Meter& meter) {
  sqlite3* database = OpenCopy(setting.database);
  const std::vector<Remark> remarks = ReadRemarks(database);
  meter.Start();
  WriteRemarks(database, remarks, false);
  meter.Stop();
}

}  // namespace

Cases BulkCases() {
  return {
      {u"bulk-fill"_s, Fill},        {u"bulk-fill-raw"_s, FillRaw},   {u"bulk-walk"_s, Walk},
      {u"bulk-walk-raw"_s, WalkRaw}, {u"bulk-replace"_s, ReplaceAll}, {u"bulk-replace-raw"_s, ReplaceAllRaw},
  };
}

}  // namespace folvane::bench
