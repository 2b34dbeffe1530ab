#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "bulk/FrmBactchUpdate.h"
#include "query/frmfhfind.h"
#include "shell/DefaultInstance.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class BulkCommandsTest : public TwelveRecordsTest {
 protected:
  QString Count() { return design_->Value(u"select count(*) from Lwdj"_s); }
};

void LeaveQuery(const QString& condition, const QString& words = {}, const QStringList& ignored = {}) {
  WithWindow(u"frmfhfind"_s, [=](QWidget& window) {
    auto& query = static_cast<frmfhfind&>(window);
    EXPECT_EQ(query.FormTag, u"Lwdj"_s);
    query.ReturnSql = condition;
    query.InForce = words;
    query.Ignored = ignored;
    query.hide();
  });
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(BulkCommandsTest);

TEST_P(BulkCommandsTest, ABatchDeletionTakesTheRecordsOfAQueryAndTheirOriginals) {
  MessageBoxes messages;
  program_.Write(u"Data/91.tif"_s, "scan");
  design_->AddOriginal(DesignedDatabase::Key(2), u"91"_s, u"正文"_s, 1);
  design_->AddOriginal(DesignedDatabase::Key(9), u"92"_s, u"别的"_s, 1);
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Ok);
    ClickItem(browser.List(), browser.List().model()->index(3, 0));
    LeaveQuery(u"Lwdj.RegID <= '3'"_s);
    log_->Take();
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
    EXPECT_EQ(messages.Texts(), QStringList{u"确定要批量删除这些记录以及相关原文吗？"_s});
    EXPECT_EQ(messages.Last().flags, 49 + 256) << "the default key is Cancel";
    EXPECT_EQ(messages.Last().title, u"警告"_s);
    const QStringList statements = log_->Take();
    EXPECT_TRUE(statements.contains(
        u"Delete From Original_Text Where RecordID In (Select ArchiveID From Lwdj Where Lwdj.RegID <= '3')"_s));
    EXPECT_TRUE(statements.contains(u"Delete From Lwdj Where Lwdj.RegID <= '3'"_s));
    EXPECT_EQ(browser.Cell(), u"9"_s) << "the selected record is found again";
    EXPECT_EQ(browser.Status(), u"当前记录：第4条/共9条"_s);
    EXPECT_EQ(browser.Notice(), u"已删除 3 条记录"_s);
  });
  EXPECT_EQ(Count(), u"9"_s);
  EXPECT_EQ(design_->Value(u"select ID from Original_Text"_s), u"92"_s);
}

TEST_P(BulkCommandsTest, BesideTheQuestionStandsHowManyRecordsGo) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Cancel);
    LeaveQuery(u"Lwdj.RegID <= '3'"_s, u"登记号 小于等于 3"_s);
    log_->Take();
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
    EXPECT_EQ(messages.Last().note, u"将删除 3 条记录：登记号 小于等于 3"_s);
    EXPECT_EQ(log_->Take().filter(u"Lwdj.RegID"_s),
              QStringList{u"Select Count(*) From Lwdj Where Lwdj.RegID <= '3'"_s});
  });
  EXPECT_EQ(Count(), u"12"_s);
}

TEST_P(BulkCommandsTest, BesideTheQuestionOfADeletionStandWhichConditionsDoNotCount) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Cancel);
    LeaveQuery(u"Lwdj.RegID <= '3'"_s, {}, {u"题名 等于 O'Brien（未能保存）"_s});
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
    EXPECT_EQ(messages.Last().note,
              u"将删除 3 条记录\n以下条件不参与查询，或与所示不符：\n题名 等于 O'Brien（未能保存）"_s);
  });
}

TEST_P(BulkCommandsTest, AQueryOfWhichNothingCountsAsksNothingAndTheStatusLineTells) {
  InBrowser([&](const Browser& browser) {
    LeaveQuery({}, {}, {u"题名 等于 O'Brien（未能保存）"_s});
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
    EXPECT_THAT(browser.Notice().toStdString(), HasSubstr("题名 等于 O'Brien（未能保存）"));
  });
  EXPECT_EQ(Count(), u"12"_s);
}

TEST_P(BulkCommandsTest, ABatchUpdateTellsWhichConditionsOfTheFilterDoNotCountUntilAnotherFilterIsSet) {
  const auto asked = [](const Browser& browser) {
    MessageBoxes messages;
    messages.Answer(Answer::No);
    WithWindow(u"FrmBactchUpdate"_s, [](QWidget& window) {
      Find(window, u"TxtValue"_s).setProperty("text", u"x"_s);
      Click(Find(window, u"CmdOK"_s));
    });
    browser.Entry(u"mnu_Tool1_BUpdate"_s).trigger();
    return messages.Last();
  };
  InBrowser([&](const Browser& browser) {
    LeaveQuery(u"Lwdj.RegID <= '3'"_s, {}, {u"题名 等于 x（尚未添加）"_s});
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(asked(browser).note, u"以下条件不参与查询，或与所示不符：\n题名 等于 x（尚未添加）"_s);
    EXPECT_EQ(asked(browser).flags, 36 + 256) << "the default key is No";
    LeaveQuery(u"Lwdj.RegID <= '3'"_s);
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(asked(browser).note, QString());
    EXPECT_EQ(asked(browser).flags, 36);
  });
}

TEST_P(BulkCommandsTest, ABatchDeletionReachesRecordsThatTheUserCannotSee) {
  MessageBoxes messages;
  Shared().UserId = u"5"_s;
  design_->Insert(u"UserPopedomScope"_s,
                  u"UserID,PopTableName,PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                  {u"5"_s, u"Lwdj"_s, u"编辑"_s, u"1"_s, u"1"_s, u"1"_s, u"RegID > 10"_s});
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Ok);
    LeaveQuery(u"Lwdj.RegID <= '11'"_s);
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList{u"12"_s});
  });
  EXPECT_EQ(Count(), u"1"_s);
}

TEST_P(BulkCommandsTest, WithoutAConditionNothingIsAsked) {
  InBrowser([&](const Browser& browser) {
    LeaveQuery({});
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
  });
  EXPECT_EQ(Count(), u"12"_s);
}

TEST_P(BulkCommandsTest, AConditionThatTheDatabaseRefusesDeletesNothingAndTheStatusLineTells) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Ok);
    LeaveQuery(u"Lwdj.Amaintitle = 'it's'"_s);
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
    EXPECT_THAT(messages.Last().note.toStdString(), StartsWith("未能统计将删除的记录数："));
    EXPECT_THAT(browser.Notice().toStdString(), StartsWith("未能完成："));
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共12条"_s);
  });
  EXPECT_EQ(Count(), u"12"_s);
}

TEST_P(BulkCommandsTest, ABatchUpdateIsToldTheTableAndTheSelectedRow) {
  InBrowser([&](const Browser& browser) {
    ClickItem(browser.List(), browser.List().model()->index(4, 0));
    WithWindow(u"FrmBactchUpdate"_s, [](QWidget& window) {
      const auto& update = static_cast<FrmBactchUpdate&>(window);
      EXPECT_EQ(update.TableName, u"Lwdj"_s);
      EXPECT_EQ(update.vsPos, 5);
    });
    log_->Take();
    browser.Entry(u"mnu_Tool1_BUpdate"_s).trigger();
    EXPECT_FALSE(log_->Take().contains(u"Select * From Lwdj Order By ArchiveId Desc"_s)) << "nothing was replaced";
    EXPECT_FALSE(DefaultInstance<FrmBactchUpdate>::IsLoaded());
  });
}

TEST_P(BulkCommandsTest, ABatchUpdateStartsAtTheSelectedRecordWhereverTheListBegins) {
  design_->Run(u"delete from Lwdj"_s);
  design_->AddRecords(u"Lwdj"_s, 70);
  const auto position = [](const Browser& browser) {
    int told = 0;
    WithWindow(u"FrmBactchUpdate"_s, [&](QWidget& window) { told = static_cast<FrmBactchUpdate&>(window).vsPos; });
    browser.Entry(u"mnu_Tool1_BUpdate"_s).trigger();
    return told;
  };
  InBrowser([&](const Browser& browser) {
    browser.Entry(u"mnu_Goto6_LPage"_s).trigger();
    EXPECT_EQ(browser.List().currentIndex().row(), 29);
    EXPECT_EQ(position(browser), 70);
    ClickItem(browser.List(), browser.List().model()->index(0, 0));
    browser.ClickColumn(0);
    EXPECT_EQ(browser.List().currentIndex().row(), 0);
    EXPECT_EQ(u"当前记录：第%1条/共70条"_s.arg(position(browser)), browser.Status());
    EXPECT_GT(position(browser), 1);
  });
}

TEST_P(BulkCommandsTest, WithoutARowABatchUpdateIsToldSo) {
  design_->Run(u"delete from Lwdj"_s);
  InBrowser([&](const Browser& browser) {
    WithWindow(u"FrmBactchUpdate"_s,
               [](QWidget& window) { EXPECT_EQ(static_cast<FrmBactchUpdate&>(window).vsPos, -1); });
    browser.Entry(u"mnu_Tool1_BUpdate"_s).trigger();
  });
}

TEST_P(BulkCommandsTest, ABatchUpdateThatSucceededShowsTheNewValuesAndKeepsTheSelectedRecord) {
  InBrowser([&](const Browser& browser) {
    ClickItem(browser.List(), browser.List().model()->index(4, 0));
    WithWindow(u"FrmBactchUpdate"_s, [&](QWidget& window) {
      design_->Run(u"update Lwdj set Amaintitle = '新' where RegID = 8"_s);
      static_cast<FrmBactchUpdate&>(window).IsSucceed = true;
      window.hide();
    });
    browser.Entry(u"mnu_Tool1_BUpdate"_s).trigger();
    EXPECT_EQ(browser.Cell(), u"8"_s);
    EXPECT_EQ(browser.List().currentIndex().siblingAtColumn(1).data().toString(), u"新"_s);
  });
}

}  // namespace folvane::test
