#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;

namespace {

/// Volumes (Aj) with their files (Jn): Jn.AjNo holds the volume's number.
class RelatedRecordsTest : public BrowserTest {
 protected:
  void SetUp() override {
    BrowserTest::SetUp();
    design_->AddTable(u"Aj"_s, u"案卷"_s, 2, {{u"AjNo"_s, u"案卷号"_s, u"文本型"_s}});
    design_->AddTable(u"Jn"_s, u"卷内"_s, 2,
                      {{u"AjNo"_s, u"案卷号"_s, u"文本型"_s}, {u"Amaintitle"_s, u"题名"_s, u"文本型"_s}}, u"Aj"_s,
                      u"AjNo"_s);
    for (const int number : {1, 2, 3}) {
      design_->Insert(u"Aj"_s, u"ArchiveID,AjNo"_s, {DesignedDatabase::Key(number), u"a'%1"_s.arg(number)});
    }
    design_->Insert(u"Jn"_s, u"ArchiveID,AjNo,Amaintitle"_s, {DesignedDatabase::Key(11), u"a'2"_s, u"甲"_s});
    design_->Insert(u"Jn"_s, u"ArchiveID,AjNo,Amaintitle"_s, {DesignedDatabase::Key(12), u"a'1"_s, u"乙"_s});
    Remember(u"Aj"_s);
  }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(RelatedRecordsTest);

TEST_P(RelatedRecordsTest, ADoubleClickShowsTheChildRecords) {
  InBrowser([&](const Browser& browser) {
    DoubleClickItem(browser.List(), browser.List().model()->index(1, 0));
    EXPECT_EQ(browser.Column(u"LVData"_s, 1), QStringList{u"甲"_s});
    EXPECT_EQ(browser.Parameter(u"Jn"_s, 2), u"AjNo = 'a''2'"_s);
    EXPECT_EQ(browser.View(u"LV_Para"_s).property("Tag").toString(), u"AjNo = 'a''2'"_s);
    EXPECT_EQ(browser.View(u"TV_File"_s).currentIndex(), browser.Node(u"Jn"_s));
    EXPECT_TRUE(browser.On(u"mnu_Goto1_UClass"_s));
    EXPECT_THAT(log_->Take(), Contains(u"Select * From Jn Where AjNo = 'a''2' Order By ArchiveId Desc"_s));
  });
}

TEST_P(RelatedRecordsTest, ToParentGoesBackToTheRecordAbove) {
  InBrowser([&](const Browser& browser) {
    EXPECT_FALSE(browser.On(u"mnu_Goto1_UClass"_s));
    DoubleClickItem(browser.List(), browser.List().model()->index(1, 0));
    browser.Key(u"ToParent"_s).trigger();
    EXPECT_EQ(browser.View(u"TV_File"_s).currentIndex(), browser.Node(u"Aj"_s));
    EXPECT_EQ(browser.Cell(), u"a'2"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第2条/共3条"_s);
    EXPECT_EQ(browser.View(u"LV_Para"_s).property("Tag").toString(), QString());
  });
}

TEST_P(RelatedRecordsTest, AnEmptyChildListStillAllowsTheWayBack) {
  InBrowser([&](const Browser& browser) {
    DoubleClickItem(browser.List(), browser.List().model()->index(0, 0));
    EXPECT_EQ(browser.Status(), u"当前无记录"_s) << "volume 3 has no files";
    browser.Key(u"ToParent"_s).trigger();
    EXPECT_EQ(browser.Cell(), u"a'3"_s);
  });
}

TEST_P(RelatedRecordsTest, ChoosingANodeForgetsTheConditionFromAbove) {
  InBrowser([&](const Browser& browser) {
    DoubleClickItem(browser.List(), browser.List().model()->index(0, 0));
    browser.Choose(u"Aj"_s);
    EXPECT_EQ(browser.View(u"LV_Para"_s).property("Tag").toString(), QString());
  });
}

TEST_P(RelatedRecordsTest, ATopTableHasNoWayUp) {
  InBrowser([&](const Browser& browser) {
    log_->Take();
    browser.Key(u"ToParent"_s).trigger();
    EXPECT_EQ(log_->Take(), QStringList());
  });
}

}  // namespace folvane::test
