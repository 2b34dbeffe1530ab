#include <gtest/gtest.h>

#include "design/FormArrangement.h"
#include "design/SmallDesign.h"
#include "designer/FormEdits.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using designer::Snap;
using designer::Snapped;

Design::Table LettersTable() {
  Design design = SmallDesign();
  return TableOf(design, u"Lwdj"_s);
}

TEST(FormEdits, ASmallPullMovesNothing) {
  EXPECT_EQ(Snap(75, {1350}, {1400}, 120).by, 0);
  EXPECT_EQ(Snap(-75, {1350}, {}, 120).by, 0);
}

TEST(FormEdits, TheFirstEdgeGoesOntoTheGrid) {
  EXPECT_EQ(Snap(100, {1350, 4950}, {}, 120).by, 1440 - 1350);
  EXPECT_EQ(Snap(-300, {1350, 4950}, {}, 60).by, 1080 - 1350);
  EXPECT_FALSE(Snap(100, {1350}, {}, 120).guide);
}

TEST(FormEdits, TheNearestEdgeOfAnotherGoesBeforeTheGrid) {
  const Snapped fit = Snap(1000, {1350, 4950}, {2300, 5990}, 120);
  EXPECT_EQ(fit.by, 5990 - 4950);
  EXPECT_EQ(fit.guide, 5990);
  EXPECT_EQ(Snap(1000, {1350}, {2426}, 120).by, 2400 - 1350);  // 76 away
}

TEST(FormEdits, AControlWithoutAPlaceMovesFromWhereItIsShown) {
  Design::Table table = LettersTable();
  table.controls[0].left = -1;
  designer::MoveControls(table, {0}, {120, 120});
  EXPECT_EQ(table.controls[0].left, 1500 + 120);
  EXPECT_EQ(table.controls[0].top, 1440 + 300 + 150 + 120);
}

TEST(FormEdits, AControlOutsideComesIn) {
  Design::Table table = LettersTable();
  table.controls[0].top = -400;  // seen in the room above the form
  designer::MoveControls(table, {0}, {0, -120});
  EXPECT_EQ(table.controls[0].top, -400);
  designer::MoveControls(table, {0}, {0, 120});
  EXPECT_EQ(table.controls[0].top, -280);
}

TEST(FormEdits, EdgesStopBeforeTheyMeet) {
  Design::Table table = LettersTable();
  designer::SizeControls(table, {2}, {50'000, 50'000, 0, 0});
  EXPECT_EQ(table.controls[2].left + table.controls[2].width, 9900);
  EXPECT_EQ(table.controls[2].width, 300);
  EXPECT_EQ(table.controls[2].top + table.controls[2].height, 480 + 780);
  EXPECT_EQ(table.controls[2].height, design::kLine);
  designer::SizeControls(table, {2}, {-50'000, -50'000, 0, 0});
  EXPECT_EQ(table.controls[2].left, 0);
  EXPECT_EQ(table.controls[2].top, 0);
  EXPECT_EQ(table.controls[2].width, 9900);
}

TEST(FormEdits, ControlsInARowAreSpacedAcross) {
  Design::Table table = LettersTable();
  table.controls[2] = {u"Amaintitle"_s, 1, 2, 3, 5000, 60, 1000, 300};
  table.controls[1].left = 9000;
  designer::SpaceEvenly(table, {0, 1, 2});
  EXPECT_EQ(table.controls[2].left, 4950 + (9000 - 4950 - 1000) / 2);
  EXPECT_EQ(table.controls[2].top, 60);
}

TEST(FormEdits, AFieldIsPutOnATableWithoutAForm) {
  Design::Table table = LettersTable();
  table.controls.clear();
  const int added = designer::PutOn(table, table.fields[2], QPoint(-50, 240'100));
  EXPECT_EQ(table.controls[std::size_t(added)].field, u"Amaintitle"_s);
  EXPECT_EQ(table.controls[std::size_t(added)].left, 0);
  EXPECT_EQ(table.controls[std::size_t(added)].top + table.controls[std::size_t(added)].height, 240'000);
}

TEST(FormEdits, AnotherKindGetsAFreeNumberForEach) {
  Design::Table table = LettersTable();
  designer::ChangeKind(table, {1, 3, 4}, 4);
  EXPECT_EQ(table.controls[1].index, 1);
  EXPECT_EQ(table.controls[3].index, 3);
  EXPECT_EQ(table.controls[4].index, 2);
}

}  // namespace
}  // namespace folvane::test
