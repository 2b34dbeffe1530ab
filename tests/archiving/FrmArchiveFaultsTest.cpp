#include <QEventLoop>
#include <QTimer>

#include <folvane/DataError.h>

#include "archiving/FrmArchiveFixture.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {

class FrmArchiveFaultsTest : public FrmArchiveTest {
 protected:
  void SetUp() override {
    FrmArchiveTest::SetUp();
    AddDocuments(3);
    log_.reset();
  }
  /// What the list says of records that it cannot show.
  void ExpectUnopened(const ArchiveWindow& window, const QString& hint) {
    EXPECT_EQ(boxes_.Texts().size(), 1);
    EXPECT_EQ(window.Rows(), 0);
    EXPECT_EQ(window.Text(u"ListHint"_s), hint);
    EXPECT_EQ(window.Text(u"LblTicked"_s), QString());
    EXPECT_FALSE(window.CanTransfer());
  }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(FrmArchiveFaultsTest);

TEST_P(FrmArchiveFaultsTest, ATableWithoutListColumnsSaysSo) {
  design_->Run(u"delete from ListViewFormat"_s);
  InWindow([&](const ArchiveWindow& window) {
    EXPECT_EQ(window.Rows(), 3);
    EXPECT_EQ(window.Text(u"ListHint"_s),
              u"表“来文登记”没有列表列：请在 ListViewFormat 中为表 Lwdj 登记要显示的列。"_s);
  });
}

TEST_P(FrmArchiveFaultsTest, AListColumnThatTheTableLacksIsNamed) {
  design_->Run(u"update ListViewFormat set FieldName='Missing' where TableName='Lwdj' and FieldName='Amaintitle'"_s);
  InWindow([&](const ArchiveWindow& window) {
    ExpectUnopened(window, u"表“来文登记”没有列表列“题名”的字段 Missing：请在 ListViewFormat 中改正。"_s);
  });
}

TEST_P(FrmArchiveFaultsTest, AStatusThatIsDesignedAndMissingLeavesTheTableUnopened) {
  design_->AddPlainTable(u"Nbwj"_s, u"内部文件"_s, 2);
  design_->AddRecords(u"Nbwj"_s, 1);
  design_->Insert(u"DynamicWindows"_s, u"TableName,FieldName,ChnFieldName"_s,
                  {u"Nbwj"_s, u"FileStatus"_s, u"归档状态"_s});
  InWindow(
      [&](const ArchiveWindow& window) {
        ExpectUnopened(window, u"未能打开表“内部文件”的记录。按 F5 刷新以重试。"_s);
        design_->Run(u"delete from DynamicWindows where TableName='Nbwj' and FieldName='FileStatus'"_s);
        Press(window.List(), Qt::Key_F5);
        EXPECT_EQ(window.Rows(), 1);
      },
      u"Nbwj"_s);
}

TEST_P(FrmArchiveFaultsTest, ATableThatDidNotOpenLeavesNothingOfTheOneBefore) {
  InWindow([&](const ArchiveWindow& window) {
    window.Tick(2);
    {
      const LockedStatement columns(*Connected(), 1);
      window.Choose(u"Fwdj"_s);
    }
    ExpectUnopened(window, u"按回车键或双击“发文登记”以打开它。"_s);
    EXPECT_EQ(window.Status(), QString());
    EXPECT_FALSE(window.KeyOn(u"SimSearch"_s));
    Press(window.View(u"TvwFileClass"_s), Qt::Key_Return);
    EXPECT_EQ(window.Status(), u"当前无记录"_s) << "it can be opened again";
  });
}

TEST_P(FrmArchiveFaultsTest, TicksAreNotToldAnyMoreOnceTheTableIsLeftOrRefused) {
  InWindow([&](const ArchiveWindow& window) {
    Click(window.Box(u"Check3"_s));
    window.Choose(u"C2\\"_s);
    EXPECT_EQ(window.Text(u"LblTicked"_s), QString());
    EXPECT_FALSE(window.Box(u"Check3"_s).isChecked());
    window.Choose(u"Lwdj"_s);
    window.Tick(2);
    {
      const LockedStatement records(*Connected(), 1);
      Press(window.List(), Qt::Key_F5);
    }
    ExpectUnopened(window, u"未能打开表“来文登记”的记录。按 F5 刷新以重试。"_s);
    Press(window.List(), Qt::Key_F5);
    EXPECT_EQ(window.Numbers(), QStringList(3, QString()));
  });
}

TEST_P(FrmArchiveFaultsTest, WhatWasTransferredIsNotListedWhereTheRestCannotBeRead) {
  InWindow([&](const ArchiveWindow& window) {
    window.Tick(2);
    GiveYear(window);
    bool isDone = false;
    Services().messageBox = [&](const MessageRequest& box) {
      if (box.text.startsWith(u"成功归档1份记录！"_s)) isDone = true;
      return 1;
    };
    Connected()->OnStatement([&](const QString& statement) {
      if (isDone) throw DataError(DataErrorKind::Locked, u"表被其他用户锁定"_s, statement, u"5"_s);
    });
    window.Ok();
    Connected()->OnStatement({});
    EXPECT_EQ(window.Rows(), 0);
    EXPECT_EQ(window.Status(), u"当前无记录"_s);
    EXPECT_EQ(window.Text(u"LblTicked"_s), QString());
    EXPECT_EQ(window.Text(u"ListHint"_s), u"记录未能加载到列表。按 F5 刷新以重试。"_s);
    Press(window.List(), Qt::Key_F5);
    EXPECT_EQ(window.Column(u"lstData"_s, 1), (QStringList{u"3"_s, u"1"_s}));
  });
}

TEST_P(FrmArchiveFaultsTest, AFormatThatCannotBeReadToItsEndArchivesNothing) {
  design_->Run(u"update ArchiveNo_Format set Lengh='40000' where FieldName='ItemNo'"_s);
  InWindow([&](const ArchiveWindow& window) {
    EXPECT_EQ(boxes_.Texts(), QStringList{u"程序出错，请将下列出错提示向程序供应商联系！档号长度 40000 太大。"_s});
    EXPECT_EQ(Shared().ArchNoFieldName, QStringList{QString()});
    window.Tick(1);
    window.Ok();
    EXPECT_FALSE(boxes_.Last().text.startsWith(u"成功归档"_s)) << "it would have no number";
    EXPECT_TRUE(window.IsTicked(1));
  });
  EXPECT_EQ(Archived(), QStringList());
}

TEST_P(FrmArchiveFaultsTest, ThePanelGoesOnWhereTheDialogCouldNotBeOpened) {
  InWindow([&](const ArchiveWindow& window) {
    window.Tick(1);
    GiveYear(window);
    {
      const LockedStatement format(*Connected(), 1);
      window.Entry(u"mnuArchive"_s).trigger();
    }
    window.Ok();
    EXPECT_EQ(boxes_.Last().text, u"成功归档1份记录！起始件档号为：2002-0001"_s);
  });
}

TEST_P(FrmArchiveFaultsTest, WhileATransferAsksTheForecastLeavesTheDatabaseAlone) {
  design_->Insert(u"DataTransfer_Details"_s, u"IniRecId,SourceField,DesField,SourceChn"_s,
                  {u"1"_s, u"Amaintitle"_s, u"ItemNo"_s, u"题名"_s});  // a text into a number
  QStringList whileAsked;
  bool isAsked = false;
  Connected()->OnStatement([&](const QString& statement) {
    if (isAsked) whileAsked << statement;
  });
  Services().messageBox = [&](const MessageRequest& box) {
    if (!box.text.startsWith(u"记录归档时发现："_s)) return 1;
    isAsked = true;
    QEventLoop answering;
    QTimer::singleShot(400, &answering, &QEventLoop::quit);
    answering.exec();
    isAsked = false;
    return 2;
  };
  InWindow([&](const ArchiveWindow& window) {
    GiveYear(window);
    window.Tick(1);
    window.Ok();
    EXPECT_EQ(whileAsked, QStringList());
    EXPECT_TRUE(WaitUntil([&] { return window.Text(u"LblForecast"_s).endsWith(u"首件档号“2002-0001”"_s); }));
  });
  Connected()->OnStatement({});
}

}  // namespace folvane::test
