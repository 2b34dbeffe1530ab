#include "support/TestDatabase.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

class TestDatabaseTest : public OnEachDatabase {};
FOLVANE_ON_EACH_DATABASE(TestDatabaseTest);

TEST_P(TestDatabaseTest, KeepsChineseTextBetweenHandles) {
  Database().Native(u"CREATE TABLE t (name varchar(20))"_s);
  Connected()->Execute(u"Insert Into t (name) Values ('档案')"_s);
  EXPECT_EQ(Database().Value(u"SELECT name FROM t"_s), u"档案"_s);
}

TEST_P(TestDatabaseTest, GivesIndependentConnections) {
  Database().Native(u"CREATE TABLE t (name varchar(20))"_s);
  const auto second = Database().Connect();
  Connected()->BeginTrans();
  Connected()->Execute(u"Insert Into t (name) Values ('a')"_s);
  Connected()->RollbackTrans();
  second->Execute(u"Insert Into t (name) Values ('b')"_s);
  EXPECT_EQ(Database().Rows(u"SELECT name FROM t"_s), std::vector<QStringList>{{u"b"_s}});
}

TEST_P(TestDatabaseTest, TellsNullFromText) {
  EXPECT_EQ(Database().Rows(u"SELECT NULL, 'x'"_s), (std::vector<QStringList>{{u"<null>"_s, u"x"_s}}));
}

TEST_P(TestDatabaseTest, BeginsEmptyForEveryTest) {
  EXPECT_THROW(Database().Native(u"SELECT * FROM t"_s), std::runtime_error);
}

}  // namespace folvane::test
