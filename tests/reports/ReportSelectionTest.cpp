#include "reports/ReportEntries.h"
#include "reports/ReportSelection.h"
#include "reports/ReportsFixture.h"

namespace folvane::test {
namespace {

TEST(ReportSelectionTest, NamesExactlyTheSelectedRows) {
  EXPECT_EQ(GetSelectionClause(u"Lwdj"_s, {u"20021231235959001234"_s}),
            u"Lwdj.ArchiveID IN ('20021231235959001234')"_s);
  EXPECT_EQ(GetSelectionClause(u"Lwdj"_s, {u"1"_s, u"3"_s}), u"Lwdj.ArchiveID IN ('1','3')"_s);
}

TEST(ReportSelectionTest, WithoutARowIsTheTableAndAnEmptyBracket) {
  EXPECT_EQ(GetSelectionClause(u"Fwdj"_s, {}), u"Fwdj.ArchiveID IN ()"_s);
}

TEST(ReportSelectionTest, NamesTheRecordOfAnEntryForm) {
  EXPECT_EQ(RecordSelection(u"Lwdj"_s, u"7"_s), u"Lwdj.Archiveid = '7'"_s);
  EXPECT_EQ(RecordSelection(u"Lwdj"_s, u"7' or '1'='1"_s), u"Lwdj.Archiveid = '7'' or ''1''=''1'"_s);
}

const SheetTables kDistribution{u"Distribute_File"_s, u"Distribute_Details"_s, u"Distribute_ID"_s};

TEST(ReportSelectionTest, CoversTheSheetWhileTheHeadsAreInUse) {
  const SheetReport report = ReportOfSheet(kDistribution, false, {u"2002-5"_s, u"77"_s, {}});
  EXPECT_EQ(report.table, u"Distribute_File"_s);
  EXPECT_EQ(report.selection, u"Distribute_ID ='2002-5'"_s);
  EXPECT_EQ(report.hindrance, QString());
}

TEST(ReportSelectionTest, CoversTheLineWhileTheDetailsAreInUse) {
  const SheetReport report = ReportOfSheet(kDistribution, true, {u"2002-5"_s, u"77"_s, u"3"_s});
  EXPECT_EQ(report.table, u"Distribute_Details"_s);
  EXPECT_EQ(report.selection, u"Register_ID ='77' And File_ID = '3'"_s);
  EXPECT_EQ(report.hindrance, QString());
}

TEST(ReportSelectionTest, FindsTheLineOfAHandlingByTheSheetsNumber) {
  const SheetTables handling{u"Transact_File"_s, u"Transact_Details"_s, u"Transact_ID"_s, u"Transact_ID"_s};
  EXPECT_EQ(ReportOfSheet(handling, false, {u"H-1"_s, u"H-1"_s, u"3"_s}).selection, u"Transact_ID ='H-1'"_s);
  EXPECT_EQ(ReportOfSheet(handling, true, {u"H-1"_s, u"H-1"_s, u"3"_s}).selection,
            u"Transact_ID ='H-1' And File_ID = '3'"_s);
}

TEST(ReportSelectionTest, WithoutALineThereIsNothingToPrint) {
  EXPECT_EQ(ReportOfSheet(kDistribution, true, {u"2002-5"_s, u"77"_s, {}}).hindrance, u"没有数据，不能生成报表！"_s);
}

class ReportEntriesTest : public ReportsTest {};
FOLVANE_ON_EACH_DATABASE(ReportEntriesTest);

TEST_P(ReportEntriesTest, AMenuOffersTheReportsOfTypeOne) {
  const auto reports = ReadReportEntries(u"Lwdj"_s);
  ASSERT_EQ(reports.size(), 2u);
  EXPECT_EQ(reports[0].reportName, u"收文登记簿"_s);
  EXPECT_EQ(reports[0].reportId, u"1001"_s);
  EXPECT_EQ(TakeStatements(), QStringList{u"Select Report_Name,Report_ID From Report_Index where "
                                          "Report_Group_Id ='Lwdj' and report_type = '1'"_s});
  EXPECT_TRUE(ReadReportEntries(u"Fwdj"_s).empty());
  EXPECT_EQ(NoReports().reportName, u"文件报表(无)"_s);
  EXPECT_EQ(NoReports().reportId, u"0"_s);
}

TEST_P(ReportEntriesTest, YearlyFiguresAndStatisticsAreOfTypeTwo) {
  EXPECT_EQ(ReportTypeOf(u"yearreport"_s), u"2"_s);
  EXPECT_EQ(ReportTypeOf(u"statistics"_s), u"2"_s);
  EXPECT_EQ(ReportTypeOf(u"Distribute_File"_s), u"1"_s);
  EXPECT_EQ(ReportTypeOf({}), u"1"_s);
}

}  // namespace
}  // namespace folvane::test
