#include <folvane/HostServices.h>
#include <folvane/ReportRequest.h>

#include "InputFixture.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// The record of the entry window, as reports and flows get it.
class HandedOverTest : public InputTest {};

FOLVANE_ON_EACH_DATABASE(HandedOverTest);

TEST_P(HandedOverTest, OffersTheReportsOfTheTable) {
  Run(u"insert into Report_Index (Report_ID,Report_Name,Report_Group_Id,Report_Type) values ('77','收文簿','Lwdj','1'),"
      "('78','年报','Lwdj','2')"_s);
  InWindow([&](const Input& input) {
    EXPECT_EQ(input.Entry(u"menuTemp(1)"_s).text(), u"收文簿"_s);
    EXPECT_EQ(input.Entry(u"M_77"_s).text(), u"收文簿"_s);
    EXPECT_EQ(input.Window().findChildren<QAction*>(u"M_78"_s).size(), 0);
  });
  Run(u"delete from Report_Index"_s);
  InWindow([&](const Input& input) {
    EXPECT_EQ(input.Entry(u"menuTemp(1)"_s).text(), u"文件报表(无)"_s);
    EXPECT_EQ(input.Window().findChildren<QAction*>(u"M_77"_s).size(), 0);
  });
}

TEST_P(HandedOverTest, RunsAndDesignsAReportOfItsRecord) {
  AddRecords(2);
  Run(u"insert into Report_Index (Report_ID,Report_Name,Report_Group_Id,Report_Type) values ('77','收&发','Lwdj','1')"_s);
  QStringList told;
  Services().runReport = [&](const ReportRequest& request) { told << u"run "_s + request.selection; };
  Services().designReport = [&](const ReportRequest& request) { told << u"design "_s + request.reportId; };
  InWindow([](const Input& input) {
    for (const QString& entry : {u"menuTemp(1)"_s, u"M_77"_s, u"D_77"_s}) input.Do(entry);
  });
  const QString selection = u"run Lwdj.Archiveid = '"_s + Key(1) + u'\'';
  EXPECT_EQ(told, (QStringList{selection, selection, u"design 77"_s}));
}

TEST_P(HandedOverTest, SendsItsRecordIntoAFlowAndShowsWhatThatChanged) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s});
  MessageBoxes boxes;
  InWindow([&](const Input& input) {
    EXPECT_TRUE(input.KeyOn(u"PassRead"_s));
    boxes.Answer(Answer::Ok).Answer(Answer::Cancel);
    Run(u"update Lwdj set Amaintitle = '改过'"_s);
    input.Do(u"mnuPassRead"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"改过"_s);
  });
  EXPECT_EQ(Database().Value(u"select MainTitle from PassRead_File"_s), u"改过"_s);
}

TEST_P(HandedOverTest, MayBeClosedTogetherWithTheFlowThatItsRecordWasSentInto) {
  AddRecords(1);
  MessageBoxes boxes;
  InWindow([&](const Input& input) {
    boxes.Answer(Answer::Ok).Answer(Answer::Ok);
    WithWindow(u"frmPassFile"_s, [&](QWidget& flow) {
      flow.close();
      EXPECT_TRUE(input.Window().close());
    });
    input.Do(u"mnuPassRead"_s);
    EXPECT_FALSE(input.Window().isVisible());
  });
  EXPECT_EQ(Database().Value(u"select count(*) from PassRead_File"_s), u"1"_s);
}

TEST_P(HandedOverTest, SendsNothingIntoAFlowThatIsNotSaved) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s});
  MessageBoxes boxes;
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"新"_s);
    input.Do(u"mnuDistibute"_s);
    EXPECT_EQ(boxes.Last().text, u"请先保存当前数据！"_s);
    EXPECT_EQ(boxes.Last().flags, 64);
    EXPECT_EQ(boxes.Last().title, input.Window().windowTitle());
    input.Do(u"CancelRecord"_s);
  });
  EXPECT_EQ(Database().Value(u"select count(*) from Distribute_File"_s), u"0"_s);
}

TEST_P(HandedOverTest, TellsThatARecordIsGoneWhenItIsToEnterAFlow) {
  AddRecords(1);
  MessageBoxes boxes;
  InWindow([&](const Input& input) {
    Run(u"delete from Lwdj"_s);
    for (const QString& entry : {u"mnuDistibute"_s, u"mnuPassRead"_s, u"mnuTransact"_s}) {
      input.Do(entry);
      EXPECT_EQ(boxes.Last().text, u"该文件已不存在，可能其他人也更改或删除该文件！"_s);
      boxes.Clear();
    }
  });
}

}  // namespace
}  // namespace folvane::test
