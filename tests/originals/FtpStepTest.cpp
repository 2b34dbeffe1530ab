// A server that fails at one step of an operation, at each in turn.
#include <QBuffer>
#include <QDir>
#include <gmock/gmock.h>
#include <map>

#include "originals/FtpTestServer.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::IsEmpty;

namespace {

struct FtpStep {
  const char *operation, *verb;
};

const std::map<std::string, std::function<void(FtpConnection&)>> kOperations{
    {"ChangeDirectory", [](FtpConnection& connection) { connection.ChangeDirectory(u"/2026"_s); }},
    {"MakeDirectory", [](FtpConnection& connection) { connection.MakeDirectory(u"/2026/a/b"_s); }},
    {"List", [](FtpConnection& connection) { connection.List(); }},
    {"Size", [](FtpConnection& connection) { EXPECT_EQ(connection.Size(u"a.tif"_s), 3); }},
    {"Get", [](FtpConnection& connection) { Get(connection, u"a.tif"_s); }},
    {"Put", [](FtpConnection& connection) { Put(connection, u"b.tif"_s, "abc"); }},
    {"Delete", [](FtpConnection& connection) { connection.Delete(u"a.tif"_s); }},
    {"Rename", [](FtpConnection& connection) { connection.Rename(u"a.tif"_s, u"b.tif"_s); }},
};

class FtpStepTest : public testing::TestWithParam<FtpStep> {
 protected:
  static void SetUpTestSuite() { server = std::make_unique<FtpServer>(); }
  static void TearDownTestSuite() { server.reset(); }

  void SetUp() override {
    server->Reset();
    server->Write(u"2026/a.tif"_s, "abc");
    connection_ = std::make_unique<FtpConnection>(server->Login());
    connection_->ChangeDirectory(u"/2026"_s);
    server->TakeCommands();
  }
  void Operate() { kOperations.at(GetParam().operation)(*connection_); }
  QString Verb() const { return QString::fromLatin1(GetParam().verb); }
  /// What the server holds besides the file that was there.
  QStringList Rest() const {
    QStringList files = server->Files();
    files.removeAll(u"2026/a.tif"_s);
    return files;
  }

  static inline std::unique_ptr<FtpServer> server;
  std::unique_ptr<FtpConnection> connection_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(
    At, FtpStepTest,
    testing::Values(FtpStep{"ChangeDirectory", "CWD"}, FtpStep{"MakeDirectory", "MKD"}, FtpStep{"List", "CWD"},
                    FtpStep{"List", "MLSD"}, FtpStep{"Size", "CWD"}, FtpStep{"Get", "CWD"}, FtpStep{"Get", "RETR"},
                    FtpStep{"Put", "CWD"}, FtpStep{"Put", "STOR"}, FtpStep{"Delete", "CWD"}, FtpStep{"Delete", "DELE"},
                    FtpStep{"Rename", "CWD"}, FtpStep{"Rename", "RNFR"}, FtpStep{"Rename", "RNTO"}),
    [](const testing::TestParamInfo<FtpStep>& step) { return std::string(step.param.operation) + step.param.verb; });

TEST_P(FtpStepTest, ARefusedCommandIsAnErrorWithItsReplyAndEndsTheOperation) {
  server->SetRules(u"refuse %1 553"_s.arg(Verb()));
  const DataError error = ErrorFrom([&] { Operate(); });
  EXPECT_EQ(error.Kind(), DataErrorKind::File) << error.what();
  EXPECT_EQ(error.NativeCode(), u"553"_s) << error.what();
  EXPECT_THAT(error.Message(), HasText(u"553 Refused as told."_s));
  EXPECT_TRUE(server->TakeCommands().last().startsWith(Verb()));
  EXPECT_EQ(server->Read(u"2026/a.tif"_s), "abc");
  EXPECT_THAT(Rest(), IsEmpty());
  server->SetRules({});
  connection_->ChangeDirectory(u"/2026"_s);
  Operate();
}

TEST_P(FtpStepTest, ADroppedConnectionIsLostAndTheNextOperationOpensItAgain) {
  server->SetRules(u"drop %1 -1"_s.arg(Verb()));
  const DataError error = ErrorFrom([&] { Operate(); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Lost) << error.what();
  EXPECT_THAT(Rest(), IsEmpty());
  server->SetRules({});
  connection_->ChangeDirectory(u"/2026"_s);
  Operate();
}

TEST_P(FtpStepTest, OnlyALossBeforeTheFirstAnswerIsTriedAgain) {
  server->SetRules(u"drop %1 1"_s.arg(Verb()));
  if (Verb() == u"CWD"_s || Verb() == u"MKD"_s) {
    Operate();
    EXPECT_EQ(server->TakeCommands().filter(u"USER"_s).size(), 1) << "opened again once";
  } else {
    EXPECT_EQ(ErrorFrom([&] { Operate(); }).Kind(), DataErrorKind::Lost);
  }
}

TEST_P(FtpStepTest, WithoutExtendedPassiveModeThePlainOneServes) {
  server->SetRules(u"refuse EPSV 500"_s);
  Operate();
}

}  // namespace folvane::test
