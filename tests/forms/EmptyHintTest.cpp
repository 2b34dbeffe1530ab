#include <QStandardItemModel>
#include <QTreeView>
#include <gtest/gtest.h>

#include "support/QtPrinting.h"
#include "widgets/EmptyHint.h"

namespace folvane::test {
namespace {

class EmptyHintTest : public testing::Test {
 protected:
  EmptyHintTest() {
    view_.setModel(&model_);
    hint_ = new EmptyHint(view_, QStringLiteral("没有记录"));
    view_.show();
  }

  QStandardItemModel model_{0, 2};
  QTreeView view_;
  EmptyHint* hint_;
};

TEST_F(EmptyHintTest, IsShownWhileTheViewHasNoRows) {
  EXPECT_TRUE(hint_->isVisible());
  model_.appendRow(new QStandardItem(QStringLiteral("1")));
  EXPECT_FALSE(hint_->isVisible());
  model_.removeRow(0);
  EXPECT_TRUE(hint_->isVisible());
  model_.appendRow(new QStandardItem(QStringLiteral("2")));
  model_.clear();
  EXPECT_TRUE(hint_->isVisible()) << "a model that is made anew";
}

TEST_F(EmptyHintTest, CoversTheRoomOfTheRowsWhateverTheSizeOfTheView) {
  view_.resize(500, 320);
  EXPECT_EQ(hint_->geometry(), view_.viewport()->geometry());
}

TEST_F(EmptyHintTest, LeavesClicksToTheView) { EXPECT_EQ(view_.childAt(hint_->geometry().center()), view_.viewport()); }

}  // namespace
}  // namespace folvane::test
