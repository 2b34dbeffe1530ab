#include <QElapsedTimer>
#include <QThread>
#include <QTimer>
#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Six documents of Lwdj, which Wsda takes; the newest stands first. Numbers are made of the year and the item.
class ArchiveCommandsTest : public BrowserTest {
 protected:
  void SetUp() override {
    BrowserTest::SetUp();
    design_->AddTable(u"Lwdj"_s, u"来文登记"_s, 2,
                      {{u"RegID"_s, u"登记号"_s, u"数值型"_s},
                       {u"Amaintitle"_s, u"题名"_s, u"文本型"_s},
                       {u"FileStatus"_s, u"归档状态"_s, u"文本型"_s}});
    design_->AddTable(u"Wsda"_s, u"文书档案"_s, 2,
                      {{u"Amaintitle"_s, u"题名"_s, u"文本型"_s},
                       {u"FileYear"_s, u"年度"_s, u"文本型"_s},
                       {u"ItemNo"_s, u"件号"_s, u"数值型"_s},
                       {u"ArchiveNo"_s, u"档号"_s, u"文本型"_s}});
    design_->AddRecords(u"Lwdj"_s, 6);
    design_->Run(u"update Lwdj set FileStatus='需归档'"_s);
    design_->Insert(u"DataTransfer_Ini"_s, u"RecId,SourceTbl,DesTbl"_s, {u"1"_s, u"Lwdj"_s, u"Wsda"_s});
    design_->Insert(u"DataTransfer_Details"_s, u"IniRecId,SourceField,DesField,SourceChn"_s,
                    {u"1"_s, u"Amaintitle"_s, u"Amaintitle"_s, u"题名"_s});
    for (const QString& field : {u"FileYear"_s, u"ItemNo"_s})
      design_->Insert(u"ArchiveNo_Format"_s,
                      u"TableName,FieldName,ListSeparator,ShowMode,Lengh,StoreField,FolderNoField"_s,
                      {u"Wsda"_s, field, u"-"_s, u"显示名称"_s, u"4"_s, u"ArchiveNo"_s, u"(无)"_s});
  }
  /// Makes volumes of a year above the archive.
  void AddVolumes() {
    design_->AddTable(u"Anjuan"_s, u"案卷"_s, 2,
                      {{u"Amaintitle"_s, u"题名"_s, u"文本型"_s},
                       {u"FileYear"_s, u"年度"_s, u"文本型"_s},
                       {u"Quantity"_s, u"件数"_s, u"数值型"_s}});
    design_->Run(u"update Design_TableRelation set Table_Parent='Anjuan' where TableName='Wsda'"_s);
    design_->Run(u"alter table Wsda add column Quantity integer default 1"_s);
    design_->Run(u"alter table Wsda add column CreatedDate varchar(10)"_s);
  }
  static QAction& ToTarget(const Browser& browser) { return browser.Entry(u"Archive(1)"_s); }
  /// Selects the rows from one to another.
  static void Select(const Browser& browser, int first, int last) {
    ClickItem(browser.List(), browser.List().model()->index(first - 1, 0));
    if (last != first)
      ClickItem(browser.List(), browser.List().model()->index(last - 1, 0), Qt::LeftButton, Qt::ShiftModifier);
  }
  /// Gives the year in the window that the next command opens.
  static void GiveYear(const QString& year = u"2002"_s) {
    WithWindow(u"FrmArchivePara"_s, [year](QWidget& window) {
      Retype(Find<QWidget>(window, u"Txt(1)"_s), year);
      Click(Find<QWidget>(window, u"CmdOK"_s));
    });
  }
  QStringList Archived() {
    QStringList archived;
    for (const QStringList& row : Database().Rows(u"select Amaintitle,ArchiveNo from Wsda order by ItemNo"_s))
      archived << row.join(u' ');
    return archived;
  }
  QString CountOf(const QString& status) {
    return design_->Value(u"select count(*) from Lwdj where FileStatus='"_s + status + u"'"_s);
  }

  MessageBoxes boxes_;
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(ArchiveCommandsTest);

TEST_P(ArchiveCommandsTest, TransfersTheSelectedRecordsAndTellsHowMany) {
  design_->AddOriginal(DesignedDatabase::Key(5), u"91"_s, u"正文"_s, 1);
  InBrowser([&](const Browser& browser) {
    EXPECT_TRUE(ToTarget(browser).isEnabled());
    Select(browser, 2, 4);
    GiveYear();
    ToTarget(browser).trigger();
    EXPECT_EQ(boxes_.Texts(), QStringList{u"成功归档3份记录！"_s}) << "and nothing of the first number";
    EXPECT_EQ(boxes_.Last().flags, 0);
    EXPECT_EQ(browser.Row(), 1) << "the list was read again";
    EXPECT_EQ(browser.Column(u"LVData"_s, 2),
              (QStringList{u"需归档"_s, u"已归档"_s, u"已归档"_s, u"已归档"_s, u"需归档"_s, u"需归档"_s}));
  });
  EXPECT_EQ(Archived(), (QStringList{u"题名5 2002-0001"_s, u"题名4 2002-0002"_s, u"题名3 2002-0003"_s}))
      << "in the order of the list";
  EXPECT_EQ(design_->Value(u"select count(*) from Original_Text where ID='91'"_s), u"2"_s) << "originals go along";
}

TEST_P(ArchiveCommandsTest, TheKeyRunsTheFirstEntryOfItsMenu) {
  InBrowser([&](const Browser& browser) {
    EXPECT_TRUE(browser.KeyOn(u"Archive"_s));
    GiveYear();
    browser.Key(u"Archive"_s).trigger();
  });
  EXPECT_EQ(Archived(), QStringList{u"题名6 2002-0001"_s});
}

TEST_P(ArchiveCommandsTest, TheSourceIsAskedByTheTextOfTheRecordsInView) {
  InBrowser([&](const Browser& browser) {
    const QString source = Shared().CurrentRecords.Source();
    GiveYear();
    log_->Take();
    ToTarget(browser).trigger();
    EXPECT_GE(log_->Take().count(source), 1) << qPrintable(source);
  });
}

TEST_P(ArchiveCommandsTest, CancellingTheParametersTransfersNothing) {
  InBrowser([&](const Browser& browser) {
    WithWindow(u"FrmArchivePara"_s, [](QWidget& window) { window.close(); });
    ToTarget(browser).trigger();
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
  EXPECT_EQ(CountOf(u"需归档"_s), u"6"_s);
}

TEST_P(ArchiveCommandsTest, RecordsThatAreNotToBeArchivedAreTold) {
  design_->Run(u"update Lwdj set FileStatus='不归档'"_s);
  InBrowser([&](const Browser& browser) {
    Select(browser, 3, 3);
    GiveYear();
    ToTarget(browser).trigger();
    EXPECT_EQ(boxes_.Texts(), QStringList{u"您选择的文件不符合需要归档的条件！"_s});
    EXPECT_EQ(boxes_.Last().flags, 0);
    EXPECT_EQ(browser.Row(), 3) << "the list stands as it was";
  });
  EXPECT_EQ(Archived(), QStringList());
}

TEST_P(ArchiveCommandsTest, WithoutASelectedRowNothingIsAsked) {
  InBrowser([&](const Browser& browser) {
    browser.List().clearSelection();
    ToTarget(browser).trigger();
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(ArchiveCommandsTest, ATableWithoutATargetHasNoFirstEntryAndTheKeySaysSo) {
  design_->Run(u"delete from DataTransfer_Ini"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_FALSE(ToTarget(browser).isEnabled());
    browser.Key(u"Archive"_s).trigger();
    EXPECT_EQ(browser.Notice(), u"该表没有设置归档的目标库"_s);
  });
}

TEST_P(ArchiveCommandsTest, ATargetWithoutAFormatIsToldInTheStatusBar) {
  design_->Run(u"delete from ArchiveNo_Format"_s);
  InBrowser([&](const Browser& browser) {
    ToTarget(browser).trigger();
    EXPECT_EQ(browser.Notice(), u"目标库“Wsda”没有设置档号格式，不能归档"_s);
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(ArchiveCommandsTest, ALongTransferIsSeenInTheStatusBarAndTheKeyThereTakesEverythingBack) {
  log_.reset();
  bool seen = false;
  InBrowser([&](const Browser& browser) {
    browser.PressInList(Qt::Key_A);
    browser.List().selectAll();
    GiveYear();
    auto& stop = Find<QWidget>(browser.Window(), u"CmdStop"_s);
    EXPECT_FALSE(stop.isVisible());
    int originals = 0;
    Connected()->OnStatement([&](const QString& statement) {
      if (!statement.startsWith(u"Insert Into Original_Text"_s) || ++originals != 3) return;
      QThread::msleep(80);  // long enough to be shown
      QTimer::singleShot(0, &browser.Window(), [&] {
        seen = stop.isVisible() && Find<QWidget>(browser.Window(), u"ProMain"_s).isVisible();
        Click(stop);
      });
    });
    ToTarget(browser).trigger();
    Connected()->OnStatement({});
    EXPECT_TRUE(seen);
    EXPECT_EQ(originals, 3);
    EXPECT_FALSE(stop.isVisible());
    EXPECT_EQ(browser.Notice(), u"已取消归档，所有记录保持原样"_s);
    EXPECT_EQ(boxes_.Texts(), QStringList());
  });
  EXPECT_EQ(Archived(), QStringList());
  EXPECT_EQ(CountOf(u"需归档"_s), u"6"_s);
}

TEST_P(ArchiveCommandsTest, ClosingTheBrowserInMidTransferTakesEverythingBackAndTheBrowserStays) {
  log_.reset();
  InBrowser([&](const Browser& browser) {
    browser.List().selectAll();
    GiveYear();
    int originals = 0;
    Connected()->OnStatement([&](const QString& statement) {
      if (!statement.startsWith(u"Insert Into Original_Text"_s) || ++originals != 3) return;
      QThread::msleep(80);
      QTimer::singleShot(0, &browser.Window(), [&] { browser.Window().close(); });
    });
    ToTarget(browser).trigger();
    Connected()->OnStatement({});
    EXPECT_TRUE(browser.Window().isVisible());
    EXPECT_EQ(browser.Notice(), u"已取消归档，所有记录保持原样"_s);
    EXPECT_FALSE(Connected()->InTransaction());
  });
  EXPECT_EQ(Archived(), QStringList());
  EXPECT_EQ(CountOf(u"需归档"_s), u"6"_s);
}

TEST_P(ArchiveCommandsTest, ClosingTheBrowserOverTheTitleOfAVolumeEndsTheTransferWithoutATitle) {
  AddVolumes();
  InBrowser([&](const Browser& browser) {
    Select(browser, 1, 2);
    GiveYear();
    WithWindow(u"FrmInAmain"_s, [&](QWidget& title) {
      browser.Window().close();
      EXPECT_FALSE(title.isVisible());
    });
    ToTarget(browser).trigger();
    EXPECT_FALSE(browser.Window().isVisible());
    EXPECT_EQ(boxes_.Texts(), QStringList{u"成功归档2份记录！"_s});
    EXPECT_FALSE(Connected()->InTransaction());
  });
  EXPECT_EQ(Archived(), (QStringList{u"题名6 2002-0001"_s, u"题名5 2002-0002"_s}));
  EXPECT_EQ(design_->Value(u"select Amaintitle from Anjuan"_s), QString());
  EXPECT_EQ(design_->Value(u"select Quantity from Anjuan"_s), u"2"_s);
}

TEST_P(ArchiveCommandsTest, MergingNeedsARecordThatStays) {
  InBrowser([&](const Browser& browser) {
    browser.List().selectionModel()->clear();
    browser.Entry(u"mnuUnitRecord"_s).trigger();
    EXPECT_EQ(browser.Notice(), u"请先选中要保留的文件"_s);
  });
}

TEST_P(ArchiveCommandsTest, MergingMakesTheOthersPartOfTheSelectedRecord) {
  const QString survivor = DesignedDatabase::Key(6), other = DesignedDatabase::Key(2);
  design_->AddOriginal(survivor, u"91"_s, u"甲"_s, 1);
  design_->AddOriginal(other, u"92"_s, u"乙"_s, 1);
  design_->Insert(u"SimSearch"_s, u"TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex"_s,
                  {u"Lwdj"_s, u"Amaintitle"_s, u"题名"_s, u"1"_s, u"1"_s, u"1"_s});
  const auto merge = [&](const Browser& browser, const QString& title) {
    WithWindow(u"FrmSelTbl"_s, [&](QWidget& tables) {
      WithWindow(u"FrmSearchResult"_s, [&](QWidget& result) {
        EXPECT_EQ(TextIn(result, u"LblTarget"_s),
                  u"并入：“"_s + browser.List().currentIndex().siblingAtColumn(1).data().toString() + u"”"_s);
        WithWindow(u"frmSimFind"_s, [&](QWidget& query) {
          Retype(Find<QWidget>(query, u"F_Sim(1)"_s), title);
          Click(Find<QWidget>(query, u"CmdOK"_s));
        });
        Click(Find<QWidget>(result, u"CmdSearch"_s));
        Press(Find<QWidget>(result, u"LVData"_s), Qt::Key_Space);
        Click(Find<QWidget>(result, u"CmdOK"_s));
      });
      Find<QComboBox>(tables, u"CboChnTable"_s).setCurrentIndex(1);
    });
    browser.Entry(u"mnuUnitRecord"_s).trigger();
    EXPECT_EQ(browser.Notice(), u"已将 1 份记录合并一件"_s);
  };
  InBrowser([&](const Browser& browser) {
    merge(browser, u"题名2"_s);
    EXPECT_EQ(browser.Column(u"LVFile"_s), (QStringList{u"甲"_s, u"乙<合并件>"_s}))
        << "the list of originals is read again";
    Select(browser, 2, 2);
    merge(browser, u"题名2"_s);
    EXPECT_EQ(browser.Column(u"LVFile"_s), QStringList()) << "a record that had none shows them at the next refresh";
    browser.Key(u"Refresh"_s).trigger();
    Select(browser, 2, 2);
    EXPECT_EQ(browser.Column(u"LVFile"_s), QStringList{u"乙<合并件>"_s});
  });
  EXPECT_EQ(CountOf(u"不归档"_s), u"1"_s);
}

TEST_P(ArchiveCommandsTest, TheArchiveWindowOpensOnTheTableInViewAndTheListIsReadAgain) {
  for (const QString& entry : {u"mnu_Manager4_Archive"_s, u"Archive(2)"_s}) {
    InBrowser([&](const Browser& browser) {
      Select(browser, 3, 3);
      WithWindow(u"FrmArchive"_s, [&](QWidget& window) {
        const RecordWindow archive(window, u"TvwFileClass"_s, u"lstData"_s);
        EXPECT_EQ(archive.View(u"TvwFileClass"_s).currentIndex().data(Qt::UserRole), u"Lwdj"_s);
        EXPECT_EQ(archive.Column(u"lstData"_s, 1).size(), 6);
        design_->Run(u"insert into Lwdj (ArchiveID,RegID,Amaintitle) values ('99',7,'题名7')"_s);
      });
      browser.Entry(entry).trigger();
      EXPECT_EQ(browser.Status(), u"当前记录：第1条/共7条"_s) << qPrintable(entry);
      design_->Run(u"delete from Lwdj where RegID = 7"_s);
    });
  }
}

TEST_P(ArchiveCommandsTest, WithoutATableTheArchiveWindowOpensOnNone) {
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"C2\\"_s);
    WithWindow(u"FrmArchive"_s,
               [&](QWidget& window) { EXPECT_EQ(Find<QTreeView>(window, u"lstData"_s).model()->rowCount(), 0); });
    browser.Entry(u"Archive(2)"_s).trigger();
    EXPECT_EQ(browser.List().model()->rowCount(), 0);
  });
}

}  // namespace folvane::test
