#include "query/SimFindFixture.h"
#include "query/frmfhfind.h"

namespace folvane::test {
namespace {

/// From the simple query over to the compound one.
class StepOverTest : public frmSimFindTest {
 protected:
  /// Steps over to the compound query, adds one condition there and ends it by that key.
  void StepOver(const QString& key) {
    WithWindow(u"frmfhfind"_s, [this, key](QWidget& compound) {
      EXPECT_FALSE(window_.isVisible());
      Set(compound, u"Cmb(1)"_s, u"密级"_s);
      Set(compound, u"Cmb(2)"_s, u"等于"_s);
      Set(compound, u"Cmb(3)"_s, u"秘密"_s);
      FindAction(compound, u"Toolbar1"_s, u"F_AddRecord"_s).trigger();
      FindAction(compound, u"Toolbar1"_s, key).trigger();
    });
    InWindow([&] { Click(window_, u"Command1"_s); });
  }
};

FOLVANE_ON_EACH_DATABASE(StepOverTest);

TEST_P(StepOverTest, AfterACompoundQueryTheFormIsGoneAndTheCallerReadsItsText) {
  StepOver(u"F_Query"_s);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_EQ(window_.ReturnSql, u"Lwdj.SecurityClass = '秘密'"_s);
}

TEST_P(StepOverTest, TheRestrictionStandsTwiceAfterTheStepOver) {
  window_.M_Condition = u"RegID < 5"_s;
  StepOver(u"F_Query"_s);
  EXPECT_EQ(window_.ReturnSql, u"RegID < 5 And (Lwdj.SecurityClass = '秘密' and RegID < 5)"_s);
  EXPECT_EQ(Found(window_.ReturnSql), u"1"_s);
}

TEST_P(StepOverTest, WithoutACompoundQueryTheFormStaysHiddenAndTheTextAsItWas) {
  StepOver(u"F_Exit"_s);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_EQ(window_.ReturnSql, QString());
}

TEST_P(StepOverTest, WhatTheCompoundQueryLeavesOutIsHandedOn) {
  WithWindow(u"frmfhfind"_s, [&](QWidget& compound) {
    auto& query = static_cast<frmfhfind&>(compound);
    query.ReturnSql = u"Lwdj.RegID = '1'"_s;
    query.Ignored << u"题名 等于 x（尚未添加）"_s;
    query.hide();
  });
  InWindow([&] { Click(window_, u"Command1"_s); });
  EXPECT_EQ(window_.Ignored, QStringList{u"题名 等于 x（尚未添加）"_s});
}

}  // namespace
}  // namespace folvane::test
