#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>

#include "components/scanning/PageList.h"
#include "components/scanning/PagePreview.h"
#include "components/scanning/ScanDialog.h"
#include "components/scanning/Scanner.h"
#include "scanning/TestScanner.h"
#include "support/Accessibility.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace scanning;

constexpr char kNoScanner[] = "FOLVANE_TEST_NO_SCANNER";

class ScanWindowTest : public testing::Test {
 protected:
  ScanWindowTest() {
    if (!qEnvironmentVariableIsSet(kNoScanner)) TestScanner();
    FixClock(QDateTime(QDate(2026, 11, 20), QTime(9, 30)));
    QDir().mkpath(folder_.Path(u"files"_s));
  }
  std::vector<ScannedFile> InWindow(const WindowSteps& steps) {
    WithWindow(u"frmScan"_s, steps);
    return ScanDocuments(nullptr, folder_.Path(u"files"_s));
  }
  static QListWidget& Pages(QWidget& window) { return Find<QListWidget>(window, u"LVPages"_s); }
  static QComboBox& Box(QWidget& window, const QString& name) { return Find<QComboBox>(window, name); }
  static QString State(QWidget& window) { return Find<QLabel>(window, u"LblState"_s).text(); }
  static const QImage& Preview(QWidget& window) {
    return static_cast<PagePreview&>(Find(window, u"Preview"_s)).Shown();
  }
  static void Do(QWidget& window, const QString& key) { FindAction(window, u"TlbPages"_s, key).trigger(); }
  static bool WaitForScanner(QWidget& window) {
    return WaitUntil([&] { return Find(window, u"CmdScan"_s).isEnabled(); });
  }
  static void Choose(QWidget& window, const QString& box, const QString& text) {
    ASSERT_GE(Box(window, box).findText(text), 0) << qPrintable(text);
    Box(window, box).setCurrentText(text);
    ASSERT_TRUE(WaitForScanner(window));
  }
  static void ScanOne(QWidget& window) {
    const int before = Pages(window).count();
    Click(Find(window, u"CmdScan"_s));
    ASSERT_TRUE(WaitForScanner(window));
    ASSERT_EQ(Pages(window).count(), before + 1);
  }
  /// Sets an option of the scanner itself, which stays for the scans of this process.
  static void SetInScanner(const QByteArray& option, const QString& value) { Scanner(u"test:0"_s).Set(option, value); }

  TempProgramDirectory folder_;
};

/// Takes no settings, as on a full disk.
class FullRegistry : public RegistryStore {
 public:
  QString Read(const QString&, const QString&) const override { throw DataError(DataErrorKind::File, u"unreadable"_s); }
  void Write(const QString&, const QString&, const QString&) override {
    throw DataError(DataErrorKind::File, u"full"_s);
  }
};

TEST_F(ScanWindowTest, SettingsThatCannotBeKeptKeepNobodyFromScanning) {
  Services().registry = std::make_shared<FullRegistry>();
  InWindow([](QWidget& window) {
    ASSERT_TRUE(WaitForScanner(window));
    ScanOne(window);
    ScanOne(window);
    Do(window, u"CmdDrop"_s);
    Do(window, u"CmdDrop"_s);
  });
}

TEST_F(ScanWindowTest, OffersWhatTheScannerOffers) {
  InWindow([](QWidget& window) {
    ASSERT_TRUE(WaitForScanner(window));
    EXPECT_EQ(Box(window, u"CboDevice"_s).currentText(), u"Noname frontend-tester (test:0)"_s);
    EXPECT_EQ(Box(window, u"CboSource"_s).itemText(1), u"自动进纸器"_s);
    EXPECT_GE(Box(window, u"CboMode"_s).findText(u"灰度"_s), 0);
    EXPECT_GE(Box(window, u"CboMode"_s).findText(u"彩色"_s), 0);
    EXPECT_EQ(Box(window, u"CboResolution"_s).currentText(), u"300 dpi"_s);
    EXPECT_EQ(Find<QLineEdit>(window, u"TxtName"_s).text(), u"扫描件 2026-11-20 0930"_s);
    EXPECT_FALSE(Find(window, u"CmdOK"_s).isEnabled()) << "there is nothing to keep";
    EXPECT_FALSE(Find(window, u"CmdStop"_s).isEnabled());
    EXPECT_FALSE(Find(window, u"CmdScanAll"_s).isEnabled()) << "a flatbed has one page";
    EXPECT_EQ(UnnamedControls(window), QStringList());
  });
}

TEST_F(ScanWindowTest, ScansAPageAndKeepsItAsPdf) {
  const auto files = InWindow([](QWidget& window) {
    ASSERT_TRUE(WaitForScanner(window));
    Choose(window, u"CboResolution"_s, u"75 dpi"_s);
    ScanOne(window);
    EXPECT_EQ(State(window), u"共 1 页。"_s);
    EXPECT_FALSE(Preview(window).isNull());
    EXPECT_FALSE(Find(window, u"Progress"_s).isVisible());
    Retype(Find(window, u"TxtName"_s), u" 批复 "_s);
    Click(Find(window, u"CmdOK"_s));
  });
  ASSERT_EQ(files.size(), 1u);
  EXPECT_EQ(files[0].name, u"批复"_s);
  EXPECT_EQ(files[0].type, u".pdf"_s);
  EXPECT_GT(QFileInfo(files[0].path).size(), 500);
}

TEST_F(ScanWindowTest, ScansAllOfTheFeederAndKeepsImages) {
  const auto files = InWindow([](QWidget& window) {
    ASSERT_TRUE(WaitForScanner(window));
    Choose(window, u"CboSource"_s, u"自动进纸器"_s);
    Choose(window, u"CboResolution"_s, u"75 dpi"_s);
    Choose(window, u"CboMode"_s, u"彩色"_s);
    Click(Find(window, u"CmdScanAll"_s));
    EXPECT_TRUE(Find(window, u"CmdStop"_s).isEnabled());
    EXPECT_FALSE(Find(window, u"CmdScan"_s).isEnabled()) << "never two at once";
    ASSERT_TRUE(WaitForScanner(window));
    EXPECT_EQ(Pages(window).count(), 10);
    EXPECT_EQ(Pages(window).item(9)->text(), u"第 10 页"_s);
    Box(window, u"CboKeepAs"_s).setCurrentText(u"每页一个 PNG 图像"_s);
    Click(Find(window, u"CmdOK"_s));
  });
  ASSERT_EQ(files.size(), 10u);
  EXPECT_EQ(files[9].name, u"扫描件 2026-11-20 0930-10"_s);
  const QImage page(files[9].path);
  EXPECT_FALSE(page.isGrayscale() && page.depth() < 24) << "in colour";
  EXPECT_NEAR(page.width() / 75.0 * 25.4, 200, 1);
}

TEST_F(ScanWindowTest, PagesAreDroppedTurnedAndMoved) {
  const auto files = InWindow([](QWidget& window) {
    ASSERT_TRUE(WaitForScanner(window));
    Choose(window, u"CboPaper"_s, u"A5"_s);
    Choose(window, u"CboResolution"_s, u"75 dpi"_s);
    ScanOne(window);
    Choose(window, u"CboResolution"_s, u"100 dpi"_s);
    ScanOne(window);
    Choose(window, u"CboResolution"_s, u"150 dpi"_s);
    ScanOne(window);
    EXPECT_LT(Preview(window).width(), Preview(window).height());
    Do(window, u"CmdTurnRight"_s);
    EXPECT_GT(Preview(window).width(), Preview(window).height());
    Do(window, u"CmdMoveUp"_s);
    EXPECT_EQ(Pages(window).currentRow(), 1);
    EXPECT_EQ(Pages(window).item(1)->text(), u"第 2 页"_s);
    Do(window, u"CmdMoveDown"_s);
    Do(window, u"CmdMoveUp"_s);
    ClickItem(Pages(window), Pages(window).model()->index(0, 0));
    Press(Pages(window), Qt::Key_Delete);
    EXPECT_EQ(Pages(window).count(), 2);
    Box(window, u"CboKeepAs"_s).setCurrentText(u"每页一个 PNG 图像"_s);
    Click(Find(window, u"CmdOK"_s));
  });
  ASSERT_EQ(files.size(), 2u);
  const QImage first(files[0].path), second(files[1].path);
  EXPECT_GT(first.width(), first.height()) << "the page that was turned came to the front";
  EXPECT_NEAR(first.dotsPerMeterX() * 0.0254, 150, 1);
  EXPECT_LT(second.width(), second.height());
  EXPECT_NEAR(second.dotsPerMeterX() * 0.0254, 100, 1);
}

TEST_F(ScanWindowTest, AScanIsStoppedAndItsPagesStay) {
  MessageBoxes boxes;
  SetInScanner("read-delay", u"1"_s);
  SetInScanner("read-delay-duration", u"20000"_s);
  const auto files = InWindow([&](QWidget& window) {
    ASSERT_TRUE(WaitForScanner(window));
    Choose(window, u"CboSource"_s, u"自动进纸器"_s);
    Choose(window, u"CboResolution"_s, u"75 dpi"_s);
    Click(Find(window, u"CmdScanAll"_s));
    ASSERT_TRUE(WaitUntil([&] { return Pages(window).count() == 1; }));
    EXPECT_TRUE(Find(window, u"Progress"_s).isVisible());
    EXPECT_EQ(State(window).left(4), u"正在扫描"_s);
    Click(Find(window, u"CmdStop"_s));
    ASSERT_TRUE(WaitForScanner(window));
    EXPECT_LT(Pages(window).count(), 10);
    boxes.Answer(7);
    Click(Find(window, u"CmdCancel"_s));
    EXPECT_TRUE(window.isVisible()) << "the pages would be lost";
    boxes.Answer(6);
    Click(Find(window, u"CmdCancel"_s));
    EXPECT_FALSE(window.isVisible());
  });
  SetInScanner("read-delay", u"0"_s);
  EXPECT_TRUE(files.empty());
  EXPECT_TRUE(boxes.Last().text.startsWith(u"扫描的 "_s));
}

TEST_F(ScanWindowTest, WhatTheScannerReportsIsTold) {
  MessageBoxes boxes;
  boxes.Answer(6);
  InWindow([](QWidget& window) {
    ASSERT_TRUE(WaitForScanner(window));
    auto other = std::make_unique<Scanner>(u"test:0"_s);
    Click(Find(window, u"CmdScan"_s));
    ASSERT_TRUE(WaitForScanner(window));
    EXPECT_EQ(State(window), u"扫描仪正忙，可能被其他程序占用，请稍后再试。"_s);
    EXPECT_EQ(Pages(window).count(), 0);
    other.reset();
    ScanOne(window);
  });
}

TEST_F(ScanWindowTest, RemembersTheLastChoices) {
  MessageBoxes boxes;
  boxes.Answer(6);
  InWindow([](QWidget& window) {
    ASSERT_TRUE(WaitForScanner(window));
    Choose(window, u"CboSource"_s, u"自动进纸器"_s);
    Choose(window, u"CboMode"_s, u"彩色"_s);
    Choose(window, u"CboResolution"_s, u"100 dpi"_s);
    Choose(window, u"CboPaper"_s, u"A5"_s);
    ScanOne(window);
  });
  InWindow([](QWidget& window) {
    ASSERT_TRUE(WaitForScanner(window));
    EXPECT_EQ(Box(window, u"CboSource"_s).currentText(), u"自动进纸器"_s);
    EXPECT_EQ(Box(window, u"CboMode"_s).currentText(), u"彩色"_s);
    EXPECT_EQ(Box(window, u"CboResolution"_s).currentText(), u"100 dpi"_s);
    EXPECT_EQ(Box(window, u"CboPaper"_s).currentText(), u"A5"_s);
  });
}

/// Open to drops that no mouse has brought.
class OpenPageList : public PageList {
 public:
  OpenPageList() : PageList(nullptr) {
    changed = [] {};
    resize(400, 600);
    show();
  }
  using PageList::dropEvent;
};

TEST_F(ScanWindowTest, APageIsDraggedBeforeAnother) {
  OpenPageList pages;
  const QImage preview(10, 14, QImage::Format_Mono);
  for (const QString& path : {u"a"_s, u"b"_s, u"c"_s}) pages.Add({path, 0}, preview);
  const auto drop = [&](const QPoint& at) {
    QMimeData data;
    QDropEvent event(at, Qt::MoveAction, &data, Qt::LeftButton, {});
    pages.dropEvent(&event);
    EXPECT_EQ(event.dropAction(), Qt::IgnoreAction) << "the view would remove what was moved";
    QStringList order;
    for (const ScannedPage& page : pages.Pages()) order << page.path;
    return order.join(u' ');
  };
  EXPECT_EQ(drop(pages.visualItemRect(pages.item(0)).center()), u"c a b"_s);
  EXPECT_EQ(pages.item(0)->text(), u"第 1 页"_s);
  EXPECT_EQ(drop(QPoint(390, 590)), u"a b c"_s) << "behind the last one";
}

// SANE is configured once for a process, so this one runs in another that knows no scanner.
TEST_F(ScanWindowTest, WithoutAScannerItIsSaidWhatToCheck) {
  if (!qEnvironmentVariableIsSet(kNoScanner)) {
    folder_.Write(u"sane/dll.conf"_s, "# none\n");
    QProcess other;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(kNoScanner), u"1"_s);
    environment.insert(u"SANE_CONFIG_DIR"_s, folder_.Path(u"sane"_s));
    other.setProcessEnvironment(environment);
    other.start(QCoreApplication::applicationFilePath(), {u"--gtest_filter=*WithoutAScannerItIsSaidWhatToCheck"_s});
    ASSERT_TRUE(other.waitForFinished());
    EXPECT_EQ(other.exitCode(), 0) << other.readAll().toStdString();
    return;
  }
  InWindow([](QWidget& window) {
    ASSERT_TRUE(WaitUntil([&] { return State(window).startsWith(u"没有找到扫描仪。请检查："_s); }));
    ASSERT_TRUE(WaitUntil([&] { return Find(window, u"CmdRefresh"_s).isEnabled(); }));
    EXPECT_FALSE(Find(window, u"CmdScan"_s).isEnabled());
    EXPECT_FALSE(Box(window, u"CboMode"_s).isEnabled());
    Find<QLabel>(window, u"LblState"_s).clear();
    Click(Find(window, u"CmdRefresh"_s));
    EXPECT_TRUE(WaitUntil([&] { return State(window).startsWith(u"没有找到扫描仪。"_s); }));
  });
}

}  // namespace
}  // namespace folvane::test
