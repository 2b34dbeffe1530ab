#include "Rights.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

QStringList CommandsOf(const CommandDesign& design) {
  QStringList commands;
  for (const CommandMenu& menu : design.menus) {
    if (!menu.popsUp) commands << menu.name;
    for (const CommandEntry& entry : menu.entries)
      if (!entry.name.isEmpty()) commands << entry.name;
  }
  for (const CommandKey& key : design.keys)
    if (!key.name.isEmpty()) commands << u"key "_s + key.name;
  return commands;
}

QString ShortcutOf(const CommandDesign& design, const QString& command) {
  for (const CommandMenu& menu : design.menus)
    for (const CommandEntry& entry : menu.entries)
      if (entry.name == command) return entry.shortcut;
  for (const CommandKey& key : design.keys)
    if (u"key "_s + key.name == command) return key.shortcut;
  return {};
}

QString MenuOf(const CommandDesign& design, const QString& entry) {
  for (const CommandMenu& menu : design.menus)
    for (const CommandEntry& each : menu.entries)
      if (each.name == entry) return menu.name;
  return {};
}

}  // namespace folvane::test
