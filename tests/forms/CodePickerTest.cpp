#include <QAbstractItemView>

#include "forms/FormsFixture.h"
#include "shell/RegistryValues.h"
#include "widgets/AgencyCodePicker.h"
#include "widgets/CodePicker.h"

namespace folvane::test {
namespace {

template <class Picker>
class PickerTest : public FormsTest {
 protected:
  PickerTest() : picker_(&Window()), changes_(&picker_, &EditCombo::Changed) {
    FixClock(QDateTime(QDate(2026, 7, 8), QTime(9, 0), Qt::UTC));
    picker_.setGeometry(20, 20, 200, 24);
    Show();
    picker_.setFocus();
  }
  QString Text() const { return picker_.property("text").toString(); }
  QStringList Column(int column) {
    QStringList texts;
    for (int row = 0; row < picker_.count(); ++row) texts << picker_.model()->index(row, column).data().toString();
    return texts;
  }
  void Choose(int row) {
    picker_.showPopup();
    ClickItem(*picker_.view(), picker_.model()->index(row, 0));
  }

  Picker picker_;
  QSignalSpy changes_;
};

class UnitCodePickerTest : public PickerTest<UnitCodePicker> {
 protected:
  UnitCodePickerTest() {
    Native(u"Insert Into FondsDefine(FondsNo,FondsName) Values('J02','教育局'),('J01','总办')"_s);
  }
};

TEST_F(UnitCodePickerTest, DropsDownNumbersAndNames) {
  picker_.showPopup();
  EXPECT_EQ(Column(0), (QStringList{u"J01"_s, u"J02"_s}));
  EXPECT_EQ(Column(1), (QStringList{u"总办"_s, u"教育局"_s}));
  picker_.hidePopup();
}

TEST_F(UnitCodePickerTest, TakesTheNumberThatIsChosenOnce) {
  Choose(1);
  EXPECT_EQ(Text(), u"J02"_s);
  EXPECT_EQ(changes_.count(), 1);
  Choose(1);
  EXPECT_EQ(changes_.count(), 1);
}

TEST_F(UnitCodePickerTest, KeepsANumberThatTheListDoesNotHave) {
  picker_.SetText(u"X99"_s);
  picker_.showPopup();
  picker_.hidePopup();
  EXPECT_EQ(Text(), u"X99"_s);
  EXPECT_EQ(changes_.count(), 0);
}

TEST_F(UnitCodePickerTest, StepsThroughTheListWithTheArrowKeys) {
  picker_.SetText(u"J01"_s);
  Press(picker_, Qt::Key_Down);
  EXPECT_EQ(Text(), u"J02"_s);
  Press(picker_, Qt::Key_Up);
  EXPECT_EQ(Text(), u"J01"_s);
  EXPECT_EQ(changes_.count(), 2);
}

TEST_F(UnitCodePickerTest, ReadsTheListAnewEachTime) {
  picker_.showPopup();
  picker_.hidePopup();
  Native(u"Insert Into FondsDefine(FondsNo,FondsName) Values('J03','档案局')"_s);
  picker_.showPopup();
  EXPECT_EQ(picker_.count(), 3);
  picker_.hidePopup();
}

TEST_F(UnitCodePickerTest, ShowsTheErrorOfALostListAndKeepsItsText) {
  MessageBoxes boxes;
  picker_.SetText(u"J01"_s);
  Native(u"Drop Table FondsDefine"_s);
  picker_.showPopup();
  EXPECT_EQ(boxes.Last().title, u"系统提示"_s);
  EXPECT_EQ(Text(), u"J01"_s);
  EXPECT_FALSE(QApplication::activePopupWidget());
}

class ClassCodePickerTest : public PickerTest<ClassCodePicker> {
 protected:
  ClassCodePickerTest() {
    Native(
        u"Insert Into EntityClass(ClassNo,FondsNo,ClassName) Values('A','J01','党群'),('B','J01','行政'),('C','J02','教学')"_s);
  }
};

TEST_F(ClassCodePickerTest, DropsDownTheClassesOfTheCurrentFonds) {
  SaveValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s, u"J01"_s);
  picker_.showPopup();
  EXPECT_EQ(Column(0), (QStringList{u"A"_s, u"B"_s}));
  picker_.hidePopup();
  SaveValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s, u"J02"_s);
  Choose(0);
  EXPECT_EQ(Text(), u"C"_s);
}

TEST_F(ClassCodePickerTest, HasNoClassesWithoutACurrentFonds) {
  picker_.showPopup();
  EXPECT_EQ(picker_.count(), 0);
  picker_.hidePopup();
}

class AgencyCodePickerTest : public PickerTest<AgencyCodePicker> {
 protected:
  AgencyCodePickerTest() {
    Native(u"Insert Into AssistantDictionary(DicID,Name) Values('9','机关代字')"_s);
    Native(u"Insert Into AssistantDicKey(DicID,Name,Note) Values('9','国发','1'),('9','京政','2'),('9','教办','3')"_s);
  }
};

TEST_F(AgencyCodePickerTest, BeginsANumberOfThisYearWithAChosenWord) {
  Choose(1);
  EXPECT_EQ(Text(), u"京政〔2026〕号"_s);
  EXPECT_EQ(changes_.count(), 1);
  Type(picker_, u"17"_s);
  EXPECT_EQ(Text(), u"京政〔2026〕17号"_s);
}

TEST_F(AgencyCodePickerTest, BeginsANumberInTheBracketsItWasGiven) {
  picker_.SetYearBracket(YearBracket::Square);
  Choose(0);
  EXPECT_EQ(Text(), u"国发[2026]号"_s);
}

TEST_F(AgencyCodePickerTest, PutsAChosenWordInThePlaceOfTheOneThere) {
  picker_.SetText(u"国发〔2002〕017号"_s);
  Choose(2);
  EXPECT_EQ(Text(), u"教办〔2002〕017号"_s);
  picker_.SetText(u"国发17号"_s);
  Choose(1);
  EXPECT_EQ(Text(), u"京政17号"_s);
  EXPECT_EQ(changes_.count(), 2);
}

TEST_F(AgencyCodePickerTest, KeepsTheBracketsOfTheNumber) {
  for (const auto& [number, chosen] :
       {std::pair{u"按国办发(1985)49号"_s, u"京政(1985)49号"_s}, std::pair{u"［1995］32号"_s, u"京政［1995］32号"_s},
        std::pair{u"教发厅函【2019】12号"_s, u"京政【2019】12号"_s},
        std::pair{u"青办（2003）8号"_s, u"京政（2003）8号"_s}, std::pair{u"国令第707号"_s, u"京政第707号"_s},
        std::pair{u"国发〔2002]17号"_s, u"京政〔2002]17号"_s}}) {
    picker_.SetText(number);
    Choose(1);
    EXPECT_EQ(Text(), chosen);
  }
}

TEST_F(AgencyCodePickerTest, KeepsTheNumberWhenTheSameWordIsChosen) {
  picker_.SetText(u"国发〔2002〕017号"_s);
  Choose(0);
  EXPECT_EQ(Text(), u"国发〔2002〕017号"_s);
  EXPECT_EQ(changes_.count(), 0);
}

TEST_F(AgencyCodePickerTest, StepsThroughTheWordsWithTheArrowKeys) {
  picker_.SetText(u"国发〔2002〕017号"_s);
  Press(picker_, Qt::Key_Down);
  EXPECT_EQ(Text(), u"京政〔2002〕017号"_s);
  Press(picker_, Qt::Key_Down);
  EXPECT_EQ(Text(), u"教办〔2002〕017号"_s);
  EXPECT_EQ(changes_.count(), 2);
}

}  // namespace
}  // namespace folvane::test
