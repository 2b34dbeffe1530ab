#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QTreeView>
#include <QUrl>

#include <folvane/HostServices.h>

#include "components/originals/FrmAddOriginals.h"
#include "originalswork/WorkFixture.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace originals;

class AddWindowTest : public WorkTest {
 protected:
  /// Nothing is chosen in the file dialog that comes with the window. @return what "AddState" answers
  bool InAddWindow(const WindowSteps& steps) {
    bool asked = false;
    Services().fileDialog = [&asked, later = Services().fileDialog](const FileRequest& request) {
      return std::exchange(asked, true) ? later(request) : QString();
    };
    WithWindow(u"frmAddOriginals"_s, [&](QWidget& window) {
      ASSERT_TRUE(WaitUntil([&] { return asked; }));
      steps(window);
    });
    return Services().handleOriginals(Request(u"AddState"_s));
  }
  void InAddWindow(RecordOriginals& originals, const std::vector<FileToAdd>& files, const WindowSteps& steps) {
    WithWindow(u"frmAddOriginals"_s, steps);
    FrmAddOriginals window(nullptr, originals);
    window.Offer(files);
    window.exec();
  }
  static QTreeView& List(QWidget& window) { return Find<QTreeView>(window, u"LvFiles"_s); }
  static QString Cell(QWidget& window, int row, int column) {
    return List(window).model()->index(row, column).data().toString();
  }
  static void Press(QWidget& window, const QString& key) { Click(Find(window, key)); }
};
FOLVANE_ON_EACH_DATABASE(AddWindowTest);

TEST_P(AddWindowTest, AddsTheChosenFilesUnderTheirEditedNamesAndCloses) {
  FileDialogs files;
  files.Answer(Source(u"一.pdf"_s, "12345")).Answer({}).Answer(Source(u"二.txt"_s, "2"));
  EXPECT_TRUE(InAddWindow([&](QWidget& window) {
    EXPECT_EQ(UnnamedControls(window), QStringList());
    EXPECT_FALSE(Find(window, u"CmdAdd"_s).isEnabled());
    for (int i = 0; i < 3; ++i) Press(window, u"CmdChoose"_s);
    ASSERT_EQ(List(window).model()->rowCount(), 2) << "a cancelled dialog offers nothing";
    EXPECT_EQ(Cell(window, 0, 1) + Cell(window, 0, 2) + Cell(window, 0, 3), u".pdf5 字节待添加"_s);
    List(window).model()->setData(List(window).model()->index(0, 0), u"第一\n件"_s);
    EXPECT_EQ(Cell(window, 0, 0), u"第一 件"_s) << "as it will be kept";
    Press(window, u"CmdAdd"_s);
    EXPECT_FALSE(window.isVisible());
  }));
  EXPECT_EQ(Names(), QStringList({u"第一 件.pdf"_s, u"二.txt"_s}));
}

TEST_P(AddWindowTest, AsksForFilesAtOnceUnlessSomeWereGiven) {
  FileDialogs files;
  files.Answer(Source(u"一.pdf"_s, "1"));
  WithWindow(u"frmAddOriginals"_s, [&](QWidget& window) {
    ASSERT_TRUE(WaitUntil([&] { return List(window).model()->rowCount() == 1; }));
    Press(window, u"CmdAdd"_s);
  });
  EXPECT_TRUE(Services().handleOriginals(Request(u"AddState"_s)));
  OriginalsRequest dropped = Request(u"AddState"_s);
  dropped.files = QStringList{Source(u"二.txt"_s, "2")};
  WithWindow(u"frmAddOriginals"_s, [](QWidget& window) { Press(window, u"CmdAdd"_s); });
  EXPECT_TRUE(Services().handleOriginals(dropped));
  EXPECT_EQ(files.Requests().size(), 1u);
  EXPECT_EQ(Names(), QStringList({u"一.pdf"_s, u"二.txt"_s}));
}

TEST_P(AddWindowTest, AnswersFalseWhenNothingWasAdded) {
  EXPECT_FALSE(InAddWindow([](QWidget& window) { Press(window, u"CmdClose"_s); }));
}

TEST_P(AddWindowTest, AStoreThatCannotBeReachedIsToldAtOnce) {
  ASSERT_TRUE(QDir(StoreRoot()).removeRecursively());
  for (const QString& action : {u"AddState"_s, u"ScanState"_s}) {
    MessageBoxes boxes;
    EXPECT_EQ(Services().handleOriginals(Request(action)), action == u"ScanState"_s);
    EXPECT_TRUE(boxes.Last().text.contains(StoreRoot())) << boxes.Last().text.toStdString();
  }
}

TEST_P(AddWindowTest, TakesFilesThatAreDropped) {
  const QString path = Source(u"拖放.txt"_s, "x");
  InAddWindow([&](QWidget& window) {
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(path), QUrl(u"http://example.org/x.pdf"_s)});
    DropOnto(List(window), dropped, {5, 5}, Qt::CopyAction);
    ASSERT_EQ(List(window).model()->rowCount(), 1);
    Press(window, u"CmdAdd"_s);
  });
  EXPECT_EQ(Names(), QStringList(u"拖放.txt"_s));
}

TEST_P(AddWindowTest, TakesAnImageOrFilesFromTheClipboard) {
  QImage image(3, 2, QImage::Format_RGB32);
  image.fill(Qt::red);
  InAddWindow([&](QWidget& window) {
    QGuiApplication::clipboard()->clear();
    Press(window, u"CmdPaste"_s);
    EXPECT_EQ(TextIn(window, u"LblState"_s), u"剪贴板中没有图像或文件。"_s);
    QGuiApplication::clipboard()->setImage(image);
    Press(window, u"CmdPaste"_s);
    auto* files = new QMimeData;
    files->setUrls({QUrl::fromLocalFile(Source(u"b.txt"_s, "b"))});
    QGuiApplication::clipboard()->setMimeData(files);
    test::Press(List(window), Qt::Key_V, Qt::ControlModifier);
    Press(window, u"CmdAdd"_s);
  });
  EXPECT_EQ(Names(), QStringList({u"图像20020304-100000.png"_s, u"b.txt"_s}));
  EXPECT_EQ(QImage::fromData(Content(Originals().Read()[0])), image);
}

TEST_P(AddWindowTest, AFileThatFailsStaysOnTheListWithItsReason) {
  MessageBoxes boxes;
  boxes.Answer(7).Answer(6);
  auto originals = Originals();
  InAddWindow(originals, {FileToAdd::At(Source(u"leer.txt"_s, "")), FileToAdd::At(Source(u"gut.txt"_s, "x"))},
              [&](QWidget& window) {
                Press(window, u"CmdAdd"_s);
                EXPECT_TRUE(window.isVisible());
                EXPECT_TRUE(Cell(window, 0, 3).startsWith(u"失败："_s));
                EXPECT_EQ(Cell(window, 1, 3), u"已添加"_s);
                EXPECT_TRUE(TextIn(window, u"LblState"_s).startsWith(u"共 2 个文件，已添加 1 个，失败 1 个。"_s));
                EXPECT_TRUE(TextIn(window, u"LblState"_s).contains(u"是空的"_s));
                Press(window, u"CmdClose"_s);
                EXPECT_TRUE(window.isVisible()) << "the question was answered with no";
                Press(window, u"CmdClose"_s);
                EXPECT_FALSE(window.isVisible());
              });
  EXPECT_EQ(boxes.Last().text, u"还有 1 个文件没有添加，确定要关闭吗?"_s);
  EXPECT_EQ(Names(), QStringList(u"gut.txt"_s));
}

TEST_P(AddWindowTest, StopEndsTheWorkAndTheRestCanBeAddedLater) {
  QWidget* shown = nullptr;
  bool stops = true;
  auto originals = Watched([&](WatchedStore& store) {
    store.beforePut = [&] {
      if (!std::exchange(stops, false)) return;
      EXPECT_FALSE(Find(*shown, u"CmdAdd"_s).isEnabled());
      Press(*shown, u"CmdStop"_s);
    };
  });
  InAddWindow(originals, {FileToAdd::At(Source(u"a.txt"_s, "a")), FileToAdd::At(Source(u"b.txt"_s, "b"))},
              [&](QWidget& window) {
                shown = &window;
                Press(window, u"CmdAdd"_s);
                EXPECT_EQ(Cell(window, 0, 3) + Cell(window, 1, 3), u"已停止待添加"_s);
                EXPECT_EQ(RowCount() + FileCount(), 0);
                Press(window, u"CmdAdd"_s);
              });
  EXPECT_EQ(Names(), QStringList({u"a.txt"_s, u"b.txt"_s}));
}

TEST_P(AddWindowTest, FilesCanBeTakenOffTheList) {
  auto originals = Originals();
  InAddWindow(originals, {FileToAdd::At(Source(u"a.txt"_s, "a")), FileToAdd::At(Source(u"b.txt"_s, "b"))},
              [&](QWidget& window) {
                ClickItem(List(window), List(window).model()->index(0, 0));
                Press(window, u"CmdRemove"_s);
                Press(window, u"CmdAdd"_s);
              });
  EXPECT_EQ(Names(), QStringList(u"b.txt"_s));
}

TEST_P(AddWindowTest, ARequestThatNamesNothingToWorkOnIsRefused) {
  OriginalsRequest request = Request(u"AddState"_s);
  request.recordId.clear();
  EXPECT_THROW(Services().handleOriginals(request), DataError);
  EXPECT_THROW(Services().handleOriginals(Request(u"OtherState"_s)), DataError);
  request = Request(u"AddState"_s);
  request.connection.reset();
  EXPECT_THROW(Services().handleOriginals(request), DataError);
}

}  // namespace
}  // namespace folvane::test
