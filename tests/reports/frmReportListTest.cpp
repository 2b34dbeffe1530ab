#include <QListView>

#include "reports/ReportsFixture.h"
#include "reports/frmReportList.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

class frmReportListTest : public ReportsTest {
 protected:
  void InWindow(const QString& group, const std::function<void()>& steps) {
    window_.gsReportGroupId = group;
    WithWindow(u"frmReportList"_s, [&](QWidget&) { steps(); });
    window_.Open();
  }
  QListView& List() { return Find<QListView>(window_, u"lstReportName"_s); }
  QString Names() {
    QStringList names;
    for (int row = 0; row < List().model()->rowCount(); ++row) names << List().model()->index(row, 0).data().toString();
    return names.join(u' ');
  }
  void Press(const QString& key) { Click(Find(window_, key)); }

  frmReportList window_;
};

FOLVANE_ON_EACH_DATABASE(frmReportListTest);

TEST_P(frmReportListTest, ShowsTheReportsOfTheGroupAndItsType) {
  window_.gsReportId = u"kept"_s;
  InWindow(u"Distribute_File"_s, [&] {
    EXPECT_EQ(window_.windowTitle(), u"报表打印"_s);
    EXPECT_EQ(Names(), u"文件分发单"_s);
    EXPECT_EQ(UnnamedControls(window_), QStringList());
  });
  EXPECT_EQ(window_.giReportType, u"1"_s);
  EXPECT_EQ(window_.gsReportId, u"kept"_s);
  EXPECT_EQ(TakeStatements(), QStringList{u"select report_name from  report_index where "
                                          "report_group_id ='Distribute_File' and report_type=1"_s});
  InWindow(u"yearreport"_s, [&] { EXPECT_EQ(Names(), u"年度报表"_s); });
  EXPECT_EQ(window_.giReportType, u"2"_s);
  EXPECT_EQ(TakeStatements(), QStringList{u"select report_name from  report_index where "
                                          "report_group_id ='yearreport' and report_type=2"_s});
  InWindow(u"statistics"_s, [&] { EXPECT_EQ(Names(), u"文种统计"_s); });
  EXPECT_EQ(window_.giReportType, u"2"_s);
}

TEST_P(frmReportListTest, OkAnswersTheTrimmedName) {
  Database().Native(u"update Report_Index set Report_Name = '  收文处理单 ' where Report_ID = '1002'"_s);
  InWindow(u"Lwdj"_s, [&] {
    ClickItem(List(), List().model()->index(1, 0));
    Press(u"CmdOK"_s);
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_EQ(window_.gsReturnName, u"收文处理单"_s);
}

TEST_P(frmReportListTest, ADoubleClickAnswersTheName) {
  InWindow(u"Lwdj"_s, [&] {
    DoubleClickItem(List(), List().model()->index(1, 0));
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_EQ(window_.gsReturnName, u"收文处理单"_s);
}

TEST_P(frmReportListTest, HoweverElseItIsLeftTheNameIsEmpty) {
  for (const auto& leave : std::vector<std::function<void()>>{
           [&] { Press(u"CmdCancel"_s); }, [&] { test::Press(window_, Qt::Key_Escape); }, [&] { window_.close(); }}) {
    window_.gsReturnName = u"of before"_s;
    InWindow(u"Lwdj"_s, [&] {
      ClickItem(List(), List().model()->index(1, 0));
      leave();
      EXPECT_FALSE(window_.isVisible());
    });
    EXPECT_EQ(window_.gsReturnName, QString());
  }
}

TEST_P(frmReportListTest, AGroupWithoutReportsSaysSoAndAnswersNothing) {
  InWindow(u"PassRead_File"_s, [&] {
    EXPECT_TRUE(Find(List(), u"EmptyHint"_s).isVisible());
    Press(u"CmdOK"_s);
  });
  EXPECT_EQ(window_.gsReturnName, QString());
}

}  // namespace
}  // namespace folvane::test
