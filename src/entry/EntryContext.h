#pragma once

#include <QString>
#include <functional>

namespace folvane {

class FrmInput;
class TableParameters;

/// What the entry window is told by the window that opens it.
struct EntryContext {
  QString NodeText;                       ///< of the tree node that is selected there
  TableParameters* Parameters = nullptr;  ///< the row selected in it is that of the table; outlives the entry window
  /// Takes the key of the record that the list is to stand on afterwards, "<NULL>" for none.
  std::function<void(const QString& key)> LeaveTag;
  /// Opens the window that finds and replaces beside the entry window; null where there is none.
  std::function<void(FrmInput& window)> OpenReplace;
};

}  // namespace folvane
