// What a right withholds in the record browser cannot be reached by its menus, keys, shortcuts, clicks or drops.
#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>
#include <gmock/gmock.h>

#include <folvane/HostServices.h>

#include "Rights.h"
#include "browser/BrowserCommands.h"
#include "browser/BrowserTest.h"
#include "entry/FrmInput.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::IsEmpty;

const std::vector<CommandRight> kBrowserRights{
    {"mnu_File", Privilege::None},
    {"mnu_File1_Add", Privilege::Edit},
    {"mnu_File4_Property", Privilege::Edit},
    {"mnu_File3_Del", Privilege::Edit},
    {"mnu_File2_Open", Privilege::Edit},
    {"mnu_File5_Save", Privilege::None},
    {"mnu_File6_Exit", Privilege::None},
    {"mnu_Goto", Privilege::None},
    {"mnu_Goto1_UClass", Privilege::None},
    {"mnu_Goto5_FPage", Privilege::None},
    {"mnu_Goto2_PPage", Privilege::None},
    {"mnu_Goto3_NPage", Privilege::None},
    {"mnu_Goto6_LPage", Privilege::None},
    {"mnu_Goto4_Location", Privilege::None},
    {"mnu_Goto4A_Location", Privilege::None},
    {"mnu_Tool", Privilege::None},
    {"mnu_Tool5_LSearch", Privilege::None},
    {"mnu_Tool4_HSearch", Privilege::None},
    {"mnu_Tool3_Sort", Privilege::None},
    {"Mnu_ReadOrder", Privilege::None},
    {"mnu_Tool1_BUpdate", Privilege::Edit},
    {"mnu_Tool2_BDel", Privilege::Edit},
    {"mnuUnitRecord", Privilege::None},
    {"mnu_Manager", Privilege::Edit},
    {"mnu_Manager1_Distribute", Privilege::Edit},
    {"mnu_Manager2_PassRead", Privilege::Edit},
    {"mnu_Manager3_Transact", Privilege::Edit},
    {"mnu_Manager4_Archive", Privilege::Edit},
    {"mnu_Report", Privilege::Print},
    {"mnu_Help", Privilege::None},
    {"mnuHelpTitle", Privilege::None},
    {"mnuAbout", Privilege::None},
    {"mnu_Pop1_AddFile", Privilege::LookFile},
    {"mnu_Pop2_Browse", Privilege::LookFile},
    {"mnu_Pop3_Scan", Privilege::LookFile},
    {"mnu_Pop4_DelFile", Privilege::LookFile},
    {"key NEW", Privilege::Edit},
    {"key Mod", Privilege::Edit},
    {"key Del", Privilege::Edit},
    {"key ToParent", Privilege::None},
    {"key PrePage", Privilege::None},
    {"key NextPage", Privilege::None},
    {"key Search", Privilege::None},
    {"key Refresh", Privilege::None},
    {"key LookFiles", Privilege::LookFile},
    {"key Archive", Privilege::Edit},
    {"key EXIT", Privilege::None},
};

Privilege RightOf(const QString& command) {
  for (const CommandRight& each : kBrowserRights)
    if (command == QLatin1String(each.command)) return each.needs;
  ADD_FAILURE() << command.toStdString() << " says no right";
  return Privilege::None;
}

/// A user with the rights that a case leaves him, over twelve records of which he may see ten; one has an original.
class BrowserRightsTest : public TwelveRecordsTest {
 protected:
  void SetUp() override {
    TwelveRecordsTest::SetUp();
    design_->AddOriginal(DesignedDatabase::Key(12), u"91"_s, u"正文"_s, 1);
    Shared().UserId = u"5"_s;
    Services().handleOriginals = [this](const OriginalsRequest&) { return ++called_ > 0; };
    Services().runReport = Services().designReport = [this](const ReportRequest&) { ++called_; };
  }

  void Give(const QList<Privilege>& rights) {
    const auto flag = [&](Privilege right) { return rights.contains(right) ? u"1"_s : u"0"_s; };
    design_->Run(u"delete from UserPopedomScope"_s);
    design_->Insert(u"UserPopedomScope"_s,
                    u"UserID,PopTableName,PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                    {u"5"_s, u"Lwdj"_s, u"部分"_s, flag(Privilege::Edit), flag(Privilege::Print),
                     flag(Privilege::LookFile), u"RegID > 2"_s});
  }
  void GiveAllBut(Privilege right) {
    QList<Privilege> rights{Privilege::Edit, Privilege::Print, Privilege::LookFile};
    rights.removeOne(right);
    Give(rights);
  }

  /// Whether a click or its shortcut reaches a command: neither it nor the menu that it stands in is off.
  static bool IsReachable(const Browser& browser, const QString& command) {
    if (command.startsWith(u"key "_s)) return browser.KeyOn(command.mid(4));
    if (const auto* menu = browser.Window().findChild<QMenu*>(command)) return menu->menuAction()->isEnabled();
    const QString menu = MenuOf(BrowserDesign(), command);
    if (menu == u"mnu_Pop"_s) return Find(browser.Window(), u"LVFile"_s).isEnabled();
    return browser.On(command) && Find<QMenu>(browser.Window(), menu).menuAction()->isEnabled();
  }

  QStringList ReachableCommands() {
    QStringList reachable;
    InBrowser([&](const Browser& browser) {
      for (const QString& command : CommandsOf(BrowserDesign()))
        if (IsReachable(browser, command)) reachable << command;
    });
    return reachable;
  }

  /// Presses the shortcuts of the commands that need a right where they work: those of originals in their list, but for
  /// the one that deletes records elsewhere, the others in the list of records and in the tree.
  static void PressAll(const Browser& browser, Privilege right) {
    const bool ofOriginals = right == Privilege::LookFile;
    for (const QString& view : ofOriginals ? QStringList{u"LVFile"_s} : QStringList{u"LVData"_s, u"TV_File"_s}) {
      for (const QString& command : CommandsOf(BrowserDesign())) {
        const QString text = ShortcutOf(BrowserDesign(), command);
        if (RightOf(command) != right || text.isEmpty() || (ofOriginals && text == u"Del"_s)) continue;
        const QKeySequence shortcut(text);
        Press(Find(browser.Window(), view), shortcut[0].key(), shortcut[0].keyboardModifiers());
      }
    }
  }

  QStringList Writes() {
    return log_->Take().filter(
        QRegularExpression(u"^\\s*(insert|update|delete)\\b"_s, QRegularExpression::CaseInsensitiveOption));
  }
  QString Records() {
    return design_->Value(u"select count(*) from Lwdj"_s) + u" "_s +
           design_->Value(u"select count(*) from Original_Text"_s);
  }

  int called_ = 0;
};

QStringList Without(const QStringList& commands, Privilege right) {
  QStringList left;
  for (const QString& command : commands)
    if (RightOf(command) != right) left << command;
  return left;
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(BrowserRightsTest);

TEST_P(BrowserRightsTest, EveryCommandOfTheDesignSaysItsRight) {
  QStringList told;
  for (const CommandRight& each : kBrowserRights) told << QLatin1String(each.command);
  EXPECT_EQ(QSet<QString>(told.begin(), told.end()), [] {
    const QStringList all = CommandsOf(BrowserDesign());
    return QSet<QString>(all.begin(), all.end());
  }());
}

TEST_P(BrowserRightsTest, AWithheldRightTakesItsCommandsAndNoOthers) {
  Give({Privilege::Edit, Privilege::Print, Privilege::LookFile});
  const QStringList all = ReachableCommands();
  for (const Privilege right : {Privilege::Edit, Privilege::Print, Privilege::LookFile}) {
    GiveAllBut(right);
    EXPECT_EQ(ReachableCommands(), Without(all, right)) << int(right);
  }
  for (const CommandRight& each : kBrowserRights)
    EXPECT_TRUE(each.needs == Privilege::None || all.contains(QLatin1String(each.command))) << each.command;
}

TEST_P(BrowserRightsTest, NoKeyReachesWhatARightWithholds) {
  for (const Privilege right : {Privilege::Edit, Privilege::Print, Privilege::LookFile}) {
    GiveAllBut(right);
    InBrowser([&](const Browser& browser) {
      ClickItem(browser.List(), browser.List().model()->index(0, 0));
      log_->Take();
      PressAll(browser, right);
      EXPECT_THAT(Writes(), IsEmpty()) << int(right);
    });
    EXPECT_EQ(called_, 0) << int(right);
    EXPECT_EQ(Records(), u"12 1"_s) << int(right);
  }
}

TEST_P(BrowserRightsTest, ADoubleClickOpensARecordThatCanOnlyBeLookedAt) {
  GiveAllBut(Privilege::Edit);
  InBrowser([&](const Browser& browser) {
    WithWindow(u"FrmInput"_s, [&](QWidget& window) {
      log_->Take();
      Retype(Find(window, u"Txt(2)"_s), u"改过"_s);
      for (const auto& [key, modifiers] : {std::pair(Qt::Key_S, Qt::KeyboardModifiers(Qt::ControlModifier)),
                                           std::pair(Qt::Key_N, Qt::KeyboardModifiers(Qt::ControlModifier)),
                                           std::pair(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier),
                                           std::pair(Qt::Key_H, Qt::KeyboardModifiers(Qt::ControlModifier))})
        Press(window, key, modifiers);
      window.close();
    });
    DoubleClickItem(browser.List(), browser.List().model()->index(0, 0));
  });
  EXPECT_THAT(Writes(), IsEmpty());
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where Amaintitle='改过'"_s), u"0"_s);
  EXPECT_EQ(Records(), u"12 1"_s);
}

TEST_P(BrowserRightsTest, TheEnterKeyOpensARecordThatCanOnlyBeLookedAt) {
  GiveAllBut(Privilege::Edit);
  InBrowser([&](const Browser& browser) {
    ClickItem(browser.List(), browser.List().model()->index(0, 0));
    WithWindow(u"FrmInput"_s, [&](QWidget& window) {
      Retype(Find(window, u"Txt(2)"_s), u"改过"_s);
      EXPECT_FALSE(FindAction(window, u"TlbCool"_s, u"SaveRecord"_s).isEnabled());
      EXPECT_FALSE(FindAction(window, u"TlbCool"_s, u"DelRecord"_s).isEnabled());
      window.close();
    });
    Press(browser.List(), Qt::Key_Return);
  });
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where Amaintitle='改过'"_s), u"0"_s);
}

TEST_P(BrowserRightsTest, FilesAreNotDroppedWhereOriginalsMayNotBeLookedAt) {
  const auto enter = [](const Browser& browser) {
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(u"/tmp/scan.tif"_s)});
    QDragEnterEvent event({5, 5}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QWidget* list = browser.View(u"LVFile"_s).viewport();
    QApplication::sendEvent(list, &event);
    QDragLeaveEvent leave;  // a drop goes to what was entered and accepted last
    QApplication::sendEvent(list, &leave);
    return event.isAccepted();
  };
  GiveAllBut(Privilege::Print);
  InBrowser([&](const Browser& browser) { EXPECT_TRUE(enter(browser)) << "where they may"; });
  GiveAllBut(Privilege::LookFile);
  InBrowser([&](const Browser& browser) {
    EXPECT_FALSE(enter(browser));
    ClickAt(browser.View(u"LVFile"_s), {5, 5}, Qt::RightButton);
    EXPECT_FALSE(Find<QMenu>(browser.Window(), u"mnu_Pop"_s).isVisible());
  });
  EXPECT_EQ(called_, 0);
}

TEST_P(BrowserRightsTest, RightsHoldForTheLifeOfTheWindowAndAreReadAnewByTheNext) {
  Give({Privilege::Edit, Privilege::Print, Privilege::LookFile});
  InBrowser([&](const Browser& browser) {
    Give({});
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_TRUE(IsReachable(browser, u"mnu_File3_Del"_s));
  });
  InBrowser([&](const Browser& browser) {
    for (const QString& command : CommandsOf(BrowserDesign()))
      EXPECT_TRUE(RightOf(command) == Privilege::None || !IsReachable(browser, command)) << command.toStdString();
  });
}

TEST_P(BrowserRightsTest, OnlyTheRowsOfTheRightsAreShownWhateverIsAsked) {
  Give({});
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.List().model()->rowCount(), 10);
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(browser.List().model()->rowCount(), 10);
    EXPECT_FALSE(browser.Column(u"LVData"_s).contains(u"2"_s));
  });
}

}  // namespace folvane::test
