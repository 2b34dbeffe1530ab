#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>
#include <folvane/Version.h>

#include "HostTest.h"
#include "host/Accounts.h"
#include "host/LogOnChoices.h"
#include "host/StartWindow.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using host::Entry;
using host::Session;
using host::StartWindow;

class StartWindowTest : public HostTest {
 protected:
  Session LogOn() { return Session(host::HostDatabase::Open(Choice()), u"1"_s, host::kLocal); }
};
FOLVANE_ON_EACH_DATABASE(StartWindowTest);

TEST_P(StartWindowTest, EveryCardAndItsKeysOpenTheEntryOfTheName) {
  const Session session = LogOn();
  QStringList opened;
  StartWindow window(session, [&](const Entry& entry) { opened << entry.name; });
  window.show();
  ASSERT_TRUE(WaitUntil([&] { return window.isActiveWindow(); }));
  QStringList expected;
  for (size_t place = 0; place < host::Entries().size(); ++place) {
    const Entry& entry = host::Entries()[place];
    Click(Find(window, entry.name));
    Press(window, Qt::Key(Qt::Key_1 + int(place)), Qt::ControlModifier);
    expected << entry.name << entry.name;
    WaitUntil([&] { return opened.size() == expected.size(); });  // a key shows the card pressed for a moment first
  }
  EXPECT_EQ(opened, expected);
}

TEST_P(StartWindowTest, TheDesignerIsTheAdministratorsAlone) {
  const Session session = LogOn();
  StartWindow window(session, [](const Entry&) {});
  window.show();
  bool isOpen = false;
  WithWindow(u"FrmDesigner"_s, [&](QWidget& designer) { isOpen = designer.isVisible(); });
  Click(Find(window, u"CmdDesign"_s));
  EXPECT_TRUE(isOpen);
  const Session other(host::HostDatabase::Open(Choice()), u"2"_s, host::kLocal);
  const StartWindow clerks(other, [](const Entry&) {});
  EXPECT_EQ(clerks.findChild<QWidget*>(u"CmdDesign"_s), nullptr);
}

TEST_P(StartWindowTest, EveryControlHasANameForScreenReaders) {
  const Session session = LogOn();
  StartWindow window(session, [](const Entry&) {});
  window.show();
  EXPECT_EQ(UnnamedControls(window), QStringList());
}

TEST_P(StartWindowTest, TheAdministratorGivesOthersAPasswordAndKnowsTheOwnOne) {
  const Session session = LogOn();
  const host::Accounts accounts(session.Database().Connection());
  accounts.SetPassword(u"1"_s, u"correct horse"_s);
  StartWindow window(session, [](const Entry&) {});
  window.show();
  WithWindow(u"PasswordDialog"_s, [](QWidget& dialog) {
    const auto type = [&](const QString& box, const QString& text) { Retype(Find<QLineEdit>(dialog, box), text); };
    auto& message = Find<QLabel>(dialog, u"LblMessage"_s);
    type(u"TxtOld"_s, u"wrong"_s);
    type(u"TxtNew"_s, u"battery staple"_s);
    type(u"TxtRepeat"_s, u"battery staple"_s);
    Click(Find(dialog, u"CmdOK"_s));
    EXPECT_TRUE(message.text().startsWith(u"口令不对。"_s)) << message.text().toStdString();
    Find<QComboBox>(dialog, u"CboUser"_s).setCurrentIndex(1);
    EXPECT_FALSE(Find(dialog, u"TxtOld"_s).isVisible());
    type(u"TxtNew"_s, u"battery staple"_s);
    type(u"TxtRepeat"_s, u"battery staple"_s);
    Click(Find(dialog, u"CmdOK"_s));
  });
  Click(Find(window, u"CmdPassword"_s));
  EXPECT_NO_THROW(accounts.LogOn(u"2"_s, u"battery staple"_s));
  EXPECT_NO_THROW(accounts.LogOn(u"1"_s, u"correct horse"_s));
}

TEST_P(StartWindowTest, TheAdministratorCopiesADatabaseFile) {
  const Session session = LogOn();
  StartWindow window(session, [](const Entry&) {});
  window.show();
  auto* key = window.findChild<QAbstractButton*>(u"CmdCopy"_s);
  ASSERT_EQ(key != nullptr, OnSqlite());
  if (!key) return;
  const QTemporaryDir folder;
  const QString target = folder.filePath(u"copy.db"_s);
  QStringList told;
  for (const QString& file : {target, u"/nowhere/copy.db"_s}) {
    Services().fileDialog = [&](const FileRequest&) { return file; };
    WithWindow(u"CopyOutcome"_s, [&](QWidget& box) { told << static_cast<QMessageBox&>(box).text(); });
    Click(*key);
  }
  EXPECT_EQ(told, (QStringList{u"数据库已备份，副本完好。"_s, u"数据库没有备份。"_s}));
  EXPECT_EQ(host::HostDatabase::Open({target, {}})->Users().size(), 3);
}

TEST_P(StartWindowTest, AClerkCopiesNothing) {
  const Session session(host::HostDatabase::Open(Choice()), u"2"_s, host::kLocal);
  const StartWindow window(session, [](const Entry&) {});
  EXPECT_EQ(window.findChild<QAbstractButton*>(u"CmdCopy"_s), nullptr);
}

TEST_P(StartWindowTest, AboutSaysWhichVersionOfTheLibraryIsLoaded) {
  const Session session = LogOn();
  StartWindow window(session, [](const Entry&) {});
  window.show();
  QString told;
  WithWindow(u"About"_s, [&](QWidget& box) { told = static_cast<QMessageBox&>(box).informativeText(); });
  Click(Find(window, u"CmdAbout"_s));
  EXPECT_TRUE(told.contains(Version())) << told.toStdString();
}

TEST_P(StartWindowTest, SaysWhoWorksInWhichDatabase) {
  const Session session = LogOn();
  const StartWindow window(session, [](const Entry&) {});
  const QString line = Find<QLabel>(window, u"LblUser"_s).text();
  EXPECT_TRUE(line.contains(u"系统管理员"_s)) << line.toStdString();
  EXPECT_TRUE(line.contains(session.Database().Title())) << line.toStdString();
}

TEST_P(StartWindowTest, ShowsTheErrorOfAnEntryAndStays) {
  const Session session = LogOn();
  StartWindow window(session, [](const Entry&) { throw DataError(DataErrorKind::Lost, u"连接已断开"_s); });
  window.show();
  QString told;
  WithWindow(u"EntryError"_s, [&](QWidget& box) { told = static_cast<QMessageBox&>(box).informativeText(); });
  Click(Find(window, u"FileOpen"_s));
  EXPECT_EQ(told, u"连接已断开"_s);
  EXPECT_TRUE(window.isVisible());
}

TEST_P(StartWindowTest, LeavingAndChangingTheUserAreToldApart) {
  const Session session = LogOn();
  for (const QString& button : {u"CmdExit"_s, u"CmdLogOn"_s}) {
    StartWindow window(session, [](const Entry&) {});
    QList<bool> ends;
    QObject::connect(&window, &StartWindow::Finished, &window, [&](bool again) { ends << again; });
    window.show();
    Click(Find(window, button));
    EXPECT_EQ(ends, QList<bool>{button == u"CmdLogOn"_s});
    EXPECT_FALSE(window.isVisible());
  }
}

}  // namespace
}  // namespace folvane::test
