#include <QLabel>
#include <QScrollBar>
#include <QToolTip>

#include "query/SearchFields.h"
#include "query/SimFindFixture.h"
#include "shell/DefaultInstance.h"
#include "shell/Messages.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

FOLVANE_ON_EACH_DATABASE(frmSimFindTest);

TEST_P(frmSimFindTest, ATableWithoutFieldsShowsAnEmptyFormAndOkLeavesItOpen) {
  InWindow([&] {
    EXPECT_EQ(window_.windowTitle(), u"简单查询"_s);
    Ok();
    EXPECT_TRUE(window_.isVisible());
    EXPECT_FALSE(Find<QScrollBar>(window_, u"VScrl"_s).isEnabled());
  });
  EXPECT_TRUE(boxes_.Requests().empty());
  EXPECT_EQ(window_.ReturnSql, QString());
}

TEST_P(frmSimFindTest, EachKindOfFieldHasItsInputOneBelowTheOther) {
  ChooseEachKind();
  Choose(u"DocNo"_s, u"文号"_s, 9, 1);
  InWindow([&] {
    EXPECT_EQ(Find(window_, u"F_Sim(1)"_s).property("Caption"), u"题名"_s);
    EXPECT_EQ(Find(window_, u"F_Sim(1)"_s).property("DataField"), u"Amaintitle"_s);
    EXPECT_EQ(Find(window_, u"F_Btw(1)"_s).property("Caption"), u"登记号"_s);
    EXPECT_EQ(Find(window_, u"F_Btw(1)"_s).property("DataField"), u"RegID"_s);
    EXPECT_EQ(TextIn(window_, u"Lbl_DTPCaption(1)"_s), u"成文日期"_s);
    EXPECT_EQ(Find(window_, u"Lbl_DTPCaption(1)"_s).property("Tag"), u"FileDate"_s);
    EXPECT_TRUE(Has(u"Lbl_DTP(1)"_s));
    EXPECT_EQ(TextIn(window_, u"Lbl_CboCaption(1)"_s), u"密级"_s);
    EXPECT_EQ(Find(window_, u"Lbl_CboCaption(1)"_s).property("Tag"), u"SecurityClass"_s);
    int above = -1;
    for (const QString& name : {u"CboDict(1)"_s, u"DTP_Begin(1)"_s, u"F_Btw(1)"_s, u"F_Sim(1)"_s}) {
      const QWidget& input = Find(window_, name);
      const int top = input.mapTo(&window_, QPoint()).y();
      EXPECT_GT(top, above) << qPrintable(name);
      EXPECT_TRUE(input.isVisible());
      above = top;
    }
    EXPECT_EQ(Find(window_, u"FrmParent"_s).findChildren<QWidget*>(QRegularExpression(u"\\(9|DocNo"_s)).size(), 0)
        << "another kind has no input";
  });
}

TEST_P(frmSimFindTest, ADictionaryFillsTheListOfItsField) {
  ChooseEachKind();
  TakeStatements();
  InWindow([&] {
    const auto& list = Find<QComboBox>(window_, u"CboDict(1)"_s);
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.itemText(0), u"机密"_s);
    EXPECT_EQ(TextIn(window_, u"CboDict(1)"_s), QString());
  });
  EXPECT_EQ(TakeStatements(),
            (QStringList{u"Select * from SimSearch Where TableName = 'Lwdj' Order By OrderNo"_s,
                         u"Select Name From AssistantDicKey Where DicID in (Select DicId from AssistantDictionary "
                         "where Name=(Select AuxiDictDetails From DynamicWindows Where TableName='Lwdj' And FieldName "
                         "= 'SecurityClass')) Order By Note"_s}));
}

TEST_P(frmSimFindTest, ADateThatIsNoneIsNotLeftOutInSilence) {
  ChooseEachKind();
  InWindow([&] {
    Enter(u"F_Sim(1)"_s, u"通知"_s);
    Enter(u"DTP_End(1)"_s, u"2002-02-30"_s);
    Ok();
    EXPECT_TRUE(window_.isVisible());
    EXPECT_TRUE(Find(window_, u"DTP_End(1)"_s).hasFocus());
    EXPECT_EQ(QToolTip::text(), u"“2002-02-30”不是日期，没有采用"_s);
    Enter(u"DTP_End(1)"_s, u"2002-2-28"_s);
    Ok();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.Amaintitle Like '%通知%' And (Lwdj.FileDate <= '2002-02-28')"_s);
}

TEST_P(frmSimFindTest, TheTermsStandByKindWhateverTheOrderOnTheScreen) {
  ChooseEachKind();
  InWindow([&] {
    Enter(u"CboDict(1)"_s, u"密"_s);
    Enter(u"DTP_Begin(1)"_s, u"2002-03-04"_s);
    Enter(u"DTP_End(1)"_s, u"2002/3/5"_s);
    EnterLimit(u"Begin"_s, u"1"_s);
    EnterLimit(u"End"_s, u"10"_s);
    Enter(u"F_Sim(1)"_s, u"通知"_s);
    Ok();
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_EQ(window_.ReturnSql,
            u"Lwdj.Amaintitle Like '%通知%' And (RegID BETWEEN '1' And '10') And "
            "(Lwdj.FileDate BETWEEN '2002-03-04' And '2002-03-05') And Lwdj.SecurityClass Like '%密%'"_s);
  EXPECT_EQ(Found(window_.ReturnSql), u"1 2"_s);
}

TEST_P(frmSimFindTest, ABeginDateAloneGivesFromThatDateOn) {
  ChooseEachKind();
  InWindow([&] {
    Enter(u"DTP_Begin(1)"_s, u"2002-03-05"_s);
    Ok();
  });
  EXPECT_EQ(window_.ReturnSql, u"(Lwdj.FileDate >= '2002-03-05')"_s);
  EXPECT_EQ(Found(window_.ReturnSql), u"2 10"_s);
}

TEST_P(frmSimFindTest, AnEndDateAloneGivesUpToThatDate) {
  ChooseEachKind();
  InWindow([&] {
    Set(window_, u"DTP_End(1)"_s, u"2002-03-05"_s);
    Ok();
  });
  EXPECT_EQ(window_.ReturnSql, u"(Lwdj.FileDate <= '2002-03-05')"_s);
}

TEST_P(frmSimFindTest, BothDatesEmptyGiveNoTerm) {
  ChooseEachKind();
  InWindow([&] {
    Enter(u"F_Sim(1)"_s, u"x"_s);
    Ok();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.Amaintitle Like '%x%'"_s);
}

TEST_P(frmSimFindTest, NothingEnteredIsTold) {
  ChooseEachKind();
  InWindow([&] {
    Ok();
    EXPECT_TRUE(window_.isVisible());
    EXPECT_EQ(boxes_.Last().text, u"请输入查询条件！"_s);
    EXPECT_EQ(boxes_.Last().title, u"简单查询"_s);
    EXPECT_EQ(boxes_.Last().flags, 0);
  });
}

TEST_P(frmSimFindTest, TheRestrictionFollowsInParentheses) {
  ChooseEachKind();
  window_.M_Condition = u"RegID = 1 or RegID = 10"_s;
  InWindow([&] {
    Enter(u"F_Sim(1)"_s, u"防汛"_s);
    Ok();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.Amaintitle Like '%防汛%' and (RegID = 1 or RegID = 10)"_s);
  EXPECT_EQ(Found(window_.ReturnSql), u"1 10"_s);
}

TEST_P(frmSimFindTest, EnterInAnInputQueries) {
  ChooseEachKind();
  InWindow([&] {
    Enter(u"F_Sim(1)"_s, u"防汛"_s);
    Press(Find(window_, u"F_Sim(1)"_s), Qt::Key_Return);
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.Amaintitle Like '%防汛%'"_s);
  InWindow([&] {
    EnterLimit(u"End"_s, u"2"_s);
    Press(Find(Find(window_, u"F_Btw(1)"_s), u"End"_s), Qt::Key_Return);
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_EQ(window_.ReturnSql, u"(RegID <= '2')"_s);
}

TEST_P(frmSimFindTest, CancelEscapeAndTheWindowsOwnButtonGiveNothing) {
  ChooseEachKind();
  for (const auto& leave :
       std::vector<std::function<void()>>{[&] { Click(window_, u"CmdCancel"_s); },
                                          [&] { Press(window_, Qt::Key_Escape); }, [&] { window_.close(); }}) {
    InWindow([&] {
      Enter(u"F_Sim(1)"_s, u"防汛"_s);
      leave();
      EXPECT_FALSE(window_.isVisible());
    });
    EXPECT_EQ(window_.ReturnSql, QString());
  }
}

TEST_P(frmSimFindTest, AQuoteIsPutIntoTheTextAsItIs) {
  ChooseEachKind();
  InWindow([&] {
    Enter(u"F_Sim(1)"_s, u"O'B[1]"_s);
    Enter(u"CboDict(1)"_s, u"'"_s);
    Ok();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.Amaintitle Like '%O'B[1]%' And Lwdj.SecurityClass Like '%'%'"_s);
}

TEST_P(frmSimFindTest, IndexesEditedByHandStillGiveEveryFieldAnInput) {
  Choose(u"Amaintitle"_s, u"题名"_s, 1, 0);
  Choose(u"DocNo"_s, u"文号"_s, 1, 1);
  Choose(u"SecurityClass"_s, u"密级"_s, 1, 1);
  InWindow([&] {
    EXPECT_EQ(Find(window_, u"F_Sim(1)"_s).property("Caption"), u"文号"_s);
    EXPECT_EQ(Find(window_, u"F_Sim(2)"_s).property("Caption"), u"题名"_s);
    EXPECT_EQ(Find(window_, u"F_Sim(3)"_s).property("Caption"), u"密级"_s);
    Enter(u"F_Sim(3)"_s, u"机密"_s);
    Ok();
  });
  EXPECT_EQ(Found(window_.ReturnSql), u"2"_s);
}

TEST_P(frmSimFindTest, MoreInputsThanFitAreScrolledWithoutTouchingTheQuery) {
  for (int index = 1; index <= 30; ++index) Choose(u"F%1"_s.arg(index), u"字段%1"_s.arg(index), 1, index);
  InWindow([&] {
    auto& bar = Find<QScrollBar>(window_, u"VScrl"_s);
    EXPECT_TRUE(bar.isEnabled());
    Enter(u"F_Sim(1)"_s, u"x"_s);
    const QWidget& panel = Find(window_, u"FrmParent"_s);
    const int top = panel.y();
    bar.setValue(bar.maximum());
    EXPECT_LT(panel.y(), top);
    Ok();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.F1 Like '%x%'"_s);
}

TEST_P(frmSimFindTest, TheSetupTakesEffectInTheOpenForm) {
  ChooseEachKind();
  InWindow([&] {
    WithWindow(u"FrmSimSet"_s, [&](QWidget& setup) {
      ClickRow(setup, u"LV1"_s, 0);
      Click(setup, u"Image3"_s);
      Click(setup, u"CmdOK"_s);
    });
    Click(window_, u"CmdSet"_s);
    EXPECT_EQ(Find(window_, u"F_Sim(2)"_s).property("Caption"), u"文号"_s);
    EXPECT_FALSE(Has(u"F_Sim(3)"_s));
  });
}

TEST_P(frmSimFindTest, ACancelledSetupLeavesWhatWasTyped) {
  ChooseEachKind();
  InWindow([&] {
    Enter(u"F_Sim(1)"_s, u"防汛"_s);
    WithWindow(u"FrmSimSet"_s, [&](QWidget& setup) {
      ClickRow(setup, u"LV1"_s, 0);
      Click(setup, u"Image3"_s);
      setup.close();
    });
    Click(window_, u"CmdSet"_s);
    EXPECT_EQ(TextIn(window_, u"F_Sim(1)"_s), u"防汛"_s);
    EXPECT_FALSE(Has(u"F_Sim(2)"_s));
  });
}

TEST_P(frmSimFindTest, EveryControlHasAName) {
  ChooseEachKind();
  InWindow([&] { EXPECT_EQ(UnnamedControls(window_), QStringList()); });
}

}  // namespace
}  // namespace folvane::test
