// What a right withholds in the archive window cannot be reached by its menus, keys, shortcuts, boxes and clicks.
#include <QMenu>
#include <QRegularExpression>
#include <gmock/gmock.h>

#include <folvane/HostServices.h>

#include "Rights.h"
#include "archiving/ArchiveCommandDesign.h"
#include "archiving/FrmArchiveFixture.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using testing::IsEmpty;

// Who transfers gives numbers and marks records: that is editing. The settings of transfers are tied to no right.
const std::vector<CommandRight> kArchiveRights{
    {"mnuFile", Privilege::None},        {"mnuArchive", Privilege::Edit},    {"mnuExit", Privilege::None},
    {"mnuRecord", Privilege::None},      {"mnuFirst", Privilege::None},      {"mnuPre", Privilege::None},
    {"mnuNext", Privilege::None},        {"mnuLast", Privilege::None},       {"mnuPrePage", Privilege::None},
    {"mnuNextPage", Privilege::None},    {"mnuTools", Privilege::None},      {"mnuSim", Privilege::None},
    {"mnuSearch", Privilege::None},      {"mnuTaxis", Privilege::None},      {"mnuSet", Privilege::None},
    {"mnuIsArchive", Privilege::None},   {"mnuIsOriginal", Privilege::Edit}, {"mnuArcSet", Privilege::None},
    {"mnuHelp", Privilege::None},        {"mnuTitle", Privilege::None},      {"mnuAbout", Privilege::None},
    {"key DoArchive", Privilege::Edit},  {"key PrePage", Privilege::None},   {"key NextPage", Privilege::None},
    {"key SimSearch", Privilege::None},  {"key Find", Privilege::None},      {"key Taxis", Privilege::None},
    {"key ArchiveSet", Privilege::None}, {"key EXIT", Privilege::None},
};

Privilege RightInArchive(const QString& command) {
  for (const CommandRight& each : kArchiveRights)
    if (command == QLatin1String(each.command)) return each.needs;
  ADD_FAILURE() << command.toStdString() << " says no right";
  return Privilege::None;
}

const QList<Privilege> kAllRights{Privilege::Edit, Privilege::Print, Privilege::LookFile};

/// A user with the rights that a case leaves him, over four documents of which he may see two.
class ArchiveRightsTest : public FrmArchiveTest {
 protected:
  void SetUp() override {
    FrmArchiveTest::SetUp();
    AddDocuments(4);
    Shared().UserId = u"5"_s;
  }
  void Give(const QList<Privilege>& rights, const QString& condition = u"RegID > 2"_s) {
    const auto flag = [&](Privilege right) { return rights.contains(right) ? u"1"_s : u"0"_s; };
    design_->Run(u"delete from UserPopedomScope"_s);
    design_->Insert(u"UserPopedomScope"_s,
                    u"UserID,PopTableName,PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                    {u"5"_s, u"Lwdj"_s, u"部分"_s, flag(Privilege::Edit), flag(Privilege::Print),
                     flag(Privilege::LookFile), condition});
  }
  void GiveAllBut(Privilege right) {
    QList<Privilege> rights = kAllRights;
    rights.removeOne(right);
    Give(rights);
  }
  static bool IsReachable(const ArchiveWindow& window, const QString& command) {
    if (command.startsWith(u"key "_s)) return window.KeyOn(command.mid(4));
    if (const auto* menu = window.Window().findChild<QMenu*>(command)) return menu->menuAction()->isEnabled();
    const QString menu = MenuOf(ArchiveCommandDesign(), command);
    return window.On(command) && Find<QMenu>(window.Window(), menu).menuAction()->isEnabled();
  }
  QStringList ReachableCommands() {
    QStringList reachable;
    InWindow([&](const ArchiveWindow& window) {
      for (const QString& command : CommandsOf(ArchiveCommandDesign()))
        if (IsReachable(window, command)) reachable << command;
    });
    return reachable;
  }
  QStringList Writes() {
    return log_->Take().filter(QRegularExpression(u"^\\s*(insert into (?!FindCirOrder)|update|delete)\\b"_s,
                                                  QRegularExpression::CaseInsensitiveOption));
  }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(ArchiveRightsTest);

TEST_P(ArchiveRightsTest, EveryCommandOfTheDesignSaysItsRight) {
  QStringList told, all = CommandsOf(ArchiveCommandDesign());
  for (const CommandRight& each : kArchiveRights) told << QLatin1String(each.command);
  told.sort();
  all.sort();
  EXPECT_EQ(told, all);
}

TEST_P(ArchiveRightsTest, AWithheldRightTakesItsCommandsAndNoOthers) {
  Give(kAllRights);
  const QStringList all = ReachableCommands();
  EXPECT_TRUE(all.contains(u"mnuArchive"_s) && all.contains(u"key DoArchive"_s) && all.contains(u"mnuIsOriginal"_s));
  for (const Privilege right : kAllRights) {
    GiveAllBut(right);
    QStringList expected;
    for (const QString& command : all)
      if (RightInArchive(command) != right) expected << command;
    EXPECT_EQ(ReachableCommands(), expected) << int(right);
  }
}

TEST_P(ArchiveRightsTest, NothingIsArchivedByKeyButtonOrClickWithoutTheRightToEdit) {
  GiveAllBut(Privilege::Edit);
  InWindow([&](const ArchiveWindow& window) {
    window.Tick(1);
    GiveYear(window);
    log_->Take();
    for (const QString& command : CommandsOf(ArchiveCommandDesign())) {
      const QKeySequence shortcut(ShortcutOf(ArchiveCommandDesign(), command));
      if (RightInArchive(command) != Privilege::Edit || shortcut.isEmpty()) continue;
      Press(window.List(), shortcut[0].key(), shortcut[0].keyboardModifiers());
    }
    window.Ok();
    Press(window.Control(u"Txt(1)"_s), Qt::Key_Return);
    DoubleClickItem(window.List(), window.Cell(1));
    EXPECT_FALSE(window.CanTransfer());
    EXPECT_THAT(Writes(), IsEmpty());
  });
  EXPECT_THAT(Archived(), IsEmpty());
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where FileStatus='需归档'"_s), u"4"_s);
}

TEST_P(ArchiveRightsTest, OnlyTheRowsOfTheRightsAreShownAndTicked) {
  Give({Privilege::Edit});
  InWindow([&](const ArchiveWindow& window) {
    EXPECT_EQ(window.Column(u"lstData"_s, 1), (QStringList{u"4"_s, u"3"_s}));
    window.Box(u"Check3"_s).click();
    GiveYear(window);
    window.Ok();
  });
  EXPECT_EQ(Archived(), (QStringList{u"题名4 2002-0001"_s, u"题名3 2002-0002"_s}));
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where FileStatus='需归档'"_s), u"2"_s);
}

TEST_P(ArchiveRightsTest, RightsHoldForTheLifeOfTheWindowAndAreReadAnewByTheNext) {
  Give(kAllRights);
  InWindow([&](const ArchiveWindow& window) {
    Give({});
    window.Box(u"Check3"_s).click();
    EXPECT_TRUE(window.CanTransfer());
  });
  InWindow([&](const ArchiveWindow& window) { EXPECT_FALSE(window.CanTransfer()); });
}

// A transfer asks for the condition anew, and for the fields that it is about.
TEST_P(ArchiveRightsTest, ATransferKeepsToTheConditionAsItIsByThen) {
  design_->Insert(u"UserPopedomScopeDetails"_s, u"UserId,PopTableName,FieldName"_s,
                  {u"5"_s, u"Lwdj"_s, u"Amaintitle"_s});
  Give(kAllRights, u"Lwdj.Amaintitle <> '题名1'"_s);
  InWindow([&](const ArchiveWindow& window) {
    Give(kAllRights, u"Lwdj.Amaintitle = '题名3'"_s);
    window.Box(u"Check3"_s).click();
    GiveYear(window);
    window.Ok();
  });
  EXPECT_EQ(Archived(), QStringList{u"题名3 2002-0001"_s});
}

}  // namespace folvane::test
