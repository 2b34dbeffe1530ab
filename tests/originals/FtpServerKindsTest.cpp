// Servers that announce other things: names in the code page, listings as text, encryption.
#include <QDir>
#include <QThread>
#include <gmock/gmock.h>

#include <folvane/HostServices.h>

#include "base/CodePage.h"
#include "originals/FtpTestServer.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

TEST(FtpServerKindsTest, NamesGoInTheNationalCodePageWhereUtf8IsNotAnnounced) {
  FtpServer server({u"gbk"_s});
  FtpLogin login = server.Login();
  login.user = u"plain"_s;
  login.password = u"p:w@/%41"_s;
  FtpConnection connection(login);
  connection.MakeDirectory(u"/收文"_s);
  connection.ChangeDirectory(u"/收文"_s);
  Put(connection, u"登记 一.tif"_s, "abc");
  EXPECT_EQ(server.Files(), QStringList{u"收文/登记 一.tif"_s});
  EXPECT_EQ(Names(connection.List()), QStringList{u"登记 一.tif"_s});
  EXPECT_EQ(connection.List().front().size, 3);
  EXPECT_EQ(Get(connection, u"登记 一.tif"_s), "abc");
  connection.Rename(u"登记 一.tif"_s, u"二.tif"_s);
  connection.Delete(u"二.tif"_s);
  const DataError missing = ErrorFrom([&] { connection.Delete(u"没有.tif"_s); });
  EXPECT_EQ(missing.NativeCode(), u"550"_s);
  server.TakeCommands();
  EXPECT_THAT(ErrorFrom([&] { Put(connection, u"😀.tif"_s, "x"); }).Message(), HasText(u"国家编码"_s));
  EXPECT_THAT(server.TakeCommands(), IsEmpty()) << "a character outside the code page is not sent as another one";
}

TEST(FtpServerKindsTest, ListingsAreReadAsTextWhereFactsAreNotAnnounced) {
  FtpServer server({u"list"_s});
  server.Write(u"收文 一.tif"_s, "abcd");
  QDir().mkpath(server.Path(u"2026"_s));
  FtpConnection connection(server.Login());
  const std::vector<FtpEntry> entries = connection.List();
  ASSERT_EQ(Names(entries), (QStringList{u"2026"_s, u"收文 一.tif"_s}));
  for (const FtpEntry& entry : entries) {
    EXPECT_EQ(entry.isDirectory, entry.name == u"2026"_s);
    EXPECT_EQ(entry.size, entry.isDirectory ? -1 : 4);
  }
  EXPECT_THAT(server.TakeCommands(), Contains(u"LIST"_s));
}

TEST(FtpServerKindsTest, AServerThatDoesNotKnowSizesIsAskedForItsList) {
  FtpServer server;
  server.Write(u"a.tif"_s, "abcd");
  server.SetRules(u"refuse SIZE 502"_s);
  FtpConnection connection(server.Login());
  EXPECT_EQ(connection.Size(u"a.tif"_s), 4);
  EXPECT_EQ(connection.Size(u"b.tif"_s), std::nullopt);
  Put(connection, u"b.tif"_s, "abc");
  EXPECT_EQ(server.Read(u"b.tif"_s), "abc");
}

namespace {

/// On a server that offers encryption.
class FtpEncryptionTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { server = std::make_unique<FtpServer>(QStringList{u"tls"_s}); }
  static void TearDownTestSuite() { server.reset(); }
  void SetUp() override { server->Reset(); }

  static inline std::unique_ptr<FtpServer> server;
};

}  // namespace

TEST_F(FtpEncryptionTest, EncryptionIsUsedWhereItIsOffered) {
  FtpConnection connection(server->Login());
  Put(connection, u"a.tif"_s, Bytes(300'000));
  EXPECT_EQ(Get(connection, u"a.tif"_s), Bytes(300'000));
  EXPECT_EQ(Names(connection.List()), QStringList{u"a.tif"_s});
  const QStringList commands = server->TakeCommands();
  EXPECT_EQ(commands.first(), u"AUTH TLS"_s);
  EXPECT_THAT(commands, Contains(u"PROT P"_s));
  EXPECT_EQ(commands.filter(u"USER"_s).size(), 1);
}

TEST_F(FtpEncryptionTest, LettingGoOfAnEncryptedConnectionThatTheServerHasLeftEndsNothing) {
  auto gone = std::make_unique<FtpServer>(QStringList{u"tls"_s});
  auto connection = std::make_unique<FtpConnection>(gone->Login());
  EXPECT_THAT(connection->List(), IsEmpty());
  gone.reset();
  EXPECT_EXIT((connection.reset(), std::_Exit(0)), testing::ExitedWithCode(0), "");
}

TEST_F(FtpEncryptionTest, WhoInsistsWantsACertificateThatIsTrusted) {
  Services().ftpMustBeEncrypted = true;
  const DataError error = ErrorFrom([] { FtpConnection connection(server->Login()); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Lost);
  EXPECT_THAT(error.Message(), HasText(u"证书不受信任"_s));
  EXPECT_THAT(server->TakeCommands(), Not(Contains(u"PASS"_s)));
  Services().ftpAuthorities = server->Certificate();
  FtpConnection connection(server->Login());
  EXPECT_THAT(connection.List(), IsEmpty());
}

TEST_F(FtpEncryptionTest, WhoInsistsGetsNoConnectionWithoutEncryption) {
  Services().ftpMustBeEncrypted = true;
  FtpServer plain;
  const DataError error = ErrorFrom([&] { FtpConnection connection(plain.Login()); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Lost);
  EXPECT_THAT(error.Message(), HasText(u"不提供加密"_s));
  EXPECT_THAT(plain.TakeCommands(), Not(Contains(u"PASS"_s)));
}

TEST_F(FtpEncryptionTest, InsistingFromNowOnMakesTheConnectionAnewWithAllThatBelongsToIt) {
  FtpConnection connection(server->Login());
  server->TakeCommands();
  Services().ftpMustBeEncrypted = true;
  Services().ftpAuthorities = server->Certificate();
  EXPECT_THAT(connection.List(), IsEmpty());
  EXPECT_THAT(server->TakeCommands(), Contains(u"OPTS UTF8 ON"_s));
}

TEST_F(FtpEncryptionTest, AnEncryptedConnectionThatBreaksIsAnErrorAndNotTheEnd) {
  FtpConnection connection(server->Login());
  server->SetRules(u"cut 100000"_s);
  EXPECT_THROW(Put(connection, u"a.tif"_s, Bytes(5'000'000)), DataError);
  server->SetRules({});
  EXPECT_THAT(connection.List(), IsEmpty());
}

}  // namespace folvane::test
