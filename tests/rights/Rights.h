#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "widgets/WindowCommands.h"

namespace folvane::test {

/// The rights of a user on a table; None for what everybody may do who sees the table.
enum class Privilege { None, Edit, Print, LookFile };

/// What a command of a window asks for. The shortcut is what the design gives it, "" for none.
struct CommandRight {
  const char* command;
  Privilege needs;
};

/// The commands of a design, toolbar keys as "key NAME": menus count, since they are switched off as a whole.
QStringList CommandsOf(const CommandDesign& design);
QString ShortcutOf(const CommandDesign& design, const QString& command);

/// The menu that an entry stands in.
QString MenuOf(const CommandDesign& design, const QString& entry);

}  // namespace folvane::test
