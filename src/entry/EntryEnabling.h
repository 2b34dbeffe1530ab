#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include "records/TableParameters.h"

namespace folvane {

/// What the record of an entry form is in the middle of.
enum class RecordState { Browse = 0, Add = 1, Modify = 2 };

/// Where an entry form stands in its records. Positions count from 1.
struct EntryPosition {
  RecordState state = RecordState::Browse;
  qint64 position = 0;
  qint64 count = 0;
};

/// Which commands of the entry window are enabled. Toolbar keys and menu entries are kept apart: some share a name.
/// Rights only ever take away.
class EntryEnabling {
 public:
  explicit EntryEnabling(const TableGrants& grants = {});

  /// Once, as the window opens.
  void ApplyRights();
  /// @param autoSave saving goes on to the next record: the command to add stays as it is
  void SetToolbarState(bool browsing, bool autoSave);
  /// The commands on the current record and the moves from it.
  void RefreshRecordView(const EntryPosition& at);

  /// Commands that nothing was said about are not in these, and stay enabled.
  const QHash<QString, bool>& Keys() const { return keys_; }
  const QHash<QString, bool>& Entries() const { return entries_; }

 private:
  void SetKeys(const QStringList& keys, bool on);
  void SetEntries(const QStringList& entries, bool on);

  // With false they disable a group; with true they do nothing.
  void SetEditButtons(bool allowed);
  void SetFileButtons(bool allowed);
  void SetReportButtons(bool allowed);
  void SetMoveButtons(bool allowed);
  void WithoutTarget();
  void EnableOnRecord();
  void EnableMoves(const EntryPosition& at);

  TableGrants grants_;
  QHash<QString, bool> keys_, entries_;
};

}  // namespace folvane
