#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

// By their codes these stand in the order 一 中 啊 张 李.
class PinyinOrder : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    if (DatabaseSession::Of(*Connected()).NativeDriver().PinyinCollation().isEmpty())
      GTEST_SKIP() << "no collation by pinyin here";
    Database().Native(u"CREATE TABLE people (id varchar(20) PRIMARY KEY, name varchar(40), age integer)"_s);
    for (const char* row : {"'中', '中', 1", "'啊', '啊', 2", "'张', '张', 3", "'李', '李', 4", "'一', '一', 5",
                            "'x', NULL, 6", "'y', 'b', 7", "'z', 'A', 8"})
      Database().Native(u"INSERT INTO people VALUES (%1)"_s.arg(QString::fromUtf8(row)));
  }
  QString Names(const char* rest, TextOrder order = TextOrder::Pinyin) {
    Recordset records;
    records.SetTextOrder(order);
    records.Open(u"Select * From people "_s + QString::fromUtf8(rest), Connected());
    return Texts(records, u"name"_s).join(u' ');
  }
};
FOLVANE_ON_EACH_DATABASE(PinyinOrder);

TEST_P(PinyinOrder, PutsChineseByPinyinBeforeLatinLetters) {
  EXPECT_EQ(Names("Order By name Asc"), u" 啊 李 一 张 中 A b"_s);
  EXPECT_EQ(Names("Order By name Desc"), u"b A 中 张 一 李 啊 "_s);
}

TEST_P(PinyinOrder, IsOnlyThereWhenItIsAskedFor) {
  EXPECT_EQ(Names("Order By name Asc", TextOrder::Plain), u" A b 一 中 啊 张 李"_s);
}

TEST_P(PinyinOrder, ChangesNoComparison) {
  for (const char* condition : {"Where name < '啊' Order By age", "Where name = '啊' Order By age",
                                "Where name Between '一' And '中' Order By age", "Where name = 'a' Order By age"})
    EXPECT_EQ(Names(condition), Names(condition, TextOrder::Plain)) << condition;
  EXPECT_EQ(Names("Where name < '啊' And name > '一 ' Order By name"), u"中"_s);
}

TEST_P(PinyinOrder, LeavesNumbersAndTheOrderOfTheKeyAlone) {
  EXPECT_EQ(Names("Where name Is Not Null Order By age Desc"), u"A b 一 李 张 啊 中"_s);
  EXPECT_EQ(Names("Where age < 6 Order By id"), Names("Where age < 6 Order By id", TextOrder::Plain));
}

TEST_P(PinyinOrder, StaysWhenTheRecordSetIsReadAgain) {
  Recordset records;
  records.SetTextOrder(TextOrder::Pinyin);
  records.Open(u"Select * From people Where age < 6 Order By name"_s, Connected());
  Database().Native(u"INSERT INTO people VALUES ('王', '王', 0)"_s);
  records.Requery();
  EXPECT_EQ(Texts(records, u"name"_s).join(u' '), u"啊 李 王 一 张 中"_s);
}

TEST_P(PinyinOrder, DoesNotShowInTheStatementThatIsTold) {
  QStringList told;
  Connected()->OnStatement([&](const QString& statement) { told << statement; });
  Names("Order By name Asc");
  EXPECT_EQ(told, QStringList{u"Select * From people Order By name Asc"_s});
}

TEST_P(PinyinOrder, GivesWayWhereRowsAreToldApartByTheirTexts) {
  Recordset records;
  records.SetTextOrder(TextOrder::Pinyin);
  records.Open(u"Select Distinct name From people Where age < 6 Order By name"_s, Connected());
  EXPECT_EQ(records.RecordCount(), 5);
}

}  // namespace

}  // namespace folvane::test
