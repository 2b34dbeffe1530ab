#include "components/reports/ReportPages.h"
#include "reportengine/EngineFixture.h"

namespace folvane::test {
namespace {

class DefaultReportTest : public EngineTest {
 protected:
  // Every value of the rows in the named columns stands in the text.
  void ExpectAll(const QString& text, const ResultSet& rows, const QStringList& columns) {
    ASSERT_GT(rows.RowCount(), 0);
    for (qint64 row = 0; row < rows.RowCount(); ++row) {
      for (const QString& column : columns) {
        const QString value = rows.Text(row, rows.Find(column)).remove(u' ').remove(u'\n');
        EXPECT_TRUE(text.contains(value)) << qPrintable(column + u": "_s + value);
      }
    }
  }
};
FOLVANE_ON_EACH_DATABASE(DefaultReportTest);

TEST_P(DefaultReportTest, SeveralRecordsAreATableOfTheListsColumns) {
  const QString text = Printed(Request(u"Lwdj"_s, u"RegID <= 12"_s));
  EXPECT_TRUE(text.contains(u"收文登记"_s));
  EXPECT_TRUE(text.contains(u"打印人：王明打印日期：2026-11-20"_s)) << qPrintable(text.right(200));
  const ResultSet rows = Select(u"Select * From Lwdj Where RegID <= 12"_s);
  EXPECT_TRUE(text.contains(u"共%1条记录"_s.arg(rows.RowCount())));
  ExpectAll(text, rows, {u"RegID"_s, u"CreatedDate"_s, u"DocNo"_s, u"Amaintitle"_s, u"ResponsibleBy"_s});
}

TEST_P(DefaultReportTest, OneRecordIsAFormOfAllItsFields) {
  const QString key = First(u"Select ArchiveID From Lwdj Order By ArchiveID"_s);
  const QString text = Printed(Request(u"Lwdj"_s, u"Lwdj.Archiveid = '%1'"_s.arg(key)));
  const ResultSet row = Select(u"Select * From Lwdj Where ArchiveID = '%1'"_s.arg(key));
  const ResultSet fields = Select(u"Select FieldName,ChnFieldName From DynamicWindows Where TableName = 'Lwdj'"_s);
  for (qint64 field = 0; field < fields.RowCount(); ++field) {
    EXPECT_TRUE(text.contains(fields.Text(field, 1))) << qPrintable(fields.Text(field, 1));
    ExpectAll(text, row, {fields.Text(field, 0)});
  }
}

TEST_P(DefaultReportTest, ASheetIsShownWithItsLines) {
  const QString sheet = First(u"Select Register_ID From Distribute_Details Order By Register_ID"_s);
  const QString number = First(u"Select Distribute_ID From Distribute_File Where Register_ID = '%1'"_s.arg(sheet));
  const QString text = Printed(Request(u"Distribute_File"_s, u"Distribute_ID ='%1'"_s.arg(number)));
  ExpectAll(text, Select(u"Select * From Distribute_File Where Distribute_ID = '%1'"_s.arg(number)),
            {u"Doc_No"_s, u"MainTitle"_s, u"Distribute_Range"_s});
  ExpectAll(text, Select(u"Select * From Distribute_Details Where Register_ID = '%1'"_s.arg(sheet)),
            {u"Lead_Unit"_s, u"Distribute_Date"_s, u"Quantity"_s});
  EXPECT_TRUE(text.contains(u"接收单位"_s));
}

TEST_P(DefaultReportTest, ALineOfASheetIsAFormWithItsSheet) {
  const ResultSet line = Select(u"Select * From PassRead_Details Order By Register_ID,File_ID"_s);
  const QString sheet = line.Text(0, line.Find(u"Register_ID"_s));
  const QString text = Printed(Request(u"PassRead_Details"_s, u"Register_ID ='%1' And File_ID = '1'"_s.arg(sheet)));
  ExpectAll(text, Select(u"Select MainTitle From PassRead_File Where Register_ID = '%1'"_s.arg(sheet)),
            {u"MainTitle"_s});
  EXPECT_TRUE(text.contains(u"审阅单位/领导"_s));
  EXPECT_TRUE(text.contains(line.Text(0, line.Find(u"Lead_Unit"_s))));
}

TEST_P(DefaultReportTest, ALineOfAHandlingIsFoundByTheSheetsNumber) {
  const QString sheet = First(u"Select Register_ID From Transact_Details Order By Register_ID"_s);
  const QString number = First(u"Select Transact_ID From Transact_File Where Register_ID = '%1'"_s.arg(sheet));
  const QString text = Printed(Request(u"Transact_Details"_s, u"Transact_ID ='%1' And File_ID = '1'"_s.arg(number)));
  ExpectAll(text,
            Select(u"Select Lead_Unit From Transact_Details Where Register_ID = '%1' And File_ID = 1"_s.arg(sheet)),
            {u"Lead_Unit"_s});
}

TEST_P(DefaultReportTest, RightsFilterAndSelectionHoldTogether) {
  ReportRequest request = Request(u"Lwdj"_s, u"RegID <= 60"_s);
  request.rightsCondition = u"(Department='秘书科' Or Department='综合科')"_s;
  request.filter = u"RegID > 5 Or RegID < 3"_s;
  const qint64 count = Select(
                           u"Select RegID From Lwdj Where (Department='秘书科' Or Department='综合科') And (RegID > 5 "
                           "Or RegID < 3) And RegID <= 60"_s)
                           .RowCount();
  ASSERT_GT(count, 1);
  EXPECT_TRUE(Printed(request).contains(u"共%1条记录"_s.arg(count)));
}

}  // namespace
}  // namespace folvane::test
