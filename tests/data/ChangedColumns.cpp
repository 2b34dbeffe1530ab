// A host or another user gives a column another length while a connection still knows the old one.
#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

class ChangedColumns : public DataSuite {
 protected:
  /// What there is to write: more than the column held, less than it holds afterwards.
  static QString Longer() { return QString(30, QChar('x')); }
  void MakeCode(const QString& type) {
    if (!OnSqlite()) return Meanwhile(u"ALTER TABLE files ALTER COLUMN code TYPE "_s + type);
    Meanwhile(u"ALTER TABLE files RENAME COLUMN code TO before"_s);
    Meanwhile(u"ALTER TABLE files ADD COLUMN code "_s + type);
    Meanwhile(u"UPDATE files SET code = before"_s);
    Meanwhile(u"ALTER TABLE files DROP COLUMN before"_s);
  }
  void WriteByStatement(const QString& code) {
    Connected()->Execute(u"Update files Set code = '%1' Where id = 2"_s.arg(code));
  }
  static void Write(Recordset& records, const QString& code) {
    records[u"code"_s].SetValue(code);
    records.UpdateBatch();
  }
  int Size() { return (*Open())[u"code"_s].DefinedSize(); }
};
FOLVANE_ON_EACH_DATABASE(ChangedColumns);

TEST_P(ChangedColumns, AStatementWritesWhatAColumnHoldsNow) {
  WriteByStatement(u"first"_s);
  MakeCode(u"varchar(40)"_s);
  WriteByStatement(Longer());
  EXPECT_EQ(Stored(2, u"code"_s), Longer());
  EXPECT_EQ(FailureOf([&] { WriteByStatement(QString(41, u'x')); }).Kind(), DataErrorKind::TooLong);
}

TEST_P(ChangedColumns, ARecordSetWritesWhatAColumnHoldsNow) {
  const auto before = Open();
  Write(*before, u"first"_s);
  MakeCode(u"varchar(40)"_s);
  Write(*before, Longer());
  EXPECT_EQ(Stored(1, u"code"_s), Longer());
  const auto after = Open();
  EXPECT_EQ((*after)[u"code"_s].DefinedSize(), 40);
  Write(*after, Longer() + u'y');
  EXPECT_EQ(Stored(1, u"code"_s), Longer() + u'y');
  const DataError refused = FailureOf([&] { Write(*after, QString(41, u'x')); });
  EXPECT_EQ(refused.Message(), u"字段“code”的值太长：有 41 个字节，最多 40 个字节。"_s);
}

TEST_P(ChangedColumns, ABatchOfSeveralRowsWritesWhatAColumnHoldsNow) {
  const auto records = Open();
  Write(*records, u"first"_s);
  MakeCode(u"varchar(40)"_s);
  for (const int id : {1, 2, 3}) {
    StandOn(*records, id);
    (*records)[u"code"_s].SetValue(Longer() + QString::number(id));
  }
  records->UpdateBatch();
  for (const int id : {1, 2, 3}) EXPECT_EQ(Stored(id, u"code"_s), Longer() + QString::number(id));
}

// PostgreSQL's ODBC driver describes a column without a length as one of 255.
TEST_P(ChangedColumns, AColumnThatHasLostItsLengthIsNotTakenForOneOf255) {
  MakeCode(u"varchar(255)"_s);
  EXPECT_EQ(Size(), 255);
  MakeCode(u"varchar"_s);
  const auto records = Open();
  Write(*records, QString(300, u'x'));
  EXPECT_EQ(Stored(1, u"code"_s), QString(300, u'x'));
  WriteByStatement(QString(301, u'x'));
  EXPECT_EQ(Stored(2, u"code"_s), QString(301, u'x'));
  EXPECT_EQ(Size(), 2147483647);
  EXPECT_EQ(Open(u"Select code From files"_s)->Fields().Item(0).DefinedSize(), 2147483647);
}

TEST_P(ChangedColumns, AColumnThatWasGivenALengthOf255CutsNothing) {
  if (OnSqlite()) GTEST_SKIP() << "SQLite keeps to no length by itself";
  MakeCode(u"varchar"_s);
  EXPECT_EQ(Size(), 2147483647);
  MakeCode(u"varchar(255)"_s);
  const auto records = Open();
  EXPECT_EQ(FailureOf([&] { Write(*records, QString(300, u'x')); }).Kind(), DataErrorKind::TooLong);
  EXPECT_EQ(FailureOf([&] { WriteByStatement(QString(300, u'x')); }).Kind(), DataErrorKind::TooLong);
  EXPECT_EQ(Stored(1, u"code"_s), u"A-001"_s);
  EXPECT_EQ(Stored(2, u"code"_s), u"A-002"_s);
  EXPECT_EQ((*records)[u"code"_s].Text(), QString(300, u'x'));
}

}  // namespace

}  // namespace folvane::test
