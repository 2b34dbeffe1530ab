#include <QApplication>
#include <QDir>
#include <QPointer>
#include <stdexcept>

#include <folvane/Catalogue.h>
#include <folvane/ClsFolvane.h>
#include <folvane/DataError.h>
#include <folvane/createdname.h>

#include "base/IgnoreErrors.h"
#include "base/TypedValues.h"
#include "base/WildcardPattern.h"
#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/TestDatabase.h"
#include "support/WindowDriver.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

// The library's error that ends the work; a failure when it ends otherwise.
template <typename Work>
DataError ErrorOf(Work work) {
  try {
    work();
  } catch (const DataError& error) {
    return error;
  }
  ADD_FAILURE() << "no error";
  return DataError(DataErrorKind::Other, u"<none>"_s);
}

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

TEST_P(ClsFolvaneTest, AnIdThatIsNoNumberIsRefusedAtOnceWithTheNameKept) {
  for (const char* id : {"u1", "", "1 Or 1=1", "12.5", "nan", "0x1"})
    Database().Native(u"Insert Into UserPopedom Values ('%1', '张三')"_s.arg(QLatin1String(id)));
  folvane_.Connection(Connected());
  folvane_.GetUser(u"12"_s);
  for (const QString& id : {u"u1"_s, u""_s, u"1 Or 1=1"_s, u"12.5"_s, u"nan"_s, u"0x1"_s}) {
    EXPECT_EQ(ErrorOf([&] { folvane_.GetUser(id); }).Message(),
              u"用户编号“%1”不是数字。用户编号应当是整数，例如 12；1 是系统管理员。"_s.arg(id));
    EXPECT_EQ(folvane_.GetUser(), id);
    EXPECT_EQ(Shared().UserName, u"王小明"_s);
  }
}

TEST_P(ClsFolvaneTest, AnIdIsAWholeNumberHoweverItIsWritten) {
  folvane_.Connection(Connected());
  for (const QString& id : {u"1"_s, u"001"_s, u"1.0"_s, u"-3"_s, u"20021231235959001234"_s}) {
    Database().Native(u"Insert Into UserPopedom Values ('%1', '用户%1')"_s.arg(id));
    folvane_.GetUser(id);
    EXPECT_EQ(Shared().UserName, u"用户"_s + id);
  }
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
    const DataError error = ErrorOf([&] { (folvane_.*entry)(); });
    EXPECT_EQ(error.Kind(), DataErrorKind::Usage);
    EXPECT_EQ(error.Message(), u"尚未设置数据库连接，请先设置 Connection。"_s);
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

TEST_P(ClsFolvaneTest, FileArchiveOpensTheArchiveWindowWithoutATableAndUnloadsIt) {
  CreateTables(*Connected());
  folvane_.Connection(Connected());
  QPointer<QWidget> opened;
  test::WithWindow(u"FrmArchive"_s, [&](QWidget& window) {
    opened = &window;
    EXPECT_EQ(window.windowTitle(), u"文件归档"_s);
    EXPECT_EQ(test::TextIn(window, u"TreeHint"_s), u"还没有类目：请在 Design_ClassRelation 中登记类目。"_s);
  });
  folvane_.FileArchive();
  EXPECT_TRUE(opened.isNull());
}

TEST_P(ClsFolvaneTest, TheFlowEntriesOpenTheirWindows) {
  CreateTables(*Connected());
  folvane_.Connection(Connected());
  const std::vector<std::pair<void (ClsFolvane::*)(), std::pair<QString, QString>>> entries{
      {&ClsFolvane::DistributeFile, {u"frmDistributeFile"_s, u"文件分发"_s}},
      {&ClsFolvane::PassReadFile, {u"frmPassFile"_s, u"文件传阅"_s}},
      {&ClsFolvane::HastenFile, {u"frmTranSact"_s, u"催办单管理"_s}},
      {&ClsFolvane::TransactFile, {u"frmTranSact"_s, u"文件处理"_s}}};
  for (const auto& [entry, window] : entries) {
    QString caption;
    test::WithWindow(window.first, [&](QWidget& shown) { caption = shown.windowTitle(); });
    (folvane_.*entry)();
    EXPECT_EQ(caption, window.second);
  }
}

TEST_P(ClsFolvaneTest, FileOpenSharesTheIdAndShowsTheBrowserUntilItIsClosed) {
  CreateTables(*Connected());
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

TEST_P(ClsFolvaneTest, AnErrorOverMissingTablesNamesThemAndTellsHowToMakeThem) {
  folvane_.Connection(Connected());
  folvane_.GetUser(u"12"_s);
  const DataError error = ErrorOf([&] { folvane_.FileOpen(); });
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(error.Kind(), DataErrorKind::Statement);
  EXPECT_TRUE(error.Message().contains(u"缺少表 Design_ClassRelation、Design_TableRelation、"_s)) << error.what();
  EXPECT_TRUE(error.Message().contains(u"folvane::CreateTables"_s)) << error.what();
  EXPECT_EQ(error.Statement(), statements_.last());
}

// A database with one class and the table that a browser opens first.
class EntryErrorsTest : public ClsFolvaneTest {
 protected:
  void SetUp() override {
    ClsFolvaneTest::SetUp();
    CreateTables(*Connected());
    Database().Native(u"Insert Into Design_ClassRelation (ClassId,ClassName,Class_Parent) Values (2,'收文',1)"_s);
    Database().Native(
        u"Insert Into Design_TableRelation (TableName,ChnTableName,ClassId,Table_Parent) Values ('Lwdj','收文',2,'')"_s);
    Database().Native(
        u"Insert Into DynamicWindows (TableName,FieldName,ChnFieldName) Values ('Lwdj','CreatedDate','日期')"_s);
    Database().Native(u"Create Table Lwdj (ArchiveID varchar(20) primary key, CreatedDate varchar(10))"_s);
    folvane_.Connection(Connected());
    folvane_.GetUser(u"12"_s);
  }
  DataError ErrorOfFileOpen() {
    const DataError error = ErrorOf([&] { folvane_.FileOpen(); });
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    return error;
  }

  const test::TempProgramDirectory directory_;
};
FOLVANE_ON_EACH_DATABASE(EntryErrorsTest);

TEST_P(EntryErrorsTest, AFileThatCannotBeReadIsOneOfFiles) {
  ASSERT_TRUE(QDir().mkdir(directory_.Path(u"YearFormula.Ini"_s)));
  const DataError error = ErrorOfFileOpen();
  EXPECT_EQ(error.Kind(), DataErrorKind::File);
  EXPECT_TRUE(error.Message().contains(QDir::toNativeSeparators(directory_.Path(u"YearFormula.Ini"_s))))
      << error.what();
}

TEST_P(EntryErrorsTest, ATextThatIsNoNumberIsOneOfConversion) {
  IgnoreErrors([&] { folvane_.GetUser(u"nobody"_s); });
  EXPECT_EQ(ErrorOfFileOpen().Kind(), DataErrorKind::Conversion);
}

TEST_P(EntryErrorsTest, NumbersAndPatternsThatCannotBeReadLeaveAServiceAsTheyAre) {
  Services().now = []() -> QDateTime { return ToInteger(u"x"_s), QDateTime(); };
  EXPECT_EQ(ErrorOfFileOpen().Message(), u"“x”不是数字。"_s);
  Services().now = []() -> QDateTime { return WildcardPattern(u"[a"_s), QDateTime(); };
  EXPECT_EQ(ErrorOfFileOpen().Kind(), DataErrorKind::Conversion);
}

TEST_P(EntryErrorsTest, WhateverTheHostsOwnServicesThrowIsOneOfOthers) {
  Services().now = []() -> QDateTime { throw std::runtime_error("时钟坏了"); };
  EXPECT_EQ(ErrorOfFileOpen().Kind(), DataErrorKind::Other);
  EXPECT_EQ(ErrorOfFileOpen().Message(), u"时钟坏了"_s);
  Services().now = []() -> QDateTime { throw 7; };
  EXPECT_EQ(ErrorOfFileOpen().Kind(), DataErrorKind::Other);
}

TEST_P(EntryErrorsTest, AStatementThatFailsOverATableOfTheHostsSpeaksOfThatAlone) {
  directory_.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=CreatedDate\r\n");
  Database().Native(u"Drop Table Lwdj"_s);
  const DataError error = ErrorOfFileOpen();
  EXPECT_EQ(error.Kind(), DataErrorKind::Statement);
  EXPECT_FALSE(error.Message().contains(u"CreateTables"_s)) << error.what();
}

TEST(createdname, MakesAKeyOfTwentyDigits) {
  test::FixClock(QDateTime(QDate(2002, 12, 31), QTime(23, 59, 59)));
  test::FixRandom({0.0012345});
  EXPECT_EQ(createdname().CreateName(), u"20021231235959001234"_s);
}

}  // namespace
}  // namespace folvane
