#include "forms/EntryFormFixture.h"

namespace folvane::test {
namespace {

class ScrolledFieldsTest : public EntryFormTest {};

TEST_F(ScrolledFieldsTest, WantsTheRoomOfItsControls) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 8000);
  Build();
  const QRect control = Control(u"Txt(1)"_s).geometry();
  EXPECT_GT(form_->sizeHint().width(), control.right());
  EXPECT_GT(form_->sizeHint().height(), control.bottom());
  Window().resize(form_->sizeHint());
  Show();
  EXPECT_FALSE(Bar().isVisible());
}

TEST_F(ScrolledFieldsTest, NeedsNoBarWhereEverythingHasRoom) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Build();
  Show();
  EXPECT_FALSE(Bar().isVisible());
}

TEST_F(ScrolledFieldsTest, WidensTheRangeOfTheBarWithEachResizeThatNeedsIt) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 8000);
  Build();
  Show();
  ASSERT_TRUE(Bar().isVisible());
  const int height = Control(u"PicControls"_s).height() * 15;
  const int before = Bar().maximum();
  EXPECT_EQ((before + height - 8830) % 300, 0) << "the end of the field, and steps of 300";
  Window().resize(500, 400);
  EXPECT_EQ(Bar().maximum(), before + 300);
}

TEST_F(ScrolledFieldsTest, MovesFieldsAndLabelsWithTheBar) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 400);
  Design(u"Quantity"_s, u"份数"_s, ControlKind::Txt, 2, 1500, 9000);
  Build();
  Show();
  Bar().setValue(300);
  EXPECT_EQ(Control(u"Txt(1)"_s).y(), 40);
  EXPECT_EQ(Control(u"F_Lbl(1)"_s).y(), 44);
}

TEST_F(ScrolledFieldsTest, BringsTheFocusedFieldIntoSight) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 0);
  Design(u"Quantity"_s, u"份数"_s, ControlKind::Txt, 2, 1500, 9000);
  Build();
  Show();
  const QRect area = Control(u"PicControls"_s).rect();
  form_->FieldOf({ControlKind::Txt, 2})->Focus();
  EXPECT_TRUE(area.contains(Control(u"Txt(2)"_s).geometry()));
  EXPECT_EQ(Bar().value() % 300, 0);
  form_->FieldOf({ControlKind::Txt, 1})->Focus();
  EXPECT_TRUE(area.contains(Control(u"Txt(1)"_s).geometry()));
}

TEST_F(ScrolledFieldsTest, GrowsWithTheFont) {
  Design(u"Title"_s, u"题名"_s, ControlKind::Txt, 1, 1500, 400, 450);
  Build();
  QFont large = form_->font();
  large.setPointSize(18);
  form_->setFont(large);
  EXPECT_EQ(Control(u"Txt(1)"_s).geometry(), QRect(200, 120, 400, 60));
}

}  // namespace
}  // namespace folvane::test
