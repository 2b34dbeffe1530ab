// What a right withholds in the entry window cannot be reached by its menus, keys and shortcuts.
#include <QMenu>
#include <QRegularExpression>
#include <gmock/gmock.h>

#include <folvane/HostServices.h>

#include "Rights.h"
#include "entry/EntryCommandDesign.h"
#include "entry/InputFixture.h"

namespace folvane::test {
namespace {
using testing::IsEmpty;

const std::vector<CommandRight> kEntryRights{
    {"File_Record", Privilege::None},     {"AddNewRecord", Privilege::Edit},     {"SaveRecord", Privilege::Edit},
    {"CancelRecord", Privilege::Edit},    {"DelRecord", Privilege::Edit},        {"mnuCopyAll", Privilege::None},
    {"Close", Privilege::None},           {"DoRecord", Privilege::None},         {"First_R", Privilege::None},
    {"Previous_R", Privilege::None},      {"Next_R", Privilege::None},           {"Last_R", Privilege::None},
    {"File_Or", Privilege::None},         {"AddFile", Privilege::LookFile},      {"BorrowFile", Privilege::LookFile},
    {"File_Manager", Privilege::None},    {"mnuDistibute", Privilege::Edit},     {"mnuPassRead", Privilege::Edit},
    {"mnuTransact", Privilege::Edit},     {"mnuArchive", Privilege::None},       {"ReportDesign", Privilege::Print},
    {"Tools", Privilege::Edit},           {"mnuReplace", Privilege::Edit},       {"Collect_R", Privilege::Edit},
    {"KeyOrder", Privilege::Edit},        {"AutoSave", Privilege::Edit},         {"UseSign", Privilege::Edit},
    {"AutoStatus", Privilege::Edit},      {"mnuHelp", Privilege::None},          {"FindDir", Privilege::None},
    {"About", Privilege::None},           {"key AddRecord", Privilege::Edit},    {"key SaveRecord", Privilege::Edit},
    {"key DelRecord", Privilege::Edit},   {"key CancelRecord", Privilege::Edit}, {"key MovePrevious", Privilege::None},
    {"key MoveNext", Privilege::None},    {"key CopyAll", Privilege::None},      {"key FileArea", Privilege::LookFile},
    {"key ReportView", Privilege::Print}, {"key Distribute", Privilege::Edit},   {"key PassRead", Privilege::Edit},
    {"key Transact", Privilege::Edit},    {"key DoArchive", Privilege::None},    {"key End", Privilege::None},
};

Privilege RightInEntry(const QString& command) {
  for (const CommandRight& each : kEntryRights)
    if (command == QLatin1String(each.command)) return each.needs;
  ADD_FAILURE() << command.toStdString() << " says no right";
  return Privilege::None;
}

class EntryRightsTest : public InputTest {
 protected:
  void SetUp() override {
    InputTest::SetUp();
    AddRecords(3);
    Design({u"Amaintitle"_s, u"题名"_s});
    Services().handleOriginals = [this](const OriginalsRequest&) { return ++called_ > 0; };
    Services().runReport = Services().designReport = [this](const ReportRequest&) { ++called_; };
  }

  void Withhold(Privilege right) {
    for (const auto& [each, parameter] :
         {std::pair(Privilege::Edit, Parameter::Edit), std::pair(Privilege::Print, Parameter::Print),
          std::pair(Privilege::LookFile, Parameter::LookFile)})
      Put(parameter, each == right ? u"0"_s : u"1"_s);
  }

  static bool IsReachable(const Input& input, const QString& command) {
    if (command.startsWith(u"key "_s)) return input.KeyOn(command.mid(4));
    if (const auto* menu = input.Window().findChild<QMenu*>(command)) return menu->menuAction()->isEnabled();
    const QString menu = MenuOf(EntryCommandDesign(), command);
    return input.On(command) && Find<QMenu>(input.Window(), menu).menuAction()->isEnabled();
  }

  QStringList ReachableCommands() {
    QStringList reachable;
    InWindow(
        [&](const Input& input) {
          for (const QString& command : CommandsOf(EntryCommandDesign()))
            if (IsReachable(input, command)) reachable << command;
        },
        false, 2);
    return reachable;
  }

  int called_ = 0;

 private:
  void Put(Parameter parameter, const QString& flag) { Right(parameter, flag); }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(EntryRightsTest);

TEST_P(EntryRightsTest, EveryCommandOfTheDesignSaysItsRight) {
  QStringList told, all = CommandsOf(EntryCommandDesign());
  for (const CommandRight& each : kEntryRights) told << QLatin1String(each.command);
  told.sort();
  all.sort();
  EXPECT_EQ(told, all);
}

TEST_P(EntryRightsTest, AWithheldRightTakesItsCommandsAndNoOthers) {
  Withhold(Privilege::None);
  const QStringList all = ReachableCommands();
  for (const Privilege right : {Privilege::Edit, Privilege::Print, Privilege::LookFile}) {
    Withhold(right);
    QStringList expected;
    for (const QString& command : all)
      if (RightInEntry(command) != right) expected << command;
    EXPECT_EQ(ReachableCommands(), expected) << int(right);
  }
}

TEST_P(EntryRightsTest, NoKeyReachesWhatARightWithholds) {
  for (const Privilege right : {Privilege::Edit, Privilege::Print, Privilege::LookFile}) {
    Withhold(right);
    InWindow([&](const Input& input) {
      TakeStatements();
      for (const QString& command : CommandsOf(EntryCommandDesign())) {
        const QKeySequence shortcut(ShortcutOf(EntryCommandDesign(), command));
        if (RightInEntry(command) != right || shortcut.isEmpty()) continue;
        input.PressIn(u"Txt(1)"_s, shortcut[0].key(), shortcut[0].keyboardModifiers());
      }
      if (right == Privilege::Edit) {
        input.Retype(u"Txt(1)"_s, u"改过"_s);
        input.PressIn(u"Txt(1)"_s, Qt::Key_Return);
        input.Key(u"MoveNext"_s).trigger();
      }
      EXPECT_THAT(TakeStatements().filter(QRegularExpression(u"^\\s*(insert|update|delete)\\b"_s,
                                                             QRegularExpression::CaseInsensitiveOption)),
                  IsEmpty())
          << int(right);
    });
    EXPECT_EQ(called_, 0) << int(right);
    EXPECT_EQ(Value(u"select count(*) from Lwdj where Amaintitle like '题名%'"_s), u"3"_s) << int(right);
  }
}

}  // namespace folvane::test
