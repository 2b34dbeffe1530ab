// What the store on a server has of its own.
#include <gmock/gmock.h>

#include "originals/EachStore.h"
#include "support/HostDoubles.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The fixture of both stores, here with a server alone.
class FtpOriginalsTest : public EachStore {
 protected:
  void SetUp() override {
    EachStore::SetUp();
    FixClock(QDateTime(QDate(2002, 3, 4), QTime(10, 0)));
  }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(On, FtpOriginalsTest, testing::Values("Server"));

TEST_P(FtpOriginalsTest, WithoutAConnectionTheErrorSaysWhatToDo) {
  request_.ftp.reset();
  for (const QString& kind : {u"SQL SERVER"_s, u"SYSBASE"_s}) {
    request_.databaseKind = kind;
    const DataError error = ErrorFrom([&] { OpenOriginalFiles(request_); });
    EXPECT_EQ(error.Kind(), DataErrorKind::Lost);
    EXPECT_THAT(error.Message(), HasText(u"存储原文的 FTP 服务器没有连接"_s));
    EXPECT_THAT(error.Message(), HasText(u"Report_Info"_s));
  }
}

TEST_P(FtpOriginalsTest, NewFilesGoBelowTheRootAndAreFoundFromTheTopOfTheServer) {
  request_.storeRoot = u"\\原文/archive\\"_s;
  store_ = OpenOriginalFiles(request_);
  EXPECT_EQ(Store().PathOfToday(), u"原文/archive/2002"_s);
  Put({Store().PathOfToday(), u"7"_s, u".tif"_s}, "x");
  Write(u"above.tif"_s, "y");
  EXPECT_EQ(Read(u"原文/archive/2002/7.tif"_s), "x");
  const std::vector<StoredFile> files = Store().List();
  ASSERT_EQ(files.size(), 1U) << "only what lies below the root";
  EXPECT_EQ(files.front().filePath, u"原文/archive/2002"_s);
  Store().Remove({files.front().filePath, files.front().name, QString()});
  EXPECT_THAT(Files(), ElementsAre(u"above.tif"_s));
}

TEST_P(FtpOriginalsTest, ADeleteGoesFromItsOwnDirectoryOrNotAtAll) {
  Write(u"7.tif"_s, "of the top");
  EXPECT_THROW(Store().Remove({u"2002"_s, u"7"_s, u".tif"_s}), DataError);
  server->SetRules(u"refuse CWD 550"_s);
  EXPECT_THROW(Store().Remove({QString(), u"7"_s, u".tif"_s}), DataError);
  EXPECT_THAT(server->TakeCommands().filter(u"DELE"_s), IsEmpty());
  EXPECT_THAT(Files(), ElementsAre(u"7.tif"_s));
}

TEST_P(FtpOriginalsTest, DeletesRunOneByOneOnTheKeptConnection) {
  for (int number = 0; number < 5; ++number) Write(u"2002/%1.tif"_s.arg(number), "x");
  for (int number = 0; number < 5; ++number) Store().Remove({u"2002"_s, QString::number(number), u".tif"_s});
  EXPECT_THAT(Files(), IsEmpty());
  EXPECT_THAT(server->TakeCommands().filter(u"USER"_s), IsEmpty());
}

TEST_P(FtpOriginalsTest, APutThatFailsAtAnyStepLeavesNothing) {
  for (const QString& verb : {u"CWD"_s, u"MKD"_s, u"STOR"_s, u"RNFR"_s, u"RNTO"_s}) {
    for (const QString& rule : {u"refuse %1 550"_s, u"drop %1 -1"_s}) {
      server->SetRules(rule.arg(verb));
      EXPECT_THROW(Put({u"2002"_s, u"7"_s, u".tif"_s}, "x"), DataError) << rule.arg(verb).toStdString();
      server->SetRules({});
      EXPECT_THAT(Files(), IsEmpty()) << rule.arg(verb).toStdString();
      server->Reset();
    }
  }
  server->SetRules(u"full 100000"_s);
  EXPECT_EQ(ErrorFrom([&] { Put({u"2002"_s, u"7"_s, u".tif"_s}, Bytes(5'000'000)); }).NativeCode(), u"552"_s);
  EXPECT_THAT(Files(), IsEmpty());
}

TEST_P(FtpOriginalsTest, AFileThatArrivesShortIsAnErrorAndIsDeleted) {
  server->SetRules(u"short SIZE"_s);
  EXPECT_THAT(ErrorFrom([&] { Put({u"2002"_s, u"7"_s, u".tif"_s}, "abc"); }).Message(), HasText(u"没有完整到达"_s));
  EXPECT_THAT(Files(), IsEmpty());
}

}  // namespace folvane::test
