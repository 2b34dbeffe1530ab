#include <QStandardItemModel>
#include <QTreeView>
#include <gtest/gtest.h>

#include "support/QtPrinting.h"
#include "widgets/ViewHint.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class ViewHintTest : public testing::Test {
 protected:
  ViewHintTest() {
    view_.setModel(&model_);
    AddEmptyHint(view_, u"没有记录"_s);
    hint_ = view_.findChild<ViewHint*>(u"EmptyHint"_s);
    view_.show();
  }

  QStandardItemModel model_{0, 2};
  QTreeView view_;
  ViewHint* hint_;
};

TEST_F(ViewHintTest, IsShownWhileTheViewHasNoRows) {
  EXPECT_TRUE(hint_->isVisible());
  model_.appendRow(new QStandardItem(u"1"_s));
  EXPECT_FALSE(hint_->isVisible());
  model_.removeRow(0);
  EXPECT_TRUE(hint_->isVisible());
  model_.appendRow(new QStandardItem(u"2"_s));
  model_.clear();
  EXPECT_TRUE(hint_->isVisible()) << "a model that is made anew";
}

TEST_F(ViewHintTest, CoversTheRoomOfTheRowsWhateverTheSizeOfTheView) {
  view_.resize(500, 320);
  EXPECT_EQ(hint_->geometry(), view_.viewport()->geometry());
}

TEST_F(ViewHintTest, LeavesClicksToTheView) { EXPECT_EQ(view_.childAt(hint_->geometry().center()), view_.viewport()); }

}  // namespace
}  // namespace folvane::test
