#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <vector>

namespace folvane {

/// A menu entry of the record browser; one without a name is a separator.
struct EntryDesign {
  QString name, caption, icon, shortcut, tip;
};

struct MenuDesign {
  QString name, caption;
  std::vector<EntryDesign> entries;
};

/// A toolbar key and the menu entry whose command it runs, "" for one of its own; one without a name is a separator.
struct KeyDesign {
  QString name, caption, tip, twin, shortcut;
};

const std::vector<MenuDesign>& BrowserMenus();
const MenuDesign& OriginalsMenuDesign();
const std::vector<KeyDesign>& BrowserKeys();

/// The commands that can be used: those whose subsystem exists.
const QSet<QString>& AvailableCommands();

}  // namespace folvane
