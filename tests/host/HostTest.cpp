#include "HostTest.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

void HostTest::SetUp() {
  OnEachDatabase::SetUp();
  Database().Native(u"create table UserPopedom(UserID varchar(20), UserName varchar(40))"_s);
  for (const QString& row : {u"'10', '赵档案'"_s, u"'2', '李文书'"_s, u"'1', '系统管理员'"_s})
    Database().Native(u"insert into UserPopedom values("_s + row + u')');
}

host::DatabaseChoice HostTest::Choice() {
  if (OnSqlite()) return {Database().Value(u"select file from pragma_database_list"_s), {}};
  // The schema of this test, among those of the server.
  const QString settings =
      u"SET search_path TO %1;SET client_encoding"_s.arg(Database().Value(u"select current_schema()"_s));
  return {{}, qEnvironmentVariable("FOLVANE_TEST_PG").replace(u"SET client_encoding"_s, settings)};
}

}  // namespace folvane::test
