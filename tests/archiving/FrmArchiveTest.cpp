#include <QHeaderView>
#include <gmock/gmock.h>

#include "archiving/FrmArchiveFixture.h"
#include "shell/SharedState.h"
#include "support/Accessibility.h"

namespace folvane::test {

FOLVANE_ON_EACH_DATABASE(FrmArchiveTest);

TEST_P(FrmArchiveTest, OpensOnTheSecondNodeWithTheTreeFilledAndNothingEnabled) {
  AddDocuments(2);
  InWindow(
      [&](const ArchiveWindow& window) {
        EXPECT_EQ(window.Window().windowTitle(), u"文件归档"_s);
        EXPECT_EQ(window.KeysBelow(u"*\\"_s), QStringList{u"C2\\"_s});
        EXPECT_EQ(window.KeysBelow(u"C2\\"_s), (QStringList{u"Lwdj"_s, u"Fwdj"_s, u"Wsda"_s})) << "tables and all";
        EXPECT_EQ(window.View(u"TvwFileClass"_s).currentIndex().data(Qt::UserRole), u"C2\\"_s);
        EXPECT_EQ(window.Node(u"Lwdj"_s).data(Qt::UserRole + 1), u"Table"_s);
        EXPECT_EQ(window.Rows(), 0);
        EXPECT_EQ(window.Status(), QString());
        EXPECT_FALSE(window.Control(u"FraArchive"_s).isVisible());
        EXPECT_FALSE(window.CanTransfer());
        for (const QString& key : {u"PrePage"_s, u"NextPage"_s, u"SimSearch"_s, u"Find"_s, u"Taxis"_s, u"ArchiveSet"_s})
          EXPECT_FALSE(window.KeyOn(key)) << qPrintable(key);
        for (const QString& menu : {u"mnuRecord"_s, u"mnuSet"_s, u"mnuTools"_s})
          EXPECT_FALSE(window.Window().findChild<QMenu*>(menu)->menuAction()->isEnabled()) << qPrintable(menu);
        EXPECT_FALSE(window.Box(u"Check3"_s).isEnabled());
        EXPECT_EQ(window.Parameter(u"Lwdj"_s, 13), u"Wsda"_s);
        EXPECT_EQ(window.Parameter(u"Fwdj"_s, 13), QString());
      },
      {});
}

TEST_P(FrmArchiveTest, AFirstClickOnTheFirstTableReloadsNothingAndTheListSaysHowToOpenIt) {
  AddDocuments(2);
  InWindow(
      [&](const ArchiveWindow& window) {
        window.Choose(u"Lwdj"_s);
        EXPECT_EQ(window.Rows(), 0);
        EXPECT_EQ(window.Text(u"ListHint"_s), u"按回车键或双击“来文登记”以打开它。"_s);
        Press(window.View(u"TvwFileClass"_s), Qt::Key_Return);
        EXPECT_EQ(window.Rows(), 2);
      },
      {});
  InWindow(
      [&](const ArchiveWindow& window) {
        window.Choose(u"Lwdj"_s);
        window.Choose(u"Fwdj"_s);
        window.Choose(u"Lwdj"_s);
        EXPECT_EQ(window.Rows(), 2) << "as soon as another table was in view";
      },
      {});
}

TEST_P(FrmArchiveTest, OnlyRecordsThatWaitForArchivingAreListedUnderTickNumberFieldsAndKey) {
  AddDocuments(3);
  design_->Run(u"update Lwdj set FileStatus='已归档' where RegID = 2"_s);
  log_->Take();
  InWindow([&](const ArchiveWindow& window) {
    EXPECT_EQ(window.Captions(), (QStringList{u"序号"_s, u"登记号"_s, u"题名"_s, u"归档状态"_s, u"ID"_s}));
    EXPECT_EQ(window.Column(u"lstData"_s, 1), (QStringList{u"3"_s, u"1"_s}));
    EXPECT_EQ(window.Column(u"lstData"_s, 4), (QStringList{DesignedDatabase::Key(3), DesignedDatabase::Key(1)}));
    EXPECT_EQ(window.Numbers(), (QStringList{QString(), QString()}));
    EXPECT_EQ(window.Status(), u"当前记录：第1条/共2条"_s);
    EXPECT_TRUE(log_->Take().contains(u"Select * From Lwdj Order By ArchiveId Desc"_s));
    EXPECT_EQ(UnnamedControls(window.Window()), QStringList());
  });
}

TEST_P(FrmArchiveTest, ATableWithoutAStatusShowsAllItsRows) {
  design_->AddPlainTable(u"Nbwj"_s, u"内部文件"_s, 2);
  design_->AddRecords(u"Nbwj"_s, 3);
  InWindow([&](const ArchiveWindow& window) { EXPECT_EQ(window.Rows(), 3); }, u"Nbwj"_s);
}

TEST_P(FrmArchiveTest, ATableOfGroupsStaysATable) {
  AddDocuments(1);
  program_.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=RegID\r\n");
  InWindow([&](const ArchiveWindow& window) { EXPECT_EQ(window.Rows(), 1); });
}

TEST_P(FrmArchiveTest, AUserWithoutAnOrderGetsTheUsualOne) {
  AddDocuments(2);
  Shared().UserId = u"7"_s;
  design_->Insert(u"UserPopedomScope"_s, u"UserID,PopTableName,PopEditData,PopLookFile,PopPrintData"_s,
                  {u"7"_s, u"Lwdj"_s, u"1"_s, u"1"_s, u"1"_s});
  log_->Take();
  InWindow([&](const ArchiveWindow& window) {
    EXPECT_EQ(window.Column(u"lstData"_s, 1), (QStringList{u"2"_s, u"1"_s}));
    EXPECT_TRUE(log_->Take().contains(
        u"Insert into FindCirOrder(TableName,OrderStr,UserID) Values('Lwdj','ArchiveId Desc',7)"_s));
  });
}

TEST_P(FrmArchiveTest, RightsAndAQueryLimitTheListAndANodeForgetsTheQuery) {
  AddDocuments(5);
  Shared().UserId = u"7"_s;
  design_->Insert(u"UserPopedomScope"_s, u"UserID,PopTableName,PopCondition,PopEditData"_s,
                  {u"7"_s, u"Lwdj"_s, u"RegID < 5"_s, u"1"_s});
  design_->Insert(u"SimSearch"_s, u"TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex"_s,
                  {u"Lwdj"_s, u"Amaintitle"_s, u"题名"_s, u"1"_s, u"1"_s, u"1"_s});
  InWindow([&](const ArchiveWindow& window) {
    EXPECT_EQ(window.Rows(), 4);
    WithWindow(u"frmSimFind"_s, [](QWidget& query) {
      Retype(Find<QWidget>(query, u"F_Sim(1)"_s), u"题名3"_s);
      Click(Find<QWidget>(query, u"CmdOK"_s));
    });
    log_->Take();
    window.Key(u"SimSearch"_s).trigger();
    EXPECT_EQ(window.Column(u"lstData"_s, 1), QStringList{u"3"_s});
    const QStringList statements = log_->Take();
    EXPECT_TRUE(std::any_of(statements.begin(), statements.end(), [](const QString& text) {
      return text.startsWith(u"Select * From Lwdj Where (RegID < 5) And "_s);
    })) << qPrintable(statements.join(u'\n'));
    window.Choose(u"Fwdj"_s);
    EXPECT_EQ(window.Status(), u"当前无记录"_s);
    window.Choose(u"Lwdj"_s);
    EXPECT_EQ(window.Rows(), 4);
  });
}

TEST_P(FrmArchiveTest, TheKeyF5LiftsAQuery) {
  AddDocuments(3);
  design_->Insert(u"SimSearch"_s, u"TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex"_s,
                  {u"Lwdj"_s, u"Amaintitle"_s, u"题名"_s, u"1"_s, u"1"_s, u"1"_s});
  InWindow([&](const ArchiveWindow& window) {
    WithWindow(u"frmSimFind"_s, [](QWidget& query) {
      Retype(Find<QWidget>(query, u"F_Sim(1)"_s), u"没有"_s);
      Click(Find<QWidget>(query, u"CmdOK"_s));
    });
    window.Entry(u"mnuSim"_s).trigger();
    EXPECT_EQ(window.Rows(), 0);
    EXPECT_EQ(window.Text(u"ListHint"_s),
              u"没有需要归档的文件：这里只列出归档状态为“需归档”的文件。\n按 F5 取消查询条件。"_s);
    EXPECT_FALSE(window.KeyOn(u"DoArchive"_s));
    EXPECT_FALSE(window.KeyOn(u"Taxis"_s));
    window.Window().activateWindow();
    Press(window.List(), Qt::Key_F5);
    EXPECT_EQ(window.Rows(), 3);
    EXPECT_TRUE(window.KeyOn(u"Taxis"_s));
  });
}

TEST_P(FrmArchiveTest, MovesGoByRecordAndByPage) {
  AddDocuments(70);
  InWindow([&](const ArchiveWindow& window) {
    EXPECT_EQ(window.Rows(), 30);
    EXPECT_FALSE(window.On(u"mnuPre"_s));
    EXPECT_FALSE(window.KeyOn(u"PrePage"_s));
    window.Entry(u"mnuNext"_s).trigger();
    EXPECT_EQ(window.Status(), u"当前记录：第2条/共70条"_s);
    window.Entry(u"mnuPre"_s).trigger();
    EXPECT_EQ(window.Status(), u"当前记录：第1条/共70条"_s);
    window.Entry(u"mnuLast"_s).trigger();
    EXPECT_EQ(window.Status(), u"当前记录：第70条/共70条"_s);
    EXPECT_FALSE(window.On(u"mnuNext"_s));
    EXPECT_FALSE(window.KeyOn(u"NextPage"_s));
    window.Entry(u"mnuFirst"_s).trigger();
    window.Key(u"NextPage"_s).trigger();
    EXPECT_EQ(window.Status(), u"当前记录：第31条/共70条"_s) << "the key goes to the list";
    window.Entry(u"mnuPrePage"_s).trigger();
    EXPECT_NE(window.Status(), u"当前记录：第31条/共70条"_s);
  });
}

TEST_P(FrmArchiveTest, ATableWithoutATransferSetKeepsTheTransferDisabled) {
  AddDocuments(2, u"Fwdj"_s);
  InWindow(
      [&](const ArchiveWindow& window) {
        EXPECT_EQ(window.Rows(), 2);
        EXPECT_FALSE(window.CanTransfer());
        EXPECT_TRUE(window.Box(u"Check3"_s).isEnabled());
        EXPECT_TRUE(WaitUntil(
            [&] { return window.Text(u"LblForecast"_s) == u"该表没有设置归档的目标库，请用“归档设置”登记"_s; }));
      },
      u"Fwdj"_s);
}

TEST_P(FrmArchiveTest, AUserWhoMayNotEditSeesTheRowsAndCannotArchive) {
  AddDocuments(2);
  Shared().UserId = u"7"_s;
  design_->Insert(u"UserPopedomScope"_s, u"UserID,PopTableName,PopEditData"_s, {u"7"_s, u"Lwdj"_s, u"0"_s});
  InWindow([&](const ArchiveWindow& window) {
    EXPECT_EQ(window.Rows(), 2);
    EXPECT_FALSE(window.CanTransfer());
  });
}

TEST_P(FrmArchiveTest, AnErrorOfATableIsTold) {
  AddDocuments(1);
  design_->Insert(u"FindCirOrder"_s, u"TableName,OrderStr,UserID"_s, {u"Fwdj"_s, u"Nowhere Desc"_s, u"1"_s});
  InWindow([&](const ArchiveWindow& window) {
    window.Choose(u"Fwdj"_s);
    EXPECT_THAT(boxes_.Last().text.toStdString(), testing::StartsWith("程序出错，请将下列出错提示向程序供应商联系！"));
    EXPECT_GT(boxes_.Last().text.size(), 30) << "with what the error says";
    window.Choose(u"Lwdj"_s);
    EXPECT_EQ(window.Rows(), 1);
  });
}

TEST_P(FrmArchiveTest, AColumnSortsAndTheTickNumbersDoNot) {
  AddDocuments(3);
  InWindow([&](const ArchiveWindow& window) {
    window.Tick(2);
    window.ClickColumn(0);
    EXPECT_EQ(window.Numbers(), (QStringList{QString(), u"1"_s, QString()}));
    window.ClickColumn(1);
    EXPECT_EQ(window.Column(u"lstData"_s, 1), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
    EXPECT_EQ(window.Numbers(), (QStringList{QString(), QString(), QString()})) << "a tick does not outlive a sort";
  });
}

// Ticking.

TEST_P(FrmArchiveTest, TicksAreNumberedAndOneTakenFromTheMiddleLeavesNoGap) {
  AddDocuments(5);
  InWindow([&](const ArchiveWindow& window) {
    for (const int row : {4, 2, 5, 1}) window.Tick(row);
    EXPECT_EQ(window.Numbers(), (QStringList{u"4"_s, u"2"_s, QString(), u"1"_s, u"3"_s}));
    EXPECT_EQ(window.Row(), 1) << "a tick selects its row";
    window.Tick(2, false);
    EXPECT_EQ(window.Numbers(), (QStringList{u"3"_s, QString(), QString(), u"1"_s, u"2"_s}));
    EXPECT_EQ(window.Row(), 2);
    EXPECT_EQ(window.Text(u"LblTicked"_s), u"已勾选 3 份，列表已读出 5 份，共 5 份"_s);
    window.Tick(2);
    EXPECT_EQ(window.Numbers()[1], u"4"_s) << "the next number";
  });
}

TEST_P(FrmArchiveTest, TickingAllTakesTheLoadedRowsAndOneMoreMayFollow) {
  AddDocuments(70);
  InWindow([&](const ArchiveWindow& window) {
    window.Tick(3);
    Click(window.Box(u"Check3"_s));
    EXPECT_EQ(window.Numbers().first(), u"1"_s);
    EXPECT_EQ(window.Numbers().last(), u"30"_s) << "by the order of the list";
    EXPECT_EQ(window.Text(u"LblTicked"_s), u"已勾选 30 份，列表已读出 30 份，共 70 份"_s);
    window.Key(u"NextPage"_s).trigger();
    window.Entry(u"mnuNext"_s).trigger();
    ASSERT_GT(window.Rows(), 30);
    EXPECT_FALSE(window.IsTicked(31));
    window.Tick(31);
    EXPECT_EQ(window.Numbers()[30], u"31"_s);
    Click(window.Box(u"Check3"_s));
    EXPECT_EQ(window.Numbers().join(QString()), QString());
  });
}

TEST_P(FrmArchiveTest, KeysTickARangeAndAll) {
  AddDocuments(5);
  InWindow([&](const ArchiveWindow& window) {
    window.List().setFocus();
    Press(window.List(), Qt::Key_Space);
    EXPECT_EQ(window.Numbers().join(u','), u"1,,,,"_s);
    Press(window.List(), Qt::Key_Down);
    Press(window.List(), Qt::Key_Down, Qt::ShiftModifier);
    Press(window.List(), Qt::Key_Down, Qt::ShiftModifier);
    Press(window.List(), Qt::Key_Space);
    EXPECT_EQ(window.Numbers().join(u','), u"1,2,3,4,"_s);
    EXPECT_EQ(window.List().selectionModel()->selectedRows().size(), 3) << "the range stays selected";
    Press(window.List(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(window.Numbers().join(u','), u"1,2,3,4,5"_s);
    EXPECT_TRUE(window.Box(u"Check3"_s).isChecked());
    Press(window.List(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(window.Numbers().join(u','), u",,,,"_s);
  });
}

TEST_P(FrmArchiveTest, AClickOnABoxWithShiftTicksTheRange) {
  AddDocuments(5);
  InWindow([&](const ArchiveWindow& window) {
    const auto onBox = [&](int row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
      const QRect cell = window.List().visualRect(window.Cell(row));
      ClickAt(*window.List().viewport(), QPoint(cell.left() + 10, cell.center().y()), Qt::LeftButton, keys);
    };
    onBox(2);
    EXPECT_EQ(window.Numbers().join(u','), u",1,,,"_s);
    onBox(4, Qt::ShiftModifier);
    EXPECT_EQ(window.Numbers().join(u','), u",1,3,2,"_s);
  });
}

TEST_P(FrmArchiveTest, OriginalsGoAlongByEntryOrBoxAndTheOtherBoxDoesNothing) {
  AddDocuments(1);
  InWindow([&](const ArchiveWindow& window) {
    EXPECT_FALSE(window.Box(u"Check2"_s).isChecked());
    Click(window.Box(u"Check2"_s));
    EXPECT_TRUE(window.Entry(u"mnuIsOriginal"_s).isChecked());
    window.Entry(u"mnuIsOriginal"_s).trigger();
    EXPECT_FALSE(window.Box(u"Check2"_s).isChecked());
    window.Entry(u"mnuIsOriginal"_s).trigger();
    EXPECT_TRUE(window.Box(u"Check2"_s).isChecked());
    Click(window.Box(u"Check1"_s));
    EXPECT_TRUE(window.Box(u"Check1"_s).isChecked());
    window.Entry(u"mnuIsArchive"_s).trigger();
    EXPECT_FALSE(window.Box(u"Check1"_s).isChecked());
    window.Entry(u"mnuIsArchive"_s).trigger();
    EXPECT_FALSE(window.Box(u"Check1"_s).isChecked()) << "it is always cleared";
  });
}

// The settings.

TEST_P(FrmArchiveTest, TheSettingsGiveATableItsTarget) {
  AddDocuments(2, u"Fwdj"_s);
  QStringList edited;
  Services().editTransferSettings = [&](const std::shared_ptr<Connection>& connection, const QString& what) {
    EXPECT_EQ(connection, SharedConnection());
    edited << what;
    design_->Insert(u"DataTransfer_Ini"_s, u"RecId,SourceTbl,DesTbl"_s, {u"2"_s, u"Fwdj"_s, u"Wsda"_s});
  };
  InWindow(
      [&](const ArchiveWindow& window) {
        EXPECT_EQ(window.Window().findChild<QWidget*>(u"Txt(1)"_s), nullptr);
        window.Key(u"ArchiveSet"_s).trigger();
        EXPECT_EQ(edited, QStringList{u"TransSet"_s});
        EXPECT_EQ(window.Parameter(u"Fwdj"_s, 13), u"Wsda"_s);
        EXPECT_TRUE(window.CanTransfer());
        EXPECT_NE(window.Window().findChild<QWidget*>(u"Txt(1)"_s), nullptr) << "the panel asks for its number";
        Services().editTransferSettings = [&](const auto&, const QString&) {
          design_->Run(u"delete from DataTransfer_Ini where RecId = 2"_s);
        };
        window.Entry(u"mnuArcSet"_s).trigger();
        EXPECT_EQ(window.Parameter(u"Fwdj"_s, 13), QString());
        EXPECT_FALSE(window.CanTransfer());
      },
      u"Fwdj"_s);
}

TEST_P(FrmArchiveTest, ARightAboveOneCountsAfterTheSettingsAlone) {
  AddDocuments(2);
  Shared().UserId = u"7"_s;
  design_->Insert(u"UserPopedomScope"_s, u"UserID,PopTableName,PopEditData"_s, {u"7"_s, u"Lwdj"_s, u"2"_s});
  Services().editTransferSettings = [](const auto&, const QString&) {};
  InWindow([&](const ArchiveWindow& window) {
    EXPECT_FALSE(window.CanTransfer());
    window.Entry(u"mnuArcSet"_s).trigger();
    EXPECT_TRUE(window.CanTransfer());
    window.Entry(u"mnuNext"_s).trigger();
    EXPECT_FALSE(window.CanTransfer()) << "the status line wants it to be one";
  });
}

TEST_P(FrmArchiveTest, SettingsThatAreNotInstalledAreTold) {
  AddDocuments(1);
  Services().editTransferSettings = {};
  InWindow([&](const ArchiveWindow& window) {
    window.Key(u"ArchiveSet"_s).trigger();
    EXPECT_EQ(boxes_.Last().text, u"归档设置组件没有安装。"_s);
  });
}

TEST_P(FrmArchiveTest, HelpIsThatOfTheWindow) {
  AddDocuments(1);
  QString topic;
  program_.Write(u"help.chm"_s, "");
  Services().showHelp = [&](QWidget*, const QString&, const QString& shown) { topic = shown; };
  InWindow([&](const ArchiveWindow& window) { window.Entry(u"mnuTitle"_s).trigger(); });
  EXPECT_EQ(topic, u"文件归档.htm"_s);
}

}  // namespace folvane::test
