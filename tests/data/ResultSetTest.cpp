#include <gtest/gtest.h>

#include <folvane/ResultSet.h>

#include "data/DataSuite.h"

namespace folvane::test {
namespace {

class ResultSetTest : public DataSuite {
 protected:
  ResultSet Files() { return {*Connected(), QStringLiteral("Select * From files Order By id")}; }
};
FOLVANE_ON_EACH_DATABASE(ResultSetTest);

TEST_P(ResultSetTest, ColumnsAreFoundByNameInAnyCase) {
  const ResultSet files = Files();
  EXPECT_EQ(files.ColumnCount(), 6);
  EXPECT_EQ(files.ColumnName(2), QStringLiteral("title"));
  EXPECT_EQ(files.Find(QStringLiteral("TITLE")), 2);
  EXPECT_EQ(files.Find(QStringLiteral("nothing")), -1);
}

TEST_P(ResultSetTest, ColumnsTellTheirTypeAndLength) {
  Database().Native(QStringLiteral("create table kinds (name varchar(60), pages integer, day date, memo text)"));
  const ResultSet kinds(*Connected(), QStringLiteral("Select * From kinds"));
  EXPECT_EQ(kinds.ColumnType(0), 200);
  EXPECT_EQ(kinds.ColumnSize(0), 60);
  EXPECT_EQ(kinds.ColumnType(1), 3);
  EXPECT_EQ(kinds.ColumnType(2), 133);
  EXPECT_EQ(kinds.ColumnSize(3), 2147483647);
  EXPECT_EQ(FailureOf([&] { kinds.ColumnType(4); }).Kind(), DataErrorKind::Usage);
}

TEST_P(ResultSetTest, RowsAreReadInAnyOrder) {
  const ResultSet files = Files();
  EXPECT_EQ(files.RowCount(), 5);
  EXPECT_EQ(files.Text(4, 1), QStringLiteral("a-003"));
  EXPECT_EQ(files.Text(0, 1), QStringLiteral("A-001"));
  EXPECT_EQ(files.Value(1, 3).toInt(), 25);
  EXPECT_EQ(files.Text(0, files.Find(QStringLiteral("filed"))), QStringLiteral("2002-03-04"));
}

TEST_P(ResultSetTest, ANullHasNoValueAndNoText) {
  const ResultSet files = Files();
  EXPECT_FALSE(files.Value(3, 3).isValid());
  EXPECT_EQ(files.Text(3, 3), QString());
}

TEST_P(ResultSetTest, WhatIsNotThereIsAnError) {
  const ResultSet files = Files();
  for (const auto& work : std::vector<std::function<void()>>{[&] { files.Value(5, 0); }, [&] { files.Value(-1, 0); },
                                                             [&] { files.Text(0, 6); }, [&] { files.Text(0, -1); },
                                                             [&] { files.ColumnName(6); }}) {
    EXPECT_EQ(FailureOf(work).Kind(), DataErrorKind::Usage);
  }
  EXPECT_EQ(FailureOf([&] { ResultSet(*Connected(), QStringLiteral("Select * From nowhere")); }).Kind(),
            DataErrorKind::Statement);
}

TEST_P(ResultSetTest, NoRowsAreNoError) {
  ResultSet none(*Connected(), QStringLiteral("Select * From files Where id = 99"));
  EXPECT_EQ(none.RowCount(), 0);
  none = Files();
  EXPECT_EQ(none.RowCount(), 5) << "another result may be moved in";
}

}  // namespace
}  // namespace folvane::test
