#include <gmock/gmock.h>

#include "InputFixture.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// The entry window on two documents of Lwdj, which Wsda takes. Numbers are made of the year and the item.
class EntryArchiveTest : public InputTest {
 protected:
  void SetUp() override {
    InputTest::SetUp();
    Shared().UserId = u"1"_s;
    AddRecords(2);
    Run(u"update Lwdj set FileStatus='需归档'"_s);
    Design({u"Amaintitle"_s, u"题名"_s});
    Design({u"FileStatus"_s, u"归档状态"_s});
    CreateTable(*Connected(), BusinessTable(u"Wsda"_s, {{u"Amaintitle"_s, ColumnType::Text, 200},
                                                        {u"FileYear"_s, ColumnType::Text, 4},
                                                        {u"ItemNo"_s, ColumnType::Integer},
                                                        {u"ArchiveNo"_s, ColumnType::Text, 40}}));
    Design({u"FileYear"_s, u"年度"_s}, u"Wsda"_s);
    Run(u"insert into DataTransfer_Ini (RecId,SourceTbl,DesTbl) values (1,'Lwdj','Wsda')"_s);
    Run(u"insert into DataTransfer_Details (IniRecId,SourceField,DesField,SourceChn) values "
        "(1,'Amaintitle','Amaintitle','题名')"_s);
    for (const QString& field : {u"FileYear"_s, u"ItemNo"_s})
      Run(u"insert into ArchiveNo_Format (TableName,FieldName,ListSeparator,ShowMode,Lengh,StoreField,FolderNoField) "
          "values ('Wsda','%1','-','显示名称',4,'ArchiveNo','(无)')"_s.arg(field));
    Right(Parameter::Target, u"Wsda"_s);
  }
  static void GiveYearAndArchive(const Input& input) {
    WithWindow(u"FrmArchivePara"_s, [](QWidget& window) {
      Retype(Find<QWidget>(window, u"Txt(1)"_s), u"2002"_s);
      Click(Find<QWidget>(window, u"CmdOK"_s));
    });
    input.Do(u"mnuArchive"_s);
  }
  QString StatusOf(int record) {
    return Value(u"select FileStatus from Lwdj where ArchiveID='"_s + Key(record) + u"'"_s);
  }
};

FOLVANE_ON_EACH_DATABASE(EntryArchiveTest);

TEST_P(EntryArchiveTest, TransfersTheCurrentRecordAndMarksItInItsOwnRecordSet) {
  InWindow(
      [&](const Input& input) {
        GiveYearAndArchive(input);
        EXPECT_EQ(boxes_.Texts(), QStringList{u"成功归档1份记录！"_s});
        EXPECT_EQ(boxes_.Last().flags, 0);
        EXPECT_EQ(input.Text(u"Txt(2)"_s), u"已归档"_s);
        EXPECT_EQ(Shared().CurrentRecords[u"FileStatus"_s].Text(), u"已归档"_s);
        EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
        EXPECT_EQ(input.Position(), u"当前记录：第2条/共2条"_s);
      },
      false, 2);
  EXPECT_EQ(Value(u"select Amaintitle from Wsda"_s), u"题名2"_s);
  EXPECT_EQ(Value(u"select ArchiveNo from Wsda"_s), u"2002-0001"_s);
  EXPECT_EQ(StatusOf(1), u"需归档"_s);
  EXPECT_EQ(StatusOf(2), u"已归档"_s);
}

TEST_P(EntryArchiveTest, TheKeyDoesTheSameAndCopyingEnds) {
  InWindow([&](const Input& input) {
    input.Do(u"mnuCopyAll"_s);
    EXPECT_TRUE(input.Key(u"CopyAll"_s).isChecked());
    EXPECT_TRUE(input.KeyOn(u"DoArchive"_s));
    WithWindow(u"FrmArchivePara"_s, [](QWidget& window) {
      Retype(Find<QWidget>(window, u"Txt(1)"_s), u"2002"_s);
      Click(Find<QWidget>(window, u"CmdOK"_s));
    });
    input.Key(u"DoArchive"_s).trigger();
    EXPECT_FALSE(input.Key(u"CopyAll"_s).isChecked());
    EXPECT_FALSE(input.Entry(u"mnuCopyAll"_s).isChecked());
  });
  EXPECT_EQ(StatusOf(1), u"已归档"_s);
}

TEST_P(EntryArchiveTest, UnsavedDataAreToBeSavedFirst) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"改"_s);
    input.Do(u"mnuArchive"_s);
    EXPECT_EQ(boxes_.Last().text, u"请先保存当前数据！"_s);
    EXPECT_EQ(boxes_.Last().flags, 64);
    input.Do(u"CancelRecord"_s);
  });
  EXPECT_EQ(Value(u"select count(*) from Wsda"_s), u"0"_s);
}

TEST_P(EntryArchiveTest, CancellingTheParametersChangesNothing) {
  InWindow([&](const Input& input) {
    input.Do(u"mnuCopyAll"_s);
    WithWindow(u"FrmArchivePara"_s, [](QWidget& window) { window.close(); });
    input.Do(u"mnuArchive"_s);
    EXPECT_TRUE(input.Key(u"CopyAll"_s).isChecked());
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
  EXPECT_EQ(StatusOf(1), u"需归档"_s);
}

TEST_P(EntryArchiveTest, ARecordThatIsNotToBeArchivedStaysAsItIsAndTheStatusBarSaysSo) {
  Run(u"update Lwdj set FileStatus='不归档'"_s);
  InWindow([&](const Input& input) {
    GiveYearAndArchive(input);
    EXPECT_EQ(boxes_.Texts(), QStringList());
    EXPECT_EQ(TextIn(input.Window(), u"Note"_s), u"没有归档：当前记录不符合需要归档的条件"_s);
  });
  EXPECT_EQ(StatusOf(1), u"不归档"_s);
  EXPECT_EQ(Value(u"select count(*) from Wsda"_s), u"0"_s);
}

TEST_P(EntryArchiveTest, ARecordOfATableWithoutStatusIsTransferredAndStaysAsItIs) {
  Run(u"alter table Lwdj drop column FileStatus"_s);
  Run(u"delete from DynamicWindows where FieldName='FileStatus'"_s);
  Run(u"delete from SaveControls where DataField='FileStatus'"_s);
  InWindow([&](const Input& input) {
    GiveYearAndArchive(input);
    EXPECT_EQ(boxes_.Texts(), QStringList{u"成功归档1份记录！"_s});
    EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
  });
  EXPECT_EQ(Value(u"select ArchiveNo from Wsda"_s), u"2002-0001"_s);
}

TEST_P(EntryArchiveTest, OriginalsGoAlongAndTheSourceIsAskedByTheTextOfTheRecordsInView) {
  Run(u"insert into Original_Text (ID,Original_Name,RecordID,FileOrder) values ('91','正文','"_s + Key(1) + u"',1)"_s);
  InWindow([&](const Input& input) {
    const QString source = Shared().CurrentRecords.Source();
    QStringList statements;
    Connected()->OnStatement([&](const QString& statement) { statements << statement; });
    GiveYearAndArchive(input);
    Connected()->OnStatement({});
    EXPECT_EQ(statements.count(source), 1);
  });
  EXPECT_EQ(Value(u"select count(*) from Original_Text where ID='91'"_s), u"2"_s);
}

TEST_P(EntryArchiveTest, AMarkThatIsRefusedIsToldAndNothingWaits) {
  Refuse(u"Lwdj"_s, u"update"_s, u"new.FileStatus = '已归档'"_s);
  InWindow([&](const Input& input) {
    GiveYearAndArchive(input);
    ASSERT_EQ(boxes_.Texts().size(), 2);
    EXPECT_EQ(Shared().CurrentRecords[u"FileStatus"_s].Text(), u"需归档"_s);
    EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
  });
  EXPECT_EQ(Value(u"select count(*) from Wsda"_s), u"1"_s) << "the transfer itself is done";
}

TEST_P(EntryArchiveTest, ATableWithoutATargetCannotBeArchived) {
  Right(Parameter::Target, QString());
  InWindow([](const Input& input) {
    EXPECT_FALSE(input.On(u"mnuArchive"_s));
    EXPECT_FALSE(input.KeyOn(u"DoArchive"_s));
  });
}

}  // namespace
}  // namespace folvane::test
