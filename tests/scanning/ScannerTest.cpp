#include <QThread>
#include <gtest/gtest.h>

#include "components/scanning/ScanErrors.h"
#include "components/scanning/ScanWords.h"
#include "components/scanning/Scanner.h"
#include "scanning/TestScanner.h"
#include "support/QtPrinting.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace scanning;

const QString kFeeder = u"Automatic Document Feeder"_s;

bool GoOnAlways(int) { return true; }

class ScannerTest : public testing::Test {
 protected:
  ScannerTest() : scanner_(TestScanner()) {
    // What a test sets in the device is there for the next one as well.
    for (const auto& [option, value] : {std::pair{"hand-scanner", "0"},
                                        {"three-pass", "0"},
                                        {"read-limit", "0"},
                                        {"mode", "Gray"},
                                        {"depth", "8"},
                                        {"source", "Flatbed"},
                                        {"test-picture", "Solid black"},
                                        {"read-return-value", "Default"}})
      scanner_.Set(option, QString::fromLatin1(value));
  }
  QImage Page(const ScanSettings& settings) {
    scanner_.Apply(settings);
    const auto page = scanner_.ScanPage(GoOnAlways);
    scanner_.EndPages();
    return page.value_or(QImage());
  }
  static QRgb Middle(const QImage& page) { return page.pixel(page.width() / 2, page.height() / 2); }

  Scanner scanner_;
};

TEST_F(ScannerTest, IsListedWithItsMakersName) {
  const QList<ScannerInfo> scanners = ListScanners();
  ASSERT_EQ(scanners.size(), 1);
  EXPECT_EQ(scanners[0].id, u"test:0"_s);
  EXPECT_EQ(scanners[0].name, u"Noname frontend-tester (test:0)"_s);
}

TEST_F(ScannerTest, TellsWhatItOffers) {
  const ScannerChoices choices = scanner_.Choices();
  EXPECT_EQ(choices.sources, (QStringList{u"Flatbed"_s, kFeeder}));
  EXPECT_EQ(choices.modes, (QStringList{u"Gray"_s, u"Color"_s}));
  EXPECT_EQ(choices.resolutions, (QList<int>{75, 100, 150, 200, 300, 400, 600, 1200}));
  EXPECT_EQ(choices.source, u"Flatbed"_s);
  EXPECT_EQ(choices.mode, u"Gray"_s);
}

TEST_F(ScannerTest, ScansAllThatItCanTakeIn) {
  const QImage page = Page({.mode = u"Color"_s, .resolution = 100});
  EXPECT_EQ(page.format(), QImage::Format_RGB888);
  EXPECT_EQ(page.dotsPerMeterX(), 3937);
  EXPECT_NEAR(page.width() / 100.0 * 25.4, 200, 0.5);
  EXPECT_NEAR(page.height() / 100.0 * 25.4, 200, 0.5);
  EXPECT_EQ(Middle(page), qRgb(0, 0, 0));
}

TEST_F(ScannerTest, ScansASheetOfPaper) {
  const QImage page = Page({.resolution = 100, .paper = QSizeF(100, 150)});
  EXPECT_NEAR(page.width() / 100.0 * 25.4, 100, 0.5);
  EXPECT_NEAR(page.height() / 100.0 * 25.4, 150, 0.5);
  EXPECT_EQ(page.format(), QImage::Format_Grayscale8);
}

TEST_F(ScannerTest, ABitonalPageHasOneBit) {
  scanner_.Set("depth", u"1"_s);
  scanner_.Set("test-picture", u"Grid"_s);
  const QImage page = Page({.resolution = 100});
  EXPECT_EQ(page.format(), QImage::Format_Mono);
  scanner_.Set("depth", u"8"_s);
  const QImage grey = Page({.resolution = 100});
  ASSERT_EQ(page.size(), grey.size());
  for (const QPoint at : {QPoint(10, 10), QPoint(60, 10), QPoint(10, 60), QPoint(60, 60)})
    EXPECT_EQ(page.pixel(at), grey.pixel(at)) << "black is black";
  EXPECT_NE(grey.pixel(10, 10), grey.pixel(60, 10));
}

TEST_F(ScannerTest, SamplesOfTwoBytesAndPassesOfOneColourGiveTheSamePicture) {
  scanner_.Set("mode", u"Color"_s);
  scanner_.Set("test-picture", u"Color pattern"_s);
  const QImage page = Page({.resolution = 100});
  ASSERT_FALSE(page.allGray());
  scanner_.Set("read-limit", u"1"_s);
  scanner_.Set("read-limit-size", u"1001"_s);
  EXPECT_EQ(Page({.resolution = 100}), page) << "also in odd portions";
  scanner_.Set("read-limit", u"0"_s);
  scanner_.Set("three-pass", u"1"_s);
  const QImage passes = Page({.resolution = 100});
  EXPECT_EQ(passes.format(), QImage::Format_RGB888);
  EXPECT_EQ(passes.size(), page.size());
  EXPECT_EQ(Middle(passes), Middle(page));
  scanner_.Set("three-pass", u"0"_s);
  scanner_.Set("depth", u"16"_s);
  const QImage deep = Page({.resolution = 100});
  EXPECT_EQ(deep.size(), page.size());
}

TEST_F(ScannerTest, TellsHowFarItIs) {
  scanner_.Apply({.resolution = 300});
  QList<int> told;
  ASSERT_TRUE(scanner_.ScanPage([&](int percent) {
    told << percent;
    return true;
  }));
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  EXPECT_GT(told.size(), 10);
  EXPECT_GE(told.last(), 95);
  scanner_.EndPages();
}

TEST_F(ScannerTest, AHandScannerDoesNotKnowTheLength) {
  scanner_.Set("hand-scanner", u"1"_s);
  int last = 0;
  const auto page = scanner_.ScanPage([&](int percent) {
    last = percent;
    return true;
  });
  scanner_.EndPages();
  ASSERT_TRUE(page);
  EXPECT_GT(page->height(), 0);
  EXPECT_EQ(last, -1);
}

TEST_F(ScannerTest, TheFeederIsEmptyAfterItsLastSheet) {
  scanner_.Apply({.source = kFeeder, .resolution = 75});
  int pages = 0;
  while (scanner_.ScanPage(GoOnAlways)) ++pages;
  scanner_.EndPages();
  EXPECT_EQ(pages, 10);
}

TEST_F(ScannerTest, CanBeBrokenOffAtAnyTime) {
  // The backend ends its reader wherever it stands, and hangs when that is in the midst of malloc: let it sleep.
  scanner_.Set("read-delay", u"1"_s);
  scanner_.Set("read-delay-duration", u"20000"_s);
  scanner_.Apply({.resolution = 300});
  int calls = 0;
  EXPECT_FALSE(scanner_.ScanPage([&](int) { return ++calls < 4; }));
  EXPECT_EQ(calls, 4);
  scanner_.Set("read-delay", u"0"_s);
  EXPECT_FALSE(Page({.resolution = 75}).isNull()) << "and scans again";
}

TEST_F(ScannerTest, ANumberOutOfRangeBecomesTheNearest) {
  scanner_.Set("resolution", u"5000"_s);
  EXPECT_EQ(scanner_.Choices().resolution, 1200);
  scanner_.Set("resolution", u"75"_s);
  scanner_.Set("no-such-option", u"1"_s);
  EXPECT_THROW(scanner_.Set("mode", u"Infrared"_s), ScanError);
}

TEST_F(ScannerTest, WhatItReportsIsToldInWords) {
  const QList<std::pair<QString, QString>> reports{
      {u"SANE_STATUS_JAMMED"_s, u"进纸器卡纸，请取出卡住的纸张后再试。"_s},
      {u"SANE_STATUS_NO_MEM"_s, u"内存不足，请降低分辨率后再试。"_s},
      {u"SANE_STATUS_COVER_OPEN"_s, u"扫描仪的盖板没有关好。"_s},
      {u"SANE_STATUS_IO_ERROR"_s, u"与扫描仪通信出错，请检查电源和连接线。"_s},
      {u"SANE_STATUS_DEVICE_BUSY"_s, u"扫描仪正忙，可能被其他程序占用，请稍后再试。"_s},
      {u"SANE_STATUS_ACCESS_DENIED"_s, u"没有使用扫描仪的权限，请与系统管理员联系。"_s},
      {u"SANE_STATUS_EOF"_s, u"扫描仪没有送出完整的图像。"_s}};
  for (const auto& [status, words] : reports) {
    scanner_.Set("read-return-value", status);
    try {
      Page({.resolution = 75});
      ADD_FAILURE() << status.toStdString();
    } catch (const ScanError& error) {
      EXPECT_EQ(error.Message(), words);
      QThread::msleep(20);  // as above: its reader has only begun
      scanner_.EndPages();
    }
  }
  EXPECT_THROW(Scanner(u"none:0"_s), ScanError);
}

TEST(ScanWordsTest, KnownWordsAreChinese) {
  EXPECT_EQ(ModeInWords(u"Color"_s), u"彩色"_s);
  EXPECT_EQ(ModeInWords(u"gray"_s), u"灰度"_s);
  EXPECT_EQ(ModeInWords(u"Lineart"_s), u"黑白"_s);
  EXPECT_EQ(ModeInWords(u"Infrared"_s), u"Infrared"_s);
  EXPECT_EQ(SourceInWords(u"ADF Duplex"_s), u"自动进纸器（双面）"_s);
  EXPECT_TRUE(IsFeeder(u"ADF Duplex"_s) && IsFeeder(kFeeder) && !IsFeeder(u"Flatbed"_s));
}

}  // namespace
}  // namespace folvane::test
