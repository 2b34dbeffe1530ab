#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QProcess>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "components/scanning/KeptPages.h"
#include "support/HostDoubles.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace scanning;

bool NeverEnd(int) { return true; }

class KeptPagesTest : public testing::Test {
 protected:
  /// A page of A4 at 150 dots per inch: white, its upper left quarter black.
  ScannedPage Page(QImage::Format format) {
    QImage image(1240, 1754, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).fillRect(0, 0, 620, 877, Qt::black);
    image = image.convertToFormat(format);
    image.setDotsPerMeterX(5906);
    image.setDotsPerMeterY(5906);
    const ScannedPage page{folder_.Path(u"page%1.png"_s.arg(++count_))};
    StorePage(image, page.path);
    return page;
  }
  std::vector<ScannedFile> Keep(const QList<ScannedPage>& pages, KeepAs as) {
    QDir().mkpath(folder_.Path(u"kept"_s));
    return KeepPages(pages, as, u"批复"_s, folder_.Path(u"kept"_s), NeverEnd);
  }
  QStringList Kept() const { return QDir(folder_.Path(u"kept"_s)).entryList(QDir::Files); }
  static QString Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << "of poppler-utils";
    return QString::fromUtf8(process.readAllStandardOutput()).simplified();
  }

  TempProgramDirectory folder_;

 private:
  int count_ = 0;
};

TEST_F(KeptPagesTest, APdfFileHasThePagesAsLargeAsTheSheetsWere) {
  ScannedPage turned = Page(QImage::Format_Grayscale8);
  turned.quarters = 1;
  const auto files = Keep({Page(QImage::Format_RGB888), turned}, KeepAs::Pdf);
  ASSERT_EQ(files.size(), 1u);
  EXPECT_EQ(files[0].name, u"批复"_s);
  EXPECT_EQ(files[0].type, u".pdf"_s);
  const QString about = Run(u"pdfinfo"_s, {u"-l"_s, u"2"_s, files[0].path});
  EXPECT_TRUE(about.contains(u"Pages: 2"_s));
  EXPECT_TRUE(about.contains(u"Page 1 size: 595 x 842"_s)) << qPrintable(about);
  EXPECT_TRUE(about.contains(u"Page 2 size: 842 x 595"_s)) << qPrintable(about);
  const QString images = Run(u"pdfimages"_s, {u"-list"_s, files[0].path});
  EXPECT_EQ(images.count(u"jpeg"_s), 2) << qPrintable(images);
}

TEST_F(KeptPagesTest, ABitonalPageStaysCompact) {
  ScannedPage turned = Page(QImage::Format_Mono);
  turned.quarters = 2;
  const auto files = Keep({Page(QImage::Format_Mono), turned}, KeepAs::Pdf);
  const QString images = Run(u"pdfimages"_s, {u"-list"_s, files.at(0).path});
  EXPECT_EQ(images.count(u" 1240 1754 gray 1 1 "_s), 2) << qPrintable(images);
  EXPECT_LT(QFileInfo(files.at(0).path).size(), 20000);
  Run(u"pdftoppm"_s, {u"-r"_s, u"50"_s, u"-gray"_s, files.at(0).path, folder_.Path(u"drawn"_s)});
  const QImage first(folder_.Path(u"drawn-1.pgm"_s)), second(folder_.Path(u"drawn-2.pgm"_s));
  EXPECT_LT(qGray(first.pixel(50, 50)), 16);
  EXPECT_GT(qGray(first.pixel(300, 400)), 240);
  EXPECT_GT(qGray(second.pixel(50, 50)), 240);
  EXPECT_LT(qGray(second.pixel(300, 400)), 16);
}

TEST_F(KeptPagesTest, ImagesAreNumbered) {
  ScannedPage turned = Page(QImage::Format_RGB888);
  turned.quarters = 3;
  const auto files = Keep({Page(QImage::Format_Mono), turned}, KeepAs::Png);
  ASSERT_EQ(files.size(), 2u);
  EXPECT_EQ(files[0].name, u"批复-1"_s);
  EXPECT_EQ(files[1].name, u"批复-2"_s);
  EXPECT_EQ(files[1].type, u".png"_s);
  const QImage first(files[0].path), second(files[1].path);
  EXPECT_EQ(first.depth(), 1);
  EXPECT_EQ(first.dotsPerMeterX(), 5906);
  EXPECT_EQ(second.size(), QSize(1754, 1240));
  EXPECT_EQ(qGray(second.pixel(50, 1200)), 0) << "turned to the left";
  EXPECT_EQ(qGray(second.pixel(50, 50)), 255);
}

TEST_F(KeptPagesTest, OneImageHasTheNameAlone) {
  const auto files = Keep({Page(QImage::Format_RGB888)}, KeepAs::Jpeg);
  ASSERT_EQ(files.size(), 1u);
  EXPECT_EQ(files[0].name, u"批复"_s);
  EXPECT_EQ(files[0].type, u".jpg"_s);
  EXPECT_EQ(QImage(files[0].path).size(), QSize(1240, 1754));
  EXPECT_NEAR(QImage(files[0].path).dotsPerMeterX(), 5906, 20) << "JPEG counts in whole dots per inch or centimetre";
}

TEST_F(KeptPagesTest, WhereOnePageFailsNoFileIsLeft) {
  for (const KeepAs as : {KeepAs::Pdf, KeepAs::Png}) {
    EXPECT_THROW(Keep({Page(QImage::Format_RGB888), ScannedPage{u"gone.png"_s, 0}}, as), DataError);
    EXPECT_EQ(Kept(), QStringList());
  }
  EXPECT_THROW(KeepPages({Page(QImage::Format_RGB888)}, KeepAs::Pdf, u"a"_s, folder_.Path(u"none"_s), NeverEnd),
               DataError);
}

TEST_F(KeptPagesTest, EndedInBetweenLeavesNoFile) {
  QDir().mkpath(folder_.Path(u"kept"_s));
  const QList<ScannedPage> pages{Page(QImage::Format_RGB888), Page(QImage::Format_RGB888)};
  for (const KeepAs as : {KeepAs::Pdf, KeepAs::Jpeg}) {
    EXPECT_TRUE(KeepPages(pages, as, u"a"_s, folder_.Path(u"kept"_s), [](int done) { return done < 1; }).empty());
    EXPECT_EQ(Kept(), QStringList());
  }
}

}  // namespace
}  // namespace folvane::test
