#include <gtest/gtest.h>

#include "data/DataSuite.h"
#include "data/RefusedValues.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

// A column varchar(20) holds 20 bytes of the national code page: ten Chinese characters.
QString Chinese(int count) { return QString(count, QChar(0x6863)); }
QString Tail() { return u" Where id = 1"_s; }

class Lengths : public DataSuite {
 protected:
  static void ExpectTooLong(const DataError& error, int bytes) {
    EXPECT_EQ(error.Kind(), DataErrorKind::TooLong);
    EXPECT_EQ(error.Column(), u"code"_s);
    EXPECT_EQ(error.Message(), u"字段“code”的值太长：有 %1 个字节，最多 20 个字节。"_s.arg(bytes));
  }
  static void SetCode(Recordset& records, const QString& code) { records[u"code"_s].SetValue(code); }
  QString Code(int id) { return Stored(id, u"code"_s); }
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
    const auto records = Open(u"Select * From files Order By id"_s, lock);
    SetCode(*records, Chinese(10) + u'x');
    ExpectTooLong(FailureOf([&] { lock == LockType::Optimistic ? records->Update() : records->UpdateBatch(); }), 21);
    EXPECT_EQ((*records)[u"code"_s].Text(), Chinese(10) + u'x');
    EXPECT_EQ(Code(1), u"A-001"_s);
  }
}

TEST_P(Lengths, ANewRowIsRefusedAsAChangedOneIs) {
  const auto records = Open();
  records->AddNew();
  (*records)[u"id"_s].SetValue(6);
  SetCode(*records, Chinese(11));
  ExpectTooLong(FailureOf([&] { records->UpdateBatch(); }), 22);
  SetCode(*records, Chinese(9));
  records->UpdateBatch();
  EXPECT_EQ(Code(6), Chinese(9));
}

TEST_P(Lengths, ABatchIsCheckedWholeBeforeItsFirstRowIsWritten) {
  const auto records = Open();
  SetCode(*records, u"written"_s);
  StandOn(*records, 2);
  SetCode(*records, Chinese(11));
  Connected()->BeginTrans();
  ExpectTooLong(FailureOf([&] { records->UpdateBatch(); }), 22);
  Connected()->CommitTrans();
  EXPECT_EQ(Code(1), u"A-001"_s);
  EXPECT_EQ(records->PendingCount(), 2);
}

TEST_P(Lengths, AStatementsTextsAreMeasuredByTheSameRule) {
  Connected()->Execute(u"Update files Set code = '%1'"_s.arg(Chinese(10)) + Tail());
  EXPECT_EQ(Code(1), Chinese(10));
  for (const QString& statement : {u"Update files Set code = '%1'"_s.arg(Chinese(11)) + Tail(),
                                   u"Insert Into files (id,code) Values (6,'%1')"_s.arg(Chinese(11))}) {
    const DataError error = FailureOf([&] { Connected()->Execute(statement); });
    ExpectTooLong(error, 22);
    EXPECT_EQ(error.Statement(), statement);
  }
  EXPECT_EQ(Code(1), Chinese(10));
  EXPECT_EQ(Code(6), u"<no row>"_s);
}

TEST_P(Lengths, AStatementsNumbersAreMeasuredByTheSameRule) {
  Connected()->Execute(u"Update files Set code = 1234567890123456789"_s + Tail());
  EXPECT_EQ(Code(1), u"1234567890123456789"_s);
  ExpectTooLong(FailureOf([&] { Connected()->Execute(u"Update files Set code = 1234567890.12345678901"_s + Tail()); }),
                22);
}

// As a host may have written it, or an earlier design of the table let in.
class TooLongAlready : public Lengths {
 protected:
  void SetUp() override {
    Lengths::SetUp();
    Meanwhile(u"UPDATE files SET code = '%1' WHERE id = 1"_s.arg(Chinese(15)));
    records_ = Open();
  }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(TooLongAlready);

TEST_P(TooLongAlready, AValueDoesNotKeepTheOthersOfItsRowFromBeingSaved) {
  (*records_)[u"remark"_s].SetValue(u"mine"_s);
  records_->UpdateBatch();
  EXPECT_EQ(Stored(1, u"remark"_s), u"mine"_s);
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
  EXPECT_EQ((*records)[u"code"_s].Text(), Chinese(9) + QString(2, u' '));
  SetCode(*records, u"next"_s);
  records->UpdateBatch();
  EXPECT_EQ(Code(1), u"next"_s);
}

TEST(FittedText, OfNothingButBlanksAsManyStayAsFit) {
  ColumnInfo column;
  column.definedSize = 3;
  EXPECT_EQ(FittedText(QString(5, u' '), column), QString(3, u' '));
}

TEST(FittedText, AColumnOfNationalCharactersHoldsAsManyAsItSays) {
  ColumnInfo column;
  column.name = u"题名"_s;
  column.type = AdoType::VarWChar;
  column.definedSize = 4;
  EXPECT_EQ(FittedText(Chinese(4), column), Chinese(4));
  EXPECT_EQ(FailureOf([&] { FittedText(Chinese(5), column); }).Message(),
            u"字段“题名”的值太长：有 5 个字符，最多 4 个字符。"_s);
}

}  // namespace

}  // namespace folvane::test
