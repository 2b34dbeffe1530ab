#include "faults/Command.h"

namespace folvane::test {

std::vector<CommandRow> AllCommands() {
  std::vector<CommandRow> all;
  for (const auto& some :
       {EntryCommands(), RuleCommands(), QueryCommands(), BulkCommands(), BrowserCommands(), FlowCommands(),
        ReminderCommands(), ArchiveCommands(), SettingsCommands(), OriginalCommands()})
    all.insert(all.end(), some.begin(), some.end());
  return all;
}

}  // namespace folvane::test
