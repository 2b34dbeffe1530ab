#pragma once

#include <QHash>
#include <QString>

#include "widgets/WindowCommands.h"

namespace folvane {

/// The menus and keys of the archive window.
CommandDesign ArchiveCommandDesign();

/// What the archive window shows, as far as its commands depend on it. Without a table nothing else counts.
struct ArchiveView {
  bool hasTable = false;
  bool mayArchive = false;  ///< the table has an archive table, and the user may edit
  bool hasRows = false;     ///< the list has any
  bool selected = false;    ///< one of them is current
  qint64 position = 0;      ///< of its record, from 1
  qint64 count = 0;         ///< of records
};

/// Which commands of the archive window are enabled, menu entries and toolbar keys each by name. The command that
/// transfers stands for whatever else starts a transfer or belongs to one.
struct ArchiveEnabling {
  explicit ArchiveEnabling(const ArchiveView& view);

  QHash<QString, bool> entries, keys;
  bool transfer = false;  ///< the key of the parameters, and whether originals go along
  bool ticksAll = false;  ///< the box that ticks all rows
};

}  // namespace folvane
