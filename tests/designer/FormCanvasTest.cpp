#include <QDropEvent>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>

#include "designer/FormFixture.h"

namespace folvane::test {
namespace {

using FormCanvasTest = FormPageTest;

const QPoint kDown40(0, 40);  // pixels

TEST_F(FormCanvasTest, AClickSelectsAndShiftOrControlAdds) {
  ClickAt(Canvas(), Middle(u"Txt(1)"_s));
  EXPECT_EQ(Selected(), QStringList{u"RegID"_s});
  ClickAt(Canvas(), Middle(u"DTP(1)"_s), Qt::LeftButton, Qt::ShiftModifier);
  ClickAt(Canvas(), Middle(u"Cmb(1)"_s), Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(Selected(), (QStringList{u"RegID"_s, u"CreatedDate"_s, u"SecurityClass"_s}));
  ClickAt(Canvas(), Middle(u"DTP(1)"_s), Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(Selected(), (QStringList{u"RegID"_s, u"SecurityClass"_s}));
  ClickAt(Canvas(), Middle(u"Cmb(1)"_s));
  EXPECT_EQ(Selected(), QStringList{u"SecurityClass"_s});
  EXPECT_EQ(Steps(), 0);
}

TEST_F(FormCanvasTest, ACaptionStandsForItsControl) {
  ClickAt(Canvas(), Find<QWidget>(Page(), u"F_Lbl(3)"_s).geometry().center());
  EXPECT_EQ(Selected(), QStringList{u"Amaintitle"_s});
}

TEST_F(FormCanvasTest, ARubberBandSelectsWhatItTouches) {
  Drag({700, 180}, Middle(u"DTP(2)"_s) + QPoint(-20, -40));
  EXPECT_EQ(Selected(), (QStringList{u"Amaintitle"_s, u"FileDate"_s}));
  ClickAt(Canvas(), {700, 200});
  EXPECT_EQ(Selected(), QStringList());
}

TEST_F(FormCanvasTest, TabGoesThroughTheControlsInTheOrderOfTheEnterKeyAndOut) {
  Change([](Design::Table& table) { std::swap(table.controls[0].keyOrder, table.controls[1].keyOrder); });
  Canvas().setFocus(Qt::TabFocusReason);
  EXPECT_EQ(Selected(), QStringList{u"CreatedDate"_s});
  Press(Canvas(), Qt::Key_Tab);
  EXPECT_EQ(Selected(), QStringList{u"RegID"_s});
  Press(Canvas(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), QStringList{u"CreatedDate"_s});
  for (int i = 0; i < 4; ++i) Press(Canvas(), Qt::Key_Tab);
  EXPECT_EQ(Selected(), QStringList{u"FileDate"_s});
  EXPECT_TRUE(Canvas().hasFocus());
  Press(Canvas(), Qt::Key_Tab);
  EXPECT_FALSE(Canvas().hasFocus());
}

TEST_F(FormCanvasTest, TheSpaceBarKeepsAControlWhileTabGoesOn) {
  Canvas().setFocus(Qt::TabFocusReason);
  Press(Canvas(), Qt::Key_Space);
  Press(Canvas(), Qt::Key_Tab);
  Press(Canvas(), Qt::Key_Tab);
  EXPECT_EQ(Selected(), (QStringList{u"RegID"_s, u"Amaintitle"_s}));
  Press(Canvas(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Selected().size(), 5);
  Press(Canvas(), Qt::Key_Escape);
  EXPECT_EQ(Selected(), QStringList());
}

TEST_F(FormCanvasTest, ADragMovesWhatIsSelectedOntoTheGridAsOneStep) {
  Select({u"Cmb(1)"_s, u"DTP(2)"_s});
  Drag(Middle(u"DTP(2)"_s), Middle(u"DTP(2)"_s) + kDown40);
  EXPECT_EQ(PlaceOf(u"FileDate"_s), QPoint(6300, 2040));  // 600 further down, which is on the grid
  EXPECT_EQ(PlaceOf(u"SecurityClass"_s), QPoint(1350, 2040));
  EXPECT_EQ(Find<QWidget>(Page(), u"DTP(2)"_s).y(), (2040 + 500) / 15);
  EXPECT_EQ(Steps(), 1);
  Undo();
  EXPECT_EQ(PlaceOf(u"FileDate"_s), QPoint(6300, 1440));
  EXPECT_EQ(Find<QWidget>(Page(), u"DTP(2)"_s).y(), (1440 + 500) / 15);
  EXPECT_EQ(Selected(), (QStringList{u"SecurityClass"_s, u"FileDate"_s}));
}

TEST_F(FormCanvasTest, TheFrameFollowsWhatIsMoved) {
  Drag(Middle(u"DTP(2)"_s), Middle(u"DTP(2)"_s) + kDown40);
  EXPECT_EQ(Wanted({}).height, 2040 + 300 + 150);
}

TEST_F(FormCanvasTest, AltDragsFreely) {
  Drag(Middle(u"DTP(2)"_s), Middle(u"DTP(2)"_s) + QPoint(3, 41), Qt::AltModifier);
  EXPECT_EQ(PlaceOf(u"FileDate"_s), QPoint(6300 + 45, 1440 + 41 * 15));
}

TEST_F(FormCanvasTest, ADraggedEdgeIsDrawnToThatOfAnother) {
  Change([](Design::Table& table) { table.controls[4].left = 5000; });
  Drag(Middle(u"DTP(2)"_s), Middle(u"DTP(2)"_s) + QPoint(83, 0));
  EXPECT_EQ(PlaceOf(u"FileDate"_s), QPoint(6300, 1440));  // the left edge of the date above, 86 2/3 pixels away
}

TEST_F(FormCanvasTest, EscapeGivesUpADrag) {
  const QPoint from = Middle(u"DTP(2)"_s);
  QTest::mousePress(&Canvas(), Qt::LeftButton, {}, from);
  QTest::mouseMove(&Canvas(), from + kDown40);
  EXPECT_NE(Middle(u"DTP(2)"_s), from);
  EXPECT_EQ(Find<QSpinBox>(Page(), u"FormTop"_s).value(), 2040);
  Press(Canvas(), Qt::Key_Escape);
  EXPECT_EQ(Middle(u"DTP(2)"_s), from);
  EXPECT_EQ(Find<QSpinBox>(Page(), u"FormTop"_s).value(), 1440);
  QTest::mouseRelease(&Canvas(), Qt::LeftButton, {}, from + kDown40);
  EXPECT_EQ(Steps(), 0);
}

TEST_F(FormCanvasTest, NothingLeavesTheForm) {
  Select({u"Txt(1)"_s, u"DTP(2)"_s});
  Drag(Middle(u"DTP(2)"_s), {-2000, -2000}, Qt::AltModifier);
  EXPECT_EQ(PlaceOf(u"RegID"_s), QPoint(0, 0));
  EXPECT_EQ(PlaceOf(u"FileDate"_s), QPoint(6300 - 1350, 1440));
  Drag(Middle(u"DTP(2)"_s), {90'000, 90'000}, Qt::AltModifier);
  EXPECT_EQ(PlaceOf(u"FileDate"_s), QPoint(57'600 - 3600, 240'000 - 300));
}

TEST_F(FormCanvasTest, ADragBeyondTheEdgeScrolls) {
  auto& bar = *Find<QScrollArea>(Page(), u"FormScroll"_s).verticalScrollBar();
  EXPECT_EQ(bar.value(), 0);
  Drag(Middle(u"DTP(2)"_s), Middle(u"DTP(2)"_s) + QPoint(0, 600));
  EXPECT_GT(bar.value(), 0);
  EXPECT_EQ(Selected(), QStringList{u"FileDate"_s});
}

TEST_F(FormCanvasTest, WhatIsSelectedByKeysIsBroughtIntoSight) {
  Change([](Design::Table& table) { table.controls[4].top = 20'000; });
  auto& bar = *Find<QScrollArea>(Page(), u"FormScroll"_s).verticalScrollBar();
  Canvas().setFocus(Qt::TabFocusReason);
  for (int i = 0; i < 4; ++i) Press(Canvas(), Qt::Key_Tab);
  EXPECT_EQ(Selected(), QStringList{u"FileDate"_s});
  EXPECT_GT(bar.value(), 500);
}

TEST_F(FormCanvasTest, AHandleSizesAControl) {
  ClickAt(Canvas(), Middle(u"Txt_MLine(1)"_s));
  const QRect box = Find<QWidget>(Page(), u"Txt_MLine(1)"_s).geometry();
  Drag(box.bottomRight(), box.bottomRight() + QPoint(-100, 32));
  const Design::Control sized = Wanted(u"Amaintitle"_s);
  EXPECT_EQ(QPoint(sized.left, sized.top), QPoint(1350, 480));
  EXPECT_EQ(sized.left + sized.width, 8400);  // 9900 - 1500, which is on the grid
  EXPECT_EQ(sized.top + sized.height, 1740);  // drawn to the bottom of the line below
  EXPECT_EQ(Steps(), 1);
  Undo();
  EXPECT_EQ(Wanted(u"Amaintitle"_s).height, 780);
}

TEST_F(FormCanvasTest, ADropDownKeepsTheHeightOfALine) {
  ClickAt(Canvas(), Middle(u"Cmb(1)"_s));
  Press(Canvas(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Steps(), 0);
  Press(Canvas(), Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(Wanted(u"SecurityClass"_s).width, 3720);
}

TEST_F(FormCanvasTest, ArrowsInARowAreOneStep) {
  ClickAt(Canvas(), Middle(u"DTP(2)"_s));
  Press(Canvas(), Qt::Key_Down);
  Press(Canvas(), Qt::Key_Right);
  Press(Canvas(), Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(PlaceOf(u"FileDate"_s), QPoint(6300 + 120 - 15, 1440 + 120));
  Press(Canvas(), Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Wanted(u"FileDate"_s).height, 300);  // a line is the least
  Press(Canvas(), Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Wanted(u"FileDate"_s).width, 3480);
  EXPECT_EQ(Steps(), 2);
  Undo();
  Undo();
  EXPECT_EQ(PlaceOf(u"FileDate"_s), QPoint(6300, 1440));
  EXPECT_EQ(Steps(), 0);
}

TEST_F(FormCanvasTest, AFieldIsDroppedWhereItIsWanted) {
  Change([](Design::Table& table) { table.fields.push_back({u"Note"_s, u"附注"_s, u"文本型"_s, 200, {}}); });
  QMimeData data;
  data.setData(QString::fromLatin1(designer::kFieldMime), "Note");
  QDragEnterEvent enter({90, 240}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&Canvas(), &enter);
  ASSERT_TRUE(enter.isAccepted());
  QDropEvent drop({90, 240}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&Canvas(), &drop);
  EXPECT_EQ(PlaceOf(u"Note"_s), QPoint(1320, 3120));
  EXPECT_EQ(Selected(), QStringList{u"Note"_s});
}

TEST_F(FormCanvasTest, AFieldThatIsNoneOfTheTableIsNotDropped) {
  QMimeData data;
  data.setData(QString::fromLatin1(designer::kFieldMime), "Nowhere");
  QDropEvent drop({90, 240}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&Canvas(), &drop);
  EXPECT_EQ(Steps(), 0);
}

}  // namespace
}  // namespace folvane::test
