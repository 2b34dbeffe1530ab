#include <QInputMethodEvent>
#include <QLineEdit>

#include "InputFixture.h"

namespace folvane::test {
namespace {

class TypingAidsTest : public InputTest {
 protected:
  void DesignTwo() {
    Design({u"Amaintitle"_s, u"题名"_s});
    Design({u"DocNo"_s, u"文号"_s});
  }
  QString Stored(const QString& column, int number = 1) {
    return Value(u"select "_s + column + u" from Lwdj where ArchiveID = '"_s + Key(number) + u"'"_s);
  }
  static void Commit(QWidget& control, const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&control, &event);
  }
  static void Compose(QWidget& control, const QString& text) {
    QInputMethodEvent event(text, {});
    QCoreApplication::sendEvent(&control, &event);
  }
};

TEST_P(TypingAidsTest, EnterWalksThroughEveryKindOfField) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s});
  Design({u"FileStatus"_s, u"状态"_s, ControlKind::Cmb});
  Design({u"FileDate"_s, u"日期"_s, ControlKind::DTP});
  Design({u"FondsNo"_s, u"全宗"_s, ControlKind::F_FondsNo});
  Design({u"RegID"_s, u"分类"_s, ControlKind::F_Aec});
  Design({u"DocNo"_s, u"文号"_s, ControlKind::F_Organ});
  Design({u"CreatedDate"_s, u"日期"_s, ControlKind::DTP_Arch});
  Design({u"Pages"_s, u"页数"_s, ControlKind::Txt_MLine});
  InWindow([](const Input& input) {
    const QStringList walk{u"Txt(1)"_s,   u"Cmb(1)"_s,     u"DTP(1)"_s,      u"F_FondsNo(1)"_s,
                           u"F_Aec(1)"_s, u"F_Organ(1)"_s, u"DTP_Arch(1)"_s, u"Txt_MLine(1)"_s};
    for (qsizetype at = 0; at < walk.size(); ++at) {
      EXPECT_EQ(input.Focused(), walk[at]);
      if (at + 1 < walk.size()) input.PressIn(walk[at], at % 2 ? Qt::Key_Enter : Qt::Key_Return);
    }
    EXPECT_EQ(input.Text(u"Txt_MLine(1)"_s), QString());
  });
}

TEST_P(TypingAidsTest, EnterMarksWhatADateHoldsAndNothingInATextBox) {
  AddRecords(1);
  Run(u"update Lwdj set CreatedDate = '20020304', DocNo = '甲'"_s);
  Design({u"Amaintitle"_s, u"题名"_s});
  Design({u"CreatedDate"_s, u"日期"_s, ControlKind::DTP_Arch});
  Design({u"DocNo"_s, u"文号"_s});
  InWindow([](const Input& input) {
    input.PressIn(u"Txt(1)"_s, Qt::Key_Return);
    const auto* date = input.Control(u"DTP_Arch(1)"_s).findChild<QLineEdit*>();
    ASSERT_TRUE(date);
    EXPECT_EQ(date->selectedText(), u"20020304"_s);
    input.PressIn(u"DTP_Arch(1)"_s, Qt::Key_Return);
    const auto& text = static_cast<QLineEdit&>(input.Control(u"Txt(2)"_s));
    EXPECT_EQ(text.text(), u"甲"_s);
    EXPECT_EQ(text.selectedText(), QString());
  });
}

TEST_P(TypingAidsTest, EnterOnTheLastFieldSavesAndStartsTheNext) {
  AddRecords(1);
  DesignTwo();
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(2)"_s, u"新号"_s);
    input.PressIn(u"Txt(2)"_s, Qt::Key_Return);
    EXPECT_EQ(Stored(u"DocNo"_s), u"新号"_s);
    EXPECT_EQ(input.Position(), u"当前共2条"_s);
    EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
    input.Do(u"CancelRecord"_s);
  });
}

TEST_P(TypingAidsTest, EnterOnTheLastFieldReturnsToTheFirstWithoutTheRightToEdit) {
  AddRecords(1);
  DesignTwo();
  Right(Parameter::Edit, u"0"_s);
  InWindow([](const Input& input) {
    input.PressIn(u"Txt(2)"_s, Qt::Key_Return);
    EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
    EXPECT_EQ(input.Position(), u"当前记录：第1条/共1条"_s);
  });
}

TEST_P(TypingAidsTest, EnterDoesNothingOnAnEmptyRecordSet) {
  DesignTwo();
  InWindow([](const Input& input) {
    input.PressIn(u"Txt(1)"_s, Qt::Key_Return);
    EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
    input.PressIn(u"Txt(2)"_s, Qt::Key_Return);
    EXPECT_EQ(Shared().CurrentRecords.RecordCount(), 0);
  });
}

TEST_P(TypingAidsTest, EnterWithControlDoesNotWalk) {
  AddRecords(1);
  DesignTwo();
  InWindow([](const Input& input) {
    input.PressIn(u"Txt(1)"_s, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
  });
}

TEST_P(TypingAidsTest, AMultiLineBoxTakesNoLineBreakFromEnter) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s, ControlKind::Txt_MLine});
  Design({u"DocNo"_s, u"文号"_s});
  InWindow([](const Input& input) {
    input.PressIn(u"Txt_MLine(1)"_s, Qt::Key_Return);
    EXPECT_EQ(input.Text(u"Txt_MLine(1)"_s), u"题名1"_s);
    EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
  });
}

TEST_P(TypingAidsTest, ANumericFieldRefusesWithABeepAndTakesASecondPoint) {
  AddRecords(1);
  Design({u"Pages"_s, u"页数"_s});
  Design({u"RegID"_s, u"登记号"_s, ControlKind::Cmb, 0, u"文本型"_s, 10});
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"1a2..3-"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"12..3"_s);
    EXPECT_EQ(beeps_, 2);
    input.Retype(u"Txt(1)"_s, u"12"_s);
    input.Retype(u"Cmb(1)"_s, u"4x"_s);
    EXPECT_EQ(input.Text(u"Cmb(1)"_s), u"4"_s);
    EXPECT_EQ(beeps_, 3);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"Pages"_s), u"12"_s);
  });
}

TEST_P(TypingAidsTest, ASpaceInTheMainTitleIsDroppedWithoutABeep) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s, ControlKind::Txt_MLine});
  InWindow([&](const Input& input) {
    input.Retype(u"Txt_MLine(1)"_s, u"甲 乙"_s);
    EXPECT_EQ(input.Text(u"Txt_MLine(1)"_s), u"甲乙"_s);
    EXPECT_EQ(beeps_, 0);
    input.Form().CancelEdit();
  });
}

TEST_P(TypingAidsTest, WidensInTheFieldsThatTheProfileNamesWhateverTheCase) {
  program_.Write(u"SBC.Ini"_s, "[CBCTOSBC]\r\nLwdj=AMAINTITLE,Responsebyble\r\n");
  AddRecords(1);
  DesignTwo();
  InWindow([](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"A1"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"Ａ１"_s);
    input.Retype(u"Txt(2)"_s, u"A1"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"A1"_s);
    input.Form().CancelEdit();
  });
}

TEST_P(TypingAidsTest, TheFunctionKeysAddTheBracketsOfAYear) {
  AddRecords(1);
  DesignTwo();
  Design({u"Pages"_s, u"页数"_s});
  Flag(u"UseSpecialSign"_s, true);
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(2)"_s, u"国发"_s);
    input.PressIn(u"Txt(2)"_s, Qt::Key_Home);
    input.PressIn(u"Txt(2)"_s, Qt::Key_F11);
    Type(input.Control(u"Txt(2)"_s), u"2002"_s);
    input.PressIn(u"Txt(2)"_s, Qt::Key_F12);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"国发〔2002〕"_s);
    input.PressIn(u"Txt(3)"_s, Qt::Key_F11);
    EXPECT_EQ(input.Text(u"Txt(3)"_s), QString());
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"DocNo"_s), u"国发〔2002〕"_s);
  });
}

TEST_P(TypingAidsTest, TheFunctionKeysDoNothingWithoutTheSpecialSign) {
  AddRecords(1);
  DesignTwo();
  InWindow([](const Input& input) {
    input.PressIn(u"Txt(2)"_s, Qt::Key_F11);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"文号1"_s);
  });
}

TEST_P(TypingAidsTest, ALimitOfFiveBytesHoldsTwoCharactersAndALetter) {
  AddRecords(1);
  Design({u"DocNo"_s, u"文号"_s, ControlKind::Txt, 0, u"文本型"_s, 5});
  InWindow([](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"文件A"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"文件A"_s);
    Type(input.Control(u"Txt(1)"_s), u"号"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"文件A"_s);
    input.Form().CancelEdit();
  });
}

TEST_P(TypingAidsTest, AnInputMethodComposesFreelyAndItsTextIsGuardedAsItCommits) {
  AddRecords(1);
  Design({u"FondsNo"_s, u"全宗"_s, ControlKind::Txt, 0, u"文本型"_s, 4});
  InWindow([&](const Input& input) {
    QWidget& box = input.Control(u"Txt(1)"_s);
    Compose(box, u"quanzonghaoma"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), QString());
    Commit(box, u"全宗号码"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"全宗"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"FondsNo"_s), u"全宗"_s);
  });
}

TEST_P(TypingAidsTest, TheWalkFollowsTheKeyOrderAtOnce) {
  AddRecords(1);
  DesignTwo();
  Design({u"FondsNo"_s, u"全宗"_s});
  InWindow([&](const Input& input) {
    WithWindow(u"FrmKeyOrder"_s, [&](QWidget& order) {
      Run(u"update SaveControls set KeyOrder = 9 where DataField = 'DocNo'"_s);
      order.close();
    });
    input.Do(u"KeyOrder"_s);
    input.PressIn(u"Txt(1)"_s, Qt::Key_Return);
    EXPECT_EQ(input.Focused(), u"Txt(3)"_s);
    input.PressIn(u"Txt(3)"_s, Qt::Key_Return);
    EXPECT_EQ(input.Focused(), u"Txt(2)"_s);
  });
}

TEST_P(TypingAidsTest, TheProofingRulesAreEditedForTheTableInView) {
  AddRecords(1);
  DesignTwo();
  InWindow([](const Input& input) {
    WithWindow(u"FrmSaveCollect"_s, [](QWidget& rules) { rules.close(); });
    input.Do(u"Collect_R"_s);
  });
}

TEST_P(TypingAidsTest, AFieldOutOfSightIsScrolledToByTheWalk) {
  AddRecords(1);
  Run(u"alter table Lwdj add ColA varchar(10)"_s);
  for (const QString& column : {u"Amaintitle"_s, u"DocNo"_s, u"FondsNo"_s, u"FileStatus"_s, u"ColA"_s})
    Design({column, column});
  Run(u"update SaveControls set F_Top = 30000 where DataField = 'ColA'"_s);
  InWindow([](const Input& input) {
    input.Window().resize(600, 400);
    input.PressIn(u"Txt(4)"_s, Qt::Key_Return);
    EXPECT_EQ(input.Focused(), u"Txt(5)"_s);
    EXPECT_TRUE(input.Control(u"PicControls"_s).rect().contains(input.Control(u"Txt(5)"_s).geometry()));
    EXPECT_TRUE(input.Control(u"HScroll"_s).isVisible());
  });
}

FOLVANE_ON_EACH_DATABASE(TypingAidsTest);

}  // namespace
}  // namespace folvane::test
