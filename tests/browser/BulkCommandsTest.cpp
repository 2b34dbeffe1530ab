#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "bulk/FrmBactchUpdate.h"
#include "query/frmfhfind.h"
#include "shell/DefaultInstance.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::StartsWith;

namespace {

class BulkCommandsTest : public TwelveRecordsTest {
 protected:
  QString Count() { return design_->Value(u"select count(*) from Lwdj"_s); }
};

void LeaveQuery(const QString& condition, const QString& words = {}) {
  WithWindow(u"frmfhfind"_s, [=](QWidget& window) {
    auto& query = static_cast<frmfhfind&>(window);
    EXPECT_EQ(query.FormTag, u"Lwdj"_s);
    query.ReturnSql = condition;
    query.ChnReturnSql = words;
    query.hide();
  });
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(BulkCommandsTest);

TEST_P(BulkCommandsTest, ABatchDeletionTakesTheRecordsOfAQueryAndTheirOriginals) {
  MessageBoxes messages;
  design_->AddOriginal(DesignedDatabase::Key(2), u"91"_s, u"正文"_s, 1);
  design_->AddOriginal(DesignedDatabase::Key(9), u"92"_s, u"别的"_s, 1);
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Ok);
    ClickItem(browser.List(), browser.List().model()->index(3, 0));
    LeaveQuery(u"Lwdj.RegID <= '3'"_s);
    log_->Take();
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
    EXPECT_EQ(messages.Texts(), QStringList{u"确定要批量删除这些记录以及相关原文吗？"_s});
    EXPECT_EQ(messages.Last().flags, 49);
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

TEST_P(BulkCommandsTest, TheStatusLineSaysHowManyRecordsGoBeforeTheQuestionIsAnswered) {
  QString shown;
  InBrowser([&](const Browser& browser) {
    Services().messageBox = [&](const MessageRequest&) {
      shown = browser.Notice();
      return int(Answer::Cancel);
    };
    LeaveQuery(u"Lwdj.RegID <= '3'"_s, u"登记号 小于等于 3"_s);
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
    EXPECT_EQ(browser.Notice(), QString());
  });
  EXPECT_EQ(shown, u"将删除 3 条记录：登记号 小于等于 3"_s);
  EXPECT_EQ(Count(), u"12"_s);
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
    LeaveQuery(u"Lwdj.Amaintitle = 'it's'"_s);
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
    EXPECT_TRUE(messages.Requests().empty());
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
