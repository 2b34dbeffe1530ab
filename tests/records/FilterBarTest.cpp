#include <QLabel>
#include <QToolButton>
#include <gtest/gtest.h>

#include "records/FilterBar.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

TEST(FilterBarTest, ShowsNothingBeforeATableIsInView) {
  FilterBar bar;
  bar.show();
  EXPECT_FALSE(Find<QToolButton>(bar, u"LiftFilter"_s).isVisible());
  EXPECT_FALSE(Find<QLabel>(bar, u"FilterRights"_s).isVisible());
  bar.ShowLimits(u"年度 2002"_s, u"密级 为空"_s);
  EXPECT_TRUE(Find<QToolButton>(bar, u"LiftFilter"_s).isVisible());
  EXPECT_TRUE(Find<QLabel>(bar, u"FilterRights"_s).isVisible());
}

}  // namespace
}  // namespace folvane::test
