#include <QComboBox>
#include <QImage>
#include <QTreeView>

#include <folvane/HostServices.h>

#include "originalswork/WorkFixture.h"
#include "scanning/TestScanner.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace originals;

class ShowAndScanTest : public WorkTest {
 protected:
  void Do(const OriginalsRequest& request, const QString& window, const WindowSteps& steps) {
    WithWindow(window, steps);
    EXPECT_TRUE(Services().handleOriginals(request));
  }
  QByteArray Picture() {
    QImage image(300, 200, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    image.save(&file, "PNG");
    return file.data();
  }
  /// In the scanning window: scans a page and keeps it.
  static void ScanOne(QWidget& window) {
    const auto isReady = [&] { return Find(window, u"CmdScan"_s).isEnabled(); };
    ASSERT_TRUE(WaitUntil(isReady));
    Find<QComboBox>(window, u"CboResolution"_s).setCurrentText(u"75 dpi"_s);
    ASSERT_TRUE(WaitUntil(isReady));
    Click(Find(window, u"CmdScan"_s));
    ASSERT_TRUE(WaitUntil([&] { return Find(window, u"CmdOK"_s).isEnabled() && isReady(); }));
    Click(Find(window, u"CmdOK"_s));
  }
};
FOLVANE_ON_EACH_DATABASE(ShowAndScanTest);

TEST_P(ShowAndScanTest, ShowsTheOriginalWithTheOthersBeforeAndBehindIt) {
  Added(u"甲.txt"_s, "one");
  const Original second = Added(u"乙.txt"_s, "two");
  Added(u"丙.txt"_s, "three");
  Do(Request(u"BrowseState"_s, second.id), u"frmViewer"_s, [&](QWidget& window) {
    EXPECT_TRUE(window.windowTitle().contains(u"乙"_s)) << window.windowTitle().toStdString();
    FindAction(window, u"TlbViewer"_s, u"CmdNextFile"_s).trigger();
    EXPECT_TRUE(window.windowTitle().contains(u"丙"_s));
    EXPECT_FALSE(FindAction(window, u"TlbViewer"_s, u"CmdNextFile"_s).isEnabled());
  });
}

TEST_P(ShowAndScanTest, EnterShowsTheSelectedOriginal) {
  Added(u"甲.txt"_s, "one");
  Do(Request(), u"frmOriginals"_s, [&](QWidget& window) {
    auto& list = Find<QTreeView>(window, u"LvOriginals"_s);
    ClickItem(list, list.model()->index(0, 0));
    int shown = 0;
    const WindowSteps count = [&](QWidget&) { ++shown; };
    WithWindow(u"frmViewer"_s, count);
    Press(list, Qt::Key_Return);
    WithWindow(u"frmViewer"_s, count);
    DoubleClickItem(list, list.model()->index(0, 0));
    EXPECT_EQ(shown, 2);
  });
}

TEST_P(ShowAndScanTest, OfSeveralSelectedNoneIsShown) {
  Added(u"甲.txt"_s, "one");
  Added(u"乙.txt"_s, "two");
  Do(Request(), u"frmOriginals"_s, [&](QWidget& window) {
    auto& list = Find<QTreeView>(window, u"LvOriginals"_s);
    list.selectAll();
    list.setCurrentIndex(list.model()->index(1, 0));
    list.selectAll();
    Press(list, Qt::Key_Return);
    EXPECT_EQ(QApplication::activeModalWidget(), &window);
  });
}

TEST_P(ShowAndScanTest, TheWindowStaysWhileAnotherOneIsOpenOverIt) {
  Added(u"甲.txt"_s, "one");
  Do(Request(), u"frmOriginals"_s, [&](QWidget& window) {
    auto& list = Find<QTreeView>(window, u"LvOriginals"_s);
    ClickItem(list, list.model()->index(0, 0));
    WithWindow(u"frmViewer"_s, [&](QWidget&) {
      window.close();
      EXPECT_TRUE(window.isVisible());
    });
    Press(list, Qt::Key_Return);
    window.close();
    EXPECT_FALSE(window.isVisible());
  });
}

TEST_P(ShowAndScanTest, ThumbnailsComeOneAfterTheOther) {
  Added(u"甲.png"_s, Picture());
  Added(u"乙.png"_s, "no picture");
  Added(u"丙.png"_s, Picture());
  Do(Request(), u"frmOriginals"_s, [&](QWidget& window) {
    auto& list = Find<QTreeView>(window, u"LvOriginals"_s);
    const auto hasThumbnail = [&](int row) { return list.model()->index(row, 0).data(Qt::UserRole + 1).toBool(); };
    ASSERT_TRUE(WaitUntil([&] { return hasThumbnail(2); }));
    EXPECT_TRUE(hasThumbnail(0));
    EXPECT_FALSE(hasThumbnail(1)) << "what is damaged goes without";
    const QImage icon = list.model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>().pixmap(56, 56).toImage();
    EXPECT_EQ(icon.pixelColor(icon.rect().center()), QColor(Qt::darkGreen));
    FindAction(window, u"TlbOriginals"_s, u"CmdRefresh"_s).trigger();
    EXPECT_TRUE(hasThumbnail(0)) << "kept when the rows are read anew";
  });
}

TEST_P(ShowAndScanTest, WhatWasScannedIsAddedAtOnce) {
  TestScanner();
  Do(Request(u"ScanState"_s), u"frmScan"_s, [](QWidget& window) { ScanOne(window); });
  EXPECT_EQ(Names(), QStringList(u"扫描件 2002-03-04 1000.pdf"_s));
  EXPECT_EQ(FileCount(), 1);
}

TEST_P(ShowAndScanTest, TheWindowTellsWhatWasScannedFromIt) {
  TestScanner();
  Do(Request(), u"frmOriginals"_s, [&](QWidget& window) {
    QAction& scan = FindAction(window, u"TlbOriginals"_s, u"CmdScan"_s);
    const QString before = TextIn(window, u"LblState"_s);
    WithWindow(u"frmScan"_s, [](QWidget& scanning) { Click(Find(scanning, u"CmdCancel"_s)); });
    scan.trigger();
    EXPECT_EQ(TextIn(window, u"LblState"_s), before);
    WithWindow(u"frmScan"_s, [](QWidget& scanning) { ScanOne(scanning); });
    scan.trigger();
    EXPECT_EQ(TextIn(window, u"LblState"_s), u"已添加 1 个原文。"_s);
  });
  EXPECT_EQ(RowCount(), 1);
}

TEST_P(ShowAndScanTest, AScanThatCannotBeAddedStaysUntilItIs) {
  TestScanner();
  std::unique_ptr<LockedStatement> locked;
  const OnceEnabled failed(u"frmAddOriginals"_s, u"CmdRemove"_s, [&](QWidget& window) {
    EXPECT_TRUE(TextIn(window, u"LblState"_s).startsWith(u"共 1 个文件，失败 1 个。"_s));
    locked.reset();
    Click(Find(window, u"CmdAdd"_s));
  });
  Do(Request(u"ScanState"_s), u"frmScan"_s, [&](QWidget& window) {
    locked = std::make_unique<LockedStatement>(*Connected(), 3);
    ScanOne(window);
  });
  EXPECT_EQ(RowCount(), 1);
}

TEST_P(ShowAndScanTest, ACancelledScanAddsNothing) {
  TestScanner();
  Do(Request(u"ScanState"_s), u"frmScan"_s, [](QWidget& window) { Click(Find(window, u"CmdCancel"_s)); });
  EXPECT_EQ(RowCount() + FileCount(), 0);
}

}  // namespace
}  // namespace folvane::test
