#include "query/CompoundWindowFixture.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {

/// Conditions of the compound query that do not count as they read.
class LeftOutConditionsTest : public frmfhfindTest {};

FOLVANE_ON_EACH_DATABASE(LeftOutConditionsTest);

TEST_P(LeftOutConditionsTest, AQuoteInAValueShowsNoMessageAndLeavesTheRowInTheList) {
  InWindow([&] {
    Add({}, u"题名"_s, u"等于"_s, u"O'Brien"_s);
    EXPECT_EQ(List(), QStringList{u"|题名|等于|O'Brien|2"_s});
    Key(u"F_Query"_s).trigger();
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_TRUE(boxes_.Requests().empty());
  EXPECT_EQ(window_.ReturnSql, QString());
}

TEST_P(LeftOutConditionsTest, AConditionThatIsNotInTheTableIsStruckOutWithTheReasonAndHandedToTheCaller) {
  InWindow([&] {
    Add({}, u"登记号"_s, u"大于"_s, u"1"_s);
    EXPECT_FALSE(Find(window_, u"LblIgnored"_s).isVisible());
    Add(u"与"_s, u"题名"_s, u"等于"_s, u"O'Brien"_s);
    EXPECT_EQ(List(), (QStringList{u"|登记号|大于|1|2"_s, u"与|题名|等于|O'Brien|3"_s})) << "the texts stay as given";
    EXPECT_FALSE(IsStruckOut(0));
    EXPECT_TRUE(IsStruckOut(1));
    EXPECT_EQ(Tip(1), u"不参与查询：未能保存：其中有单引号"_s);
    EXPECT_TRUE(Find(window_, u"LblIgnored"_s).isVisible());
    EXPECT_TRUE(TextIn(window_, u"LblIgnored"_s).endsWith(u"题名 等于 O'Brien（未能保存：其中有单引号）"_s));
    Key(u"F_Query"_s).trigger();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.RegID > '1'"_s);
  EXPECT_EQ(window_.Ignored, QStringList{u"题名 等于 O'Brien（未能保存：其中有单引号）"_s});
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(LeftOutConditionsTest, AConditionOnAFieldThatTheTableDoesNotHaveIsMarkedButNotStruckOut) {
  Describe(u"Pages"_s, u"页数"_s, u"数值型"_s);
  InWindow([&] {
    Add({}, u"页数"_s, u"等于"_s, u"5"_s);
    EXPECT_FALSE(IsStruckOut(0)) << "it is in the query, which the database will refuse";
    EXPECT_EQ(Tip(0), u"表中没有字段“页数”"_s);
    EXPECT_TRUE(TextIn(window_, u"LblIgnored"_s).endsWith(u"页数 等于 5（表中没有字段“页数”）"_s));
    Key(u"F_Query"_s).trigger();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.Pages = '5'"_s);
  EXPECT_EQ(window_.Ignored, QStringList{u"页数 等于 5（表中没有字段“页数”）"_s});
}

TEST_P(LeftOutConditionsTest, WhatIsTypedAndNotAddedIsPointedOutAndHandedToTheCaller) {
  InWindow([&] {
    Add({}, u"登记号"_s, u"大于"_s, u"1"_s);
    EXPECT_EQ(TextIn(window_, u"LblNotAdded"_s), QString());
    Retype(Find(window_, u"Cmb(3)"_s), u"10"_s);
    EXPECT_EQ(TextIn(window_, u"LblNotAdded"_s), u"尚未添加的条件不参与查询"_s);
    EXPECT_TRUE(Find(window_, u"LblNotAdded"_s).isVisible());
    Key(u"F_Query"_s).trigger();
  });
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.RegID > '1'"_s);
  EXPECT_EQ(window_.Ignored, QStringList{u"登记号 大于 10（尚未添加）"_s});
}

TEST_P(LeftOutConditionsTest, AQueryWhoseConditionsAllCountLeavesNothingOut) {
  window_.Ignored << u"old"_s;
  InWindow([&] {
    Add({}, u"登记号"_s, u"大于"_s, u"1"_s);
    Key(u"F_Query"_s).trigger();
  });
  EXPECT_EQ(window_.Ignored, QStringList());
}

}  // namespace
}  // namespace folvane::test
