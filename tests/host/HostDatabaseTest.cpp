#include <QFile>
#include <QTemporaryDir>

#include <folvane/DataError.h>

#include "HostTest.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using host::HostDatabase;
using host::HostError;

class HostDatabaseTest : public HostTest {};
FOLVANE_ON_EACH_DATABASE(HostDatabaseTest);

QString RefusalOf(const host::DatabaseChoice& choice) {
  try {
    HostDatabase::Open(choice);
  } catch (const HostError& error) {
    return error.Message();
  }
  return u"<opened>"_s;
}

TEST_P(HostDatabaseTest, ListsTheUsersByNumber) {
  const auto database = HostDatabase::Open(Choice());
  QStringList users;
  for (const host::HostUser& user : database->Users()) users << user.id + u' ' + user.name;
  EXPECT_EQ(users, (QStringList{u"1 系统管理员"_s, u"2 李文书"_s, u"10 赵档案"_s}));
}

TEST_P(HostDatabaseTest, FindsAUserByNumberAndRefusesAnUnknownOne) {
  const auto database = HostDatabase::Open(Choice());
  EXPECT_EQ(database->User(u"2"_s).name, u"李文书"_s);
  EXPECT_THROW(database->User(u"3"_s), HostError);
  EXPECT_THROW(database->User({}), HostError);
}

TEST_P(HostDatabaseTest, TheConnectionOutlivesTheDatabaseThatItCameFrom) {
  const auto connection = HostDatabase::Open(Choice())->Connection();
  EXPECT_EQ(connection->Execute(u"Update UserPopedom Set UserName = '王' Where UserID = '2'"_s), 1);
  EXPECT_EQ(Database().Value(u"select UserName from UserPopedom where UserID = '2'"_s), u"王"_s);
}

TEST_P(HostDatabaseTest, RefusesADatabaseWithoutUsersTable) {
  Database().Native(u"drop table UserPopedom"_s);
  EXPECT_TRUE(RefusalOf(Choice()).contains(u"UserPopedom"_s)) << RefusalOf(Choice()).toStdString();
}

TEST(HostDatabase, NamesAFileThatIsNotThere) {
  EXPECT_EQ(RefusalOf({u"/nowhere/folvane.db"_s, {}}), u"数据库文件“/nowhere/folvane.db”不存在。"_s);
}

TEST(HostDatabase, NamesAFileThatIsNoDatabase) {
  const QTemporaryDir folder;
  QFile file(folder.filePath(u"letter.txt"_s));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray(4096, 'x'));
  file.close();
  EXPECT_EQ(RefusalOf({file.fileName(), {}}), u"“%1”不是 SQLite 数据库文件。"_s.arg(file.fileName()));
}

TEST(HostDatabase, TellsWhatTheServerSaidWhenItCannotBeReached) {
  const QString refusal = RefusalOf({{}, u"Driver={PostgreSQL ANSI};Server=127.0.0.1;Port=1;Database=x;"_s});
  EXPECT_TRUE(refusal.startsWith(u"无法连接数据库服务器：\n"_s)) << refusal.toStdString();
  EXPECT_TRUE(refusal.contains(u"127.0.0.1"_s)) << refusal.toStdString();
}

TEST(HostDatabase, AsksForAConnectionString) { EXPECT_EQ(RefusalOf({{}, u" "_s}), u"请输入 ODBC 连接串。"_s); }

TEST_P(HostDatabaseTest, TheTitleKeepsThePasswordToItself) {
  auto choice = Choice();
  if (!OnSqlite()) choice.odbc += u"Pwd=secret;"_s;
  const QString title = HostDatabase::Open(choice)->Title();
  EXPECT_FALSE(title.isEmpty());
  EXPECT_FALSE(title.contains(u"secret"_s)) << title.toStdString();
}

}  // namespace
}  // namespace folvane::test
