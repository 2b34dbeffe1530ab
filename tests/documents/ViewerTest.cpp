#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSpinBox>
#include <QThread>
#include <QWheelEvent>
#include <atomic>

#include <folvane/DataError.h>

#include "components/documents/DocumentViewer.h"
#include "components/documents/PageSource.h"
#include "components/documents/PageView.h"
#include "documents/SampleFiles.h"
#include "support/Accessibility.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace documents;

Document Holding(const QString& name, const QString& type, const QByteArray& content) {
  return {name, type, [content](QIODevice& target, const auto&) { target.write(content); }};
}

/// Takes what is handed to the desktop.
class Desktop : public QObject {
  Q_OBJECT
 public:
  Desktop() { QDesktopServices::setUrlHandler(u"file"_s, this, "Open"); }
  ~Desktop() override { QDesktopServices::unsetUrlHandler(u"file"_s); }
  QList<QUrl> opened;

 public Q_SLOTS:
  void Open(const QUrl& url) { opened << url; }
};

class ViewerTest : public testing::Test {
 protected:
  static void InViewer(const std::vector<Document>& documents, const WindowSteps& steps, int first = 0) {
    WithWindow(u"frmViewer"_s, steps);
    ShowDocuments(nullptr, u"原文"_s, documents, first);
  }
  static void Do(QWidget& window, const QString& key) { FindAction(window, u"TlbViewer"_s, key).trigger(); }
  static bool CanDo(QWidget& window, const QString& key) { return FindAction(window, u"TlbViewer"_s, key).isEnabled(); }
  static PageView& View(QWidget& window) { return static_cast<PageView&>(Find(window, u"View"_s)); }
  static QString Panel(QWidget& window, const QString& name) { return Find<QLabel>(window, name).text(); }
  static bool WaitForPage(QWidget& window) {
    return WaitUntil([&] { return View(window).isVisible() && !View(window).Shown().isNull(); });
  }
  static bool WaitForNotice(QWidget& window, const QString& text) {
    auto& notice = Find<QLabel>(window, u"LblNotice"_s);
    return WaitUntil([&] { return notice.isVisible() && notice.text() == text; });
  }
  /// The shade of the middle of the page in view.
  static int Middle(QWidget& window) {
    const QImage& page = View(window).Shown();
    return page.isNull() ? -1 : qGray(page.pixel(page.width() / 2, page.height() / 2));
  }
};

TEST_F(ViewerTest, ShowsTheDocumentThatWasAskedFor) {
  InViewer(
      {Holding(u"一"_s, u".png"_s, ImageFile(FilledImage(96, 96, Qt::black), "png")),
       Holding(u"二"_s, u".tif"_s, GreyTiff({10, 120, 230}))},
      [](QWidget& window) {
        ASSERT_TRUE(WaitForPage(window));
        EXPECT_EQ(window.windowTitle(), u"二.tif - 原文"_s);
        EXPECT_EQ(Middle(window), 10);
        EXPECT_EQ(Panel(window, u"PanPage"_s), u"第 1 页，共 3 页"_s);
        EXPECT_EQ(Panel(window, u"PanDocument"_s), u"原文 2 / 2"_s);
        EXPECT_EQ(Panel(window, u"PanSize"_s), u"4.0 KB"_s);
        EXPECT_FALSE(CanDo(window, u"CmdNextFile"_s));
        EXPECT_EQ(UnnamedControls(window), QStringList());
        Do(window, u"CmdPreviousFile"_s);
        ASSERT_TRUE(WaitUntil([&] { return Middle(window) == 0; }));
        EXPECT_EQ(window.windowTitle(), u"一.png - 原文"_s);
        EXPECT_FALSE(CanDo(window, u"CmdPreviousFile"_s));
      },
      1);
}

TEST_F(ViewerTest, PagesAreTurnedByKeysAndByNumber) {
  InViewer({Holding(u"一"_s, u".tif"_s, GreyTiff({10, 70, 120, 230}))}, [](QWidget& window) {
    ASSERT_TRUE(WaitForPage(window));
    const auto shows = [&](int shade) { return WaitUntil([&] { return Middle(window) == shade; }); };
    EXPECT_FALSE(CanDo(window, u"CmdPrevious"_s));
    Do(window, u"CmdNext"_s);
    EXPECT_TRUE(shows(70));
    Do(window, u"CmdLast"_s);
    EXPECT_TRUE(shows(230));
    EXPECT_FALSE(CanDo(window, u"CmdNext"_s));
    Do(window, u"CmdPrevious"_s);
    EXPECT_TRUE(shows(120));
    Do(window, u"CmdFirst"_s);
    EXPECT_TRUE(shows(10));
    Press(View(window), Qt::Key_PageDown);
    EXPECT_TRUE(shows(70));
    Press(View(window), Qt::Key_End);
    EXPECT_TRUE(shows(230));
    Press(View(window), Qt::Key_PageUp);
    EXPECT_TRUE(shows(120));
    Press(View(window), Qt::Key_Home);
    EXPECT_TRUE(shows(10));
    auto& number = Find<QSpinBox>(window, u"TxtPage"_s);
    Retype(number, u"3"_s);
    Press(number, Qt::Key_Return);
    EXPECT_TRUE(shows(120));
    EXPECT_EQ(Panel(window, u"PanPage"_s), u"第 3 页，共 4 页"_s);
  });
}

TEST_F(ViewerTest, ZoomsAndFits) {
  InViewer({Holding(u"一"_s, u".pdf"_s, PdfOfPages(1))}, [](QWidget& window) {
    ASSERT_TRUE(WaitForPage(window));
    const auto zoom = [&] { return Panel(window, u"PanZoom"_s); };
    PageView& view = View(window);
    ASSERT_TRUE(WaitUntil([&] { return view.Shown().height() == view.Room(Zoom::Fit::Page).height(); }))
        << "fits at first";
    Do(window, u"CmdFitWidth"_s);
    ASSERT_TRUE(WaitUntil([&] { return view.verticalScrollBar()->maximum() > 0; }));
    EXPECT_EQ(view.verticalScrollBar()->value(), 0) << "the head of the page is seen";
    Do(window, u"CmdTrueSize"_s);
    EXPECT_TRUE(WaitUntil([&] { return zoom() == u"100%"_s && view.Shown().width() == 793; }));
    Do(window, u"CmdZoomIn"_s);
    EXPECT_EQ(zoom(), u"正在显示…"_s) << "until it has come";
    EXPECT_TRUE(WaitUntil([&] { return zoom() == u"110%"_s; }));
    Do(window, u"CmdZoomOut"_s);
    Do(window, u"CmdZoomOut"_s);
    EXPECT_TRUE(WaitUntil([&] { return zoom() == u"90%"_s; }));
    QWheelEvent wheel(QPointF(9, 9), view.mapToGlobal(QPointF(9, 9)), {}, {0, 120}, {}, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view.viewport(), &wheel);
    EXPECT_TRUE(WaitUntil([&] { return zoom() == u"100%"_s; }));
    Do(window, u"CmdFitWidth"_s);
    EXPECT_TRUE(WaitUntil([&] { return view.Shown().width() == view.Room(Zoom::Fit::Width).width(); }));
    EXPECT_FALSE(view.horizontalScrollBar()->isVisible());
    Do(window, u"CmdFitPage"_s);
    EXPECT_TRUE(WaitUntil([&] { return view.Shown().height() == view.Room(Zoom::Fit::Page).height(); }));
    window.resize(window.size() - QSize(100, 200));
    EXPECT_TRUE(WaitUntil([&] { return view.Shown().height() == view.Room(Zoom::Fit::Page).height(); }))
        << "also in another size";
  });
}

TEST_F(ViewerTest, TurnsThePages) {
  QImage image = FilledImage(200, 100, Qt::white);
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 100; ++x) image.setPixel(x, y, 0);
  InViewer({Holding(u"一"_s, u".png"_s, ImageFile(image, "png"))}, [](QWidget& window) {
    ASSERT_TRUE(WaitForPage(window));
    const auto isDark = [&](double x, double y) {
      const QImage& page = View(window).Shown();
      return qGray(page.pixel(int(x * page.width()), int(y * page.height()))) < 128;
    };
    EXPECT_TRUE(isDark(0.2, 0.5));
    Do(window, u"CmdTurnRight"_s);
    EXPECT_TRUE(WaitUntil([&] { return View(window).Shown().height() > View(window).Shown().width(); }));
    EXPECT_TRUE(isDark(0.5, 0.2));
    EXPECT_FALSE(isDark(0.5, 0.8));
    Do(window, u"CmdTurnLeft"_s);
    Do(window, u"CmdTurnLeft"_s);
    EXPECT_TRUE(WaitUntil([&] { return isDark(0.5, 0.8) && !isDark(0.5, 0.2); }));
  });
}

TEST_F(ViewerTest, AsksForThePasswordOfAFile) {
  InViewer({Holding(u"一"_s, u".pdf"_s, PdfOfPages(1, "secret"))}, [](QWidget& window) {
    ASSERT_TRUE(WaitForNotice(window, u"文件已加密，请输入密码。"_s));
    EXPECT_FALSE(CanDo(window, u"CmdPrint"_s));
    auto& password = Find<QLineEdit>(window, u"TxtPassword"_s);
    EXPECT_EQ(UnnamedControls(window), QStringList());
    Type(password, u"guess"_s);
    Press(password, Qt::Key_Return);
    ASSERT_TRUE(WaitForNotice(window, u"密码不正确，请重新输入。"_s));
    Type(password, u"secret"_s);
    Click(Find(window, u"CmdUnlock"_s));
    ASSERT_TRUE(WaitForPage(window));
    EXPECT_EQ(Middle(window), 0);
    EXPECT_TRUE(CanDo(window, u"CmdPrint"_s));
  });
}

TEST_F(ViewerTest, ADamagedPageIsToldAndTheOthersAreShown) {
  const QByteArray whole = GreyTiff({10, 120});
  InViewer({Holding(u"一"_s, u".tif"_s, whole.left(whole.size() - 600))}, [](QWidget& window) {
    ASSERT_TRUE(WaitForPage(window));
    Do(window, u"CmdNext"_s);
    ASSERT_TRUE(WaitForNotice(window, u"图像已损坏或不完整，无法显示。"_s));
    EXPECT_TRUE(Find(window, u"CmdSaveCopy"_s).isVisible());
    Do(window, u"CmdPrevious"_s);
    ASSERT_TRUE(WaitForPage(window));
    EXPECT_EQ(Middle(window), 10);
  });
}

TEST_F(ViewerTest, WhatAServerHasSaidIsNoMarkup) {
  const QString said = u"550 <a href='file:///etc/passwd'>x</a>"_s;
  const Document document{u"一"_s, u".png"_s,
                          [said](QIODevice&, const auto&) { throw DataError(DataErrorKind::File, said); }};
  InViewer({document}, [said](QWidget& window) {
    ASSERT_TRUE(WaitForNotice(window, said));
    EXPECT_EQ(Find<QLabel>(window, u"LblNotice"_s).textFormat(), Qt::PlainText);
  });
}

TEST_F(ViewerTest, AFailedFetchCanBeRepeated) {
  auto calls = std::make_shared<std::atomic<int>>(0);
  const Document document{u"一"_s, u".png"_s, [calls](QIODevice& target, const auto&) {
                            if (++*calls == 1) throw DataError(DataErrorKind::Lost, u"服务器没有响应。"_s);
                            target.write(ImageFile(FilledImage(9, 9, Qt::black), "png"));
                          }};
  InViewer({document}, [](QWidget& window) {
    ASSERT_TRUE(WaitForNotice(window, u"服务器没有响应。"_s));
    EXPECT_FALSE(CanDo(window, u"CmdSave"_s));
    EXPECT_FALSE(Find(window, u"CmdOpenOutside"_s).isVisible()) << "there is nothing to open";
    Click(Find(window, u"CmdRetry"_s));
    EXPECT_TRUE(WaitForPage(window));
  });
  EXPECT_EQ(*calls, 2);
}

TEST_F(ViewerTest, FetchingIsBrokenOffWhenTheWindowIsClosed) {
  auto ended = std::make_shared<std::atomic<bool>>(false);
  const Document endless{u"一"_s, u".png"_s, [ended](QIODevice& target, const auto&) {
                           while (target.write(QByteArray(1 << 16, 0)) >= 0) QThread::msleep(1);
                           *ended = true;
                           throw DataError(DataErrorKind::File, target.errorString());
                         }};
  InViewer({endless, Holding(u"二"_s, u".tif"_s, GreyTiff({120}))}, [](QWidget& window) {
    auto& notice = Find<QLabel>(window, u"LblNotice"_s);
    EXPECT_TRUE(WaitUntil([&] { return notice.text().startsWith(u"正在读取…  "_s); })) << "the window is alive";
    Do(window, u"CmdNextFile"_s);
    ASSERT_TRUE(WaitForPage(window));
    EXPECT_EQ(Middle(window), 120);
    Do(window, u"CmdPreviousFile"_s);
    EXPECT_TRUE(WaitUntil([&] { return notice.isVisible(); }));
  });
  EXPECT_TRUE(*ended);
}

TEST_F(ViewerTest, FetchingIsBrokenOffAlsoWhereNothingComes) {
  auto ended = std::make_shared<std::atomic<bool>>(false);
  const Document silent{u"一"_s, u".png"_s, [ended](QIODevice&, const auto& goesOn) {
                          while (goesOn()) QThread::msleep(1);
                          *ended = true;
                          throw DataError(DataErrorKind::Other, u"已取消"_s);
                        }};
  InViewer({silent}, [](QWidget&) {});
  EXPECT_TRUE(*ended);
}

TEST_F(ViewerTest, AFileIsFetchedOnce) {
  auto calls = std::make_shared<std::atomic<int>>(0);
  const Document counted{u"一"_s, u".tif"_s, [calls](QIODevice& target, const auto&) {
                           ++*calls;
                           target.write(GreyTiff({10}));
                         }};
  InViewer({counted, Holding(u"二"_s, u".tif"_s, GreyTiff({120}))}, [](QWidget& window) {
    ASSERT_TRUE(WaitForPage(window));
    Do(window, u"CmdNextFile"_s);
    EXPECT_TRUE(WaitUntil([&] { return Middle(window) == 120; }));
    Do(window, u"CmdPreviousFile"_s);
    EXPECT_TRUE(WaitUntil([&] { return Middle(window) == 10; }));
  });
  EXPECT_EQ(*calls, 1);
}

TEST_F(ViewerTest, OtherFilesAreHandedToTheDesktopWhenTheUserSaysSo) {
  Desktop desktop;
  InViewer({Holding(u"会议/记录"_s, u".docx"_s, "PK anything")}, [&](QWidget& window) {
    ASSERT_TRUE(WaitForNotice(window, u"这种文件不能在此显示，可以用其他程序打开。"_s));
    EXPECT_TRUE(desktop.opened.isEmpty()) << "not by itself";
    Click(Find(window, u"CmdOpenOutside"_s));
    ASSERT_EQ(desktop.opened.size(), 1);
  });
  const QString path = desktop.opened[0].toLocalFile();
  EXPECT_TRUE(path.endsWith(u"/会议_记录.docx"_s));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << "still there when the window is gone";
  EXPECT_EQ(file.readAll(), "PK anything");
}

TEST_F(ViewerTest, AProgramIsNeverStarted) {
  Desktop desktop;
  const QString text = u"该文件是可以执行的程序，为安全起见不能直接打开，只能另存。"_s;
  InViewer({Holding(u"一"_s, u".exe"_s, "anything"),
            Holding(u"二"_s, u".dat"_s,
                    "\x7f"
                    "ELF..."),
            Holding(u"三"_s, u".desktop"_s, "anything"), Holding(u"四"_s, u".SH"_s, "anything")},
           [&](QWidget& window) {
             for (int i = 0; i < 4; ++i) {
               ASSERT_TRUE(WaitUntil([&] { return Panel(window, u"PanDocument"_s) == u"原文 %1 / 4"_s.arg(i + 1); }));
               ASSERT_TRUE(WaitForNotice(window, text));
               EXPECT_FALSE(Find(window, u"CmdOpenOutside"_s).isVisible());
               EXPECT_FALSE(CanDo(window, u"CmdOpen"_s));
               EXPECT_TRUE(CanDo(window, u"CmdSave"_s));
               Do(window, u"CmdNextFile"_s);
             }
           });
  EXPECT_TRUE(desktop.opened.isEmpty());
}

TEST_F(ViewerTest, SavesACopy) {
  TempProgramDirectory folder;
  folder.Write(u"copy.tif"_s, "what was there");
  folder.Write(u"copy.tif.part"_s, "of another program");
  MessageBoxes boxes;
  FileDialogs files;
  files.Answer({}).Answer(folder.Path(u"copy.tif"_s)).Answer(folder.Path(u"none/copy.tif"_s));
  InViewer({Holding(u"一"_s, u".tif"_s, GreyTiff({10}))}, [&](QWidget& window) {
    ASSERT_TRUE(WaitForPage(window));
    Do(window, u"CmdSave"_s);
    EXPECT_EQ(folder.Read(u"copy.tif"_s), "what was there");
    Do(window, u"CmdSave"_s);
    EXPECT_EQ(folder.Read(u"copy.tif"_s), GreyTiff({10}));
    EXPECT_TRUE(boxes.Requests().empty());
    Do(window, u"CmdSave"_s);
    EXPECT_TRUE(boxes.Last().text.startsWith(u"无法保存 "_s));
  });
  EXPECT_EQ(folder.Read(u"copy.tif.part"_s), "of another program");
  EXPECT_TRUE(files.Requests().at(0).save);
  EXPECT_TRUE(files.Requests().at(0).directory.endsWith(u"/一.tif"_s));
}

// Without a printer the dialog prints into a file.
TEST_F(ViewerTest, Prints) {
  TempProgramDirectory folder;
  const QString printed = folder.Path(u"printed.pdf"_s);
  InViewer({Holding(u"一"_s, u".tif"_s, GreyTiff({10, 120, 230}))}, [&](QWidget& window) {
    ASSERT_TRUE(WaitForPage(window));
    WithWindow(u"QPrintDialog"_s, [&](QWidget& dialog) {
      Find<QLineEdit>(dialog, u"filename"_s).setText(printed);
      static_cast<QDialog&>(dialog).accept();
    });
    Do(window, u"CmdPrint"_s);
  });
  ASSERT_TRUE(QFile::exists(printed));
  EXPECT_EQ(OpenPages(printed, u".pdf"_s)->PageCount(), 3);
}

TEST_F(ViewerTest, RemembersItsSize) {
  const std::vector<Document> documents{Holding(u"一"_s, u".tif"_s, GreyTiff({10}))};
  InViewer(documents, [](QWidget& window) { window.resize(700, 500); });
  InViewer(documents, [](QWidget& window) { EXPECT_EQ(window.size(), QSize(700, 500)); });
}

}  // namespace
}  // namespace folvane::test

#include "ViewerTest.moc"
