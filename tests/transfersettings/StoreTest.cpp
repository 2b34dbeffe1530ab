#include "transfersettings/SettingsFixture.h"

// Reading and writing the settings, and what is kept when that fails.
namespace folvane::test {
namespace {
using namespace transfer;
using testing::ElementsAre;
using testing::HasSubstr;

class StoreTest : public SettingsTest {};
FOLVANE_ON_EACH_DATABASE(StoreTest);

TEST_P(StoreTest, ReadsWhatTheDesignTablesHave) {
  const TransferSettings settings(Connected());
  ASSERT_EQ(settings.Now().sets.size(), 1u);
  const TransferSet& set = settings.Now().sets[0];
  EXPECT_EQ(set.number + set.source + set.destination, u"1LwdjWenshu"_s);
  ASSERT_EQ(set.links.size(), 2u);
  EXPECT_EQ(set.links[1].source + set.links[1].destination + set.links[1].caption, u"PagesQuantity页数"_s);
  const NumberFormat format = settings.FormatOf(u"WENSHU"_s);
  ASSERT_EQ(format.parts.size(), 3u);
  EXPECT_TRUE(format.parts[0].showsCode);
  EXPECT_FALSE(format.parts[1].showsCode);
  EXPECT_EQ(format.parts[2].field + format.parts[2].separator + format.parts[2].length, u"ItemNo-4"_s);
  EXPECT_EQ(format.storeField + format.folderField, u"ArchNo(无)"_s);
  EXPECT_FALSE(settings.IsChanged());
}

TEST_P(StoreTest, NothingIsWrittenWhereNothingChanged) {
  TransferSettings settings(Connected());
  log_->Take();
  settings.Save();
  EXPECT_EQ(log_->Take(), QStringList());
}

TEST_P(StoreTest, ANewPairIsWrittenWithItsFieldsUnderANumberOfItsOwn) {
  AddField(u"7"_s, u"Lost"_s, u"Lost"_s, QString());  // a number that only fields have is taken, too
  TransferSettings settings(Connected());
  const std::size_t set = settings.AddSet(u"Anjuan"_s, u"Wenshu"_s);
  settings.Link(set, u"Amaintitle"_s, u"Amaintitle"_s);
  EXPECT_TRUE(settings.IsChanged());
  settings.Save();
  EXPECT_FALSE(settings.IsChanged());
  EXPECT_EQ(Pairs(), QStringList({u"1|Lwdj|Wenshu"_s, u"8|Anjuan|Wenshu"_s}));
  EXPECT_TRUE(Fields().contains(u"8|Amaintitle|Amaintitle|案卷题名"_s));
}

TEST_P(StoreTest, OnlyWhatChangedIsWritten) {
  AddPair(u"2"_s, u"Lwdj"_s, u"Anjuan"_s);
  AddField(u"2"_s, u"Unit"_s, u"Amaintitle"_s, u"责任者"_s);
  TransferSettings settings(Connected());
  settings.ChangeSet(0, u"Anjuan"_s, u"Wenshu"_s);
  log_->Take();
  settings.Save();
  QStringList written;
  for (const QString& statement : log_->Take())
    if (!statement.startsWith(u"Select"_s)) written << statement.toLower();  // a server spells its columns in its way
  EXPECT_EQ(written, QStringList({u"update datatransfer_ini set sourcetbl = 'anjuan' where recid = 1"_s}));
}

TEST_P(StoreTest, ARemovedPairTakesItsFieldsAlongAndNoOthers) {
  AddPair(u"2"_s, u"Lwdj"_s, u"Anjuan"_s);
  AddField(u"2"_s, u"Unit"_s, u"Amaintitle"_s, u"责任者"_s);
  TransferSettings settings(Connected());
  settings.RemoveSet(0);
  settings.Save();
  EXPECT_EQ(Pairs(), QStringList({u"2|Lwdj|Anjuan"_s}));
  EXPECT_EQ(Fields(), QStringList({u"2|Unit|Amaintitle|责任者"_s}));
}

TEST_P(StoreTest, PartsAreWrittenInTheirNewOrderWithOneStoreField) {
  TransferSettings settings(Connected());
  NumberFormat format = settings.FormatOf(u"Wenshu"_s);
  std::swap(format.parts[0], format.parts[1]);
  format.parts[0].separator = u" "_s;
  format.folderField = u"FolderNo"_s;
  settings.SetFormat(format);
  settings.Save();
  EXPECT_EQ(Parts(u"Wenshu"_s), QStringList({u"DocYear|年度| |显示名称|4|ArchNo|FolderNo"_s,
                                             u"FondsNo|全宗号|-|显示代号|4|ArchNo|FolderNo"_s,
                                             u"ItemNo|件号|-|显示名称|4|ArchNo|FolderNo"_s}));
  EXPECT_EQ(TransferSettings(Connected()).FormatOf(u"Wenshu"_s).parts[0].separator, u" "_s);
}

TEST_P(StoreTest, TextsWithQuotesAndEmptyOnesComeBackAsTheyWere) {
  TransferSettings settings(Connected());
  NumberFormat format = settings.FormatOf(u"Wenshu"_s);
  format.parts[1].separator = u"'"_s;
  format.parts[2].separator.clear();
  settings.SetFormat(format);
  settings.Save();
  EXPECT_EQ(TransferSettings(Connected()).FormatOf(u"Wenshu"_s).parts[1].separator, u"'"_s);
  EXPECT_EQ(TransferSettings(Connected()).FormatOf(u"Wenshu"_s).parts[2].separator, QString());
}

TEST_P(StoreTest, ColumnsThatOnlyTheHostKnowsAreKept) {
  for (const QString& table : {u"DataTransfer_Ini"_s, u"DataTransfer_Details"_s, u"ArchiveNo_Format"_s})
    design_->Run(u"alter table %1 add column Remark varchar(20)"_s.arg(table));
  for (const QString& table : {u"DataTransfer_Ini"_s, u"DataTransfer_Details"_s, u"ArchiveNo_Format"_s})
    design_->Run(u"update %1 set Remark = 'mine'"_s.arg(table));
  TransferSettings settings(Connected());
  settings.ChangeSet(0, u"Lwdj"_s, u"Anjuan"_s);
  settings.Link(0, u"Unit"_s, u"Amaintitle"_s);
  NumberFormat format = settings.FormatOf(u"Wenshu"_s);
  format.parts.erase(format.parts.begin() + 1);
  settings.SetFormat(format);
  settings.Save();
  EXPECT_EQ(Rows(u"select Remark from DataTransfer_Ini"_s), QStringList({u"mine"_s}));
  EXPECT_EQ(Rows(u"select Remark from DataTransfer_Details"_s), QStringList({u"mine"_s, u"mine"_s}));
  EXPECT_EQ(Rows(u"select Remark from ArchiveNo_Format"_s), QStringList({u"mine"_s, u"mine"_s}));
}

TEST_P(StoreTest, ASaveThatFailsLeavesTheTablesAndTheChanges) {
  const QStringList before = Everything();
  TransferSettings settings(Connected());
  settings.RemoveLink(0, 0);
  NumberFormat format = settings.FormatOf(u"Wenshu"_s);
  format.parts[0].separator = u"分隔符太长了"_s;  // 12 bytes for a column of 10
  settings.SetFormat(format);
  const DataError error = ErrorOf([&] { settings.Save(); });
  EXPECT_EQ(error.Kind(), DataErrorKind::TooLong) << error.what();
  EXPECT_EQ(Everything(), before);
  EXPECT_FALSE(Connected()->InTransaction());
  EXPECT_TRUE(settings.IsChanged());
  EXPECT_EQ(settings.Now().sets[0].links.size(), 1u);
}

TEST_P(StoreTest, AnyStatementMayFailWithoutATrace) {
  const QStringList before = Everything();
  for (int number = 4; number <= 10; ++number) {  // the first three read the tables again
    TransferSettings settings(Connected());
    settings.AddSet(u"Anjuan"_s, u"Wenshu"_s);
    settings.RemoveLink(0, 0);
    NumberFormat format = settings.FormatOf(u"Wenshu"_s);
    std::swap(format.parts[0], format.parts[1]);
    settings.SetFormat(format);
    log_.reset();
    {
      LockedStatement locked(*Connected(), number);
      EXPECT_EQ(ErrorOf([&] { settings.Save(); }).Kind(), DataErrorKind::Locked) << number;
      EXPECT_TRUE(locked.WasRun());
    }
    EXPECT_EQ(Everything(), before) << number;
  }
}

TEST_P(StoreTest, WhatAnotherUserChangedIsToldAndNotOverwritten) {
  TransferSettings mine(Connected());
  {
    TransferSettings theirs(Database().Connect());
    theirs.Link(0, u"Unit"_s, u"Author"_s);
    theirs.Save();
  }
  const QStringList before = Everything();
  mine.RemoveSet(0);
  const DataError error = ErrorOf([&] { mine.Save(); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Conflict);
  EXPECT_THAT(error.Message().toStdString(), HasSubstr("其他用户"));
  EXPECT_EQ(Everything(), before);
  mine.Read();
  EXPECT_EQ(mine.Now().sets[0].links.size(), 3u);
  mine.RemoveSet(0);
  mine.Save();
  EXPECT_EQ(Pairs(), QStringList());
}

TEST_P(StoreTest, MissingTablesAndColumnsAreNamed) {
  design_->Run(u"drop table DataTransfer_Details"_s);
  design_->Run(u"alter table ArchiveNo_Format drop column Lengh"_s);
  const DataError error = ErrorOf([&] { TransferSettings settings(Connected()); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Usage);
  EXPECT_THAT(error.Message().toStdString(), HasSubstr("缺少表：DataTransfer_Details。"));
  EXPECT_THAT(error.Message().toStdString(), HasSubstr("表 ArchiveNo_Format 缺少列：Lengh。"));
}

TEST_P(StoreTest, APairWithoutANumberAndOneWithThatOfAnotherGetTheirOwn) {
  design_->DropKey(u"DataTransfer_Ini"_s);
  AddPair(u"1"_s, u"Lwdj"_s, u"Anjuan"_s);
  AddPair(u"<null>"_s, u"Anjuan"_s, u"Wenshu"_s);
  TransferSettings settings(Connected());
  EXPECT_EQ(settings.Now().sets[1].links.size(), 2u);  // fields of one number belong to both
  EXPECT_EQ(settings.Now().sets[2].links.size(), 0u);
  settings.RemoveLink(1, 0);
  settings.Save();
  EXPECT_EQ(Pairs(), QStringList({u"1|Lwdj|Wenshu"_s, u"2|Lwdj|Anjuan"_s, u"3|Anjuan|Wenshu"_s}));
  EXPECT_EQ(Fields(),
            QStringList({u"1|Amaintitle|Amaintitle|题名"_s, u"1|Pages|Quantity|页数"_s, u"2|Pages|Quantity|页数"_s}));
}

TEST_P(StoreTest, FieldsWhosePairIsGoneAreShownAndCanBeGivenOne) {
  AddField(u"9"_s, u"Unit"_s, u"Author"_s, u"责任者"_s);
  AddField(u"<null>"_s, u"Memo"_s, u"Author"_s, u"备注"_s);
  TransferSettings settings(Connected());
  ASSERT_EQ(settings.Now().sets.size(), 3u);
  EXPECT_TRUE(settings.Now().sets[1].IsOrphan());
  settings.RemoveLink(0, 0);
  settings.Save();  // leaves them alone
  EXPECT_EQ(Rows(u"select count(*) from DataTransfer_Details where IniRecId = 9 or IniRecId is null"_s),
            QStringList({u"2"_s}));
  settings.ChangeSet(1, u"Anjuan"_s, u"Wenshu"_s);
  settings.RemoveSet(2);
  settings.Save();
  EXPECT_EQ(Pairs(), QStringList({u"1|Lwdj|Wenshu"_s, u"9|Anjuan|Wenshu"_s}));
  EXPECT_EQ(Fields(), QStringList({u"1|Pages|Quantity|页数"_s, u"9|Unit|Author|责任者"_s}));
}

TEST_P(StoreTest, RowsThatNameDifferentStoreFieldsStayUntilTheFormatIsChanged) {
  AddPart(u"Wenshu"_s, u"SignDate"_s, u"日期"_s, u"10"_s, u"显示名称"_s, u"FolderNo"_s);
  TransferSettings settings(Connected());
  EXPECT_TRUE(settings.FormatOf(u"Wenshu"_s).rowsDiffer);
  EXPECT_EQ(settings.FormatOf(u"Wenshu"_s).storeField, u"FolderNo"_s);  // the last row's counts
  settings.RemoveLink(0, 0);
  settings.Save();
  EXPECT_EQ(Rows(u"select StoreField from ArchiveNo_Format order by 1"_s),
            QStringList({u"ArchNo"_s, u"ArchNo"_s, u"ArchNo"_s, u"FolderNo"_s}));
  NumberFormat format = settings.FormatOf(u"Wenshu"_s);
  format.storeField = u"ArchNo"_s;
  settings.SetFormat(format);
  settings.Save();
  EXPECT_EQ(Rows(u"select distinct StoreField from ArchiveNo_Format"_s), QStringList({u"ArchNo"_s}));
}

TEST_P(StoreTest, TheTransactionOfAnotherIsLeftAlone) {
  TransferSettings settings(Connected());
  settings.RemoveSet(0);
  Connected()->BeginTrans();
  EXPECT_EQ(ErrorOf([&] { settings.Save(); }).Kind(), DataErrorKind::Usage);
  EXPECT_TRUE(Connected()->InTransaction());
  Connected()->RollbackTrans();
  EXPECT_EQ(Pairs(), QStringList({u"1|Lwdj|Wenshu"_s}));
}

}  // namespace
}  // namespace folvane::test
