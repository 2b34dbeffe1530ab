#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

#include "forms/EntryFormFixture.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

TEST_F(EntryFormTest, PutsFieldsAndLabelsInTheirPlaces) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 3, 1500, 400, 450);
  Build();
  // 15 twips to the pixel, 500 twips under the tool bar.
  EXPECT_EQ(Control(u"Txt(3)"_s).geometry(), QRect(100, 60, 200, 30));
  EXPECT_EQ(Control(u"F_Lbl(1)"_s).pos(), QPoint(33, 64));
  EXPECT_EQ(TextIn(*form_, u"F_Lbl(1)"_s), u"题名"_s);
  EXPECT_EQ(Control(u"Txt(3)"_s).property("DesignTop").toInt(), 900);
  EXPECT_EQ(Control(u"F_Lbl(1)"_s).property("Tag").toString(), u"960"_s);
}

TEST_F(EntryFormTest, MovesALabelOfMoreThanElevenBytesToTheLeft) {
  Design(u"Title"_s, u"五个汉字的"_s, ControlKind::Txt, 1, 3000, 0);
  Design(u"Quantity"_s, u"六个汉字标题"_s, ControlKind::Txt, 2, 3000, 400);
  Build();
  EXPECT_EQ(Control(u"F_Lbl(1)"_s).x(), 2000 / 15);
  EXPECT_EQ(Control(u"F_Lbl(2)"_s).x(), (2000 - 90) / 15);
}

TEST_F(EntryFormTest, HintsAtTheLengthOfEachField) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Design(u"FondsNo"_s, u"全宗号"_s, ControlKind::F_FondsNo, 1, 1500, 400);
  Design(u"ArchiveID"_s, u"标识"_s, ControlKind::DTP, 1, 1500, 800);
  Build();
  EXPECT_EQ(Control(u"Txt(1)"_s).toolTip(), u"限长12个字符"_s);
  EXPECT_EQ(Control(u"F_FondsNo(1)"_s).toolTip(), u"限长6个字符"_s);
  EXPECT_EQ(Control(u"DTP(1)"_s).toolTip(), QString());
}

TEST_F(EntryFormTest, ShowsTheRecordAndGuardsItsLengths) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Build();
  Show();
  EXPECT_EQ(TextIn(*form_, u"Txt(1)"_s), u"甲"_s);
  Retype(Control(u"Txt(1)"_s), u"一二三四五六七"_s);
  EXPECT_EQ(TextIn(*form_, u"Txt(1)"_s), u"一二三四五六"_s);
}

TEST_F(EntryFormTest, KnowsTheFieldsByTheirKindsAndNumbers) {
  Design(u"FondsNo"_s, u"全宗"_s, ControlKind::F_FondsNo, 2, 1500, 0);
  Build();
  EXPECT_TRUE(form_->FieldOf({ControlKind::F_FondsNo, 2}));
  EXPECT_EQ(form_->FieldOf({ControlKind::F_FondsNo, 1}), nullptr);
}

TEST_F(EntryFormTest, TellsWhatItsFieldsShow) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 3, 1500, 0);
  Build();
  form_->FieldOf({ControlKind::Txt, 3})->SetText(u"单行"_s);
  const ShownFields shown = form_->Shown();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].control, (ControlId{ControlKind::Txt, 3}));
  EXPECT_EQ(shown[0].dataField, u"Title"_s);
  EXPECT_EQ(shown[0].caption, u"题名"_s);
  EXPECT_EQ(shown[0].text, u"单行"_s);
}

TEST_F(EntryFormTest, LeavesALabelWithoutAFieldForAnUnknownKind) {
  Design(u"Title"_s, u"题名"_s, 11, 1, 1500, 0);
  Build();
  EXPECT_TRUE(form_->Fields().empty());
  EXPECT_EQ(TextIn(*form_, u"F_Lbl(1)"_s), u"题名"_s);
  EXPECT_EQ(form_->Layout().KeyList.size(), 2u);
}

TEST_F(EntryFormTest, HoldsNothingOfTheTableBefore) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Design(u"FondsNo"_s, u"全宗"_s, ControlKind::F_FondsNo, 1, 1500, 0, 300, u"Fwdj"_s);
  Build();
  Build(u"Fwdj"_s);
  EXPECT_TRUE(form_->findChildren<QWidget*>(u"Txt(1)"_s).isEmpty());
  EXPECT_EQ(form_->findChildren<QLabel*>().size(), 1);
  EXPECT_TRUE(form_->FieldOf({ControlKind::F_FondsNo, 1}));
}

TEST_F(EntryFormTest, EndsTheBuildingOverAColumnThatTheRecordSetLacks) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Design(u"Nowhere"_s, u"无"_s, ControlKind::Txt, 2, 1500, 400);
  Design(u"Quantity"_s, u"份数"_s, ControlKind::Txt, 3, 1500, 800);
  MessageBoxes boxes;
  Build();
  EXPECT_EQ(boxes.Last().title, u"著录界面"_s);
  EXPECT_EQ(boxes.Last().flags, 16);
  EXPECT_TRUE(
      boxes.Last().text.startsWith(u"自定义界面数据可能有误,请检查自定义的每一步操作,或与程序供应商联系!\r\n"_s));
  EXPECT_TRUE(boxes.Last().text.contains(u"Nowhere"_s));
  EXPECT_TRUE(form_->FieldOf({ControlKind::Txt, 1}));
  EXPECT_FALSE(form_->FieldOf({ControlKind::Txt, 3}));
}

TEST_F(EntryFormTest, EndsTheBuildingOverAControlThatIsDesignedTwice) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Design(u"FondsNo"_s, u"全宗"_s, ControlKind::Txt, 1, 1500, 400);
  MessageBoxes boxes;
  Build();
  EXPECT_TRUE(boxes.Last().text.endsWith(u"控件“Txt(1)”设计了两次。"_s));
  EXPECT_EQ(Control(u"Txt(1)"_s).property("DataField").toString(), u"Title"_s);
  EXPECT_EQ(form_->Layout().rows.size(), 1u);
}

TEST_F(EntryFormTest, BuildsAFieldWithoutAPlaceUnderTheOthersAndNamesIt) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Design(u"Quantity"_s, u"份数"_s, ControlKind::Txt, 2, 1500, 400);
  Design(u"FondsNo"_s, u"全宗号"_s, ControlKind::F_FondsNo, 1, 1500, 800);
  Native(u"Update SaveControls Set F_Top=null Where DataField='Title'"_s);
  Native(u"Update SaveControls Set F_Width=0 Where DataField='FondsNo'"_s);
  Build();
  Show();
  EXPECT_EQ(form_->Fields().size(), 3u);
  EXPECT_GT(Control(u"Txt(1)"_s).y(), Control(u"F_FondsNo(1)"_s).geometry().bottom());
  EXPECT_EQ(Control(u"F_FondsNo(1)"_s).width(), 200);
  EXPECT_TRUE(TextIn(*form_, u"LayoutNote"_s).endsWith(u"：“题名”、“全宗号”"_s));
  EXPECT_LT(Control(u"LayoutNote"_s).geometry().bottom(), Control(u"Txt(2)"_s).y());
}

TEST_F(EntryFormTest, SaysNothingOfASoundLayout) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Build();
  EXPECT_EQ(form_->findChild<QWidget*>(u"LayoutNote"_s), nullptr);
}

TEST_F(EntryFormTest, NamesOnlyTheFirstOfManyFieldsWithoutAPlace) {
  for (int i = 1; i <= 7; ++i) Design(u"Title"_s, u"题名"_s, ControlKind::Txt, i, 1500, 0);
  Native(u"Update SaveControls Set F_Left=null"_s);
  Build();
  EXPECT_TRUE(TextIn(*form_, u"LayoutNote"_s).endsWith(u"、“题名”等7个字段"_s));
}

TEST_F(EntryFormTest, BuildsTheFieldsBeforeARowThatCannotBeRead) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Design(u"Quantity"_s, u"份数"_s, ControlKind::Txt, 2, 1500, 400);
  Native(u"Update SaveControls Set ControlIndex=null Where DataField='Quantity'"_s);
  MessageBoxes boxes;
  Build();
  EXPECT_EQ(boxes.Requests().size(), 1u);
  EXPECT_TRUE(form_->FieldOf({ControlKind::Txt, 1}));
  EXPECT_EQ(form_->Fields().size(), 1u);
}

TEST_F(EntryFormTest, MarksAFieldThatMayNotBeEmpty) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Design(u"Quantity"_s, u"份数"_s, ControlKind::Txt, 2, 1500, 400);
  Native(u"Update DynamicWindows Set NullFlags='否' Where FieldName='Title'"_s);
  Build();
  Show();
  EXPECT_EQ(TextIn(*form_, u"F_Lbl(1)"_s), u"题名"_s);
  EXPECT_EQ(Control(u"F_Lbl(1)"_s).pos(), QPoint(33, 37));
  EXPECT_EQ(Control(u"Txt(1)"_s).accessibleDescription(), u"必填"_s);
  EXPECT_LT(Control(u"Required(1)"_s).geometry().right(), Control(u"F_Lbl(1)"_s).x());
  EXPECT_TRUE(Control(u"Required(1)"_s).isVisible());
  EXPECT_EQ(form_->findChild<QWidget*>(u"Required(2)"_s), nullptr);
  EXPECT_EQ(Control(u"Txt(2)"_s).accessibleDescription(), QString());
}

TEST_F(EntryFormTest, HasANameForEachControlForScreenReaders) {
  int top = 0;
  for (const int kind : {1, 2, 4, 6, 7, 8, 9, 10}) Design(u"Title"_s, u"题名"_s, kind, 1, 1500, top += 400);
  Build();
  Show();
  EXPECT_EQ(UnnamedControls(Window()), QStringList());
}

TEST_F(EntryFormTest, HasANameForWhatItsControlsDropDown) {
  Native(u"Insert Into FondsDefine(FondsNo,FondsName) Values('J01','总办')"_s);
  Native(u"Insert Into AssistantDictionary(DicID,Name) Values('9','机关代字'),('8','')"_s);
  Native(u"Insert Into AssistantDicKey(DicID,Name,Note) Values('9','国发','1'),('8','甲','1')"_s);
  int top = 0;
  for (const int kind : {2, 4, 6, 8, 9}) Design(u"Title"_s, u"题名"_s, kind, 1, 1500, top += 400);
  Build();
  Show();
  for (const QString& combo : {u"Cmb(1)"_s, u"DTP(1)"_s, u"F_FondsNo(1)"_s, u"F_Organ(1)"_s, u"DTP_Arch(1)"_s}) {
    Find<QComboBox>(*form_, combo).showPopup();
    ASSERT_TRUE(QApplication::activePopupWidget()) << combo.toStdString();
    EXPECT_EQ(UnnamedControls(*QApplication::activePopupWidget()), QStringList()) << combo.toStdString();
    Find<QComboBox>(*form_, combo).hidePopup();
  }
}

TEST_F(EntryFormTest, ShowsAFieldInTwoControls) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 2, 1500, 400);
  Build();
  Show();
  Retype(Control(u"Txt(1)"_s), u"乙"_s);
  form_->FieldOf({ControlKind::Txt, 2})->Focus();
  EXPECT_EQ(TextIn(*form_, u"Txt(2)"_s), u"乙"_s);
}

}  // namespace
}  // namespace folvane::test
