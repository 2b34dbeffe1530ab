#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <folvane/ClsFolvane.h>

#include "HostTest.h"
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
void PressOK(LogOnDialog& dialog) { Click(Find(dialog, u"CmdOK"_s)); }

class LogOnDialogTest : public HostTest {
 protected:
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
  PressOK(dialog);
  ASSERT_EQ(dialog.result(), QDialog::Accepted) << Message(dialog).toStdString();
  const auto session = dialog.TakeSession();
  EXPECT_EQ(session->User().name, u"赵档案"_s);
  EXPECT_EQ(session->Library().GetUser(), u"10"_s);
}

TEST_P(LogOnDialogTest, TakesATypedNumber) {
  LogOnDialog dialog(Choices(u"1"_s), NoDemo());
  dialog.show();
  Retype(Users(dialog), u"2"_s);
  PressOK(dialog);
  ASSERT_EQ(dialog.result(), QDialog::Accepted) << Message(dialog).toStdString();
  EXPECT_EQ(dialog.TakeSession()->User().id, u"2"_s);
}

TEST_P(LogOnDialogTest, StaysWithTheReasonForAnUnknownUser) {
  LogOnDialog dialog(Choices(u"1"_s), NoDemo());
  dialog.show();
  Retype(Users(dialog), u"77"_s);
  PressOK(dialog);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(Message(dialog), u"数据库中没有编号为“77”的用户。"_s);
}

TEST_P(LogOnDialogTest, RemembersTheChoicesOfASuccessfulLogOn) {
  LogOnDialog dialog(Choices(u"2"_s), NoDemo());
  dialog.show();
  Find<QComboBox>(dialog, u"CboKind"_s).setCurrentIndex(1);
  PressOK(dialog);
  const LogOnChoices next = host::LastChoices();
  EXPECT_EQ(next.Database(), Choice());
  EXPECT_EQ(next.user, u"2"_s);
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
