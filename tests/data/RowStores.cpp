// Rows beyond what memory is to hold.
#include <QByteArray>
#include <gtest/gtest.h>

#include "data/RowStore.h"

namespace folvane::test {

namespace {

constexpr int kRows = 3000;  // of two kilobytes each, six chunks

QByteArray TextOf(int row) { return QByteArray::number(row).rightJustified(2000, char('a' + row % 26)); }

void Fill(RowStore& rows) {
  rows.SetColumnCount(2);
  rows.LimitMemory(2);
  for (int row = 0; row < kRows; ++row) {
    rows.AddInteger(row);
    rows.AddText(TextOf(row).constData(), 2000);
    rows.EndRow();
  }
}

void ExpectAll(const RowStore& rows) {
  ASSERT_EQ(rows.RowCount(), std::size_t(kRows));
  for (int row = kRows - 1; row >= 0; --row) {
    ASSERT_EQ(rows.At(std::size_t(row), 0).integer, row);
    ASSERT_EQ(rows.At(std::size_t(row), 1).bytes.toByteArray(), TextOf(row));
  }
}

TEST(RowStores, GiveWhatLiesInTheirFileAsWhatLiesInMemory) {
  RowStore rows;
  Fill(rows);
  ExpectAll(rows);
}

TEST(RowStores, KeepAllInMemoryWhereNoFileCanBeMade) {
  const QByteArray before = qgetenv("TMPDIR");
  qputenv("TMPDIR", "/nowhere");
  RowStore rows;
  Fill(rows);
  before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
  ExpectAll(rows);
}

TEST(RowStores, GoOnBehindARowThatWasNotFinished) {
  RowStore rows;
  rows.SetColumnCount(1);
  rows.AddInteger(1);
  rows.EndRow();
  rows.AddInteger(2);
  rows.DropBegunRow();
  rows.AddInteger(3);
  rows.EndRow();
  ASSERT_EQ(rows.RowCount(), std::size_t(2));
  EXPECT_EQ(rows.At(1, 0).integer, 3);
}

}  // namespace

}  // namespace folvane::test
