#include <gtest/gtest.h>

#include "records/MovePlan.h"

namespace folvane::test {

TEST(MovePlanTest, TheSelectedRecordNeedsNoMove) { EXPECT_EQ(PlanMove(5, {5, 5, 30}).kind, MovePlan::Stay); }

TEST(MovePlanTest, ARecordInTheListIsSelectedThere) {
  const MovePlan plan = PlanMove(42, {45, 10, 30});
  EXPECT_EQ(plan.kind, MovePlan::Select);
  EXPECT_EQ(plan.index, 7);
  EXPECT_EQ(PlanMove(36, {45, 10, 30}).index, 1) << "the first row";
  EXPECT_EQ(PlanMove(65, {45, 10, 30}).index, 30) << "the last row";
}

TEST(MovePlanTest, UpToThirtyRowsBehindTheListItGrows) {
  const MovePlan plan = PlanMove(60, {1, 1, 30});
  EXPECT_EQ(plan.kind, MovePlan::GrowDown);
  EXPECT_EQ(plan.rows, 30);
  EXPECT_EQ(PlanMove(31, {1, 1, 30}).rows, 1);
}

TEST(MovePlanTest, AGapOfThirtyOneRowsBehindTheListStartsItOver) {
  EXPECT_EQ(PlanMove(61, {1, 1, 30}).kind, MovePlan::RestartDown);
}

TEST(MovePlanTest, UpToThirtyRecordsBackTheListGrowsAtItsTop) {
  const MovePlan plan = PlanMove(70, {100, 1, 30});
  EXPECT_EQ(plan.kind, MovePlan::GrowUp);
  EXPECT_EQ(plan.rows, 30);
}

TEST(MovePlanTest, FurtherBackTheListStartsOver) {
  EXPECT_EQ(PlanMove(69, {100, 1, 30}).kind, MovePlan::RestartUp);
  // The distance counts from the cursor, not from the list's first row.
  EXPECT_EQ(PlanMove(69, {105, 30, 30}).kind, MovePlan::RestartUp);
}

}  // namespace folvane::test
