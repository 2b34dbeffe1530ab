#include <QElapsedTimer>
#include <QFile>
#include <QPdfWriter>
#include <gtest/gtest.h>

#include "components/documents/PageSource.h"
#include "components/documents/PdfPages.h"
#include "components/documents/Printing.h"
#include "components/documents/TextPages.h"
#include "components/documents/Thumbnail.h"
#include "documents/SampleFiles.h"
#include "host/demo/StoreFiles.h"
#include "support/HostDoubles.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace documents;

// What is refused is refused before it takes time; slow machines have a second.
constexpr qint64 kAtOnceMs = 1000;

class PageSourceTest : public testing::Test {
 protected:
  std::unique_ptr<PageSource> Open(const QByteArray& content, const QString& type, const QString& password = {}) {
    folder_.Write(u"file"_s, content);
    return OpenPages(folder_.Path(u"file"_s), type, password);
  }
  /// Why the first page cannot be shown; "" where it can.
  QString Refusal(const QByteArray& content, const QString& type) {
    QElapsedTimer clock;
    clock.start();
    try {
      Open(content, type)->Render(0, 1);
      return {};
    } catch (const DataError& error) {
      EXPECT_LT(clock.elapsed(), kAtOnceMs);
      return error.Message();
    }
  }
  /// The shade of a picture's middle, 0 black to 255 white.
  static int Middle(const QImage& image) { return qGray(image.pixel(image.width() / 2, image.height() / 2)); }
  static int DarkPixels(const QImage& image, const QRect& in) {
    int dark = 0;
    for (int y = in.top(); y <= in.bottom(); ++y)
      for (int x = in.left(); x <= in.right(); ++x) dark += qGray(image.pixel(x, y)) < 128;
    return dark;
  }

  TempProgramDirectory folder_;
};

TEST_F(PageSourceTest, ShowsImagesWhateverTheirEndingSays) {
  for (const char* format : {"png", "jpeg", "bmp", "webp", "tiff"}) {
    const auto pages = Open(ImageFile(FilledImage(192, 96, Qt::gray), format), u".gif"_s);
    ASSERT_EQ(pages->PageCount(), 1) << format;
    const QImage image = pages->Render(0, 0.5);
    EXPECT_EQ(image.width(), 2 * image.height()) << format;
    EXPECT_NEAR(Middle(image), qGray(QColor(Qt::gray).rgb()), 3) << format;
  }
}

TEST_F(PageSourceTest, AnImageIsAsLargeAsItsResolutionSays) {
  QImage scan = FilledImage(300, 600, Qt::white);
  scan.setDotsPerMeterX(11811);
  scan.setDotsPerMeterY(11811);
  const auto pages = Open(ImageFile(scan, "png"), u".png"_s);
  EXPECT_NEAR(pages->SizeOf(0).width(), 72, 0.1);
  EXPECT_NEAR(pages->SizeOf(0).height(), 144, 0.2);
  EXPECT_EQ(pages->Render(0, 1).size(), QSize(72, 144));
  EXPECT_EQ(pages->Render(0, 100).size(), QSize(300, 600)) << "no larger than it is";
}

TEST_F(PageSourceTest, EachImageOfATiffFileIsAPage) {
  const auto pages = Open(GreyTiff({10, 120, 230}), u".tif"_s);
  ASSERT_EQ(pages->PageCount(), 3);
  EXPECT_EQ(Middle(pages->Render(2, 1)), 230);
  EXPECT_EQ(Middle(pages->Render(0, 1)), 10);
  EXPECT_EQ(Middle(pages->Render(1, 1)), 120);
  EXPECT_NEAR(pages->SizeOf(1).width(), 40 * 0.72, 0.1);
}

TEST_F(PageSourceTest, OfATruncatedTiffFileTheWholePagesAreShown) {
  const QByteArray whole = GreyTiff({10, 120});
  const auto pages = Open(whole.left(whole.size() - 600), u".tif"_s);
  ASSERT_EQ(pages->PageCount(), 2);
  EXPECT_EQ(Middle(pages->Render(0, 1)), 10);
  EXPECT_THROW(pages->Render(1, 1), DataError);
  EXPECT_EQ(Refusal(GreyTiff({10}).left(60), u".tif"_s), u"图像已损坏或不完整，无法显示。"_s);
}

TEST_F(PageSourceTest, AHugeImageIsRefusedByItsHead) {
  EXPECT_EQ(Refusal(PngHead(60000, 60000), u".png"_s), u"图像过大（60000 × 60000 像素），无法显示。"_s);
  const QByteArray strip = ImageFile(FilledImage(1, 1000001, Qt::white), "bmp");
  EXPECT_EQ(Refusal(strip, u".bmp"_s), u"图像过大（1 × 1000001 像素），无法显示。"_s);
}

TEST_F(PageSourceTest, WhatIsNotWhatItsEndingSaysIsDamaged) {
  EXPECT_EQ(Refusal("rubbish", u".png"_s), u"文件已损坏，或者不是 PNG 格式，无法显示。"_s);
  EXPECT_EQ(Refusal("rubbish", u".PDF"_s), u"文件已损坏，或者不是 PDF 格式，无法显示。"_s);
  EXPECT_EQ(Refusal("%PDF-1.4 rubbish", u".pdf"_s), u"PDF 文件已损坏，无法显示。"_s);
  EXPECT_EQ(Refusal({}, u".jpg"_s), u"文件已损坏，或者不是 JPG 格式，无法显示。"_s);
}

TEST_F(PageSourceTest, FilesOfOtherKindsAreNotShown) {
  EXPECT_EQ(Open("PK\x03\x04 anything", u".docx"_s), nullptr);
  EXPECT_EQ(Open("MZ", u".exe"_s), nullptr);
  EXPECT_EQ(Open("<svg xmlns='http://www.w3.org/2000/svg' width='10' height='10'/>", u".svg"_s), nullptr);
}

TEST_F(PageSourceTest, ShowsThePagesOfAPdfFile) {
  const auto pages = Open(PdfOfPages(3), u".pdf"_s);
  ASSERT_EQ(pages->PageCount(), 3);
  EXPECT_EQ(pages->SizeOf(2), QSizeF(595, 842));
  const QImage page = pages->Render(2, 0.5);
  EXPECT_EQ(page.size(), QSize(298, 421));
  EXPECT_EQ(Middle(page), 0);
  EXPECT_EQ(qGray(page.pixel(5, 5)), 255) << "paper is white";
}

TEST_F(PageSourceTest, APdfFileOfThousandsOfPagesIsOpenedAtOnce) {
  const QByteArray file = PdfOfPages(3000);
  QElapsedTimer clock;
  clock.start();
  const auto pages = Open(file, u".pdf"_s);
  ASSERT_EQ(pages->PageCount(), 3000);
  EXPECT_EQ(Middle(pages->Render(2999, 1)), 0);
  EXPECT_LT(clock.elapsed(), kAtOnceMs);
}

TEST(SizeInPixelsTest, APageOfImpossibleSidesHasPossibleOnes) {
  EXPECT_EQ(SizeInPixels({0.001, 1e9}, 1), QSize(1, kLongestSide));
  EXPECT_EQ(SizeInPixels({1e300, 1e300}, 1), QSize(1, 1)) << "as many as can be told";
}

TEST_F(PageSourceTest, AScaleThatAsksForTooManyPixelsIsLowered) {
  const QImage page = Open(PdfOfPages(1), u".pdf"_s)->Render(0, 1000);
  EXPECT_LE(double(page.width()) * page.height(), kMostPixels * 1.01);
  EXPECT_NEAR(double(page.width()) / page.height(), 595.0 / 842, 0.001);
}

TEST_F(PageSourceTest, AnEncryptedPdfFileAsksForItsPassword) {
  const QByteArray file = PdfOfPages(2, "secret");
  const auto wrong = [&](const QString& password) {
    try {
      Open(file, u".pdf"_s, password);
    } catch (const PasswordNeeded& needed) {
      return needed.IsWrong() ? "wrong" : "none given";
    }
    return "opened";
  };
  EXPECT_STREQ(wrong({}), "none given");
  EXPECT_STREQ(wrong(u"guess"_s), "wrong");
  const auto pages = Open(file, u".pdf"_s, u"secret"_s);
  ASSERT_EQ(pages->PageCount(), 2);
  EXPECT_EQ(Middle(pages->Render(1, 1)), 0);
}

// The fonts that such files name are on no machine: others of the system stand in for them.
TEST_F(PageSourceTest, ChineseInAFontThatTheFileDoesNotHoldIsDrawn) {
  demo::Letter letter;
  letter.author = u"一丁"_s;
  letter.docNo = u"龘龘"_s;
  const QImage page = Open(demo::PdfFile(letter), u".pdf"_s)->Render(0, 2);
  const QRect first(144, 130, 60, 34), second(144, 170, 60, 34);
  EXPECT_GT(DarkPixels(page, first), 20);
  EXPECT_GT(DarkPixels(page, second), 3 * DarkPixels(page, first)) << "characters, not boxes";
}

TEST_F(PageSourceTest, TextsAreReadInTheirEncoding) {
  const QString text = u"收文登记\n第二行\tA"_s;
  const QByteArray utf16("\xFF\xFE", 2);
  const QByteArrayList files{text.toUtf8(), "\xEF\xBB\xBF" + text.toUtf8(),
                             utf16 + QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2),
                             QByteArray::fromHex("cad5cec4b5c7bcc70ab5dab6fed0d00941")};
  for (const QByteArray& file : files) {
    folder_.Write(u"text"_s, file);
    const TextPages pages(folder_.Path(u"text"_s));
    EXPECT_EQ(pages.Line(0), u"收文登记"_s);
    EXPECT_EQ(pages.Line(1), u"第二行   A"_s);
  }
}

TEST_F(PageSourceTest, BytesThatStandForNothingAreReplaced) {
  folder_.Write(u"text"_s, QByteArray::fromHex("cad5ff41"));
  EXPECT_EQ(TextPages(folder_.Path(u"text"_s)).Line(0), u"收\uFFFDA"_s);
}

TEST_F(PageSourceTest, LongLinesOfATextAreBroken) {
  folder_.Write(u"text"_s, (QString(100, u'字') + u'\n' + u"word "_s.repeated(40)).toUtf8());
  const TextPages pages(folder_.Path(u"text"_s));
  EXPECT_EQ(pages.Line(0).size(), 43);
  EXPECT_EQ(pages.Line(2).size(), 14);
  EXPECT_TRUE(pages.Line(3).endsWith(u"word "_s)) << "broken between words";
}

TEST_F(PageSourceTest, ATextIsBrokenIntoPages) {
  const auto pages = Open(u"一行\n"_s.repeated(100).toUtf8(), u".txt"_s);
  ASSERT_EQ(pages->PageCount(), 3);
  const QImage page = pages->Render(0, 2);
  EXPECT_GT(DarkPixels(page, QRect(112, 112, 60, 30)), 20);
  EXPECT_EQ(DarkPixels(page, QRect(200, 112, 900, 1400)), 0);
  EXPECT_GT(DarkPixels(pages->Render(2, 2), QRect(112, 112, 60, 30)), 20);
  EXPECT_EQ(Open({}, u".txt"_s)->PageCount(), 1) << "an empty text is an empty page";
}

TEST_F(PageSourceTest, AHugeTextIsRefused) {
  QFile file(folder_.Path(u"huge"_s));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64(200) << 20));
  try {
    OpenPages(file.fileName(), u".txt"_s);
    FAIL();
  } catch (const DataError& error) {
    EXPECT_EQ(error.Message(), u"文本文件过大（200 MB），无法显示。"_s);
  }
}

TEST_F(PageSourceTest, AThumbnailFitsItsRoom) {
  EXPECT_EQ(Thumbnail(u".png"_s, ImageFile(FilledImage(300, 100, Qt::red), "png"), QSize(96, 96)).size(),
            QSize(96, 32));
  const QImage paper = Thumbnail(u".png"_s, ImageFile(FilledImage(300, 100, Qt::white), "png"), QSize(96, 96));
  EXPECT_EQ(paper.pixelColor(0, 0), QColor(Qt::gray)) << "white paper is told from a white list";
  EXPECT_EQ(paper.pixelColor(48, 16), QColor(Qt::white));
  EXPECT_EQ(Thumbnail(u".pdf"_s, PdfOfPages(1), QSize(96, 96)).height(), 96);
  EXPECT_FALSE(Thumbnail(u".txt"_s, "text", QSize(96, 96)).isNull());
  EXPECT_TRUE(Thumbnail(u".png"_s, PngHead(60000, 60000), QSize(96, 96)).isNull());
  EXPECT_TRUE(Thumbnail(u".pdf"_s, PdfOfPages(1, "secret"), QSize(96, 96)).isNull());
  EXPECT_TRUE(Thumbnail(u".doc"_s, "anything", QSize(96, 96)).isNull());
}

TEST_F(PageSourceTest, PagesArePrintedAsLargeAsTheyAre) {
  const auto tiff = Open(GreyTiff({10, 120, 230}), u".tif"_s);
  QPdfWriter writer(folder_.Path(u"printed"_s));
  writer.setPageSize(QPageSize(QPageSize::A4));
  PaintPages(*tiff, writer, {.from = 1, .to = 2}, [](int) { return true; });
  PdfPages printed(folder_.Path(u"printed"_s), {});
  ASSERT_EQ(printed.PageCount(), 2);
  EXPECT_GT(printed.SizeOf(0).width(), printed.SizeOf(0).height()) << "the sheet lies as the page does";
  const QImage page = printed.Render(0, 2);
  EXPECT_NEAR(Middle(page), 120, 2);
  const auto inked = [&](int fromMiddle) {
    return qGray(page.pixel(page.width() / 2 + fromMiddle, page.height() / 2)) < 200;
  };
  EXPECT_TRUE(inked(26)) << "40 pixels at 100 dots per inch are 28.8 points";
  EXPECT_FALSE(inked(32));
}

}  // namespace
}  // namespace folvane::test
