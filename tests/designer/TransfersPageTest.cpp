#include "designer/PageFixture.h"
#include "designer/TransfersPage.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kMaps = u"GrdTransfers"_s, kLinks = u"GrdLinks"_s;

class TransfersPageTest : public PageTest<designer::TransfersPage> {
 protected:
  const std::vector<Design::TransferLink>& Links() { return Wanted().transfers[0].links; }
};
FOLVANE_ON_EACH_DATABASE(TransfersPageTest);

TEST_P(TransfersPageTest, ShowsTheMapsWithCaptionsAndWhatBecomesOfValues) {
  EXPECT_EQ(Rows(kMaps), QStringList{u"收文登记 Lwdj|归档文件 Gdwj|"_s});
  EXPECT_EQ(Rows(kLinks), QStringList{u"题名 Amaintitle|题名 Amaintitle|原样写入"_s});
  EXPECT_EQ(UnnamedControls(Shown()), QStringList());
}

TEST_P(TransfersPageTest, PairingAddsWhatIsCalledAlikeAsOneStep) {
  Grid(kLinks).setFocus();
  Press(Grid(kLinks), Qt::Key_J, Qt::ControlModifier);
  EXPECT_EQ(Rows(kLinks).value(1), u"密级 SecurityClass|密级 SecurityClass|原样写入");
  EXPECT_EQ(Links().size(), 2u);
  EXPECT_EQ(Links()[1].caption, u"密级");
  EXPECT_EQ(Told(), u"加入了 1 行字段对应。");
  EXPECT_EQ(StepName(), u"按名称配对");
  Press(Grid(kLinks), Qt::Key_J, Qt::ControlModifier);
  EXPECT_EQ(Told(), u"没有名称或标题相同、还没有对应的字段。");
  Undo();
  EXPECT_EQ(Links().size(), 1u);
  EXPECT_EQ(Wanted(), session_->Stored());
}

TEST_P(TransfersPageTest, ALinkIsMadeOfFreeFieldsAndChosenByCaption) {
  Add(kLinks);
  EXPECT_EQ(Links()[1], (Design::TransferLink{u"RegID"_s, u"FondsNo"_s, u"登记号"_s}));
  Write(kLinks, 1, 0, u"成文日期 FileDate"_s);
  EXPECT_EQ(Links()[1].source, u"FileDate");
  EXPECT_EQ(Links()[1].caption, u"成文日期");
  Write(kLinks, 1, 1, u"件号 DocOrder"_s);
  EXPECT_NE(Rows(kLinks).value(1).section(u'|', 2), u"原样写入");
  Write(kLinks, 1, 1, u"题名 Amaintitle"_s);
  Write(kLinks, 1, 0, u"题名 Amaintitle"_s);
  EXPECT_EQ(Told(), u"已有字段对应“Amaintitle→Amaintitle”。");
  EXPECT_EQ(Links()[1].source, u"FileDate");
  ExpectTakenBack();
}

TEST_P(TransfersPageTest, AFieldThatIsOnlyWantedYetHasAFateToo) {
  session_->Change(u"x"_s, [](Design& design) {
    TableOf(design, u"Lwdj"_s).fields.push_back({u"Unit"_s, u"来文单位"_s, u"文本型"_s, 200, {}});
    TableOf(design, u"Gdwj"_s).fields.push_back({u"Unit"_s, u"责任者"_s, u"文本型"_s, 20, {}});
  });
  GoTo(kLinks, 0);
  Press(Grid(kLinks), Qt::Key_J, Qt::ControlModifier);
  EXPECT_EQ(Rows(kLinks).size(), 3);
  EXPECT_NE(Rows(kLinks).value(2).section(u'|', 2), u"原样写入") << "200 into 20";
}

TEST_P(TransfersPageTest, MapsAreAddedChangedAndTakenOut) {
  Add(kMaps);
  EXPECT_EQ(Wanted().transfers.back(), (Design::TransferMap{u"Gdwj"_s, u"Lwdj"_s, {}}));
  EXPECT_EQ(Rows(kLinks), QStringList());
  Add(kMaps);
  EXPECT_EQ(Told(), u"没有其他的表可以对应。");
  Write(kMaps, 1, 0, u"收文登记 Lwdj"_s);
  EXPECT_NE(Rows(kMaps).value(1).section(u'|', 2), QString()) << "a table into itself";
  Write(kMaps, 1, 1, u"归档文件 Gdwj"_s);
  EXPECT_EQ(Told(), u"已有归档对应“Lwdj→Gdwj”。");
  Remove(kMaps, 1);
  Remove(kMaps, 0);
  EXPECT_TRUE(Wanted().transfers.empty());
  EXPECT_EQ(Rows(kLinks), QStringList());
  ExpectTakenBack();
}

}  // namespace
}  // namespace folvane::test
