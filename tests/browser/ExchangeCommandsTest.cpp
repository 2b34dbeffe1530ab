#include <QDir>
#include <QThread>
#include <QTimer>
#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::StartsWith;

namespace {

/// The browser on twelve records of Lwdj, the newest first, and a table Kjwj of the same kind with the records that a
/// case gives it.
class ExchangeCommandsTest : public TwelveRecordsTest {
 protected:
  static QAction& SaveEntry(const Browser& browser) { return browser.Entry(u"mnu_File5_Save"_s); }
  static QAction& OpenEntry(const Browser& browser) { return browser.Entry(u"mnu_File2_Open"_s); }
  QString Folder() const { return program_.Path(u"Data"_s); }
  QString Path() const { return program_.Path(u"exchange.Dat"_s); }
  /// Saves records 1 to count of a table of the same kind as Lwdj.
  void WriteFile(int count) {
    design_->AddPlainTable(u"Kjwj"_s, u"科技文件"_s, 2);
    design_->AddRecords(u"Kjwj"_s, count);
    Recordset records;
    records.Open(u"Select * From Kjwj Order By ArchiveID"_s, Connected());
    records.Save(Path());
  }
  static QString Tip(const Browser& browser) { return Find<QWidget>(browser.Window(), u"Notice"_s).toolTip(); }
  QString Count() { return design_->Value(u"select count(*) from Lwdj"_s); }

  MessageBoxes boxes_;
  FileDialogs files_;
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(ExchangeCommandsTest);

TEST_P(ExchangeCommandsTest, SavingWritesTheRecordsInViewInTheirOrder) {
  Remember(u"Lwdj,Lwdj.RegID > 9"_s);
  files_.Answer(Path());
  InBrowser([&](const Browser& browser) {
    SaveEntry(browser).trigger();
    EXPECT_EQ(boxes_.Texts(), QStringList{u"文件保存完毕!"_s});
    EXPECT_EQ(boxes_.Last().flags, 0);
    EXPECT_EQ(browser.Row(), 1);
  });
  ASSERT_EQ(files_.Requests().size(), 1u);
  EXPECT_TRUE(files_.Requests()[0].save);
  EXPECT_EQ(files_.Requests()[0].filter, u"*.Dat|*.Dat"_s);
  EXPECT_EQ(files_.Requests()[0].directory, Folder());
  EXPECT_TRUE(QDir(Folder()).exists()) << "it is made";
  Recordset saved;
  saved.OpenFile(Path());
  QStringList keys;
  for (; !saved.EOF_(); saved.MoveNext()) keys << saved[u"ArchiveID"_s].Text();
  EXPECT_EQ(keys, QStringList({DesignedDatabase::Key(12), DesignedDatabase::Key(11), DesignedDatabase::Key(10)}));
}

TEST_P(ExchangeCommandsTest, WithoutRecordsThereIsNothingToSave) {
  design_->Run(u"delete from Lwdj"_s);
  InBrowser([&](const Browser& browser) { SaveEntry(browser).trigger(); });
  EXPECT_EQ(boxes_.Texts(), QStringList{u"记录数目为0，不能进行保存！"_s});
  EXPECT_EQ(files_.Requests().size(), 0u);
}

TEST_P(ExchangeCommandsTest, ACancelledDialogEndsQuietly) {
  InBrowser([&](const Browser& browser) {
    SaveEntry(browser).trigger();
    OpenEntry(browser).trigger();
    EXPECT_EQ(browser.Notice(), QString());
  });
  EXPECT_EQ(files_.Requests().size(), 2u);
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(ExchangeCommandsTest, AFileThatCannotBeWrittenIsToldInTheStatusBarUntilTheNextCommand) {
  files_.Answer(program_.Path(u"missing/folder/x.Dat"_s));
  InBrowser([&](const Browser& browser) {
    SaveEntry(browser).trigger();
    EXPECT_THAT(browser.Notice().toStdString(), StartsWith(u"导出未完成："_s.toStdString()));
    SaveEntry(browser).trigger();
    EXPECT_EQ(browser.Notice(), QString());
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(ExchangeCommandsTest, OpeningAddsWhatTheTableLacksAndShowsTheFirstRecord) {
  WriteFile(20);
  files_.Answer(Path());
  InBrowser([&](const Browser& browser) {
    browser.PressInList(Qt::Key_End);
    OpenEntry(browser).trigger();
    EXPECT_EQ(boxes_.Texts(), QStringList{u"导入完成，成功导入8条数据！"_s});
    EXPECT_EQ(boxes_.Last().flags, 0);
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共20条"_s);
    EXPECT_EQ(browser.Row(), 1);
    EXPECT_EQ(Shared().CurrentRecords[u"ArchiveID"_s].Text(), DesignedDatabase::Key(20));
    EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
  });
  EXPECT_EQ(files_.Requests()[0].filter, u"Dat文件(*.Dat)|*.Dat"_s);
  EXPECT_EQ(files_.Requests()[0].directory, Folder());
  EXPECT_FALSE(files_.Requests()[0].save);
  EXPECT_EQ(Count(), u"20"_s);
}

TEST_P(ExchangeCommandsTest, OpeningIntoAnEmptyTableEnablesItsCommands) {
  WriteFile(2);
  design_->Run(u"delete from Lwdj"_s);
  files_.Answer(Path());
  InBrowser([&](const Browser& browser) {
    EXPECT_FALSE(browser.KeyOn(u"Mod"_s));
    OpenEntry(browser).trigger();
    EXPECT_TRUE(browser.KeyOn(u"Mod"_s));
    EXPECT_TRUE(browser.On(u"mnu_Manager"_s));
  });
}

TEST_P(ExchangeCommandsTest, AFileOfTheSameTableAddsNothingAndTheListStaysAsItIs) {
  files_.Answer(Path()).Answer(Path());
  InBrowser([&](const Browser& browser) {
    ClickItem(browser.List(), browser.List().model()->index(4, 0));
    SaveEntry(browser).trigger();
    OpenEntry(browser).trigger();
    EXPECT_EQ(boxes_.Last().text, u"导入完成，成功导入0条数据！"_s);
    EXPECT_EQ(browser.Row(), 5);
    EXPECT_EQ(browser.Status(), u"当前记录：第5条/共12条"_s);
  });
}

TEST_P(ExchangeCommandsTest, ABrokenFileEndsWithItsReasonInTheStatusBar) {
  program_.Write(u"exchange.Dat"_s, "no records");
  files_.Answer(Path());
  InBrowser([&](const Browser& browser) {
    OpenEntry(browser).trigger();
    EXPECT_THAT(browser.Notice().toStdString(), StartsWith(u"导入未完成："_s.toStdString()));
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(browser.Notice(), QString());
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(ExchangeCommandsTest, ARefusedRecordLeavesTheTableAsItWasAndTheDetailsInTheTip) {
  WriteFile(20);
  design_->Run(u"create unique index OneNumber on Lwdj (RegID)"_s);
  design_->Run(u"update Lwdj set RegID=15 where RegID=12"_s);
  files_.Answer(Path());
  InBrowser([&](const Browser& browser) {
    OpenEntry(browser).trigger();
    EXPECT_THAT(browser.Notice().toStdString(), StartsWith(u"导入未完成："_s.toStdString()));
    EXPECT_TRUE(Tip(browser).contains(u"数据库错误代码："_s)) << Tip(browser).toStdString();
    EXPECT_FALSE(browser.Notice().contains(u"数据库错误代码："_s));
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共12条"_s);
    EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
    EXPECT_EQ(Shared().CurrentRecords.RecordCount(), 12);
    browser.PressInList(Qt::Key_Down);
    EXPECT_EQ(browser.Status(), u"当前记录：第2条/共12条"_s) << "the list goes on";
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
  EXPECT_EQ(Count(), u"12"_s);
}

TEST_P(ExchangeCommandsTest, WhereTheListCannotBeReadAgainTheRecordOfItsRowIsStillTheCurrentOne) {
  WriteFile(20);
  files_.Answer(Path());
  log_.reset();
  InBrowser([&](const Browser& browser) {
    browser.PressInList(Qt::Key_Down);
    {
      const LockedStatement reading(*Connected(), 21);  // behind those that look for the twenty keys
      OpenEntry(browser).trigger();
      EXPECT_TRUE(reading.WasRun());
    }
    EXPECT_EQ(boxes_.Texts(), QStringList{u"导入完成，成功导入8条数据！"_s});
    EXPECT_THAT(browser.Notice().toStdString(), StartsWith(u"未能完成："_s.toStdString()));
    EXPECT_EQ(browser.Row(), 2);
    EXPECT_EQ(Shared().CurrentRecords[u"ArchiveID"_s].Text(), DesignedDatabase::Key(11));
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共20条"_s);
  });
}

TEST_P(ExchangeCommandsTest, ALongImportIsSeenInTheStatusBarAndTheKeyThereEndsIt) {
  WriteFile(20);
  files_.Answer(Path());
  log_.reset();
  bool seen = false;
  InBrowser([&](const Browser& browser) {
    auto& stop = Find<QWidget>(browser.Window(), u"CmdStop"_s);
    int looks = 0;
    Connected()->OnStatement([&](const QString& statement) {
      if (!statement.startsWith(u"Select * From Lwdj Where ArchiveID"_s) || ++looks != 15) return;
      QThread::msleep(80);  // long enough to be shown
      QTimer::singleShot(0, &browser.Window(), [&] {
        seen = stop.isVisible() && Find<QWidget>(browser.Window(), u"ProMain"_s).isVisible();
        Click(stop);
      });
    });
    OpenEntry(browser).trigger();
    Connected()->OnStatement({});
    EXPECT_TRUE(seen);
    EXPECT_FALSE(stop.isVisible());
    EXPECT_EQ(browser.Notice(), u"已取消导入，没有导入任何数据"_s);
    EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共12条"_s);
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
  EXPECT_EQ(Count(), u"12"_s);
}

TEST_P(ExchangeCommandsTest, WhoMayOnlyReadSavesAndDoesNotOpen) {
  Shared().UserId = u"7"_s;
  design_->Insert(u"UserPopedomScope"_s, u"UserID,PopTableName,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                  {u"7"_s, u"Lwdj"_s, u"0"_s, u"0"_s, u"0"_s, QString()});
  InBrowser([&](const Browser& browser) {
    EXPECT_TRUE(SaveEntry(browser).isEnabled());
    EXPECT_FALSE(OpenEntry(browser).isEnabled());
  });
}

TEST_P(ExchangeCommandsTest, WithoutATableThereIsNeither) {
  Remember(u"Missing"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_FALSE(SaveEntry(browser).isEnabled());
    EXPECT_FALSE(OpenEntry(browser).isEnabled());
  });
}

}  // namespace folvane::test
