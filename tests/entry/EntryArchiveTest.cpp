#include <gmock/gmock.h>

#include <folvane/HostServices.h>

#include "entry/EntryArchiveFixture.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

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

TEST_P(EntryArchiveTest, ClosedOverTheTitleOfAVolumeTheWindowStaysUntilTheRecordIsMarked) {
  CreateTable(*Connected(), BusinessTable(u"Anjuan"_s, {{u"Amaintitle"_s, ColumnType::Text, 160},
                                                        {u"FileYear"_s, ColumnType::Text, 4}}));
  Run(u"alter table Wsda add column Quantity integer"_s);
  Run(u"alter table Wsda add column CreatedDate varchar(10)"_s);
  Run(u"insert into Design_TableRelation (TableName,Table_Parent) values ('Wsda','Anjuan')"_s);
  Run(u"insert into Design_TableRelation (TableName) values ('Anjuan')"_s);
  InWindow([&](const Input& input) {
    WithWindow(u"FrmInAmain"_s, [&](QWidget& title) {
      input.Window().close();
      EXPECT_FALSE(title.isVisible());
    });
    GiveYearAndArchive(input);
    EXPECT_TRUE(input.Window().isVisible());
    EXPECT_EQ(boxes_.Texts(), QStringList{u"成功归档1份记录！"_s});
    EXPECT_FALSE(Connected()->InTransaction());
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"已归档"_s);
    input.Window().close();
    EXPECT_FALSE(input.Window().isVisible());
  });
  EXPECT_EQ(StatusOf(1), u"已归档"_s);
  EXPECT_EQ(Value(u"select FileYear from Anjuan"_s), u"2002"_s);
}

TEST_P(EntryArchiveTest, ARecordWhoseStateAnotherUserHasChangedMeanwhileIsMarkedAllTheSame) {
  Run(u"update Lwdj set FileStatus=null"_s);
  InWindow([&](const Input& input) {
    Run(u"update Lwdj set FileStatus='需归档', Amaintitle='改过的题名' where ArchiveID='"_s + Key(1) + u"'"_s);
    GiveYearAndArchive(input);
    EXPECT_EQ(boxes_.Texts(), QStringList{u"成功归档1份记录！"_s});
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"已归档"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"改过的题名"_s);
    EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
  });
  EXPECT_EQ(StatusOf(1), u"已归档"_s);
  EXPECT_EQ(Value(u"select Amaintitle from Lwdj where ArchiveID='"_s + Key(1) + u"'"_s), u"改过的题名"_s);
}

// As long as the box stands another user could archive it once more.
TEST_P(EntryArchiveTest, TheRecordIsMarkedBeforeTheBoxThatTellsIt) {
  QString status;
  InWindow([&](const Input& input) {
    const auto told = std::exchange(Services().messageBox, [&](const MessageRequest&) {
      status = StatusOf(1);
      return 1;
    });
    GiveYearAndArchive(input);
    Services().messageBox = told;
  });
  EXPECT_EQ(status, u"已归档"_s);
}

TEST_P(EntryArchiveTest, AMarkThatIsRefusedTakesTheTransferBack) {
  Refuse(u"Lwdj"_s, u"update"_s, u"new.FileStatus = '已归档'"_s);
  InWindow([&](const Input& input) {
    GiveYearAndArchive(input);
    EXPECT_EQ(boxes_.Texts().size(), 1) << "the error";
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"需归档"_s);
    EXPECT_FALSE(Connected()->InTransaction());
    EXPECT_EQ(Shared().CurrentRecords[u"FileStatus"_s].Text(), u"需归档"_s);
    EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
  });
  EXPECT_EQ(Value(u"select count(*) from Wsda"_s), u"0"_s) << "the transfer is taken back with it";
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
