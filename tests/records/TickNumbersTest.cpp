#include <gtest/gtest.h>

#include "records/RecordListModel.h"
#include "support/QtPrinting.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A list with a title and a key, "K1" first.
class TickNumbersTest : public testing::Test {
 protected:
  void Fill(int rows) {
    model_.NumberTicks();
    model_.SetColumns({{u"Amaintitle"_s, u"题名"_s, 900, {}}, {u"ArchiveId"_s, u"ID"_s, 1, {}}});
    Append(rows);
  }
  void Append(int rows) {
    for (int row = 0; row < rows; ++row) {
      const QString number = QString::number(model_.Count() + 1);
      model_.InsertRow(model_.Count(), {{QString(), u"题名"_s + number, u"K"_s + number}, 1});
    }
  }
  bool Tick(int row, bool on = true) {
    return model_.setData(model_.index(row - 1, 0), on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
  }
  QString Number(int row) const { return model_.index(row - 1, 0).data().toString(); }
  QString Numbers() const {
    QStringList numbers;
    for (int row = 1; row <= model_.Count(); ++row) numbers << Number(row);
    return numbers.join(u',');
  }

  RecordListModel model_;
};

TEST_F(TickNumbersTest, StandInAColumnOfTheirOwnBeforeTheFields) {
  Fill(1);
  EXPECT_EQ(model_.columnCount(), 3);
  EXPECT_EQ(model_.headerData(0, Qt::Horizontal, Qt::DisplayRole), u"序号"_s);
  EXPECT_EQ(model_.index(0, 1).data(), u"题名1"_s);
  EXPECT_EQ(model_.index(0, 0).data(Qt::UserRole), u"K1"_s);
  EXPECT_TRUE(model_.HasFieldColumns());
  model_.SetColumns({{u"ArchiveId"_s, u"ID"_s, 1, {}}});
  EXPECT_FALSE(model_.HasFieldColumns());
}

TEST_F(TickNumbersTest, RowsHaveNoCaptionsAndBehindTheLastColumnThereIsNone) {
  Fill(2);
  for (const int section : {-1, 3, 99})
    EXPECT_FALSE(model_.headerData(section, Qt::Horizontal, Qt::DisplayRole).isValid()) << section;
  EXPECT_FALSE(model_.headerData(1, Qt::Vertical, Qt::DisplayRole).isValid());
}

TEST_F(TickNumbersTest, ListsWithoutThemKeepTheirColumns) {
  model_.SetTickable(true);
  model_.SetColumns({{u"Amaintitle"_s, u"题名"_s, 900, {}}, {u"ArchiveId"_s, u"ID"_s, 1, {}}});
  model_.InsertRow(0, {{u"题名"_s, u"K1"_s}, 1});
  EXPECT_EQ(model_.columnCount(), 2);
  EXPECT_TRUE(Tick(1));
  EXPECT_EQ(model_.index(0, 0).data(), u"题名"_s);
}

TEST_F(TickNumbersTest, FollowTheOrderOfTheTicksWithoutGaps) {
  Fill(4);
  for (const int row : {3, 1, 4}) Tick(row);
  EXPECT_EQ(Numbers(), u"2,,1,3"_s);
  Tick(3, false);
  EXPECT_EQ(Numbers(), u"1,,,2"_s);
  Tick(4);
  EXPECT_EQ(Numbers(), u"1,,,2"_s) << "ticked already";
  Tick(2, false);
  EXPECT_EQ(Numbers(), u"1,,,2"_s) << "not ticked before either";
}

TEST_F(TickNumbersTest, TickingAllTakesTheLoadedRowsFromTheTop) {
  Fill(3);
  Tick(3);
  model_.TickLoaded();
  EXPECT_EQ(Numbers(), u"1,2,3"_s);
  Append(1);
  EXPECT_EQ(Numbers(), u"1,2,3,"_s);
  Tick(4);
  EXPECT_EQ(Number(4), u"4"_s);
  model_.ClearTicks();
  EXPECT_EQ(Numbers(), u",,,"_s);
}

TEST_F(TickNumbersTest, StayWithTheirRecordsWhileRowsComeAndGo) {
  Fill(3);
  Tick(2);
  model_.ClearRows();
  EXPECT_EQ(model_.Ticked(), QStringList{u"K2"_s});
  Append(3);
  EXPECT_EQ(Numbers(), u",1,"_s);
}

TEST_F(TickNumbersTest, ReachAsFarAsSixteenBits) {
  Fill(32769);
  model_.TickLoaded();
  EXPECT_EQ(model_.Ticked().size(), 32767);
  EXPECT_FALSE(Tick(32768));
  EXPECT_EQ(Number(32768), QString());
  Tick(1, false);
  EXPECT_TRUE(Tick(32768));
  EXPECT_EQ(Number(32768), u"32767"_s);
}

}  // namespace
}  // namespace folvane::test
