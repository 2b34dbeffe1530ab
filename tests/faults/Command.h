#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "support/TestDatabase.h"

namespace folvane::test {

class Trial;

/// What may be found in the database after a command in which a statement failed.
enum class Keeps {
  AllOrNothing,  ///< it is as before or as after
  Steps,         ///< it is as between two of the command's statements that last by themselves
  EachRow        ///< each of its rows is as before, as after, or as between two such statements
};

/// Something that a user does and that writes.
class WritingCommand {
 public:
  virtual ~WritingCommand() = default;
  virtual void Begin() = 0;  ///< a fresh database with what the command starts from
  virtual void End() = 0;
  virtual TestDatabase& Tables() = 0;
  /// Opens the window, does what comes before and tries the command in it, and closes the window again.
  virtual void Work(Trial& trial) = 0;
};

/// A command in the surroundings that a fixture makes.
template <typename Fixture>
class CommandIn : public Fixture, public WritingCommand {
 public:
  void Begin() override { this->SetUp(); }
  void End() override { this->TearDown(); }
  TestDatabase& Tables() override { return this->Database(); }

 private:
  void TestBody() override {}
};

struct CommandRow {
  std::string name;
  Keeps keeps;
  int lasting;  ///< how many of its statements last by themselves when all goes well
  std::function<std::unique_ptr<WritingCommand>()> make;
  bool isTold = true;  ///< whether the user is told what failed
};

template <typename C, typename... Arguments>
CommandRow Row(const std::string& name, Keeps keeps, int lasting, Arguments... arguments) {
  return {name, keeps, lasting, [=] { return std::make_unique<C>(arguments...); }};
}

std::vector<CommandRow> EntryCommands();
std::vector<CommandRow> RuleCommands();
std::vector<CommandRow> QueryCommands();
std::vector<CommandRow> BulkCommands();
std::vector<CommandRow> BrowserCommands();
std::vector<CommandRow> FlowCommands();
std::vector<CommandRow> ArchiveCommands();
std::vector<CommandRow> SettingsCommands();
std::vector<CommandRow> OriginalCommands();
std::vector<CommandRow> ReminderCommands();
/// All that a window of the library writes.
std::vector<CommandRow> AllCommands();

}  // namespace folvane::test
