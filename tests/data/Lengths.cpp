#include <gtest/gtest.h>

#include "data/DataSuite.h"
#include "data/RefusedValues.h"

namespace folvane::test {

namespace {

// A column varchar(20) holds 20 bytes of the national code page: ten Chinese characters.
QString Chinese(int count) { return QString(count, QChar(0x6863)); }
QString Tail() { return QStringLiteral(" Where id = 1"); }

class Lengths : public DataSuite {
 protected:
  static void ExpectTooLong(const DataError& error, int bytes) {
    EXPECT_EQ(error.Kind(), DataErrorKind::TooLong);
    EXPECT_EQ(error.Column(), QStringLiteral("code"));
    EXPECT_EQ(error.Message(), QStringLiteral("字段“code”的值太长：有 %1 个字节，最多 20 个字节。").arg(bytes));
  }
  static void SetCode(Recordset& records, const QString& code) { records[QStringLiteral("code")].SetValue(code); }
  QString Code(int id) { return Stored(id, QStringLiteral("code")); }
};
FOLVANE_ON_EACH_DATABASE(Lengths);

TEST_P(Lengths, ARecordSetSavesAsManyBytesAsTheColumnHolds) {
  const auto records = Open();
  SetCode(*records, Chinese(10));
  records->UpdateBatch();
  EXPECT_EQ(Code(1), Chinese(10));
}

TEST_P(Lengths, ARecordSetRefusesMoreBytesThanTheColumnHolds) {
  for (const LockType lock : {LockType::BatchOptimistic, LockType::Optimistic}) {
    const auto records = Open(QStringLiteral("Select * From files Order By id"), lock);
    SetCode(*records, Chinese(10) + u'x');
    ExpectTooLong(FailureOf([&] { lock == LockType::Optimistic ? records->Update() : records->UpdateBatch(); }), 21);
    EXPECT_EQ((*records)[QStringLiteral("code")].Text(), Chinese(10) + u'x');
    EXPECT_EQ(Code(1), QStringLiteral("A-001"));
  }
}

TEST_P(Lengths, ANewRowIsRefusedAsAChangedOneIs) {
  const auto records = Open();
  records->AddNew();
  (*records)[QStringLiteral("id")].SetValue(6);
  SetCode(*records, Chinese(11));
  ExpectTooLong(FailureOf([&] { records->UpdateBatch(); }), 22);
  SetCode(*records, Chinese(9));
  records->UpdateBatch();
  EXPECT_EQ(Code(6), Chinese(9));
}

TEST_P(Lengths, ABatchIsCheckedWholeBeforeItsFirstRowIsWritten) {
  const auto records = Open();
  SetCode(*records, QStringLiteral("written"));
  StandOn(*records, 2);
  SetCode(*records, Chinese(11));
  Connected()->BeginTrans();
  ExpectTooLong(FailureOf([&] { records->UpdateBatch(); }), 22);
  Connected()->CommitTrans();
  EXPECT_EQ(Code(1), QStringLiteral("A-001"));
  EXPECT_EQ(records->PendingCount(), 2);
}

TEST_P(Lengths, AStatementsTextsAreMeasuredByTheSameRule) {
  Connected()->Execute(QStringLiteral("Update files Set code = '%1'").arg(Chinese(10)) + Tail());
  EXPECT_EQ(Code(1), Chinese(10));
  for (const QString& statement : {QStringLiteral("Update files Set code = '%1'").arg(Chinese(11)) + Tail(),
                                   QStringLiteral("Insert Into files (id,code) Values (6,'%1')").arg(Chinese(11))}) {
    const DataError error = FailureOf([&] { Connected()->Execute(statement); });
    ExpectTooLong(error, 22);
    EXPECT_EQ(error.Statement(), statement);
  }
  EXPECT_EQ(Code(1), Chinese(10));
  EXPECT_EQ(Code(6), QStringLiteral("<no row>"));
}

TEST_P(Lengths, AStatementsNumbersAreMeasuredByTheSameRule) {
  Connected()->Execute(QStringLiteral("Update files Set code = 1234567890123456789") + Tail());
  EXPECT_EQ(Code(1), QStringLiteral("1234567890123456789"));
  ExpectTooLong(FailureOf([&] {
                  Connected()->Execute(QStringLiteral("Update files Set code = 1234567890.12345678901") + Tail());
                }),
                22);
}

// As a host may have written it, or an earlier design of the table let in.
class TooLongAlready : public Lengths {
 protected:
  void SetUp() override {
    Lengths::SetUp();
    Meanwhile(QStringLiteral("UPDATE files SET code = '%1' WHERE id = 1").arg(Chinese(15)));
    records_ = Open();
  }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(TooLongAlready);

TEST_P(TooLongAlready, AValueDoesNotKeepTheOthersOfItsRowFromBeingSaved) {
  (*records_)[QStringLiteral("remark")].SetValue(QStringLiteral("mine"));
  records_->UpdateBatch();
  EXPECT_EQ(Stored(1, QStringLiteral("remark")), QStringLiteral("mine"));
  EXPECT_EQ(Code(1), Chinese(15));
}

TEST_P(TooLongAlready, AValueMayBeMadeShorterButNotLonger) {
  SetCode(*records_, Chinese(14));
  records_->UpdateBatch();
  EXPECT_EQ(Code(1), Chinese(14));
  SetCode(*records_, Chinese(15));
  ExpectTooLong(FailureOf([&] { records_->UpdateBatch(); }), 30);
}

TEST_P(Lengths, BlanksThatDoNotFitAreLeftOff) {
  const auto records = Open();
  SetCode(*records, Chinese(9) + QString(5, u' '));
  records->UpdateBatch();
  EXPECT_EQ(Code(1), Chinese(9) + QString(2, u' '));
  EXPECT_EQ((*records)[QStringLiteral("code")].Text(), Chinese(9) + QString(2, u' '));
  SetCode(*records, QStringLiteral("next"));
  records->UpdateBatch();
  EXPECT_EQ(Code(1), QStringLiteral("next"));
}

TEST(FittedText, AColumnOfNationalCharactersHoldsAsManyAsItSays) {
  ColumnInfo column;
  column.name = QStringLiteral("题名");
  column.type = AdoType::VarWChar;
  column.definedSize = 4;
  EXPECT_EQ(FittedText(Chinese(4), column), Chinese(4));
  EXPECT_EQ(FailureOf([&] { FittedText(Chinese(5), column); }).Message(),
            QStringLiteral("字段“题名”的值太长：有 5 个字符，最多 4 个字符。"));
}

}  // namespace

}  // namespace folvane::test
