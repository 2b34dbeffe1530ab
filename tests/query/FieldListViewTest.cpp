#include <QDropEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QTest>

#include "query/FieldListView.h"
#include "query/QueryFixture.h"

namespace folvane::test {
namespace {

/// Two lists side by side, A to D and X to Z.
class FieldListViewTest : public testing::Test {
 protected:
  void SetUp() override {
    auto* row = new QHBoxLayout(&window_);
    for (FieldListView* list : {&left_, &right_}) row->addWidget(list);
    left_.SetPartner(right_);
    for (const QString& text : {u"A"_s, u"B"_s, u"C"_s, u"D"_s}) left_.Append({text});
    for (const QString& text : {u"X"_s, u"Y"_s, u"Z"_s}) right_.Append({text});
    window_.resize(400, 300);
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }
  static QPoint PlaceIn(FieldListView& list, int row, double height = 0.5) {
    const QRect place = list.visualRect(list.Rows().index(row, 0));
    return {place.left() + 50, place.top() + int(place.height() * height)};
  }
  void Select(FieldListView& list, const QList<int>& rows) {
    list.clearSelection();
    for (const int row : rows)
      list.selectionModel()->setCurrentIndex(list.Rows().index(row, 0),
                                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
  }
  /// Has what is selected dragged to a place of a list and dropped there, as the window system tells it. Answers
  /// whether it was taken.
  bool Drag(FieldListView& from, FieldListView& to, const QPoint& place) {
    const std::unique_ptr<QMimeData> rows = from.Dragged();
    QDragEnterEvent enter(place, Qt::MoveAction, rows.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(to.viewport(), &enter);
    QDragMoveEvent move(place, Qt::MoveAction, rows.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(to.viewport(), &move);
    QDropEvent drop(place, Qt::MoveAction, rows.get(), Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(to.viewport(), &drop);
    return enter.isAccepted() && move.isAccepted() && drop.isAccepted();
  }
  static QString TextsIn(const FieldListView& list) {
    QString texts;
    for (int row = 0; row < list.Count(); ++row) texts += list.Cell(row);
    return texts;
  }

  QWidget window_;
  FieldListView left_{u"LV1"_s, {u"字段"_s}, &window_}, right_{u"LV2"_s, {u"字段"_s}, &window_};
};

TEST_F(FieldListViewTest, RowsAreDraggedToTheOtherListBetweenTwoRows) {
  Select(left_, {0, 2});
  EXPECT_TRUE(Drag(left_, right_, PlaceIn(right_, 1, 0.1)));
  EXPECT_EQ(TextsIn(left_), u"BD"_s);
  EXPECT_EQ(TextsIn(right_), u"XACYZ"_s);
  EXPECT_EQ(right_.Selected(), (QList<int>{1, 2}));
}

TEST_F(FieldListViewTest, RowsDraggedBelowTheLastOneStandAtTheEnd) {
  Select(left_, {1});
  EXPECT_TRUE(Drag(left_, right_, QPoint(50, right_.viewport()->height() - 5)));
  EXPECT_EQ(TextsIn(left_), u"ACD"_s);
  EXPECT_EQ(TextsIn(right_), u"XYZB"_s);
}

TEST_F(FieldListViewTest, RowsAreDraggedToAnotherPlaceOfTheirList) {
  Select(left_, {0, 1});
  EXPECT_TRUE(Drag(left_, left_, PlaceIn(left_, 3, 0.1)));
  EXPECT_EQ(TextsIn(left_), u"CABD"_s);
  Select(left_, {3});
  EXPECT_TRUE(Drag(left_, left_, PlaceIn(left_, 0, 0.1)));
  EXPECT_EQ(TextsIn(left_), u"DCAB"_s);
  EXPECT_EQ(TextsIn(right_), u"XYZ"_s);
}

TEST_F(FieldListViewTest, RowsDroppedWhereTheyEndStayThere) {
  Select(left_, {0, 1});
  EXPECT_TRUE(Drag(left_, left_, PlaceIn(left_, 2, 0.1)));
  EXPECT_EQ(TextsIn(left_), u"ABCD"_s);
  Select(left_, {0, 1, 2});
  EXPECT_TRUE(Drag(left_, left_, PlaceIn(left_, 2, 0.1)));
  EXPECT_EQ(TextsIn(left_), u"ABCD"_s) << "none is lost";
}

TEST_F(FieldListViewTest, RowsOfAStrangeListAreNotTaken) {
  FieldListView other(u"LV3"_s, {u"字段"_s}, &window_);
  other.Append({u"Q"_s});
  Select(other, {0});
  EXPECT_FALSE(Drag(other, right_, PlaceIn(right_, 1, 0.1)));
  EXPECT_EQ(TextsIn(right_), u"XYZ"_s);
  EXPECT_EQ(TextsIn(other), u"Q"_s);
}

TEST_F(FieldListViewTest, SelectedRowsKeepTheirOrderAsTheyMove) {
  Select(left_, {3, 1});
  left_.MoveSelectedTo(right_);
  EXPECT_EQ(TextsIn(right_), u"XYZBD"_s);
  EXPECT_EQ(left_.Selected(), QList<int>{1}) << "what follows is selected";
  right_.MoveAllTo(left_);
  EXPECT_EQ(TextsIn(left_), u"ACXYZBD"_s);
  right_.MoveAllTo(left_);
  EXPECT_EQ(TextsIn(right_), QString());
}

TEST_F(FieldListViewTest, RemovingSelectsWhatFollows) {
  Select(left_, {1, 2});
  left_.RemoveSelected();
  EXPECT_EQ(TextsIn(left_), u"AD"_s);
  EXPECT_EQ(left_.Selected(), QList<int>{1});
  left_.RemoveSelected();
  left_.RemoveSelected();
  left_.RemoveSelected();
  EXPECT_EQ(left_.Count(), 0);
}

}  // namespace
}  // namespace folvane::test
