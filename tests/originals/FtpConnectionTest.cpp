#include <QBuffer>
#include <QElapsedTimer>
#include <QThread>
#include <gmock/gmock.h>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

#include "originals/FtpChannel.h"
#include "originals/FtpTestServer.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// On a server that behaves until it is told otherwise.
class FtpConnectionTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { server = std::make_unique<FtpServer>(); }
  static void TearDownTestSuite() { server.reset(); }
  void SetUp() override { server->Reset(); }
  void TearDown() override { PatienceWithFtp() = {}; }

  /// A connection that is in the directory "2026", and the server's log empty.
  std::unique_ptr<FtpConnection> In2026() {
    QDir().mkpath(server->Path(u"2026"_s));
    auto connection = std::make_unique<FtpConnection>(server->Login());
    connection->ChangeDirectory(u"/2026"_s);
    server->TakeCommands();
    return connection;
  }

  static inline std::unique_ptr<FtpServer> server;
};

}  // namespace

TEST_F(FtpConnectionTest, UserAndPasswordAreTakenLiterally) {
  const FtpConnection connection(server->Login());
  EXPECT_EQ(server->TakeCommands().mid(0, 3), (QStringList{u"AUTH TLS"_s, u"AUTH SSL"_s, u"USER 归档@x:y"_s}));
}

TEST_F(FtpConnectionTest, AWrongPasswordIsARefusalWithoutThePassword) {
  FtpLogin login = server->Login();
  login.password = u"falsches Wort"_s;
  const DataError error = ErrorFrom([&] { FtpConnection connection(login); });
  EXPECT_EQ(error.Kind(), DataErrorKind::File);
  EXPECT_EQ(error.NativeCode(), u"530"_s);
  EXPECT_THAT(error.Message(), HasText(u"530 Authentication failed"_s));
  EXPECT_FALSE(error.Message().contains(login.password));
}

TEST_F(FtpConnectionTest, ALineBreakInTheUserSendsNothing) {
  FtpLogin login = server->Login();
  login.user += u"\r\nDELE a"_s;
  EXPECT_THROW(FtpConnection{login}, DataError);
  EXPECT_THAT(server->TakeCommands(), IsEmpty());
}

TEST_F(FtpConnectionTest, AServerThatDoesNotAnswerIsLost) {
  FtpLogin login = server->Login();
  login.port = 1;
  const DataError error = ErrorFrom([&] { FtpConnection connection(login); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Lost);
  EXPECT_THAT(error.Message(), HasText(u"127.0.0.1:1"_s));
  login.server = u"no host/../x"_s;
  EXPECT_EQ(ErrorFrom([&] { FtpConnection connection(login); }).Kind(), DataErrorKind::Lost);
}

TEST_F(FtpConnectionTest, FilesGoThereAndBackAndOneLogOnServesAll) {
  FtpConnection connection(server->Login());
  connection.MakeDirectory(u"/收文/2026"_s);
  connection.ChangeDirectory(u"/收文"_s);
  connection.ChangeDirectory(u"2026"_s);
  const QByteArray content = Bytes(300'000);
  Put(connection, u"一 二%41.tif"_s, content);
  EXPECT_EQ(server->Read(u"收文/2026/一 二%41.tif"_s), content);
  EXPECT_EQ(Get(connection, u"一 二%41.tif"_s), content);
  EXPECT_EQ(connection.Size(u"一 二%41.tif"_s), 300'000);
  connection.Rename(u"一 二%41.tif"_s, u"二.tif"_s);
  EXPECT_EQ(Names(connection.List()), (QStringList{u"二.tif"_s}));
  EXPECT_EQ(connection.Size(u"一 二%41.tif"_s), std::nullopt);
  connection.Delete(u"二.tif"_s);
  EXPECT_THAT(server->Files(), IsEmpty());
  EXPECT_EQ(server->TakeCommands().filter(u"USER"_s).size(), 1);
}

TEST_F(FtpConnectionTest, EveryOperationGoesToItsDirectoryFirst) {
  const auto connection = In2026();
  Put(*connection, u"a.tif"_s, "a");
  connection->Delete(u"a.tif"_s);
  EXPECT_THAT(server->TakeCommands(), ElementsAre(u"CWD /2026"_s, u"EPSV"_s, u"TYPE I"_s, u"STOR a.tif"_s,
                                                  u"SIZE a.tif"_s, u"CWD /2026"_s, u"DELE a.tif"_s));
}

TEST_F(FtpConnectionTest, ADirectoryThatIsNotEnteredIsNeverFollowedByADelete) {
  const auto connection = In2026();
  server->Write(u"a.tif"_s, "of the top");
  EXPECT_THROW(connection->ChangeDirectory(u"/2027"_s), DataError);
  EXPECT_THROW(connection->Delete(u"a.tif"_s), DataError) << "the connection is in no directory now";
  connection->ChangeDirectory(u"/2026"_s);
  QDir(server->Path()).rmdir(u"2026"_s);
  EXPECT_THROW(connection->Delete(u"a.tif"_s), DataError) << "the directory has gone meanwhile";
  EXPECT_THAT(server->TakeCommands().filter(u"DELE"_s), IsEmpty());
  EXPECT_TRUE(server->Has(u"a.tif"_s));
}

TEST_F(FtpConnectionTest, NamesThatWouldBeCommandsOrPathsAreRefusedUnsent) {
  const auto connection = In2026();
  for (const QString& name : {u"a\r\nDELE b"_s, u"a\nb"_s, QString(QChar::Null), u"a/b"_s, u"a\\b"_s, u".."_s, u""_s}) {
    EXPECT_THROW(connection->Delete(name), DataError) << name.toStdString();
    EXPECT_THROW(connection->Size(name), DataError) << name.toStdString();
    EXPECT_THROW(connection->Rename(name, u"x"_s), DataError) << name.toStdString();
    EXPECT_THROW(connection->Rename(u"x"_s, name), DataError) << name.toStdString();
    EXPECT_THROW(Get(*connection, name), DataError) << name.toStdString();
    EXPECT_THROW(Put(*connection, name, "x"), DataError) << name.toStdString();
  }
  EXPECT_THROW(connection->ChangeDirectory(u"/2026\r\nDELE b"_s), DataError);
  EXPECT_THROW(connection->MakeDirectory(u"/2026\nb"_s), DataError);
  EXPECT_THAT(server->TakeCommands(), IsEmpty());
}

TEST_F(FtpConnectionTest, ARefusalIsToldWithTheServersReplyAndTheConnectionGoesOn) {
  const auto connection = In2026();
  const DataError error = ErrorFrom([&] { connection->Delete(u"没有.tif"_s); });
  EXPECT_EQ(error.Kind(), DataErrorKind::File);
  EXPECT_EQ(error.NativeCode(), u"550"_s);
  EXPECT_THAT(error.Message(), HasText(u"FTP 服务器拒绝删除文件 没有.tif：550 No such file or directory."_s));
  EXPECT_EQ(ErrorFrom([&] { Get(*connection, u"没有.tif"_s); }).NativeCode(), u"550"_s);
  EXPECT_THAT(connection->List(), IsEmpty());
  EXPECT_THAT(server->TakeCommands().filter(u"USER"_s), IsEmpty());
}

TEST_F(FtpConnectionTest, AConnectionThatWasClosedWhileIdleIsOpenedAgainOnceSilently) {
  const FtpServer impatient({u"idle=0.3"_s});
  impatient.Write(u"2026/a.tif"_s, "a");
  FtpConnection connection(impatient.Login());
  connection.ChangeDirectory(u"/2026"_s);
  QThread::msleep(600);
  EXPECT_EQ(Get(connection, u"a.tif"_s), "a");
}

TEST_F(FtpConnectionTest, AProgressThatDeclinesCancelsAndNothingIsLeftOnTheServer) {
  const auto connection = In2026();
  server->SetRules(u"slow 200000"_s);
  QBuffer source;
  source.setData(Bytes(2'000'000));
  source.open(QIODevice::ReadOnly);
  qint64 last = 0;
  const auto half = [&](qint64 done, qint64 total) {
    EXPECT_EQ(total, 2'000'000);
    last = done;
    return done < 300'000;
  };
  EXPECT_EQ(ErrorFrom([&] { connection->Put(source, u"a.tif"_s, half); }).Message(), u"传输已取消。"_s);
  EXPECT_GE(last, 300'000);
  EXPECT_LT(last, 2'000'000);
  server->SetRules({});
  EXPECT_THAT(server->Files(), IsEmpty());
  EXPECT_THAT(connection->List(), IsEmpty());
}

TEST_F(FtpConnectionTest, AReadThatIsCancelledEndsAndTheConnectionGoesOn) {
  const auto connection = In2026();
  server->Write(u"2026/a.tif"_s, Bytes(2'000'000));
  server->SetRules(u"slow 200000"_s);
  QBuffer target;
  target.open(QIODevice::WriteOnly);
  const auto half = [](qint64 done, qint64) { return done < 300'000; };
  EXPECT_EQ(ErrorFrom([&] { connection->Get(u"a.tif"_s, target, half); }).Message(), u"传输已取消。"_s);
  server->SetRules({});
  EXPECT_EQ(Get(*connection, u"a.tif"_s).size(), 2'000'000);
}

TEST_F(FtpConnectionTest, AnErrorOfTheProgressOrTheDeviceComesThrough) {
  const auto connection = In2026();
  QBuffer source;
  source.setData("abc");
  source.open(QIODevice::ReadOnly);
  const auto fails = [](qint64, qint64) -> bool { throw std::runtime_error("window gone"); };
  EXPECT_THROW(connection->Put(source, u"a.tif"_s, fails), std::runtime_error);
  const auto again = [&](qint64, qint64) {
    EXPECT_EQ(ErrorFrom([&] { connection->List(); }).Kind(), DataErrorKind::Usage) << "one transfer at a time";
    return true;
  };
  connection->Put(source, u"b.tif"_s, again);
  QBuffer closed;
  closed.open(QIODevice::ReadOnly);
  EXPECT_EQ(ErrorFrom([&] { connection->Get(u"b.tif"_s, closed); }).Kind(), DataErrorKind::File);
  EXPECT_EQ(Names(connection->List()), QStringList{u"b.tif"_s});
}

TEST_F(FtpConnectionTest, AServerWithoutRoomTellsSoAndNothingIsLeft) {
  const auto connection = In2026();
  server->SetRules(u"full 100000"_s);
  const DataError error = ErrorFrom([&] { Put(*connection, u"a.tif"_s, Bytes(5'000'000)); });
  EXPECT_EQ(error.NativeCode(), u"552"_s) << error.what();
  EXPECT_EQ(error.Kind(), DataErrorKind::File);
  EXPECT_THAT(server->Files(), IsEmpty());
}

TEST_F(FtpConnectionTest, AConnectionThatBreaksInATransferIsLostAndNothingIsLeft) {
  const auto connection = In2026();
  server->SetRules(u"cut 100000"_s);
  const DataError error = ErrorFrom([&] { Put(*connection, u"a.tif"_s, Bytes(5'000'000)); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Lost) << error.what();
  EXPECT_THAT(server->Files(), IsEmpty());
}

TEST_F(FtpConnectionTest, AServerThatFallsSilentIsLostAfterAWhile) {
  PatienceWithFtp() = {1, 1, 1};
  const auto connection = In2026();
  server->SetRules(u"hang DELE"_s);
  QElapsedTimer clock;
  clock.start();
  EXPECT_EQ(ErrorFrom([&] { connection->Delete(u"a.tif"_s); }).Kind(), DataErrorKind::Lost);
  EXPECT_LT(clock.elapsed(), 4'000);
}

}  // namespace folvane::test
