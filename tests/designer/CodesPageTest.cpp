#include "designer/CodesPage.h"
#include "designer/PageFixture.h"
#include "designer/ReportsPage.h"

// Codes, and the reports.
namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kFonds = u"GrdFonds"_s, kClasses = u"GrdEntityClasses"_s, kRetentions = u"GrdRetentions"_s;

using CodesPageTest = PageTest<designer::CodesPage>;
FOLVANE_ON_EACH_DATABASE(CodesPageTest);

TEST_P(CodesPageTest, AFondsIsRenumberedAndGoesWithItsClasses) {
  EXPECT_EQ(Rows(kClasses), QStringList{u"0188|DQ|党群工作"_s});
  Write(kFonds, 0, 0, u"X043"_s);
  EXPECT_EQ(Rows(kClasses), QStringList{u"X043|DQ|党群工作"_s});
  Remove(kFonds, 0);
  EXPECT_EQ(Told(), u"全宗“X043”和它的 1 个实体分类已删去。");
  EXPECT_TRUE(Wanted().entityClasses.empty());
  Add(kClasses);
  EXPECT_EQ(Told(), u"请先增加全宗。");
  ExpectTakenBack();
  EXPECT_EQ(UnnamedControls(Shown()), QStringList());
}

TEST_P(CodesPageTest, NewOnesAreFreeAndDoubledOrEmptyOnesRefused) {
  Add(kFonds);
  EXPECT_EQ(Wanted().fonds.back().number, u"0001");
  Write(kFonds, 1, 0, u"0188"_s);
  EXPECT_EQ(Told(), u"已有全宗“0188”。");
  Write(kFonds, 1, 0, u"  "_s);
  EXPECT_EQ(Told(), u"没有填写全宗号。");
  Add(kClasses);
  EXPECT_EQ(Wanted().entityClasses.back(), (Design::EntityClass{u"0188"_s, u"01"_s, {}}));
  Write(kClasses, 1, 1, u"dq"_s);
  EXPECT_EQ(Told(), u"已有全宗“0188”的实体分类“dq”。");
  Write(kClasses, 1, 0, u"0001"_s);
  Write(kClasses, 1, 1, u"dq"_s);
  EXPECT_EQ(Wanted().entityClasses.back(), (Design::EntityClass{u"0001"_s, u"dq"_s, {}}));
  Add(kRetentions);
  Write(kRetentions, 1, 1, u"D'10"_s);
  EXPECT_EQ(Wanted().retentions.back(), (Design::Retention{u"10年"_s, u"D'10"_s}));
  ExpectTakenBack();
}

TEST_P(CodesPageTest, ClassesOfASpreadsheetArePastedWithTheirFonds) {
  GoTo(kClasses, 0);
  Paste(kClasses, u"0188\tDQ\t党群工作类\n0188\tXZ\t行政管理\n9999\tYW\t业务\n"_s);
  EXPECT_EQ(Rows(kClasses), QStringList({u"0188|DQ|党群工作类"_s, u"0188|XZ|行政管理"_s}));
  EXPECT_EQ(Told(), u"1 处未能粘贴：没有全宗“9999”。");
  Undo();
  EXPECT_EQ(Wanted(), session_->Stored());
}

const QString kReports = u"GrdReports"_s;

using ReportsPageTest = PageTest<designer::ReportsPage>;
FOLVANE_ON_EACH_DATABASE(ReportsPageTest);

TEST_P(ReportsPageTest, ReportsBelongToTablesAndFlows) {
  EXPECT_EQ(Rows(kReports), QStringList{u"1001|收文登记簿|收文登记 Lwdj|是"_s});
  Add(kReports);
  Write(kReports, 1, 1, u"传阅单"_s);
  Write(kReports, 1, 2, u"文件传阅单 PassRead_File"_s);
  EXPECT_EQ(Wanted().reports.back(), (Design::Report{u"1002"_s, u"传阅单"_s, u"PassRead_File"_s, u"1"_s}));
  Tick(kReports, 1, 3);
  EXPECT_EQ(Wanted().reports.back().type, u"0");
  session_->Apply(session_->Plan(), {});
  EXPECT_EQ(Read(), Wanted());
  EXPECT_EQ(UnnamedControls(Shown()), QStringList());
}

TEST_P(ReportsPageTest, ANumberInUseAndEmptyOnesAreRefused) {
  Add(kReports);
  Write(kReports, 1, 0, u"1001"_s);
  EXPECT_EQ(Told(), u"已有报表“新报表”(1001)。");
  Write(kReports, 1, 0, u""_s);
  EXPECT_EQ(Told(), u"报表没有编号。");
  Write(kReports, 1, 1, u" "_s);
  EXPECT_EQ(Told(), u"报表没有名称。");
  Remove(kReports, 0);
  Remove(kReports, 0);
  EXPECT_TRUE(Wanted().reports.empty());
  ExpectTakenBack();
}

}  // namespace
}  // namespace folvane::test
