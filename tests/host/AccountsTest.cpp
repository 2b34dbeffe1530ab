#include <folvane/HostServices.h>

#include "HostTest.h"
#include "host/Accounts.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using host::Accounts;
using host::HostError;

class AccountsTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    Services().now = [this] { return now_; };
    connection_ = host::HostDatabase::Open(Choice())->Connection();
  }
  Accounts Known() { return Accounts(connection_); }
  QString Refusal(const QString& user, const QString& password) {
    try {
      Known().LogOn(user, password);
    } catch (const HostError& error) {
      return error.Message();
    }
    return {};
  }
  void Fail(int times) {
    for (int i = 0; i < times; ++i) EXPECT_NE(Refusal(u"2"_s, u"wrong"_s), QString());
  }

  QDateTime now_{QDate(2026, 11, 2), QTime(9, 0)};
  std::shared_ptr<folvane::Connection> connection_;
};
FOLVANE_ON_EACH_DATABASE(AccountsTest);

TEST_P(AccountsTest, TheFirstPasswordIsToBeChosenUntilThereIsOne) {
  EXPECT_EQ(Known().LogOnRule(), Accounts::Rule::FirstPassword);
  EXPECT_FALSE(Known().IsKnown(u"1"_s));
  Known().SetPassword(u"1"_s, u"correct horse"_s);
  EXPECT_EQ(Known().LogOnRule(), Accounts::Rule::Password);
  EXPECT_TRUE(Known().IsKnown(u"1"_s));
  EXPECT_FALSE(Known().IsKnown(u"2"_s));
}

TEST_P(AccountsTest, TheDemoDatabaseWantsNoPassword) {
  Database().Native(u"create table Report_Info(Report_Id varchar(20))"_s);
  EXPECT_EQ(Known().LogOnRule(), Accounts::Rule::FirstPassword);
  Database().Native(u"insert into Report_Info values('demo')"_s);
  EXPECT_EQ(Known().LogOnRule(), Accounts::Rule::Free);
}

TEST_P(AccountsTest, OnlyThePasswordLetsIn) {
  Known().SetPassword(u"2"_s, u"口令 'x' 八个字符"_s);
  EXPECT_EQ(Refusal(u"2"_s, u"口令 'x' 八个字符"_s), QString());
  EXPECT_EQ(Refusal(u"2"_s, u"口令 'x' 八个字"_s), u"口令不对。再输错 4 次，该用户将暂停登录。"_s);
  EXPECT_EQ(Refusal(u"10"_s, u"口令 'x' 八个字符"_s), u"该用户还没有口令，请由系统管理员设置。"_s);
  EXPECT_NE(Refusal(u"' or '1'='1"_s, u"x"_s), QString());
}

TEST_P(AccountsTest, PasswordsAreKeptAsArgon2idHashesOfTheirOwnSalt) {
  Known().SetPassword(u"1"_s, u"same password"_s);
  Known().SetPassword(u"2"_s, u"same password"_s);
  const QString hash = Database().Value(u"select PasswordHash from HostAccount where UserID='1'"_s);
  EXPECT_TRUE(hash.startsWith(u"$argon2id$"_s)) << hash.toStdString();
  EXPECT_NE(hash, Database().Value(u"select PasswordHash from HostAccount where UserID='2'"_s));
  Known().SetPassword(u"1"_s, u"another password"_s);
  EXPECT_NE(Refusal(u"1"_s, u"same password"_s), QString());
  EXPECT_EQ(Refusal(u"1"_s, u"another password"_s), QString());
}

TEST_P(AccountsTest, FiveFailuresKeepOutForAQuarterOfAnHourAndEachFurtherOneAgain) {
  Known().SetPassword(u"2"_s, u"correct horse"_s);
  Fail(4);
  EXPECT_EQ(Refusal(u"2"_s, u"wrong"_s), u"口令不对。已输错 5 次，该用户在 15 分钟内不能登录。"_s);
  EXPECT_EQ(Refusal(u"2"_s, u"correct horse"_s), u"口令多次输错，该用户已暂停登录，请在 9:15 之后再试。"_s);
  now_ = now_.addSecs(15 * 60 + 1);
  EXPECT_EQ(Refusal(u"2"_s, u"wrong"_s), u"口令不对。已输错 6 次，该用户在 15 分钟内不能登录。"_s);
  now_ = now_.addSecs(15 * 60 + 1);
  EXPECT_EQ(Refusal(u"2"_s, u"correct horse"_s), QString());
  Fail(4);
  EXPECT_EQ(Refusal(u"2"_s, u"correct horse"_s), QString()) << "a success starts the count anew";
}

TEST_P(AccountsTest, ANewPasswordLetsInAgain) {
  Known().SetPassword(u"2"_s, u"correct horse"_s);
  Fail(5);
  Known().SetPassword(u"2"_s, u"battery staple"_s);
  EXPECT_EQ(Refusal(u"2"_s, u"battery staple"_s), QString());
}

TEST_P(AccountsTest, ShortOrObviousPasswordsAreRefused) {
  EXPECT_THROW(Known().SetPassword(u"2"_s, u"1234567"_s), HostError);
  EXPECT_THROW(Known().SetPassword(u"12345678"_s, u"12345678"_s), HostError);
  EXPECT_EQ(Known().LogOnRule(), Accounts::Rule::FirstPassword);
}

TEST(Administrator, IsWhoseNumberReadsAsOne) {
  EXPECT_TRUE(host::IsAdministrator(u"1"_s));
  EXPECT_TRUE(host::IsAdministrator(u" 1.0"_s));
  EXPECT_FALSE(host::IsAdministrator(u"11"_s));
  EXPECT_FALSE(host::IsAdministrator(QString()));
}

}  // namespace
}  // namespace folvane::test
