#include <QApplication>

#include <folvane/ClsFolvane.h>
#include <folvane/DataError.h>
#include <folvane/createdname.h>

#include "base/IgnoreErrors.h"
#include "catalogue/Ddl.h"
#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/TestDatabase.h"
#include "support/WindowDriver.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

class ClsFolvaneTest : public test::OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    Database().Native(u"Create Table UserPopedom (UserID varchar(20) primary key, UserName varchar(50))"_s);
    Database().Native(u"Insert Into UserPopedom Values ('12', '王小明')"_s);
    Connected()->OnStatement([this](const QString& statement) { statements_ << statement; });
  }
  void TearDown() override {
    Shared().Connection = nullptr;
    for (QString* text : {&Shared().UserId, &Shared().UserName, &Shared().DatabaseKind}) text->clear();
  }

  ClsFolvane folvane_;
  QStringList statements_;
};
FOLVANE_ON_EACH_DATABASE(ClsFolvaneTest);

TEST_P(ClsFolvaneTest, TheConnectionIsSharedByAllWindows) {
  folvane_.Connection(Connected());
  EXPECT_EQ(Shared().Connection, Connected());
}

TEST_P(ClsFolvaneTest, GetUserReadsTheNameButDoesNotShareTheId) {
  folvane_.Connection(Connected());
  folvane_.GetUser(u"12"_s);
  EXPECT_EQ(folvane_.GetUser(), u"12"_s);
  EXPECT_EQ(Shared().UserName, u"王小明"_s);
  EXPECT_EQ(Shared().UserId, QString());
  EXPECT_EQ(statements_, QStringList{u"Select UserName From UserPopedom Where UserID = '12'"_s});
}

TEST_P(ClsFolvaneTest, AnUnknownUserFailsWithTheIdReplacedAndTheNameKept) {
  folvane_.Connection(Connected());
  folvane_.GetUser(u"12"_s);
  EXPECT_THROW(folvane_.GetUser(u"99"_s), DataError);
  EXPECT_EQ(folvane_.GetUser(), u"99"_s);
  EXPECT_EQ(Shared().UserName, u"王小明"_s);
}

TEST_P(ClsFolvaneTest, EachObjectReadsItsUserOverItsOwnConnection) {
  folvane_.Connection(Connected());
  ClsFolvane other;
  EXPECT_THROW(other.GetUser(u"12"_s), DataError);
  EXPECT_EQ(other.GetUser(), u"12"_s);
}

TEST_P(ClsFolvaneTest, GetCopyRightIsTheDatabaseKind) {
  folvane_.GetCopyRight(u"SYSBASE"_s);
  EXPECT_EQ(Shared().DatabaseKind, u"SYSBASE"_s);
}

TEST_P(ClsFolvaneTest, EveryEntryWithoutAConnectionIsAnError) {
  for (const auto entry : {&ClsFolvane::FileOpen, &ClsFolvane::FileArchive, &ClsFolvane::DistributeFile,
                           &ClsFolvane::PassReadFile, &ClsFolvane::TransactFile, &ClsFolvane::HastenFile}) {
    try {
      (folvane_.*entry)();
      ADD_FAILURE() << "no error";
    } catch (const DataError& error) {
      EXPECT_EQ(error.Kind(), DataErrorKind::Usage);
      EXPECT_EQ(error.Message(), u"尚未设置数据库连接，请先设置 Connection。"_s);
    }
  }
}

TEST_P(ClsFolvaneTest, AFlowWindowAsTheFirstEntryRunsWithAnEmptyUserId) {
  folvane_.Connection(Connected());
  folvane_.GetUser(u"12"_s);
  for (const auto entry :
       {&ClsFolvane::DistributeFile, &ClsFolvane::PassReadFile, &ClsFolvane::TransactFile, &ClsFolvane::HastenFile}) {
    IgnoreErrors([&] { (folvane_.*entry)(); });
    EXPECT_EQ(Shared().UserId, QString());
  }
}

TEST_P(ClsFolvaneTest, FileArchiveSharesTheIdAndLaterFlowWindowsSeeIt) {
  folvane_.Connection(Connected());
  folvane_.GetUser(u"12"_s);
  IgnoreErrors([&] { folvane_.FileArchive(); });
  EXPECT_EQ(Shared().UserId, u"12"_s);
  folvane_.GetUser(u"12"_s);
  IgnoreErrors([&] { folvane_.DistributeFile(); });
  EXPECT_EQ(Shared().UserId, u"12"_s);
}

TEST_P(ClsFolvaneTest, FileOpenSharesTheIdAndShowsTheBrowserUntilItIsClosed) {
  Database().Native(u"Drop Table UserPopedom"_s);
  CreateCatalogue(*Connected());
  Connected()->Execute(u"Insert Into UserPopedom (UserID, UserName) Values ('12', '王小明')"_s);
  const test::TempProgramDirectory directory;
  folvane_.Connection(Connected());
  folvane_.GetUser(u"12"_s);
  bool shown = false;
  test::WithWindow(u"FrmMain"_s, [&](QWidget& window) {
    shown = true;
    EXPECT_EQ(test::TextIn(window, u"UserName"_s), u"登录用户：王小明"_s);
  });
  folvane_.FileOpen();
  EXPECT_TRUE(shown);
  EXPECT_EQ(Shared().UserId, u"12"_s);
}

TEST_P(ClsFolvaneTest, AnErrorWhileTheBrowserOpensRisesToTheHost) {
  folvane_.Connection(Connected());
  EXPECT_THROW(folvane_.FileOpen(), DataError) << "there are no design tables";
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(createdname, MakesAKeyOfTwentyDigits) {
  test::FixClock(QDateTime(QDate(2002, 12, 31), QTime(23, 59, 59)));
  test::FixRandom({0.0012345});
  EXPECT_EQ(createdname().CreateName(), u"20021231235959001234"_s);
}

}  // namespace
}  // namespace folvane
