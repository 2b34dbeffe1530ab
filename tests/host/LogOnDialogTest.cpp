#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <folvane/ClsFolvane.h>

#include "HostTest.h"
#include "host/Accounts.h"
#include "host/LogOnDialog.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using host::LogOnChoices;
using host::LogOnDialog;

LogOnDialog::DemoMaker NoDemo() {
  return []() -> QString { throw host::HostError(u"没有演示数据库"_s); };
}

QString Message(const LogOnDialog& dialog) { return Find<QLabel>(dialog, u"LblMessage"_s).text(); }
QComboBox& Users(const LogOnDialog& dialog) { return Find<QComboBox>(dialog, u"CboUser"_s); }
const QString kSecret = u"correct horse"_s;
void PressOK(LogOnDialog& dialog) { Click(Find(dialog, u"CmdOK"_s)); }

/// The users 1 and 10 have a password.
class LogOnDialogTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    const host::Accounts accounts(host::HostDatabase::Open(Choice())->Connection());
    accounts.SetPassword(u"1"_s, kSecret);
    accounts.SetPassword(u"10"_s, kSecret);
  }
  static void Enter(LogOnDialog& dialog, const QString& password = kSecret) {
    Retype(Find<QLineEdit>(dialog, u"TxtPassword"_s), password);
    PressOK(dialog);
  }
  LogOnChoices Choices(const QString& user = {}) {
    const host::DatabaseChoice choice = Choice();
    return {choice.file.isEmpty(), choice.file, choice.odbc, user, host::kLocal};
  }
};
FOLVANE_ON_EACH_DATABASE(LogOnDialogTest);

TEST_P(LogOnDialogTest, ListsTheUsersOfTheLastDatabaseAndMarksTheLastUser) {
  LogOnDialog dialog(Choices(u"2"_s), NoDemo());
  dialog.show();
  EXPECT_EQ(Users(dialog).count(), 3);
  EXPECT_EQ(Users(dialog).currentText(), u"2  李文书"_s);
}

TEST_P(LogOnDialogTest, LogsOnAsTheChosenUser) {
  LogOnDialog dialog(Choices(u"10"_s), NoDemo());
  dialog.show();
  Enter(dialog);
  ASSERT_EQ(dialog.result(), QDialog::Accepted) << Message(dialog).toStdString();
  const auto session = dialog.TakeSession();
  EXPECT_EQ(session->User().name, u"赵档案"_s);
  EXPECT_EQ(session->Library().GetUser(), u"10"_s);
}

TEST_P(LogOnDialogTest, TakesATypedNumber) {
  LogOnDialog dialog(Choices(u"1"_s), NoDemo());
  dialog.show();
  Retype(Users(dialog), u"10"_s);
  Enter(dialog);
  ASSERT_EQ(dialog.result(), QDialog::Accepted) << Message(dialog).toStdString();
  EXPECT_EQ(dialog.TakeSession()->User().id, u"10"_s);
}

TEST_P(LogOnDialogTest, StaysWithTheReasonForAnUnknownUser) {
  LogOnDialog dialog(Choices(u"1"_s), NoDemo());
  dialog.show();
  Retype(Users(dialog), u"77"_s);
  PressOK(dialog);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(Message(dialog), u"数据库中没有编号为“77”的用户。"_s);
}

TEST_P(LogOnDialogTest, StaysWithTheReasonForAWrongPassword) {
  LogOnDialog dialog(Choices(u"1"_s), NoDemo());
  dialog.show();
  PressOK(dialog);
  EXPECT_EQ(Message(dialog), u"请输入口令。"_s);
  Enter(dialog, u"wrong"_s);
  EXPECT_TRUE(Message(dialog).startsWith(u"口令不对。"_s)) << Message(dialog).toStdString();
  EXPECT_EQ(Find<QLineEdit>(dialog, u"TxtPassword"_s).text(), QString());
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(dialog.TakeSession(), nullptr);
}

TEST_P(LogOnDialogTest, WithoutAnyPasswordTheAdministratorChoosesTheFirst) {
  Database().Native(u"drop table HostAccount"_s);
  LogOnDialog dialog(Choices(u"10"_s), NoDemo());
  dialog.show();
  PressOK(dialog);
  EXPECT_TRUE(Message(dialog).contains(u"系统管理员"_s)) << Message(dialog).toStdString();
  Retype(Users(dialog), u"1"_s);
  WithWindow(u"PasswordDialog"_s, [](QWidget& chosen) {
    EXPECT_EQ(UnnamedControls(chosen), QStringList());
    EXPECT_FALSE(Find(chosen, u"TxtOld"_s).isVisible());
    Retype(Find<QLineEdit>(chosen, u"TxtNew"_s), u"short"_s);
    Retype(Find<QLineEdit>(chosen, u"TxtRepeat"_s), u"short"_s);
    Click(Find(chosen, u"CmdOK"_s));
    EXPECT_EQ(Find<QLabel>(chosen, u"LblMessage"_s).text(), u"口令至少要有 8 个字符。"_s);
    Retype(Find<QLineEdit>(chosen, u"TxtNew"_s), kSecret);
    Retype(Find<QLineEdit>(chosen, u"TxtRepeat"_s), kSecret + u'.');
    Click(Find(chosen, u"CmdOK"_s));
    EXPECT_EQ(Find<QLabel>(chosen, u"LblMessage"_s).text(), u"两次输入的新口令不一致。"_s);
    Retype(Find<QLineEdit>(chosen, u"TxtRepeat"_s), kSecret);
    Click(Find(chosen, u"CmdOK"_s));
  });
  PressOK(dialog);
  ASSERT_EQ(dialog.result(), QDialog::Accepted) << Message(dialog).toStdString();
  LogOnDialog next(Choices(u"1"_s), NoDemo());
  next.show();
  Enter(next);
  EXPECT_EQ(next.result(), QDialog::Accepted) << Message(next).toStdString();
}

TEST_P(LogOnDialogTest, TheDemoDatabaseAsksForNothing) {
  Database().Native(u"create table Report_Info(Report_Id varchar(20))"_s);
  Database().Native(u"insert into Report_Info values('demo')"_s);
  LogOnDialog dialog(Choices(u"2"_s), NoDemo());
  dialog.show();
  EXPECT_FALSE(Find(dialog, u"TxtPassword"_s).isEnabled());
  PressOK(dialog);
  EXPECT_EQ(dialog.result(), QDialog::Accepted) << Message(dialog).toStdString();
}

TEST_P(LogOnDialogTest, RemembersTheChoicesOfASuccessfulLogOn) {
  LogOnDialog dialog(Choices(u"10"_s), NoDemo());
  dialog.show();
  Find<QComboBox>(dialog, u"CboKind"_s).setCurrentIndex(1);
  Enter(dialog);
  const LogOnChoices next = host::LastChoices();
  EXPECT_EQ(next.Database(), Choice());
  EXPECT_EQ(next.user, u"10"_s);
  EXPECT_EQ(next.kind, u"SYSBASE"_s);
}

TEST_P(LogOnDialogTest, ConnectsWhenAnotherDatabaseIsTyped) {
  const LogOnChoices choices = Choices();
  LogOnDialog dialog({choices.useOdbc, {}, {}, u"2"_s, host::kLocal}, NoDemo());
  dialog.show();
  EXPECT_EQ(Users(dialog).count(), 0);
  auto& field = Find<QLineEdit>(dialog, choices.useOdbc ? u"TxtOdbc"_s : u"TxtFile"_s);
  Retype(field, choices.useOdbc ? choices.odbc : choices.file);
  Q_EMIT field.editingFinished();
  EXPECT_EQ(Users(dialog).currentText(), u"2  李文书"_s) << Message(dialog).toStdString();
}

TEST(LogOnDialog, EveryControlHasANameForScreenReadersInBothWays) {
  for (const bool useOdbc : {false, true}) {
    LogOnDialog dialog({useOdbc, {}, {}, {}, host::kLocal}, NoDemo());
    dialog.show();
    EXPECT_EQ(UnnamedControls(dialog), QStringList());
  }
}

TEST(LogOnDialog, StaysWithTheReasonForAWrongDatabase) {
  LogOnDialog dialog({false, u"/nowhere/folvane.db"_s, {}, u"1"_s, host::kLocal}, NoDemo());
  dialog.show();
  PressOK(dialog);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(dialog.TakeSession(), nullptr);
  EXPECT_EQ(Message(dialog), u"数据库文件“/nowhere/folvane.db”不存在。"_s);
  EXPECT_FALSE(Users(dialog).isEnabled());
}

TEST(LogOnDialog, AWrongDatabaseDoesNotForgetTheUser) {
  const auto database = TestDatabase::Create("SQLite");
  database->Native(u"create table UserPopedom(UserID varchar(20), UserName varchar(40))"_s);
  database->Native(u"insert into UserPopedom values('1', '甲'), ('2', '乙')"_s);
  LogOnDialog dialog({false, u"/nowhere/folvane.db"_s, {}, u"2"_s, host::kLocal}, NoDemo());
  dialog.show();
  auto& file = Find<QLineEdit>(dialog, u"TxtFile"_s);
  Retype(file, database->Value(u"select file from pragma_database_list"_s));
  Q_EMIT file.editingFinished();
  EXPECT_EQ(Users(dialog).currentText(), u"2  乙"_s);
}

TEST(LogOnDialog, TheFirstStartOffersTheDemoDatabase) {
  const auto database = TestDatabase::Create("SQLite");
  database->Native(u"create table UserPopedom(UserID varchar(20), UserName varchar(40))"_s);
  database->Native(u"insert into UserPopedom values('1', '系统管理员')"_s);
  LogOnDialog dialog({}, [&] { return database->Value(u"select file from pragma_database_list"_s); });
  dialog.show();
  EXPECT_TRUE(Message(dialog).contains(u"演示数据库"_s)) << Message(dialog).toStdString();
  Click(Find(dialog, u"CmdDemo"_s));
  EXPECT_EQ(Users(dialog).currentText(), u"1  系统管理员"_s);
}

TEST(LogOnDialog, TellsWhyTheDemoDatabaseWasNotMade) {
  LogOnDialog dialog({}, NoDemo());
  dialog.show();
  Click(Find(dialog, u"CmdDemo"_s));
  EXPECT_EQ(Message(dialog), u"没有演示数据库"_s);
}

}  // namespace
}  // namespace folvane::test
