#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QGraphicsView>
#include <QLabel>
#include <QPrintPreviewWidget>

#include "components/reports/PageSetup.h"
#include "reportengine/EngineFixture.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {

class PreviewTest : public EngineTest {
 protected:
  /// Runs the report as a window of the library does, with steps inside the preview.
  void InPreview(const ReportRequest& request, const WindowSteps& steps) {
    WithWindow(u"ReportPreview"_s, steps);
    Services().runReport(request);
  }
  static void Press(QWidget& window, const QString& key) { FindAction(window, u"TlbPreview"_s, key).trigger(); }
  static QString Page(QWidget& window) { return Find<QLabel>(window, u"LblPage"_s).text().trimmed(); }
};
FOLVANE_ON_EACH_DATABASE(PreviewTest);

TEST_P(PreviewTest, ShowsThePagesAndTurnsThem) {
  InPreview(Request(u"Lwdj"_s, u"RegID <= 20"_s), [](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), u"收文登记"_s);
    auto& view = Find<QPrintPreviewWidget>(window, u"View"_s);
    ASSERT_TRUE(WaitUntil([&] { return view.pageCount() > 1; }));
    EXPECT_EQ(Page(window), u"第 1 页，共 %1 页"_s.arg(view.pageCount()));
    EXPECT_FALSE(FindAction(window, u"TlbPreview"_s, u"CmdPrevious"_s).isEnabled());
    Press(window, u"CmdLast"_s);
    EXPECT_EQ(view.currentPage(), view.pageCount());
    EXPECT_FALSE(FindAction(window, u"TlbPreview"_s, u"CmdNext"_s).isEnabled());
    Press(window, u"CmdPrevious"_s);
    Press(window, u"CmdNext"_s);
    Press(window, u"CmdFirst"_s);
    EXPECT_EQ(Page(window), u"第 1 页，共 %1 页"_s.arg(view.pageCount()));
    for (const QString& zoom : {u"CmdZoomIn"_s, u"CmdZoomOut"_s, u"CmdFitPage"_s, u"CmdFitWidth"_s})
      Press(window, zoom);
    EXPECT_EQ(UnnamedControls(window), QStringList());
  });
}

// A bar that comes and goes with pages as wide as the view would have them grow and shrink without end.
TEST_P(PreviewTest, HasItsScrollBarAlways) {
  InPreview(Request(u"Lwdj"_s, u"RegID = 1"_s), [](QWidget& window) {
    const auto* pages = Find<QPrintPreviewWidget>(window, u"View"_s).findChild<QGraphicsView*>();
    ASSERT_TRUE(pages);
    EXPECT_EQ(pages->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
  });
}

TEST_P(PreviewTest, SavesAPdfFile) {
  MessageBoxes boxes;
  FileDialogs files;
  files.Answer(program_.Path(u"saved.pdf"_s));
  InPreview(Request(u"Lwdj"_s, u"RegID = 1"_s), [](QWidget& window) { Press(window, u"CmdPdf"_s); });
  EXPECT_EQ(files.Requests().at(0).filter, u"PDF 文件|*.pdf"_s);
  EXPECT_TRUE(files.Requests().at(0).save);
  EXPECT_TRUE(boxes.Last().text.startsWith(u"报表已保存为 "_s));
  EXPECT_TRUE(TextOfPdf(program_.Path(u"saved.pdf"_s)).contains(u"收文登记"_s));
}

TEST_P(PreviewTest, AFileThatCannotBeSavedIsTold) {
  MessageBoxes boxes;
  FileDialogs files;
  files.Answer(program_.Path(u"none/saved.pdf"_s)).Answer({});
  InPreview(Request(u"Lwdj"_s, u"RegID = 1"_s), [](QWidget& window) {
    Press(window, u"CmdPdf"_s);
    Press(window, u"CmdPdf"_s);
  });
  EXPECT_EQ(boxes.Requests().size(), 1u) << "a cancelled dialog is nothing to tell";
  EXPECT_TRUE(boxes.Last().text.contains(u"无法保存"_s));
}

TEST_P(PreviewTest, KeepsThePageForTheReport) {
  InPreview(Request(u"Lwdj"_s, u"RegID <= 20"_s, u"77"_s), [](QWidget& window) {
    WithWindow(u"PageSetupDialog"_s, [](QWidget& dialog) {
      Find<QComboBox>(dialog, u"CboOrientation"_s).setCurrentIndex(0);
      Find<QComboBox>(dialog, u"CboPaper"_s).setCurrentText(u"A3"_s);
      EXPECT_EQ(UnnamedControls(dialog), QStringList());
      Click(Find(dialog, u"CmdOK"_s));
    });
    Press(window, u"CmdPageSetup"_s);
  });
  const auto kept = reports::KeptPageLayout(u"77"_s);
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->pageSize().id(), QPageSize::A3);
  EXPECT_EQ(kept->orientation(), QPageLayout::Portrait);
}

TEST_P(PreviewTest, MarginsThatLeaveNoRoomAreNotTaken) {
  MessageBoxes boxes;
  InPreview(Request(u"Lwdj"_s, u"RegID <= 20"_s, u"79"_s), [](QWidget& window) {
    WithWindow(u"PageSetupDialog"_s, [](QWidget& dialog) {
      Find<QComboBox>(dialog, u"CboPaper"_s).setCurrentText(u"A5"_s);
      Find<QComboBox>(dialog, u"CboOrientation"_s).setCurrentIndex(1);
      for (const QString& name : {u"TxtTop"_s, u"TxtBottom"_s}) Find<QDoubleSpinBox>(dialog, name).setValue(80);
      Click(Find(dialog, u"CmdOK"_s));
      EXPECT_TRUE(dialog.isVisible());
      Find<QDoubleSpinBox>(dialog, u"TxtTop"_s).setValue(20);
      Click(Find(dialog, u"CmdOK"_s));
    });
    Press(window, u"CmdPageSetup"_s);
  });
  EXPECT_EQ(boxes.Texts(), QStringList{u"页边距太大，这种纸张上放不下内容，请改小。"_s});
  ASSERT_TRUE(reports::KeptPageLayout(u"79"_s));
  EXPECT_EQ(reports::KeptPageLayout(u"79"_s)->margins().top(), 20);
}

TEST_P(PreviewTest, ACancelledPageSetupKeepsNothing) {
  InPreview(Request(u"Lwdj"_s, u"RegID <= 20"_s, u"78"_s), [](QWidget& window) {
    WithWindow(u"PageSetupDialog"_s, [](QWidget& dialog) { Click(Find(dialog, u"CmdCancel"_s)); });
    Press(window, u"CmdPageSetup"_s);
  });
  EXPECT_FALSE(reports::KeptPageLayout(u"78"_s));
}

TEST_P(PreviewTest, AReportThatCannotBeMadeShowsNoWindow) {
  EXPECT_THROW(Services().runReport(Request(u"Gone"_s, {})), DataError);
}

}  // namespace
}  // namespace folvane::test
