#include <stdexcept>

#include "data/DatabaseSession.h"
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

int tablesMade = 0;
void MakeFurniture(Connection& connection) {
  ++tablesMade;
  DatabaseSession::Of(connection).ExecuteNative({"CREATE TABLE kept (name varchar(20))", {}});
}

TEST_P(TestDatabaseTest, IsFurnishedAsTheMakerMadeItWhateverTheTestBeforeDid) {
  tablesMade = 0;
  const auto furnished = [] {
    auto database = TestDatabase::Create(GetParam());
    database->Furnish(&MakeFurniture);
    EXPECT_EQ(database->Value(u"SELECT count(*) FROM kept"_s), u"0"_s);
    return database;
  };
  furnished()->Native(u"INSERT INTO kept VALUES ('a')"_s);
  furnished()->Native(u"CREATE TABLE added (name varchar(20))"_s);
  EXPECT_THROW(furnished()->Native(u"SELECT * FROM added"_s), std::runtime_error);
  EXPECT_EQ(tablesMade, 1);
  furnished()->Native(u"ALTER TABLE kept ADD COLUMN more varchar(20)"_s);
  EXPECT_THROW(furnished()->Native(u"SELECT more FROM kept"_s), std::runtime_error);
  furnished()->Native(u"DROP TABLE kept"_s);
  const auto one = furnished(), other = furnished();
  one->Native(u"INSERT INTO kept VALUES ('a')"_s);
  EXPECT_EQ(other->Value(u"SELECT count(*) FROM kept"_s), u"0"_s);
}

TEST_P(TestDatabaseTest, BeginsEmptyForEveryTest) {
  EXPECT_THROW(Database().Native(u"SELECT * FROM t"_s), std::runtime_error);
}

}  // namespace folvane::test
