#include <QComboBox>
#include <QSpinBox>

#include "designer/FormFixture.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

QListWidget& FieldsOf(const designer::FormPage& page) { return Find<QListWidget>(page, u"FormFields"_s); }

void EnterNumber(const designer::FormPage& page, const QString& box, int number) {
  Retype(Find<QSpinBox>(page, box), QString::number(number));
  Press(Find<QSpinBox>(page, box), Qt::Key_Return);
}

TEST_F(FormPageTest, ShowsTheFormAsItIsWanted) {
  const QRect box = Find<QWidget>(Page(), u"Txt(1)"_s).geometry();
  EXPECT_EQ(box, QRect(1350 / 15, 500 / 15, 3600 / 15, box.height()));
  EXPECT_EQ(TextIn(Page(), u"F_Lbl(3)"_s), u"题名"_s);
  EXPECT_TRUE(Find<QWidget>(Page(), u"Required(3)"_s).isVisible());
  EXPECT_EQ(Find<QWidget>(Page(), u"Txt_MLine(1)"_s).toolTip(), u"限长160个字符"_s);
  Session().Change(u"改"_s, [](Design& design) {
    FieldOf(design, u"Lwdj"_s, u"Amaintitle"_s).caption = u"标题"_s;
    design.dictionaries[0].entries.push_back({u"机密"_s, u"J"_s, u"003"_s});
  });
  EXPECT_EQ(TextIn(Page(), u"F_Lbl(3)"_s), u"标题"_s);
  auto& list = Find<QComboBox>(Page(), u"Cmb(1)"_s);
  ASSERT_EQ(list.count(), 3);
  EXPECT_EQ(list.itemText(2), u"机密"_s);
}

TEST_F(FormPageTest, AlignsWithTheControlThatWasSelectedLast) {
  Change([](Design::Table& table) { table.controls[3].left = 2000; });
  Select({u"Txt(1)"_s, u"Cmb(1)"_s});
  Press(Canvas(), Qt::Key_L, Qt::ControlModifier);
  EXPECT_EQ(PlaceOf(u"RegID"_s), QPoint(2000, 0));
  Run(u"FormAlignTop"_s);
  EXPECT_EQ(PlaceOf(u"RegID"_s), QPoint(2000, 1440));
  Undo();
  Undo();
  EXPECT_EQ(PlaceOf(u"RegID"_s), QPoint(1350, 0));
  Select({u"Txt(1)"_s, u"DTP(1)"_s});
  Run(u"FormAlignRight"_s);
  EXPECT_EQ(PlaceOf(u"RegID"_s), QPoint(6300, 0));
}

TEST_F(FormPageTest, GivesControlsTheSameSize) {
  Select({u"Txt(1)"_s, u"Cmb(1)"_s, u"Txt_MLine(1)"_s});
  Run(u"FormSameWidth"_s);
  EXPECT_EQ(Wanted(u"RegID"_s).width, 8550);
  EXPECT_EQ(Wanted(u"SecurityClass"_s).width, 8550);
  Run(u"FormSameHeight"_s);
  EXPECT_EQ(Wanted(u"RegID"_s).height, 780);
  EXPECT_EQ(Wanted(u"SecurityClass"_s).height, 300);
  EXPECT_EQ(Steps(), 2);
}

TEST_F(FormPageTest, LeavesTheSameRoomBetweenControls) {
  Change([](Design::Table& table) { table.controls[3].top = 3000; });
  Select({u"Txt(1)"_s, u"Txt_MLine(1)"_s, u"Cmb(1)"_s});
  Run(u"FormSpaceEvenly"_s);
  EXPECT_EQ(PlaceOf(u"Amaintitle"_s), QPoint(1350, 1260));  // 300 + 960, with 960 under it
}

TEST_F(FormPageTest, KeysThatNeedSeveralControlsWaitForThem) {
  EXPECT_FALSE(Find<QAction>(Page(), u"FormTakeOff"_s).isEnabled());
  Select({u"Txt(1)"_s});
  EXPECT_TRUE(Find<QAction>(Page(), u"FormTakeOff"_s).isEnabled());
  EXPECT_FALSE(Find<QAction>(Page(), u"FormAlignLeft"_s).isEnabled());
  Select({u"Txt(1)"_s, u"Cmb(1)"_s});
  EXPECT_TRUE(Find<QAction>(Page(), u"FormAlignLeft"_s).isEnabled());
  EXPECT_FALSE(Find<QAction>(Page(), u"FormSpaceEvenly"_s).isEnabled());
}

TEST_F(FormPageTest, ArrangesTheFormByItself) {
  Change([](Design::Table& table) { table.controls[4].top = 9000; });
  Run(u"FormArrange"_s);
  EXPECT_EQ(PlaceOf(u"FileDate"_s), QPoint(6300, 1440));
}

TEST_F(FormPageTest, TakesControlsOffAndPutsThemOnAgain) {
  EXPECT_EQ(FieldsOf(Page()).count(), 0);
  Select({u"Cmb(1)"_s, u"Txt(1)"_s});
  Press(Canvas(), Qt::Key_Delete);
  ASSERT_EQ(FieldsOf(Page()).count(), 2);
  EXPECT_EQ(FieldsOf(Page()).item(0)->text(), u"登记号 RegID"_s);
  EXPECT_EQ(Selected(), QStringList());
  FieldsOf(Page()).setCurrentRow(1);
  Press(FieldsOf(Page()), Qt::Key_Return);
  EXPECT_EQ(Wanted(u"SecurityClass"_s).type, 2);
  EXPECT_EQ(Selected(), QStringList{u"SecurityClass"_s});
  DoubleClickItem(FieldsOf(Page()), FieldsOf(Page()).model()->index(0, 0));
  EXPECT_EQ(FieldsOf(Page()).count(), 0);
  EXPECT_EQ(Steps(), 3);
  Undo();
  Undo();
  Undo();
  EXPECT_EQ(Session().Wanted(), SmallDesign());
}

TEST_F(FormPageTest, ChangesTheKindOfAControl) {
  Select({u"Cmb(1)"_s});
  auto& kind = Find<QComboBox>(Page(), u"FormKind"_s);
  EXPECT_EQ(kind.currentText(), u"下拉框"_s);
  kind.setFocus();
  Press(kind, Qt::Key_Down);
  EXPECT_EQ(Wanted(u"SecurityClass"_s).type, 1);
  EXPECT_EQ(Wanted(u"SecurityClass"_s).index, 2);  // 1 is taken
  EXPECT_TRUE(Find<QWidget>(Page(), u"Txt(2)"_s).isVisible());
  EXPECT_EQ(Selected(), QStringList{u"SecurityClass"_s});
  EXPECT_EQ(kind.currentText(), u"单行文本框"_s);
  Undo();
  EXPECT_EQ(Wanted(u"SecurityClass"_s).type, 2);
}

TEST_F(FormPageTest, OffersTheKindsThatFit) {
  auto& kind = Find<QComboBox>(Page(), u"FormKind"_s);
  Select({u"DTP(2)"_s});
  EXPECT_EQ(kind.count(), 2);
  EXPECT_EQ(kind.itemText(0), u"日期框"_s);
  EXPECT_EQ(kind.itemText(1), u"单行文本框"_s);
  Select({u"Txt_MLine(1)"_s});
  EXPECT_EQ(kind.count(), 8);
  EXPECT_EQ(kind.currentText(), u"多行文本框"_s);
}

TEST_F(FormPageTest, MeasuresCanBeTyped) {
  Select({u"DTP(2)"_s});
  EXPECT_EQ(Find<QSpinBox>(Page(), u"FormTop"_s).value(), 1440);
  EnterNumber(Page(), u"FormTop"_s, 2000);
  EnterNumber(Page(), u"FormLeft"_s, 6000);
  EnterNumber(Page(), u"FormWidth"_s, 3000);
  EnterNumber(Page(), u"FormHeight"_s, 450);
  EXPECT_EQ(Wanted(u"FileDate"_s), (Design::Control{u"FileDate"_s, 4, 2, 5, 6000, 2000, 3000, 450}));
  EXPECT_EQ(Steps(), 4);
  EnterNumber(Page(), u"FormWidth"_s, 57'000);
  EXPECT_EQ(Wanted(u"FileDate"_s).width, 57'600 - 6000);
  EXPECT_EQ(Find<QSpinBox>(Page(), u"FormWidth"_s).value(), 57'600 - 6000);
}

TEST_F(FormPageTest, ClicksInTurnGiveTheOrder) {
  Run(u"FormGiveOrder"_s);
  ClickAt(Canvas(), Middle(u"Txt_MLine(1)"_s));
  ClickAt(Canvas(), Middle(u"DTP(2)"_s));
  ClickAt(Canvas(), Middle(u"DTP(2)"_s));  // has its number already
  EXPECT_EQ(Wanted(u"Amaintitle"_s).keyOrder, 1);
  EXPECT_EQ(Wanted(u"FileDate"_s).keyOrder, 2);
  EXPECT_EQ(Wanted(u"RegID"_s).keyOrder, 3);
  EXPECT_TRUE(TextIn(Page(), u"FormWords"_s).contains(u"第 3 个"_s));
  Undo();
  EXPECT_TRUE(TextIn(Page(), u"FormWords"_s).contains(u"第 2 个"_s));
  EXPECT_EQ(Wanted(u"FileDate"_s).keyOrder, 5);
  for (const QString& control : {u"Cmb(1)"_s, u"DTP(1)"_s, u"DTP(2)"_s, u"Txt(1)"_s})
    ClickAt(Canvas(), Middle(control));
  EXPECT_EQ(Wanted(u"RegID"_s).keyOrder, 5);
  EXPECT_FALSE(Find<QAction>(Page(), u"FormGiveOrder"_s).isChecked());
}

TEST_F(FormPageTest, TheOrderIsGivenByKeysToo) {
  Press(Canvas(), Qt::Key_K, Qt::ControlModifier);
  Press(Canvas(), Qt::Key_Tab);
  Press(Canvas(), Qt::Key_Tab);
  Press(Canvas(), Qt::Key_Space);
  EXPECT_EQ(Wanted(u"CreatedDate"_s).keyOrder, 1);
  Press(Canvas(), Qt::Key_Escape);
  EXPECT_FALSE(Canvas().IsOrdering());
}

TEST_F(FormPageTest, OrdersByRowsAndColumns) {
  Change([](Design::Table& table) {
    for (Design::Control& control : table.controls) control.keyOrder = 9 - control.keyOrder;
    table.controls[1].top = 90;  // still in the first row
  });
  Run(u"FormOrderByPlace"_s);
  int order = 0;
  for (const QString& field : {u"RegID"_s, u"CreatedDate"_s, u"Amaintitle"_s, u"SecurityClass"_s, u"FileDate"_s})
    EXPECT_EQ(Wanted(field).keyOrder, ++order) << field.toStdString();
}

TEST_F(FormPageTest, AFineGridHalvesTheSteps) {
  Select({u"DTP(2)"_s});
  Press(Canvas(), Qt::Key_G, Qt::ControlModifier);
  Press(Canvas(), Qt::Key_Down);
  EXPECT_EQ(PlaceOf(u"FileDate"_s), QPoint(6300, 1500));
}

TEST_F(FormPageTest, ShowsWhatTheEntryFormCannot) {
  Change([](Design::Table& table) {
    table.controls[0].type = 11;             // no such kind
    table.controls[1].field = u"Nowhere"_s;  // no such field
    table.controls[4].index = 1;             // a date has it already
    table.controls[2].left = -3000;          // nowhere to be seen
    table.controls[3].width = 0;
    table.controls.push_back({u"RegID"_s, 1, 1, 7, 1350, 3000, 3600, 300});
    table.controls.push_back({{}, 1, 2, 8, 1350, 3500, 3600, 300});
  });
  EXPECT_EQ(TextIn(Page(), u"Gap(0)"_s), u"没有第 11 类控件"_s);
  EXPECT_EQ(TextIn(Page(), u"Gap(1)"_s), u"表中没有字段“Nowhere”"_s);
  EXPECT_GT(Middle(u"Txt_MLine(1)"_s).y(), Middle(u"Txt(1)"_s).y());
  ClickAt(Canvas(), Middle(u"Txt_MLine(1)"_s));
  EXPECT_TRUE(TextIn(Page(), u"FormWords"_s).endsWith(u"已自动安排"_s));
  Press(Canvas(), Qt::Key_Down);
  EXPECT_GE(PlaceOf(u"Amaintitle"_s).x(), 0);
  EXPECT_GE(PlaceOf(u"Amaintitle"_s).y(), 3800);
  ClickAt(Canvas(), Middle(u"Gap(0)"_s));
  EXPECT_EQ(Find<QComboBox>(Page(), u"FormKind"_s).currentText(), u"第 11 类"_s);
  Press(Canvas(), Qt::Key_A, Qt::ControlModifier);
  Press(Canvas(), Qt::Key_Delete);
  EXPECT_EQ(FieldsOf(Page()).count(), 5);
}

TEST_F(FormPageTest, ATableThatIsGoneLeavesNothing) {
  Select({u"DTP(2)"_s});
  Session().Change(u"删"_s, [](Design& design) { design.tables.clear(); });
  EXPECT_EQ(Canvas().Current(), -1);
  EXPECT_EQ(Page().findChild<QWidget*>(u"DTP(2)"_s), nullptr);
  Run(u"FormArrange"_s);
  EXPECT_EQ(Steps(), 1);
}

TEST_F(FormPageTest, HasANameForEachControl) { EXPECT_EQ(UnnamedControls(Window()), QStringList()); }

}  // namespace
}  // namespace folvane::test
