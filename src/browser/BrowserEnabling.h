#pragma once

#include <QHash>
#include <QString>

#include "records/TableParameters.h"

namespace folvane {

/// What the record browser shows, as far as its commands depend on it. Without a table nothing else counts.
struct BrowserView {
  bool hasTable = false;
  TableGrants grants = {};
  bool hasParentTable = false;
  bool refused = false;   ///< the database did not open the table's records
  bool hasRows = false;   ///< the list has any
  bool selected = false;  ///< one of them is current
  qint64 position = 0;    ///< of its record, from 1
  qint64 count = 0;       ///< of records
};

/// Which commands of the record browser are enabled, menu entries and toolbar keys each by name. One that stands in
/// neither stays as it is: without a table the moves, whose menu is off as a whole, and always what needs nothing.
struct BrowserEnabling {
  explicit BrowserEnabling(const BrowserView& view);

  QHash<QString, bool> entries, keys;

 private:
  void SetBrowsing(const BrowserView& view);
  void SetEditing(const BrowserView& view);
  void SetOnRecord(const BrowserView& view);
  void SetMoves(const BrowserView& view);
};

}  // namespace folvane
