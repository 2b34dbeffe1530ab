#include <gtest/gtest.h>

#include "catalogue/RowWriter.h"
#include "support/TestDatabase.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class WrittenRows : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    Database().Native(u"create table Words (No integer, Word varchar(10))"_s);
  }
};
FOLVANE_ON_EACH_DATABASE(WrittenRows);

// Five hundred rows of two columns make a statement.
TEST_P(WrittenRows, AreThoseThatWereAddedHoweverManyMakeAStatement) {
  for (const int count : {0, 1, 499, 500, 501, 1000}) {
    RowWriter writer(*Connected(), u"Words"_s, {u"No"_s, u"Word"_s});
    for (int i = 1; i <= count; ++i) writer.Add({i, i % 2 ? QVariant(u"词%1"_s.arg(i)) : QVariant()});
    writer.Finish();
    EXPECT_EQ(Database().Value(u"select count(*) from Words"_s), QString::number(count));
    EXPECT_EQ(Database().Value(u"select count(*) from Words where Word is null"_s), QString::number(count / 2));
    EXPECT_EQ(Database().Value(u"select min(Word) from Words"_s), count > 0 ? u"词1"_s : u"<null>"_s);
    Database().Native(u"delete from Words"_s);
  }
}

}  // namespace
}  // namespace folvane::test
