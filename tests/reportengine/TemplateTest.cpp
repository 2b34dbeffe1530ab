#include "components/reports/MarkerValues.h"
#include "components/reports/TemplateFile.h"
#include "reportengine/EngineFixture.h"
#include "support/FullDisk.h"

namespace folvane::test {
namespace {

class TemplateTest : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    Database().Native(
        u"create table Awkward (ArchiveID varchar(20) primary key, Title varchar(200), Pages integer, Day varchar(10), "
        "Note varchar(200))"_s);
    const QString insert = u"insert into Awkward (ArchiveID,Title,Pages,Day,Note) values "_s;
    Database().Native(insert + u"('1','<b>重要</b> & \"急\"',3,'2002-03-04',null)"_s);
    Database().Native(insert + u"('2','{{Note}} 二',4,'20020405','行一\n行二')"_s);
    Database().Native(insert + u"('3','三',null,'2003-01-01','')"_s);
  }
  void TearDown() override { Database().Native(u"drop table Awkward"_s); }

  QString Filled(const QString& text, const QString& selection = u"ArchiveID > '0'"_s) {
    WriteTemplate(u"1"_s, text);
    return Printed(Request(u"Awkward"_s, selection, u"1"_s));
  }
  QString Refused(const QString& text) {
    WriteTemplate(u"1"_s, text);
    return Refusal(Request(u"Awkward"_s, u"ArchiveID > '0'"_s, u"1"_s));
  }
};
FOLVANE_ON_EACH_DATABASE(TemplateTest);

TEST_P(TemplateTest, ValuesAreTextWhateverTheyLookLike) {
  EXPECT_EQ(Filled(u"{{#ROWS}}<p>{{NO}}={{TITLE}};{{Pages}};{{note}}</p>{{/ROWS}}"_s),
            u"1=<b>重要</b>&\"急\";3;2={{Note}}二;4;行一行二3=三;;"_s);
}

TEST_P(TemplateTest, ATemplateStaysAsItIsWhereTheDiskHasNoRoom) {
  const QString before = u"<p>{{Pages}}</p>"_s;
  reports::WriteTemplate(u"1"_s, before);
  for (const int size : {5000, 50'000}) {
    const FullDisk full(1000);
    EXPECT_THROW(reports::WriteTemplate(u"1"_s, QString(size, u'x')), DataError);
    EXPECT_EQ(reports::ReadTemplate(u"1"_s), before);
  }
}

TEST_P(TemplateTest, OutsideOfRowsTheFirstRecordIsMeant) {
  EXPECT_EQ(Filled(u"<p>{{Pages}} {{Day_CHN}} {{COUNT}} {{SUM_Pages}}</p>"_s), u"32002年3月4日37"_s);
}

TEST_P(TemplateTest, ReportDateAndUserAreKnown) {
  EXPECT_EQ(Filled(u"<p>{{TABLE_CAPTION}} {{REPORT_TITLE}} {{USER}} {{TODAY}} {{TIME}} {{YEAR}} {{TODAY_CHN}}</p>"_s),
            u"AwkwardAwkward王明2026-11-2009:3020262026年11月20日"_s);
}

TEST_P(TemplateTest, RowsAreGroupedByYearMonthAndValue) {
  EXPECT_EQ(Filled(u"{{#YEARS_OF_Day}}<p>{{GROUP}}:{{COUNT}}:{{SUM_Pages}}:{{#ROWS}}{{NO}}{{GROUP}},{{/ROWS}}</p>"
                   "{{/YEARS_OF_Day}}<p>{{COUNT}}</p>"_s),
            u"2002:2:7:12002,22002,2003:1:0:12003,3"_s);
  EXPECT_EQ(Filled(u"{{#MONTHS_OF_Day}}<p>{{GROUP}} {{GROUP_CHN}};</p>{{/MONTHS_OF_Day}}"_s),
            u"2002-032002年3月;2002-042002年4月;2003-012003年1月;"_s);
  EXPECT_EQ(Filled(u"{{#BY_Pages}}<p>[{{GROUP}}]</p>{{/BY_Pages}}"_s), u"[3][4][]"_s);
}

TEST_P(TemplateTest, TheOrderOfRowsIsTheTemplates) {
  const QString rows = u"{{#ROWS}}<p>{{ArchiveID}}</p>{{#NEXT}}<p>,</p>{{/NEXT}}{{/ROWS}}"_s;
  EXPECT_EQ(Filled(rows), u"12,3,"_s);
  EXPECT_EQ(Filled(u"<meta name=\"order\" content=\"Day desc, ArchiveID\">"_s + rows), u"32,1,"_s);
  EXPECT_EQ(Refused(u"<meta name=\"order\" content=\"1; drop table Awkward\">"_s),
            u"报表模板中的排序“1; drop table Awkward”不正确。"_s);
}

TEST_P(TemplateTest, AMarkerThatIsNotKnownIsNamedWithItsLine) {
  EXPECT_EQ(Refused(u"<p>\n</p>\n{{Titel}}"_s),
            u"报表模板第 3 行有错误：“TITEL”不是“Awkward”的字段，也不是此处可用的标记。"_s);
  EXPECT_EQ(Refused(u"{{NO}}"_s), u"报表模板第 1 行有错误：“NO”不是“Awkward”的字段，也不是此处可用的标记。"_s);
  EXPECT_EQ(Refused(u"{{SUM_Titel}}"_s),
            u"报表模板第 1 行有错误：“SUM_TITEL”不是“Awkward”的字段，也不是此处可用的标记。"_s);
}

TEST_P(TemplateTest, BrokenMarkersAndSectionsAreNamedWithTheirLine) {
  EXPECT_EQ(Refused(u"<p>\n{{Title</p>"_s), u"报表模板第 2 行有错误：标记没有以“}}”结束。"_s);
  EXPECT_EQ(Refused(u"{{}}"_s), u"报表模板第 1 行有错误：“{{}}”不是可用的标记。"_s);
  EXPECT_EQ(Refused(u"{{>other}}"_s), u"报表模板第 1 行有错误：“{{>other}}”不是可用的标记。"_s);
  EXPECT_EQ(Refused(u"{{=<% %>=}}"_s), u"报表模板第 1 行有错误：“{{=<% %>=}}”不是可用的标记。"_s);
  EXPECT_EQ(Refused(u"{{#ROWS}}\n"_s), u"报表模板第 1 行有错误：“{{#ROWS}}”没有对应的“{{/ROWS}}”。"_s);
  EXPECT_EQ(Refused(u"\n{{/ROWS}}"_s), u"报表模板第 2 行有错误：“{{/ROWS}}”之前没有“{{#ROWS}}”。"_s);
  EXPECT_EQ(Refused(u"{{#ROWS}}\n{{/LINES}}"_s), u"报表模板第 2 行有错误：此处应为“{{/ROWS}}”，而不是“{{/LINES}}”。"_s);
  EXPECT_EQ(Refused(u"{{#LINES}}{{/LINES}}"_s), u"报表模板第 1 行有错误：此处不能使用“{{#LINES}}”。"_s);
  EXPECT_EQ(Refused(u"{{#ROWS}}{{#ROWS}}{{/ROWS}}{{/ROWS}}"_s), u"报表模板第 1 行有错误：此处不能使用“{{#ROWS}}”。"_s);
}

TEST_P(TemplateTest, CommentsAreLeftOut) { EXPECT_EQ(Filled(u"{{! a }} <p>b</p>"_s), u"b"_s); }

TEST_P(TemplateTest, BrokenHtmlIsLaidOutAsFarAsItGoes) {
  EXPECT_EQ(Filled(u"<table><tr><td>{{Pages}}<b><p"_s), u"3"_s);
  EXPECT_EQ(Filled(u""_s), QString());
}

TEST_P(TemplateTest, AFileInAnotherEncodingIsRefused) {
  program_.Write(u"Reports/1.html"_s, "\xca\xd5\xce\xc4");
  EXPECT_TRUE(Refusal(Request(u"Awkward"_s, {}, u"1"_s)).endsWith(u"文件不是 UTF-8 编码。"_s));
}

TEST_P(TemplateTest, AnIdNamesNoFileElsewhere) {
  program_.Write(u"secret.html"_s, "secret");
  for (const QString& id : {u"../secret"_s, u"a/b"_s, u"a\\b"_s, u".."_s, u"c:d"_s})
    EXPECT_EQ(Refusal(Request(u"Awkward"_s, {}, id)), u"报表编号“%1”不能作为模板的文件名。"_s.arg(id));
  EXPECT_EQ(Refusal(Request(u"Awkward"_s, {}, {})), u"没有指定报表的编号。"_s);
}

TEST_P(TemplateTest, WithoutRowsThereIsNoReport) {
  EXPECT_EQ(Refusal(Request(u"Awkward"_s, u"Awkward.ArchiveID IN ()"_s)), u"没有选中记录，请先选中要打印的记录。"_s);
  EXPECT_EQ(Refusal(Request(u"Awkward"_s, u"ArchiveID = '9'"_s)), u"没有符合条件的记录，不能生成报表。"_s);
}

TEST_P(TemplateTest, ATableThatIsGoneIsNamed) {
  EXPECT_TRUE(Refusal(Request(u"Gone"_s, {})).startsWith(u"报表无法读取表“Gone”的数据："_s));
  EXPECT_EQ(Refusal(Request(u"Lwdj; x"_s, {})), u"“Lwdj; x”不是表的名称。"_s);
  ReportRequest unconnected = Request(u"Awkward"_s, {});
  unconnected.connection.reset();
  EXPECT_EQ(Refusal(unconnected), u"没有数据库连接，无法生成报表。"_s);
}

TEST(ChineseDateTest, WritesDatesAndMonths) {
  EXPECT_EQ(reports::ChineseDate(u"2002-03-04"_s), u"2002年3月4日"_s);
  EXPECT_EQ(reports::ChineseDate(u"20021231"_s), u"2002年12月31日"_s);
  EXPECT_EQ(reports::ChineseDate(u"2002-03-04 08:00:00"_s), u"2002年3月4日"_s);
  EXPECT_EQ(reports::ChineseDate(u"2002-03"_s), u"2002年3月"_s);
  EXPECT_EQ(reports::ChineseDate(u"明天"_s), u"明天"_s);
  EXPECT_EQ(reports::ChineseDate({}), QString());
}

}  // namespace
}  // namespace folvane::test
