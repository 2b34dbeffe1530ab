#include <QCheckBox>
#include <QComboBox>
#include <QTreeView>

#include "query/CompoundWindowFixture.h"
#include "shell/Messages.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

FOLVANE_ON_EACH_DATABASE(frmfhfindTest);

TEST_P(frmfhfindTest, TheWindowOffersWhatThereIsToChoose) {
  InWindow([&] {
    EXPECT_EQ(window_.windowTitle(), u"组合查询窗体"_s);
    EXPECT_EQ(Entries(u"Cmb(0)"_s), (QStringList{u"与"_s, u"或"_s}));
    EXPECT_EQ(Entries(u"Cmb(1)"_s).size(), 6);
    EXPECT_EQ(Entries(u"Cmb(2)"_s), (QStringList{u"等于"_s, u"大于"_s, u"大于等于"_s, u"小于"_s, u"小于等于"_s,
                                                 u"不等于"_s, u"包含"_s, u"不包含"_s}));
    for (int box = 0; box < 4; ++box) EXPECT_EQ(TextIn(window_, u"Cmb(%1)"_s.arg(box)), QString());
    const QAbstractItemModel& list = *Find<QTreeView>(window_, u"ListView1"_s).model();
    QStringList captions;
    for (int column = 0; column < 5; ++column) captions << list.headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(captions.join(u' '), u"关系 比较字段 比较关系 比较值 顺序"_s);
    EXPECT_EQ(Key(u"F_AddRecord"_s).text() + Key(u"F_DelRecord"_s).text(), u"添加条件删除条件"_s);
    EXPECT_EQ(Key(u"F_Query"_s).text() + Key(u"F_Exit"_s).text(), u"开始查询退出查询"_s);
    EXPECT_EQ(Find<QCheckBox>(window_, u"Check1"_s).text(), u"不保存当前查询条件"_s);
  });
}

TEST_P(frmfhfindTest, OneConditionGivesItsTextWithoutATrailingBlank) {
  InWindow([&] {
    Add({}, u"登记号"_s, u"等于"_s, u"5"_s);
    Key(u"F_Query"_s).trigger();
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.RegID = '5'"_s);
  EXPECT_EQ(window_.ChnReturnSql, u"登记号 等于 5"_s);
}

TEST_P(frmfhfindTest, TwoConditionsStandInReverseWithTwoBlanksAtTheEnd) {
  InWindow([&] {
    Add({}, u"登记号"_s, u"大于"_s, u"1"_s);
    Add(u"与"_s, u"密级"_s, u"等于"_s, u"秘密"_s);
    EXPECT_EQ(List(), (QStringList{u"|登记号|大于|1|2"_s, u"与|密级|等于|秘密|3"_s}));
    Key(u"F_Query"_s).trigger();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.SecurityClass = '秘密' and Lwdj.RegID > '1'  "_s);
  EXPECT_EQ(window_.ChnReturnSql, u"(密级 等于 秘密) 与 (登记号 大于 1)  "_s);
  EXPECT_EQ(Found(window_.ReturnSql), u"10"_s);
}

TEST_P(frmfhfindTest, LackingABracketAndSaidAsContaining) {
  InWindow([&] {
    Add({}, u"题名"_s, u"不包含"_s, u"a[1]"_s);
    Key(u"F_Query"_s).trigger();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.Amaintitle Not Like '%a[[]1]%'"_s);
  EXPECT_EQ(window_.ChnReturnSql, u"题名 包含 a[1]"_s);
  EXPECT_EQ(Found(window_.ReturnSql), u"1 2 11"_s);
}

TEST_P(frmfhfindTest, TheRestrictionIsPutBehindTheCondition) {
  window_.M_Condition = u"RegID < 5"_s;
  InWindow([&] {
    Add({}, u"密级"_s, u"等于"_s, u"秘密"_s);
    Key(u"F_Query"_s).trigger();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.SecurityClass = '秘密' and RegID < 5"_s);
  EXPECT_EQ(window_.ChnReturnSql, u"密级 等于 秘密"_s);
}

TEST_P(frmfhfindTest, AConditionThatIsNotCompleteIsRefused) {
  InWindow([&] {
    Add({}, {}, u"等于"_s, u"5"_s);
    EXPECT_EQ(boxes_.Last().text, u"未选择条件,或条件不完整,请正确选择后再添加!"_s);
    EXPECT_EQ(boxes_.Last().title, u"警告"_s);
    EXPECT_EQ(boxes_.Last().flags, MessageFlag::Critical);
    Add({}, u"登记号"_s, u"等于"_s, u"5"_s);
    Add({}, u"登记号"_s, u"等于"_s, u"6"_s);
    EXPECT_EQ(boxes_.Last().text, u"未选定连接符,请选择!"_s);
    EXPECT_EQ(List().size(), 1);
  });
}

TEST_P(frmfhfindTest, ConditionsSavedAtAnEarlierOpeningAreStillThere) {
  InWindow([&] { Add({}, u"登记号"_s, u"等于"_s, u"5"_s); });
  InWindow([&] {
    EXPECT_EQ(List(), QStringList{u"|登记号|等于|5|1"_s});
    Key(u"F_Query"_s).trigger();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.RegID = '5'"_s);
}

TEST_P(frmfhfindTest, AfterTheFirstRowIsDeletedTheNextOneHasNoConnectorInTheTableAndOnTheScreen) {
  InWindow([&] {
    Add({}, u"登记号"_s, u"等于"_s, u"5"_s);
    Add(u"与"_s, u"题名"_s, u"包含"_s, u"x"_s);
    ClickRow(window_, u"ListView1"_s, 0);
    Key(u"F_DelRecord"_s).trigger();
    EXPECT_EQ(List(), QStringList{u"|题名|包含|x|3"_s});
  });
  EXPECT_EQ(Rows(u"select OrderNo,AndOrRelation,ChnAndOrRelation from FindCirSave"_s), QStringList{u"1||"_s});
}

TEST_P(frmfhfindTest, TheSelectedRowIsTheOneThatGoes) {
  InWindow([&] {
    for (const QString& value : {u"1"_s, u"2"_s, u"3"_s}) Add(u"与"_s, u"登记号"_s, u"等于"_s, value);
    ClickRow(window_, u"ListView1"_s, 1);
    Press(Find(window_, u"ListView1"_s), Qt::Key_Delete);
    EXPECT_EQ(ColumnOf(window_, u"ListView1"_s, 3), (QStringList{u"1"_s, u"3"_s}));
  });
  EXPECT_EQ(Rows(u"select OrderNo,CompValue from FindCirSave order by OrderNo"_s), (QStringList{u"1|1"_s, u"2|3"_s}));
}

TEST_P(frmfhfindTest, DeletingFromAnEmptyListDoesNothing) {
  InWindow([&] {
    TakeStatements();
    Key(u"F_DelRecord"_s).trigger();
    EXPECT_EQ(TakeStatements(), QStringList());
  });
}

TEST_P(frmfhfindTest, LeavingGivesNothingEvenAfterAnAttemptWithAnEmptyList) {
  InWindow([&] {
    Key(u"F_Query"_s).trigger();
    EXPECT_TRUE(window_.isVisible()) << "no message, the window stays";
    Key(u"F_Exit"_s).trigger();
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_EQ(window_.ReturnSql, QString());
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(frmfhfindTest, TheWindowsOwnButtonAndEscapeLeaveWithoutAQuery) {
  window_.ReturnSql = u"old"_s;
  InWindow([&] {
    Add({}, u"登记号"_s, u"等于"_s, u"5"_s);
    window_.close();
  });
  EXPECT_EQ(window_.ReturnSql, QString());
  InWindow([&] {
    Press(Find(window_, u"Cmb(3)"_s), Qt::Key_Escape);
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_EQ(window_.ReturnSql, QString());
}

TEST_P(frmfhfindTest, WithTheTickTheRowsAreGoneAfterAQueryAndTheTextStaysValid) {
  InWindow([&] {
    Add({}, u"登记号"_s, u"等于"_s, u"10"_s);
    Click(window_, u"Check1"_s);
    Key(u"F_Query"_s).trigger();
  });
  EXPECT_EQ(SavedCount(), u"0"_s);
  EXPECT_EQ(Found(window_.ReturnSql), u"10"_s);
}

TEST_P(frmfhfindTest, WithTheTickTheRowsAreGoneInWhateverWayTheWindowIsClosed) {
  for (const auto& close : std::vector<std::function<void()>>{
           [&] { window_.close(); }, [&] { Key(u"F_Exit"_s).trigger(); }, [&] { Press(window_, Qt::Key_Escape); }}) {
    InWindow([&] {
      Add({}, u"登记号"_s, u"等于"_s, u"10"_s);
      Find<QCheckBox>(window_, u"Check1"_s).setChecked(true);
      close();
    });
    EXPECT_EQ(SavedCount(), u"0"_s);
  }
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(frmfhfindTest, AFieldWithoutADictionaryDropsDownAnEmptyListAndTakesAnyValue) {
  AddDictionary(u"1"_s, u"密级"_s, {u"秘密"_s, u"机密"_s});
  InWindow([&] {
    auto& values = Find<QComboBox>(window_, u"Cmb(3)"_s);
    Fill({}, u"题名"_s, u"等于"_s, {});
    values.showPopup();
    EXPECT_EQ(values.count(), 0);
    values.hidePopup();
    Type(values, u"防汛"_s);
    EXPECT_EQ(TextIn(window_, u"Cmb(3)"_s), u"防汛"_s);
    Set(window_, u"Cmb(1)"_s, u"密级"_s);
    values.showPopup();
    EXPECT_EQ(values.count(), 2);
    EXPECT_EQ(TextIn(window_, u"Cmb(3)"_s), u"防汛"_s) << "what was typed stays";
    values.hidePopup();
  });
}

TEST_P(frmfhfindTest, EnterInABoxAddsTheConditionAndControlEnterQueries) {
  InWindow([&] {
    Fill({}, u"登记号"_s, u"等于"_s, {});
    Type(Find(window_, u"Cmb(3)"_s), u"10"_s);
    Press(Find(window_, u"Cmb(3)"_s), Qt::Key_Return);
    EXPECT_EQ(List(), QStringList{u"|登记号|等于|10|2"_s});
    EXPECT_TRUE(window_.isVisible());
    Press(Find(window_, u"ListView1"_s), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.RegID = '10'"_s);
}

TEST_P(frmfhfindTest, ADeletionThatFailsIsShownWithItsStatementAndTheListStaysAsTheTable) {
  InWindow([&] {
    for (const QString& value : {u"1"_s, u"2"_s}) Add(u"与"_s, u"登记号"_s, u"等于"_s, value);
    ClickRow(window_, u"ListView1"_s, 0);
    Refuse(u"Update FindCirSave Set AndOr"_s);
    Key(u"F_DelRecord"_s).trigger();
    EXPECT_EQ(boxes_.Last().text, u"记录被锁定"_s);
    EXPECT_TRUE(boxes_.Last().details.contains(u"Update FindCirSave Set AndOrRelation=''"_s));
    EXPECT_EQ(List(), (QStringList{u"|登记号|等于|1|1"_s, u"与|登记号|等于|2|2"_s}));
    Refuse({});
    Key(u"F_DelRecord"_s).trigger();
    EXPECT_EQ(ColumnOf(window_, u"ListView1"_s, 3), QStringList{u"2"_s}) << "the row that was selected";
  });
  EXPECT_EQ(Rows(u"select OrderNo,CompValue from FindCirSave"_s), QStringList{u"1|2"_s});
}

TEST_P(frmfhfindTest, TheTabKeyGoesFromTheListThroughTheBoxesToTheTick) {
  InWindow([&] {
    Find(window_, u"ListView1"_s).setFocus();
    QStringList way;
    for (int step = 0; step < 5; ++step) {
      Press(*window_.focusWidget(), Qt::Key_Tab);
      way << window_.focusWidget()->objectName();
    }
    EXPECT_EQ(way, (QStringList{u"Cmb(0)"_s, u"Cmb(1)"_s, u"Cmb(2)"_s, u"Cmb(3)"_s, u"Check1"_s}));
  });
}

TEST_P(frmfhfindTest, AnEmptyListSaysWhatToDoAndEveryControlHasAName) {
  InWindow([&] {
    EXPECT_TRUE(Find(window_, u"EmptyHint"_s).isVisible());
    EXPECT_EQ(UnnamedControls(window_), QStringList());
    EXPECT_FALSE(window_.windowIcon().isNull());
    Add({}, u"登记号"_s, u"等于"_s, u"5"_s);
    EXPECT_FALSE(Find(window_, u"EmptyHint"_s).isVisible());
  });
}

TEST_P(frmfhfindTest, ATableThatTheDesignDoesNotKnowOffersNothing) {
  window_.FormTag = u"O'Table"_s;
  EXPECT_THROW(window_.Open(), std::exception) << "the caller is told, and no window is left open";
  EXPECT_FALSE(window_.isVisible());
}

}  // namespace
}  // namespace folvane::test
