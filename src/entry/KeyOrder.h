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

  /// Moves a field to a place; those between shift by one towards where it was. Answers the place, or the old one when
  /// there is no such place.
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

}  // namespace folvane
