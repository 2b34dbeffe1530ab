#include <QDir>

#include "reportengine/EngineFixture.h"

namespace folvane::test {
namespace {

// The templates of the demo, over its own tables.
class DemoReportsTest : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    demo::WriteDemoReports(program_.Path());
  }
  QString PrintedAs(const QString& id, const QString& table, const QString& selection) {
    return Printed(Request(table, selection, id));
  }
  /// Every value of the columns of a statement stands in the text.
  void ExpectAll(const QString& text, const QString& statement) {
    const ResultSet rows = Select(statement);
    ASSERT_GT(rows.RowCount(), 0);
    for (qint64 row = 0; row < rows.RowCount(); ++row) {
      for (int column = 0; column < rows.ColumnCount(); ++column) {
        const QString value = rows.Text(row, column).remove(u' ').remove(u'\n');
        EXPECT_TRUE(text.contains(value)) << qPrintable(rows.ColumnName(column) + u": "_s + value);
      }
    }
  }
  /// The number of a sheet that has lines.
  QString NumberOf(const QString& flow) const {
    const QString sheet =
        First(u"Select Register_ID From %1_Details Group By Register_ID Having Count(1) > 1 Order By Register_ID"_s.arg(
            flow));
    return First(u"Select %1_ID From %1_File Where Register_ID = '%2'"_s.arg(flow, sheet));
  }
};
FOLVANE_ON_EACH_DATABASE(DemoReportsTest);

TEST_P(DemoReportsTest, TheRegisterListsTheDocuments) {
  const QString text = PrintedAs(u"1001"_s, u"Lwdj"_s, u"CreatedDate Like '2026%'"_s);
  EXPECT_TRUE(text.contains(u"收文登记簿"_s));
  EXPECT_TRUE(text.contains(u"登记日期：2026年11月20日"_s));
  ExpectAll(text,
            u"Select RegID,CreatedDate,ResponsibleBy,DocNo,Amaintitle,SecurityClass,Department,HandleState From "
            "Lwdj Where CreatedDate Like '2026%'"_s);
  const ResultSet sum = Select(u"Select Count(1),Sum(Quantity) From Lwdj Where CreatedDate Like '2026%'"_s);
  EXPECT_TRUE(text.contains(u"共收文%1件，%2份。"_s.arg(sum.Text(0, 0), sum.Text(0, 1)))) << qPrintable(text.right(99));
}

TEST_P(DemoReportsTest, TheYearlyListCountsEachYear) {
  const QString text = PrintedAs(u"1004"_s, u"Lwdj"_s, u"CreatedDate > '2024'"_s);
  for (const int year : {2024, 2025, 2026}) {
    const ResultSet sum = Select(u"Select Count(1),Sum(PageCount) From Lwdj Where CreatedDate Like '%1%'"_s.arg(year));
    EXPECT_TRUE(text.contains(u"%1年收文%2件，共%3页"_s.arg(year).arg(sum.Text(0, 0), sum.Text(0, 1)))) << year;
  }
  ExpectAll(text, u"Select CreatedDate,DocNo,Amaintitle,ResponsibleBy From Lwdj Where CreatedDate > '2024'"_s);
}

TEST_P(DemoReportsTest, TheHandlingFormTakesAPageForEachDocument) {
  const QString text = PrintedAs(u"1002"_s, u"Lwdj"_s, u"RegID = 3 And CreatedDate > '2025'"_s);
  const QString statement =
      u"Select ResponsibleBy,DocNo,SecurityClass,Amaintitle,Opinion,Department From Lwdj Where "
      "RegID = 3 And CreatedDate > '2025'"_s;
  const qint64 count = Select(statement).RowCount();
  ASSERT_EQ(count, 2);
  ExpectAll(text, statement);
  EXPECT_EQ(text.count(u"收文处理单"_s), count);
  EXPECT_TRUE(text.contains(u"第2页共2页"_s));
}

TEST_P(DemoReportsTest, TheSheetsOfTheFlowsShowTheirLines) {
  struct Sheet {
    QString id, title, flow, lines;
  };
  for (const Sheet& sheet :
       {Sheet{u"2001"_s, u"文件分发单"_s, u"Distribute"_s, u"Lead_Unit,Distribute_Date,Quantity"_s},
        Sheet{u"2101"_s, u"文件传阅单"_s, u"PassRead"_s, u"Lead_Unit,PassRead_Date"_s},
        Sheet{u"2201"_s, u"文件处理单"_s, u"Transact"_s, u"Lead_Unit,Send_Date,Transact_Mode"_s}}) {
    const QString number = NumberOf(sheet.flow);
    const QString text = PrintedAs(sheet.id, sheet.flow + u"_File"_s, u"%1_ID ='%2'"_s.arg(sheet.flow, number));
    EXPECT_TRUE(text.contains(sheet.title));
    ExpectAll(text, u"Select MainTitle,ResponsibleBy,Doc_No,RegID,%1_Status From %1_File Where %1_ID = '%2'"_s.arg(
                        sheet.flow, number));
    ExpectAll(text,
              u"Select %1 From %2_Details Where Register_ID In (Select Register_ID From %2_File Where %2_ID = "
              "'%3')"_s.arg(sheet.lines, sheet.flow, number));
  }
}

TEST_P(DemoReportsTest, EveryTemplateHasItsPlaceInTheIndex) {
  const QStringList templates = QDir(program_.Path(u"Reports"_s)).entryList(QDir::Files);
  EXPECT_EQ(templates.size(), 6);
  for (const QString& name : templates) {
    const QString id = name.chopped(5);
    EXPECT_EQ(Select(u"Select Report_Name From Report_Index Where Report_ID = '%1'"_s.arg(id)).RowCount(), 1);
  }
}

TEST_P(DemoReportsTest, TheExampleForIntegratorsIsAReport) {
  QFile page(QString::fromUtf8(REPORTS_PAGE));
  ASSERT_TRUE(page.open(QFile::ReadOnly));
  const QString text = QString::fromUtf8(page.readAll());
  const QString example = text.section(u"```html\n"_s, 1).section(u"```"_s, 0, 0);
  ASSERT_TRUE(example.contains(u"{{#ROWS}}"_s));
  WriteTemplate(u"9"_s, example);
  const QString printed = Printed(Request(u"Lwdj"_s, u"CreatedDate Like '2026%'"_s, u"9"_s));
  EXPECT_TRUE(printed.contains(u"登记号收文日期题名份数"_s)) << qPrintable(printed.left(200));
  ExpectAll(printed, u"Select Amaintitle From Lwdj Where CreatedDate Like '2026%'"_s);
}

}  // namespace
}  // namespace folvane::test
