#include <gtest/gtest.h>

#include "archiving/TransferFixture.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class TransferFieldsTest : public TransferTest {};
FOLVANE_ON_EACH_DATABASE(TransferFieldsTest);

TEST_P(TransferFieldsTest, AnArchiveWithoutDateOfInputAndFlagGetsNeither) {
  for (const QString& column : {u"InputDate"_s, u"ArchiveFlag"_s})
    design_->Run(u"alter table Wenshu drop column "_s + column);
  AddDocuments(1);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(Archived(u"Amaintitle,ItemNo,ArchNo"_s), QStringList({u"题名1|1|123-2002-0001"_s}));
}

TEST_P(TransferFieldsTest, ARecordWithoutStatusIsNotToBeArchived) {
  AddDocument(1, u"题名1"_s, u"2002-01-01"_s, u"1"_s, u"<null>"_s);
  AddDocument(2, u"题名2"_s, u"2002-01-01"_s, u"1"_s, QString());
  EXPECT_EQ(Transfer(2).SucceedCount(), 0);
  EXPECT_EQ(Archived(u"Amaintitle"_s), QStringList());
}

TEST_P(TransferFieldsTest, EveryRecordOfATableWithoutStatusIsReady) {
  design_->Run(u"alter table Fwdj drop column FileStatus"_s);
  for (const QString& number : {u"1"_s, u"2"_s})
    design_->Insert(u"Fwdj"_s, u"ArchiveID,Amaintitle,SignDate,Pages"_s,
                    {DesignedDatabase::Key(number.toInt()), u"题名"_s + number, u"2002-01-01"_s, u"1"_s});
  const QStringList source = Rows(u"select * from Fwdj order by 1"_s);
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
  EXPECT_EQ(Rows(u"select * from Fwdj order by 1"_s), source);
}

TEST_P(TransferFieldsTest, AFieldOfTheMapThatIsNotThereTakesEverythingBackAndIsTold) {
  AddDocuments(2);
  const QStringList before = Everything();
  for (const auto& [source, destination] :
       {std::pair(u"Missing"_s, u"Amaintitle"_s), std::pair(u"Amaintitle"_s, u"Missing"_s)}) {
    Unmap();
    Map(source, destination);
    boxes_.Clear();
    EXPECT_EQ(Transfer(2).SucceedCount(), 0);
    EXPECT_EQ(boxes_.Last().text, u"数据归档时出现错误，所有操作将被取消！   "_s + u"记录集中没有字段“Missing”。"_s);
    EXPECT_EQ(Everything(), before);
    EXPECT_FALSE(Connected()->InTransaction());
  }
}

TEST_P(TransferFieldsTest, AFieldOfTheNumberThatIsNotThereTakesEverythingBackAndIsTold) {
  AddColumn(u"Anjuan"_s, u"Missing varchar(10)"_s);
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"ItemNo"_s, QString(), u"-"_s, false, 4}}, u"Missing"_s);
  AddDocuments(1);
  const QStringList before = Everything();
  EXPECT_EQ(Transfer(1).SucceedCount(), 0);
  EXPECT_EQ(boxes_.Last().flags, 48);
  EXPECT_EQ(Everything(), before);
}

// The kinds of values that do not convert differ in their words alone.
TEST_P(TransferFieldsTest, EachQuestionKnowsEachAnswer) {
  struct Case {
    QString date, pages;
    int answer, succeeded;
    QStringList kept;
  };
  const Case cases[] = {
      {u"2002-01-01"_s, u"页"_s, 7, 1, {u"题名1"_s}},
      {u"2002-01-01"_s, u"页"_s, 2, 0, {}},
      {u"2002-01-01"_s, u"页"_s, 6, 3, {u"题名1"_s, u"题名2"_s, u"题名3"_s}},
      {u"某日"_s, u"1"_s, 7, 1, {u"题名1"_s}},
      {u"某日"_s, u"1"_s, 2, 0, {}},
      {u"某日"_s, u"1"_s, 6, 3, {u"题名1"_s, u"题名2"_s, u"题名3"_s}},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE((each.date + each.pages).toStdString() + " " + std::to_string(each.answer));
    for (const QString& table : {u"Fwdj"_s, u"Wenshu"_s, u"Anjuan"_s}) design_->Run(u"delete from "_s + table);
    AddDocument(1, u"题名1"_s, u"2002-01-01"_s, u"1"_s);
    AddDocument(2, u"题名2"_s, each.date, each.pages);
    AddDocument(3, u"题名3"_s, u"2002-01-01"_s, u"1"_s);
    boxes_.Answer(each.answer);
    EXPECT_EQ(Transfer(3).SucceedCount(), each.succeeded);
    EXPECT_EQ(Archived(u"Amaintitle"_s), each.kept);
    EXPECT_EQ(Rows(u"select Amaintitle from Fwdj where FileStatus='已归档' order by 1"_s), each.kept);
    EXPECT_EQ(Volumes(u"ArchNo"_s).size(), each.answer == 6 ? 1 : 0);
    EXPECT_FALSE(Connected()->InTransaction());
  }
}

}  // namespace
}  // namespace folvane::test
