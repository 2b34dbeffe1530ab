#pragma once

#include <functional>
#include <optional>

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "data/Recordset.h"
#include "data/RowReading.h"
#include "data/RowStore.h"
#include "data/drivers/Driver.h"
#include "support/TestDatabase.h"

namespace folvane::test {

/// The error that the work ends with; a failure of the test when it ends without one.
DataError FailureOf(const std::function<void()>& work);

/// What a driver gives for a statement in the database's own words.
struct NativeResult {
  std::vector<ColumnInfo> columns;
  std::vector<std::vector<QVariant>> rows;
};
NativeResult QueryNative(Connection& connection, const QByteArray& text, std::vector<QVariant> parameters = {});

/// Five files in a table of the name, as a host's database may hold them:
///
///     id  code   title             pages  filed       remark
///      1  A-001  关于档案的通知       10     2002-03-04  甲
///      2  A-002  会议纪要           25     2002-03-05  (null)
///      3  B-001  Report of 2002   3      (null)      (empty)
///      4  B-002  财务报表 100%      (null) 2001-12-31  it's
///      5  a-003  年度总结           25     2003-01-01  乙
void MakeFiles(TestDatabase& database, const QString& table = QStringLiteral("files"));

/// Has every table be read as a large one is, by keys and as rows are looked at, for the time of a test.
class EveryTableLarge {
 public:
  EveryTableLarge() : before_(RowReading::Border()) { RowReading::Border() = {0, 0}; }
  ~EveryTableLarge() { RowReading::Border() = before_; }
  EveryTableLarge(const EveryTableLarge&) = delete;
  EveryTableLarge& operator=(const EveryTableLarge&) = delete;

 private:
  ReadingBorder before_;
};

/// Runs on each database over the table of five files.
class DataSuite : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    if (qEnvironmentVariableIsSet("FOLVANE_TEST_BY_KEYS")) byKeys_.emplace();
    MakeFiles(Database());
  }

  std::unique_ptr<Recordset> Open(const QString& source = QStringLiteral("Select * From files Order By id"),
                                  LockType lock = LockType::BatchOptimistic);
  /// The value of a column of the file with that number, as the database holds it now.
  QString Stored(int id, const QString& column);
  /// What a second user does meanwhile.
  void Meanwhile(const QString& sql) { Database().Native(sql); }
  /// The server ends the session, or the file turns into something that is no database.
  void TakeDatabaseAway();

 private:
  std::optional<EveryTableLarge> byKeys_;
};

/// The texts of a field in all rows of a record set, in the order it shows them.
QStringList Texts(Recordset& records, const QString& field = QStringLiteral("code"));
/// Stands on the file with that number.
void StandOn(Recordset& records, int id);

}  // namespace folvane::test
