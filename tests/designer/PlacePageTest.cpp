#include "designer/PageFixture.h"
#include "designer/PlacePage.h"

// Where a class stands, and what it is called.
namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

using ClassPageTest = PageTest<designer::ClassPage>;
FOLVANE_ON_EACH_DATABASE(ClassPageTest);

TEST_P(ClassPageTest, APageThatGoesTakesNothingMore) {
  Shown().SetClass(Wanted().classes.back().id);
  auto& name = Find<QLineEdit>(Shown(), u"TxtClassName"_s);
  name.setFocus();
  name.insert(u"另外"_s);
  ASSERT_TRUE(Shown().hasFocus());
  page_.reset();
  EXPECT_FALSE(session_->History().canUndo()) << StepName().toStdString();
}

}  // namespace
}  // namespace folvane::test
