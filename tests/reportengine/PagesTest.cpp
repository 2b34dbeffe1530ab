#include <QAbstractTextDocumentLayout>
#include <QPrinter>
#include <QTextBlock>
#include <QTextDocument>

#include "components/reports/PageSetup.h"
#include "components/reports/Pagination.h"
#include "reportengine/EngineFixture.h"

namespace folvane::test {
namespace {

using reports::PageSlice;

class PagesTest : public EngineTest {};
FOLVANE_ON_EACH_DATABASE(PagesTest);

QString Ran(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  process.waitForFinished();
  EXPECT_EQ(process.exitCode(), 0) << qPrintable(program);
  return QString::fromUtf8(process.readAllStandardOutput());
}

TEST_P(PagesTest, APdfFileHasItsFontInItself) {
  Printed(Request(u"Lwdj"_s, u"RegID <= 5"_s));
  const QStringList fonts =
      Ran(u"pdffonts"_s, {program_.Path(u"report.pdf"_s)}).split(u'\n', Qt::SkipEmptyParts).mid(2);
  ASSERT_FALSE(fonts.isEmpty());
  for (const QString& font : fonts) EXPECT_TRUE(font.contains(u" yes "_s)) << qPrintable(font);
}

TEST_P(PagesTest, AThousandRowsAreAllThere) {
  Database().Native(u"create table Many (ArchiveID varchar(20) primary key, Title varchar(60))"_s);
  const auto numbered = [](int number) { return u"第%1号文件"_s.arg(number, 4, 10, QChar(u'0')); };
  Connected()->BeginTrans();
  for (int number = 1; number <= 1000; ++number)
    Connected()->Execute(u"Insert Into Many (ArchiveID,Title) Values ('%1','%2')"_s.arg(number, 20, 10, QChar(u'0'))
                             .arg(numbered(number)));
  Connected()->CommitTrans();
  WriteTemplate(
      u"1"_s,
      u"<table><thead><tr><th>文件名称</th></tr></thead>{{#ROWS}}<tr><td>{{Title}}</td></tr>{{/ROWS}}</table>"_s);
  const QString text = Printed(Request(u"Many"_s, {}, u"1"_s));
  Database().Native(u"drop table Many"_s);
  int last = -1;
  for (int number = 1; number <= 1000; ++number) {
    const int at = int(text.indexOf(numbered(number)));
    EXPECT_GT(at, last) << number;
    last = at;
  }
  const QString info = Ran(u"pdfinfo"_s, {program_.Path(u"report.pdf"_s)});
  const int pages = QRegularExpression(u"Pages:\\s+(\\d+)"_s).match(info).captured(1).toInt();
  EXPECT_GT(pages, 10);
  EXPECT_EQ(text.count(u"文件名称"_s), pages) << "the head stands on each page";
  EXPECT_TRUE(text.contains(u"第%1页共%1页"_s.arg(pages)));
}

TEST_P(PagesTest, PaperComesFromTheTemplateAndThenFromTheUser) {
  const auto size = [this] {
    return QRegularExpression(u"Page size:\\s+(.*)"_s)
        .match(Ran(u"pdfinfo"_s, {program_.Path(u"report.pdf"_s)}))
        .captured(1);
  };
  WriteTemplate(u"1"_s, u"<meta name=\"page\" content=\"A5 landscape\">x"_s);
  Printed(Request(u"Lwdj"_s, u"RegID = 1"_s, u"1"_s));
  EXPECT_EQ(size(), u"595 x 420 pts (A5)"_s);
  reports::KeepPageLayout(u"1"_s, reports::ReadPageLayout(u"A4 portrait 10 10 10 10"_s));
  Printed(Request(u"Lwdj"_s, u"RegID = 1"_s, u"1"_s));
  EXPECT_EQ(size(), u"595 x 842 pts (A4)"_s);
  EXPECT_FALSE(reports::KeptPageLayout(u"2"_s)) << "each report has its own";
}

TEST_P(PagesTest, PicturesLieBesideTheTemplates) {
  WriteTemplate(u"1"_s, u"<img src=\"seal.png\" width=\"80\"> <img src=\"missing.png\"> {{RegID}}"_s);
  QImage seal(40, 40, QImage::Format_RGB32);
  seal.fill(Qt::red);
  ASSERT_TRUE(seal.save(program_.Path(u"Reports/seal.png"_s)));
  EXPECT_TRUE(Printed(Request(u"Lwdj"_s, u"RegID = 1"_s, u"1"_s)).contains(u'1'));
  EXPECT_TRUE(Ran(u"pdfimages"_s, {u"-list"_s, program_.Path(u"report.pdf"_s)}).contains(u"40    40"_s));
}

TEST_P(PagesTest, APrinterGetsThePagesThatAreAskedFor) {
  const reports::LaidOutReport report = reports::LayOutReport(Request(u"Lwdj"_s, u"RegID <= 20"_s));
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(program_.Path(u"printed.pdf"_s));
  printer.setFromTo(2, 3);
  report.pages.Print(printer);
  const QString text = TextOfPdf(program_.Path(u"printed.pdf"_s));
  EXPECT_FALSE(text.contains(u"第1页"_s));
  EXPECT_TRUE(text.contains(u"第2页"_s));
  EXPECT_TRUE(text.contains(u"第3页"_s));
  EXPECT_FALSE(text.contains(u"第4页"_s));
}

TEST_P(PagesTest, APageWithoutRoomIsTold) {
  reports::LaidOutReport report = reports::LayOutReport(Request(u"Lwdj"_s, u"RegID = 1"_s));
  report.pages.SetLayout(QPageLayout(QPageSize(QPageSize::A5), QPageLayout::Landscape, QMarginsF(10, 80, 10, 80),
                                     QPageLayout::Millimeter));
  EXPECT_THROW(report.pages.WritePdf(program_.Path(u"report.pdf"_s), u"x"_s), DataError);
  EXPECT_FALSE(program_.Has(u"report.pdf"_s));
}

TEST_P(PagesTest, AFolderThatIsMissingIsTold) {
  const reports::LaidOutReport report = reports::LayOutReport(Request(u"Lwdj"_s, u"RegID = 1"_s));
  EXPECT_THROW(report.pages.WritePdf(program_.Path(u"none/report.pdf"_s), u"x"_s), DataError);
}

TEST(PageLayoutTest, IsWrittenAndRead) {
  for (const QPageSize::PageSizeId paper : reports::Papers()) {
    const QPageLayout layout(QPageSize(paper), QPageLayout::Landscape, QMarginsF(1.5, 2, 3, 4),
                             QPageLayout::Millimeter);
    const QPageLayout read = reports::ReadPageLayout(reports::PageLayoutText(layout));
    EXPECT_EQ(read.pageSize().id(), paper);
    EXPECT_EQ(read.orientation(), QPageLayout::Landscape);
    EXPECT_EQ(read.margins(), QMarginsF(1.5, 2, 3, 4));
  }
  EXPECT_EQ(reports::PageLayoutText(reports::ReadPageLayout({})), u"A4 portrait 20 20 20 20"_s);
}

TEST(PageLayoutTest, NonsenseIsRefusedInATemplateAndPassedOverInTheRegistry) {
  for (const QString& text : {u"A99"_s, u"A4 sideways"_s, u"A4 1 2 3"_s, u"A4 -1 2 3 4"_s, u"A4 1000 1 1 1"_s,
                              u"A5 landscape 80 10 80 10"_s, u"A5 10 60 10 60"_s})
    EXPECT_THROW(reports::ReadPageLayout(text), DataError) << qPrintable(text);
  Services().registry->Write(u"HKEY_CURRENT_USER\\Software\\Norvex\\Reports"_s, u"7"_s, u"A99"_s);
  EXPECT_FALSE(reports::KeptPageLayout(u"7"_s));
}

// The pages of an HTML text on a page of 300 to 200 pixels.
std::vector<PageSlice> PagesOf(QTextDocument& document, const QString& html) {
  document.setDocumentMargin(0);
  document.setHtml(html);
  document.setTextWidth(300);
  return reports::CutIntoPages(document, 200, 1);
}

TEST(PaginationTest, ARowIsNeverCutThrough) {
  QTextDocument document;
  QString html = u"<table border=1 cellspacing=0 cellpadding=4><thead><tr><td>head</td></tr></thead>"_s;
  for (int row = 0; row < 30; ++row) html += u"<tr><td>one<br>two<br>three</td></tr>"_s;
  const auto pages = PagesOf(document, html + u"</table>"_s);
  ASSERT_GT(pages.size(), 5u);
  const auto& layout = *document.documentLayout();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const QRectF text = layout.blockBoundingRect(block);
    for (const PageSlice& page : pages)
      EXPECT_FALSE(text.top() < page.bottom && page.bottom < text.bottom()) << qPrintable(block.text());
  }
  EXPECT_EQ(pages[0].headBottom, 0);
  EXPECT_GT(pages[1].headBottom - pages[1].headTop, 10);
  for (const PageSlice& page : pages) EXPECT_LE(page.bottom - page.top + page.headBottom - page.headTop, 200.01);
}

TEST(PaginationTest, ATableWithinATableIsCutAsOneByItself) {
  QString html = u"<table><thead><tr><td>head</td></tr></thead>"_s;
  for (int row = 0; row < 30; ++row) html += u"<tr><td>one<br>two<br>three</td></tr>"_s;
  QTextDocument document;
  const auto pages = PagesOf(document,
                             u"<table><tr><td><h1>title</h1>%1</table><p "
                             "style=\"page-break-before: always\">end</p></td></tr></table>"_s.arg(html));
  ASSERT_GT(pages.size(), 5u);
  const auto& layout = *document.documentLayout();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const QRectF text = layout.blockBoundingRect(block);
    for (const PageSlice& page : pages)
      EXPECT_FALSE(text.top() < page.bottom - 0.1 && page.bottom + 0.1 < text.bottom()) << qPrintable(block.text());
  }
  EXPECT_EQ(pages[0].headBottom, 0);
  EXPECT_GT(pages[1].headBottom - pages[1].headTop, 10);
  EXPECT_LT(pages.back().bottom - pages.back().top, 60) << "the end has a page of its own";
}

TEST(PaginationTest, ARowHigherThanAPageIsCutBetweenItsLines) {
  QTextDocument document;
  const auto pages =
      PagesOf(document, u"<table border=1><tr><td>%1</td></tr></table>"_s.arg(u"line<br>"_s.repeated(60)));
  EXPECT_GT(pages.size(), 4u);
  EXPECT_LT(pages.size(), 10u);
  EXPECT_GE(pages.back().bottom, document.size().height() - 20);
}

TEST(PaginationTest, PageBreaksAreKeptAndEmptyLinesAtTheEndMakeNoPage) {
  QTextDocument document;
  const auto pages = PagesOf(
      document, u"<p>a</p><p style=\"page-break-after: always\">b</p><p>c</p>%1"_s.arg(u"<p></p>"_s.repeated(40)));
  ASSERT_EQ(pages.size(), 2u);
  EXPECT_EQ(pages[0].bottom, pages[1].top);
}

TEST(PaginationTest, ADocumentOfNothingIsOnePage) {
  QTextDocument document;
  EXPECT_EQ(PagesOf(document, {}).size(), 1u);
}

}  // namespace
}  // namespace folvane::test
