#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "archiving/TransferFixture.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class TransferNumbersTest : public TransferTest {
 protected:
  void SetPageFormat() {
    SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"PageNo"_s, QString(), u"-"_s, false, 3}}, u"ArchNo"_s);
  }
  void AddArchived(const QString& columns, const QStringList& values) {
    design_->Insert(u"Wenshu"_s, u"ArchiveID,"_s + columns, QStringList{QString::number(++archived_)} + values);
  }
  int archived_ = 0;
};
FOLVANE_ON_EACH_DATABASE(TransferNumbersTest);

TEST_P(TransferNumbersTest, AFormatWithOneRowCountsOverTheWholeTable) {
  design_->Run(u"delete from Design_TableRelation"_s);
  AddArchived(u"FondsNo,ItemNo"_s, {u"999"_s, u"41"_s});
  SetFormat({{u"ItemNo"_s, QString(), QString(), false, 4}}, u"ArchNo"_s);
  AddDocuments(1);
  log_->Take();
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_TRUE(log_->Take().contains(u"Select Max(ItemNo) From Wenshu"_s));
  // Without a separator the number loses its first digit.
  EXPECT_EQ(Rows(u"select ItemNo,ArchNo from Wenshu where Amaintitle='题名1'"_s), QStringList({u"42|042"_s}));
  EXPECT_EQ(transfer_->ResultMsg(), u"起始件档号为：042"_s);
}

TEST_P(TransferNumbersTest, CountOnFromTheGreatestOfTheVolume) {
  AddArchived(u"FondsNo,DocYear,ItemNo,Amaintitle"_s, {u"123"_s, u"2002"_s, u"7"_s, u"旧"_s});
  AddArchived(u"FondsNo,DocYear,ItemNo,Amaintitle"_s, {u"123"_s, u"2001"_s, u"90"_s, u"旧"_s});
  AddDocuments(2);
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
  EXPECT_EQ(Rows(u"select ItemNo,ArchNo from Wenshu where Amaintitle like '题名%' order by ItemNo"_s),
            QStringList({u"8|123-2002-0008"_s, u"9|123-2002-0009"_s}));
}

TEST_P(TransferNumbersTest, PagesGoOnByTheQuantityOfEachRecordWhereTheOrderIsCounted) {
  AddColumn(u"Wenshu"_s, u"DocOrder integer"_s);
  SetPageFormat();
  AddDocument(1, u"题名1"_s, u"2002-01-01"_s, u"3"_s);
  AddDocument(2, u"题名2"_s, u"2002-01-01"_s, u"<null>"_s);
  AddDocument(3, u"题名3"_s, u"2002-01-01"_s, u"2"_s);
  EXPECT_EQ(Transfer(3).SucceedCount(), 3);
  EXPECT_EQ(Archived(u"DocOrder,PageNo,Quantity,ArchNo"_s),
            QStringList({u"1|1|3|123-001"_s, u"2|4|1|123-004"_s, u"3|5|2|123-005"_s}));
  EXPECT_EQ(Volumes(u"Quantity"_s), QStringList({u"6"_s}));
}

TEST_P(TransferNumbersTest, PagesGoOnFromTheRecordBefore) {
  AddColumn(u"Wenshu"_s, u"DocOrder integer"_s);
  SetPageFormat();
  AddArchived(u"FondsNo,DocOrder,PageNo,Quantity,Amaintitle"_s, {u"123"_s, u"4"_s, u"10"_s, u"5"_s, u"旧"_s});
  AddDocuments(1);
  log_->Take();
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_TRUE(log_->Take().contains(u"Select PageNo,Quantity From Wenshu Where FondsNo = '123' And DocOrder = '4'"_s));
  EXPECT_EQ(Rows(u"select DocOrder,PageNo from Wenshu where Amaintitle='题名1'"_s), QStringList({u"5|15"_s}));
}

TEST_P(TransferNumbersTest, ARecordBeforeWithoutQuantityCountsAsOnePage) {
  AddColumn(u"Wenshu"_s, u"DocOrder integer"_s);
  SetPageFormat();
  AddArchived(u"FondsNo,DocOrder,PageNo,Amaintitle"_s, {u"123"_s, u"4"_s, u"10"_s, u"旧"_s});
  AddDocuments(1);
  Transfer(1);
  EXPECT_EQ(Database().Value(u"select PageNo from Wenshu where Amaintitle='题名1'"_s), u"11"_s);
}

TEST_P(TransferNumbersTest, PagesBeginAnewBehindARecordWithoutPage) {
  design_->Run(u"delete from Design_TableRelation"_s);
  AddColumn(u"Wenshu"_s, u"DocOrder integer"_s);
  SetFormat({{u"PageNo"_s, QString(), u"-"_s, false, 3}}, u"ArchNo"_s);
  AddArchived(u"DocOrder,Quantity"_s, {u"4"_s, u"5"_s});
  AddDocuments(1);
  log_->Take();
  Transfer(1);
  EXPECT_TRUE(log_->Take().contains(u"Select PageNo,Quantity From Wenshu Where DocOrder = '4'"_s));
  EXPECT_EQ(Rows(u"select DocOrder,PageNo from Wenshu where Amaintitle='题名1'"_s), QStringList({u"5|1"_s}));
}

TEST_P(TransferNumbersTest, TheNameOfThePageIsKnownInAnyCase) {
  AddColumn(u"Wenshu"_s, u"DocOrder integer"_s);
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"pageno"_s, QString(), u"-"_s, false, 3}}, u"ArchNo"_s);
  AddDocument(1, u"题名1"_s, u"2002-01-01"_s, u"3"_s);
  AddDocument(2, u"题名2"_s, u"2002-01-01"_s, u"1"_s);
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
  EXPECT_EQ(Archived(u"DocOrder,PageNo,ArchNo"_s), QStringList({u"1|1|123-001"_s, u"2|4|123-004"_s}));
}

TEST_P(TransferNumbersTest, WithoutQuantityTheOrderIsCountedAndThePageLeft) {
  design_->Run(u"delete from Design_TableRelation"_s);
  AddColumn(u"Wenshu"_s, u"DocOrder integer"_s);
  design_->Run(u"alter table Wenshu drop column Quantity"_s);
  Unmap();
  Map(u"Amaintitle"_s, u"Amaintitle"_s);
  SetPageFormat();
  AddDocuments(2);
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
  EXPECT_EQ(Archived(u"DocOrder,PageNo,ArchNo"_s), QStringList({u"1|<null>|123-000"_s, u"2|<null>|123-000"_s}));
}

TEST_P(TransferNumbersTest, WithoutOrderThePageItselfIsCountedByOne) {
  SetPageFormat();
  AddDocument(1, u"题名1"_s, u"2002-01-01"_s, u"3"_s);
  AddDocument(2, u"题名2"_s, u"2002-01-01"_s, u"3"_s);
  Transfer(2);
  EXPECT_EQ(Archived(u"PageNo,Quantity,ArchNo"_s), QStringList({u"1|3|123-001"_s, u"2|3|123-002"_s}));
}

TEST_P(TransferNumbersTest, ATextFieldIsNotCountedButFilledUp) {
  AddColumn(u"Wenshu"_s, u"Code varchar(10)"_s);
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"Code"_s, QString(), u"."_s, false, 4}}, u"ArchNo"_s);
  Map(u"Pages"_s, u"Code"_s);
  AddDocument(1, u"题名1"_s, u"2002-01-01"_s, u"12"_s);
  AddDocument(2, u"题名2"_s, u"2002-01-01"_s, u"<null>"_s);
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
  EXPECT_EQ(Archived(u"Code,ArchNo"_s), QStringList({u"12|123.0012"_s, u"<null>|123.0000"_s}));
}

TEST_P(TransferNumbersTest, EqualNumbersOfATextFieldAreTheUsersOwnMatter) {
  AddColumn(u"Wenshu"_s, u"Code varchar(10)"_s);
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"Code"_s, QString(), u"."_s, false, 4}}, u"ArchNo"_s);
  AddDocuments(2);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(Transfer(2).SucceedCount(), 1);  // the first one is archived
  EXPECT_EQ(Archived(u"ArchNo"_s), QStringList({u"123.0000"_s, u"123.0000"_s}));
}

TEST_P(TransferNumbersTest, FormatsOfSeveralFieldsAndSeparators) {
  design_->Run(u"delete from Design_TableRelation"_s);
  AddColumn(u"Wenshu"_s, u"Term varchar(10)"_s);
  AddColumn(u"Wenshu"_s, u"Dept varchar(20)"_s);
  AddDictionary(u"Term"_s, u"永久"_s, u"1"_s);
  const NumberField fonds{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, year{u"DocYear"_s, u"2002"_s, u"·"_s, false, 4},
      term{u"Term"_s, u"永久"_s, u"、"_s, true, 2}, dept{u"Dept"_s, u"办公室"_s, QString(), false, 8},
      item{u"ItemNo"_s, QString(), u"-"_s, false, 3}, twice{u"FondsNo"_s, u"123"_s, u"--"_s, true, 4};
  struct Case {
    std::vector<NumberField> fields;
    QString number, folder;
  };
  const Case cases[] = {
      {{fonds, item}, u"123-001"_s, u"123"_s},
      {{fonds, year, item}, u"123·2002-001"_s, u"123·2002"_s},
      {{year, term, item}, u"2002、01-001"_s, u"2002、01"_s},
      {{fonds, year, term, item}, u"123·2002、01-001"_s, u"123·2002、01"_s},
      {{fonds, year, term, dept, item}, u"123·2002、0100办公室-001"_s, u"123·2002、0100办公室"_s},
      {{dept, item}, u"0办公室-001"_s, u"0办公室"_s},  // no separator: the first character is lost
      {{twice, item}, u"-123-001"_s, u"-123"_s},       // of a longer one the first character alone
      {{item}, u"001"_s, QString()},
  };
  AddDocuments(1);
  for (const Case& each : cases) {
    SCOPED_TRACE(each.number.toStdString());
    design_->Run(u"delete from Wenshu"_s);
    design_->Run(u"update Fwdj set FileStatus='需归档'"_s);
    SetFormat(each.fields, u"ArchNo"_s, u"FolderNo"_s);
    EXPECT_EQ(Transfer(1).SucceedCount(), 1);
    EXPECT_EQ(Archived(u"ArchNo,FolderNo"_s), QStringList({each.number + u'|' + each.folder}));
    EXPECT_EQ(transfer_->ResultMsg(), u"起始件档号为："_s + each.number);
  }
}

TEST_P(TransferNumbersTest, WithoutStoreFieldNoNumberIsComposedAndNoFixedFieldStored) {
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"ItemNo"_s, QString(), u"-"_s, false, 4}}, QString());
  design_->Run(u"delete from Design_TableRelation"_s);
  AddDocuments(1);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(Archived(u"FondsNo,ItemNo,ArchNo"_s), QStringList({u"<null>|1|<null>"_s}));
  EXPECT_EQ(transfer_->ResultMsg(), u"起始件档号为："_s);
}

TEST_P(TransferNumbersTest, AnEmptyFolderFieldRollsEverythingBackWithAMessage) {
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"ItemNo"_s, QString(), u"-"_s, false, 4}}, u"ArchNo"_s,
            QString());
  AddDocuments(2);
  const QStringList before = Everything();
  EXPECT_EQ(Transfer(2).SucceedCount(), 0);
  EXPECT_TRUE(boxes_.Last().text.startsWith(u"数据归档时出现错误，所有操作将被取消！   "_s));
  EXPECT_EQ(Everything(), before);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(TransferNumbersTest, ACounterBeyondSixteenBitsBeforeTheTransactionReachesTheCaller) {
  AddArchived(u"FondsNo,DocYear,ItemNo"_s, {u"123"_s, u"2002"_s, u"32767"_s});
  AddDocuments(1);
  EXPECT_THROW(Transfer(1), DataError);
  EXPECT_EQ(boxes_.Requests().size(), 0u);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(TransferNumbersTest, ACounterBeyondSixteenBitsAmongTheRecordsRollsBackAndIsTold) {
  AddArchived(u"FondsNo,DocYear,ItemNo"_s, {u"123"_s, u"2002"_s, u"32765"_s});
  AddDocuments(2);
  const QStringList before = Everything();
  EXPECT_EQ(Transfer(2).SucceedCount(), 0);
  EXPECT_TRUE(boxes_.Last().text.contains(u"溢出"_s));
  EXPECT_EQ(Everything(), before);
}

TEST_P(TransferNumbersTest, APageBeyondSixteenBitsRollsBackAndIsTold) {
  AddColumn(u"Wenshu"_s, u"DocOrder integer"_s);
  SetPageFormat();
  AddDocument(1, u"题名1"_s, u"2002-01-01"_s, u"32767"_s);
  const QStringList before = Everything();
  EXPECT_EQ(Transfer(1).SucceedCount(), 0);
  EXPECT_TRUE(boxes_.Last().text.contains(u"溢出"_s));
  EXPECT_EQ(Everything(), before);
}

TEST_P(TransferNumbersTest, APageBeyondSixteenBitsBeforeTheTransactionReachesTheCaller) {
  AddColumn(u"Wenshu"_s, u"DocOrder integer"_s);
  SetPageFormat();
  AddArchived(u"FondsNo,DocOrder,PageNo,Quantity"_s, {u"123"_s, u"4"_s, u"32767"_s, u"1"_s});
  AddDocuments(1);
  EXPECT_THROW(Transfer(1), DataError);
  EXPECT_EQ(boxes_.Requests().size(), 0u);
  EXPECT_FALSE(Connected()->InTransaction());
}

// The greatest of texts is not the greatest number, and the numbers begin again: that is how such a field is counted.
TEST_P(TransferNumbersTest, ALongTextIsCountedAsTextsCompare) {
  AddColumn(u"Wenshu"_s, u"Memo text"_s);
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"Memo"_s, QString(), u"-"_s, false, 3}}, u"ArchNo"_s);
  AddArchived(u"FondsNo,Memo"_s, {u"123"_s, u"9"_s});
  AddArchived(u"FondsNo,Memo"_s, {u"123"_s, u"10"_s});
  AddDocuments(2);
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
  EXPECT_EQ(boxes_.Texts(), QStringList());
  EXPECT_EQ(Rows(u"select Memo,ArchNo from Wenshu where Amaintitle like '题名%' order by Amaintitle"_s),
            QStringList({u"10|123-010"_s, u"11|123-011"_s}));
}

TEST_P(TransferNumbersTest, AParameterWithAnApostropheReachesTheCallerAsAnErrorAndChangesNothing) {
  SetFormat({{u"FondsNo"_s, u"1'3"_s, u"-"_s, true, 4}, {u"ItemNo"_s, QString(), u"-"_s, false, 3}}, u"ArchNo"_s);
  AddDocuments(1);
  const QStringList before = Everything();
  EXPECT_THROW(Transfer(1), DataError);
  EXPECT_EQ(Everything(), before);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(TransferNumbersTest, AMappedValueTakesThePlaceOfTheCounter) {
  Map(u"Pages"_s, u"ItemNo"_s);
  AddDocument(1, u"题名1"_s, u"2002-01-01"_s, u"55"_s);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(Archived(u"ItemNo,ArchNo"_s), QStringList({u"55|123-2002-0055"_s}));
}

TEST_P(TransferNumbersTest, ANumberTooLongForItsFieldRollsBackAndIsTold) {
  AddColumn(u"Wenshu"_s, u"ShortNo varchar(5)"_s);
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"ItemNo"_s, QString(), u"-"_s, false, 4}}, u"ShortNo"_s);
  AddDocuments(1);
  const QStringList before = Everything();
  EXPECT_EQ(Transfer(1).SucceedCount(), 0);
  EXPECT_EQ(boxes_.Last().title, u"数据归档"_s);
  EXPECT_EQ(Everything(), before);
}

}  // namespace
}  // namespace folvane::test
