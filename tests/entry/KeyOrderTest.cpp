#include <folvane/DataError.h>

#include "KeyOrderFixture.h"
#include "entry/KeyOrder.h"

namespace folvane::test {
namespace {

class KeyOrderTest : public KeyOrderFixture {};

TEST_P(KeyOrderTest, ListsTheFieldsOfTheFormInTheirOrder) {
  EXPECT_EQ(KeyOrderList(u"Lwdj"_s).Names(), (QStringList{u"文号"_s, u"登记号"_s, u"题名"_s}));
  EXPECT_EQ(TakeStatements().mid(0, 2),
            (QStringList{u"Select DataField From SaveControls Where DataSource='Lwdj' and ControlType<>'3' And "
                         "DataField <> '' Order By KeyOrder"_s,
                         u"Select ChnFieldName from DynamicWindows Where TableName='Lwdj' and FieldName='DocNo'"_s}));
}

TEST_P(KeyOrderTest, MovesAFieldToAPositionShiftingThoseBetween) {
  KeyOrderList list(u"Lwdj"_s);
  EXPECT_EQ(list.Move(3, 1), 1);
  EXPECT_EQ(list.Names(), (QStringList{u"题名"_s, u"文号"_s, u"登记号"_s}));
  EXPECT_EQ(list.Move(1, 2), 2);
  EXPECT_EQ(list.Names(), (QStringList{u"文号"_s, u"题名"_s, u"登记号"_s}));
}

TEST_P(KeyOrderTest, StopsAtItsEnds) {
  KeyOrderList list(u"Lwdj"_s);
  const QStringList names = list.Names();
  EXPECT_EQ(list.MoveUp(1), 1);
  EXPECT_EQ(list.MoveDown(3), 3);
  EXPECT_EQ(list.Move(0, 2), 0);
  EXPECT_EQ(list.Names(), names);
  EXPECT_EQ(list.MoveDown(1), 2);
  EXPECT_EQ(list.MoveUp(3), 2);
}

TEST_P(KeyOrderTest, WritesTheOrderOnCommit) {
  KeyOrderList list(u"Lwdj"_s);
  list.Move(3, 1);
  TakeStatements();
  list.Commit();
  EXPECT_EQ(TakeStatements().mid(0, 2),
            (QStringList{u"Select FieldName from DynamicWindows Where TableName='Lwdj' and ChnFieldName='题名'"_s,
                         u"Update SaveControls Set KeyOrder='1' Where DataSource='Lwdj' and DataField='Amaintitle' and "
                         "ControlType<>'3'"_s}));
  EXPECT_EQ(OrderOf(u"Amaintitle"_s), u"1"_s);
  EXPECT_EQ(OrderOf(u"DocNo"_s), u"2"_s);
  EXPECT_EQ(OrderOf(u"RegID"_s), u"3"_s);
}

TEST_P(KeyOrderTest, NeitherListsNorWritesAFieldThatIsNotBuilt) {
  KeyOrderList list(u"Lwdj"_s);
  EXPECT_FALSE(list.Names().contains(u"图片"_s));
  list.Commit();
  EXPECT_EQ(OrderOf(u"Hidden"_s), u"3"_s);
}

TEST_P(KeyOrderTest, WritesTheWholeOrderOrNothingOfIt) {
  Refuse(u"SaveControls"_s, u"update"_s, u"new.DataField = 'RegID'"_s);
  KeyOrderList list(u"Lwdj"_s);
  list.Move(3, 1);
  EXPECT_THROW(list.Commit(), DataError);
  EXPECT_EQ(OrderOf(u"Amaintitle"_s), u"4"_s);
  EXPECT_EQ(OrderOf(u"DocNo"_s), u"1"_s);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(KeyOrderTest, WritesNothingWithoutCommit) {
  KeyOrderList(u"Lwdj"_s).Move(3, 1);
  EXPECT_EQ(OrderOf(u"DocNo"_s), u"1"_s);
}

TEST_P(KeyOrderTest, ShowsAllFieldsOfATableWithoutAFormAndChangesNothing) {
  Run(u"delete from SaveControls"_s);
  KeyOrderList list(u"Lwdj"_s);
  EXPECT_EQ(list.Count(), 4);
  EXPECT_NO_THROW(list.Commit());
  EXPECT_EQ(Value(u"select count(*) from SaveControls"_s), u"0"_s);
}

TEST_P(KeyOrderTest, TakesTheFirstOfTwoFieldsWithOneNameTwice) {
  Run(u"update DynamicWindows set ChnFieldName = '文号' where FieldName = 'Amaintitle'"_s);
  KeyOrderList(u"Lwdj"_s).Commit();
  EXPECT_EQ(OrderOf(u"DocNo"_s), u"3"_s);
  EXPECT_EQ(OrderOf(u"Amaintitle"_s), u"4"_s);
}

TEST_P(KeyOrderTest, GivesTheControlsInTheirOrder) {
  const std::vector<ControlId> keys{{0, 0}, {8, 1}, {1, 1}, {10, 1}};
  EXPECT_EQ(ReadKeyList(u"Lwdj"_s), keys);
  EXPECT_EQ(TakeStatements().last(),
            u"Select ControlType,ControlIndex From SaveControls Where DataSource='Lwdj' And "
            "SaveControls.ControlType <> 3 And SaveControls.ControlType <> 5 Order By SaveControls.KeyOrder"_s);
}

FOLVANE_ON_EACH_DATABASE(KeyOrderTest);

class EnterWalkTest : public testing::Test {
 protected:
  EnterWalkTest() { walk_.SetKeys({{0, 0}, first_, second_, last_}); }
  const ControlId first_{1, 1}, second_{2, 1}, last_{10, 1};
  EnterWalk walk_;
};

TEST_F(EnterWalkTest, BeginsAtTheFirstField) {
  EXPECT_EQ(walk_.Position(), 1);
  EXPECT_EQ(walk_.Current(), first_);
}

TEST_F(EnterWalkTest, GoesToTheFieldBehindTheOneThatHasTheFocus) {
  EXPECT_EQ(walk_.Next(second_, true), EnterWalk::Step::Focus);
  EXPECT_EQ(walk_.Current(), last_);
}

TEST_F(EnterWalkTest, AddsARecordBehindTheLastField) { EXPECT_EQ(walk_.Next(last_, true), EnterWalk::Step::AddRecord); }

TEST_F(EnterWalkTest, ReturnsToTheFirstFieldWithoutTheRightToEdit) {
  EXPECT_EQ(walk_.Next(last_, false), EnterWalk::Step::Focus);
  EXPECT_EQ(walk_.Current(), first_);
}

TEST_F(EnterWalkTest, GoesOnFromItsOwnPositionForAControlThatIsNotInTheList) {
  walk_.Next(first_, true);
  EXPECT_EQ(walk_.Next({6, 9}, true), EnterWalk::Step::Focus);
  EXPECT_EQ(walk_.Current(), last_);
}

TEST_F(EnterWalkTest, HasNowhereToGoInAnEmptyForm) {
  walk_.SetKeys({{0, 0}});
  EXPECT_EQ(walk_.Next(first_, false), EnterWalk::Step::Focus);
  EXPECT_EQ(walk_.Current(), ControlId());
}

TEST_F(EnterWalkTest, FollowsANewOrderAtOnce) {
  walk_.SetKeys({{0, 0}, last_, first_, second_});
  walk_.Next(last_, true);
  EXPECT_EQ(walk_.Current(), first_);
}

}  // namespace
}  // namespace folvane::test
