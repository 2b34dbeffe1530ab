#include <QItemSelectionModel>
#include <gmock/gmock.h>

#include <folvane/HostServices.h>
#include <folvane/ReportRequest.h>

#include "browser/BrowserTest.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// The selected records of the list, as flows and reports get them.
class HandedOverRecordsTest : public TwelveRecordsTest {};

FOLVANE_ON_EACH_DATABASE(HandedOverRecordsTest);

TEST_P(HandedOverRecordsTest, EachSelectedRecordIsOfferedToTheFlow) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    browser.List().selectionModel()->select(browser.List().model()->index(1, 0),
                                            QItemSelectionModel::Select | QItemSelectionModel::Rows);
    messages.Answer(Answer::Ok).Answer(Answer::Cancel).Answer(Answer::Cancel);
    log_->Take();
    browser.Entry(u"mnu_Manager2_PassRead"_s).trigger();
    EXPECT_THAT(log_->Take(),
                testing::Contains(u"Select * from Lwdj Where ArchiveID='"_s + DesignedDatabase::Key(12) + u'\''));
    EXPECT_EQ(messages.Texts(), (QStringList{u"是否确定要将文件转入传阅模块中？"_s,
                                             u"文件已经成功转入传阅模块中，\n\r是否要查看传阅信息？"_s,
                                             u"是否确定要将文件转入传阅模块中？"_s}));
  });
  EXPECT_EQ(design_->Value(u"select count(*) from PassRead_File"_s), u"1"_s);
  EXPECT_EQ(design_->Value(u"select File_ID from PassRead_File"_s), DesignedDatabase::Key(12));
}

TEST_P(HandedOverRecordsTest, ARecordThatIsGoneIsRefusedByEveryFlow) {
  for (const QString& entry : {u"mnu_Manager1_Distribute"_s, u"mnu_Manager2_PassRead"_s, u"mnu_Manager3_Transact"_s}) {
    MessageBoxes messages;
    InBrowser([&](const Browser& browser) {
      design_->Run(u"delete from Lwdj where ArchiveID='"_s +
                   browser.List().currentIndex().data(Qt::UserRole).toString() + u'\'');
      browser.Entry(entry).trigger();
      EXPECT_EQ(messages.Texts(), (QStringList{u"该文件已不存在，可能其他人也更改或删除该文件！"_s}));
      EXPECT_EQ(messages.Last().flags, 64);
      EXPECT_EQ(messages.Last().title, u"系统提示"_s);
    });
  }
}

TEST_P(HandedOverRecordsTest, BehindARecordThatIsGoneNoneIsHandedOver) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    browser.List().selectAll();
    design_->Run(u"delete from Lwdj"_s);
    browser.Entry(u"mnu_Manager2_PassRead"_s).trigger();
    EXPECT_EQ(messages.Texts(), (QStringList{u"该文件已不存在，可能其他人也更改或删除该文件！"_s}));
  });
}

TEST_P(HandedOverRecordsTest, AReportGetsExactlyTheSelectedRecords) {
  design_->Insert(u"Report_Index"_s, u"Report_ID,Report_Name,Report_Group_Id,Report_Type"_s,
                  {u"77"_s, u"收文簿"_s, u"Lwdj"_s, u"1"_s});
  QList<ReportRequest> requests;
  Services().runReport = [&](const ReportRequest& request) { requests << request; };
  InBrowser([&](const Browser& browser) { browser.Entry(u"mnu_Report_List(1)"_s).trigger(); });
  ASSERT_EQ(requests.size(), 1);
  EXPECT_EQ(requests[0].reportId, u"77"_s);
  EXPECT_EQ(requests[0].mainTable, u"Lwdj"_s);
  EXPECT_EQ(requests[0].secondTable, u"Lwdj"_s);
  EXPECT_EQ(requests[0].selection, u"Lwdj.ArchiveID IN ('"_s + DesignedDatabase::Key(12) + u"')"_s);
}

TEST_P(HandedOverRecordsTest, WithoutReportsTheEntryDoesNothingAndWithoutAComponentItSaysSo) {
  MessageBoxes messages;
  Services().runReport = nullptr;
  InBrowser([&](const Browser& browser) { browser.Entry(u"mnu_Report_List(1)"_s).trigger(); });
  EXPECT_TRUE(messages.Requests().empty());
  design_->Insert(u"Report_Index"_s, u"Report_ID,Report_Name,Report_Group_Id,Report_Type"_s,
                  {u"77"_s, u"收文簿"_s, u"Lwdj"_s, u"1"_s});
  InBrowser([&](const Browser& browser) { browser.Entry(u"mnu_Report_List(1)"_s).trigger(); });
  ASSERT_EQ(messages.Requests().size(), 1u);
  EXPECT_TRUE(messages.Last().text.startsWith(u"打印报表出错，请将后面的出错提示向程序供应商反馈！"_s));
}

}  // namespace
}  // namespace folvane::test
