#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "forms/EntryLayout.h"

namespace folvane {

/// The order in which the Enter key walks through the fields of a table, as a list of their names that can be
/// rearranged. Positions count from 1. The list is the only working copy until Commit.
class KeyOrderList {
 public:
  /// Reads the fields of the entry form in their order; all fields of a table without a form. @throws DataError
  explicit KeyOrderList(const QString& table);

  const QStringList& Names() const { return names_; }
  int Count() const { return int(names_.size()); }

  /// Moves a field to a position; those between shift by one towards where it was. Answers the position, or the old one
  /// when there is no such position.
  int Move(int from, int to);
  int MoveUp(int position) { return Move(position, position - 1); }
  int MoveDown(int position) { return Move(position, position + 1); }

  /// Writes the order, whole or not at all. Of two fields with one name the first is written, twice. @throws DataError
  void Commit() const;

 private:
  QString table_;
  QStringList names_;
};

/// The controls of a table's entry form in the order of the Enter key; at 0 stands the empty pair. @throws DataError
std::vector<ControlId> ReadKeyList(const QString& table);

/// The walk of the Enter key through the fields of a form. Positions count from 1.
class EnterWalk {
 public:
  enum class Step { Focus, AddRecord };

  /// @param keys at 0 stands the empty pair; the position stays
  void SetKeys(std::vector<ControlId> keys) { keys_ = std::move(keys); }
  /// Back to the first field, as for each new record.
  void Restart() { position_ = 1; }
  int Position() const { return position_; }
  /// The field that gets the focus; the empty pair when the form has none.
  ControlId Current() const;

  /// Enter was pressed in a field. Behind the last field the record is saved and the next begun, by a user who may
  /// edit; for anyone else the walk begins anew.
  Step Next(const ControlId& from, bool mayEdit);

 private:
  std::vector<ControlId> keys_{ControlId()};
  int position_ = 1;
};

}  // namespace folvane
