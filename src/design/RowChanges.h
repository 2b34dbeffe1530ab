#pragma once

#include <QStringList>
#include <QVariantList>
#include <vector>

#include <folvane/Connection.h>

#include "design/StoredRows.h"

namespace folvane::design {

/// The rows of one design table, with the columns that belong to the design.
struct RowSet {
  QString table;
  QString word;  ///< for one of them
  QStringList columns, key;
  /// Whether the order of the rows counts among those that share their first key.
  bool isInOrder = false;
  std::vector<QVariantList> rows{};

  QVariant At(const QVariantList& row, const QString& column) const { return row[columns.indexOf(column)]; }
  QString KeyOf(const QVariantList& row) const;
  QString TitleOf(const QVariantList& row) const;
};

/// The same tables in the same order for any rows.
std::vector<RowSet> RowSetsOf(const StoredRows& rows);

/// Something that is written.
struct RowChange {
  enum class Kind { Insert, Update, Delete, Rewrite };
  Kind kind;
  const RowSet* set;                     ///< where the columns are told
  QVariantList before, after;            ///< the row, as far as there is one
  std::vector<QVariantList> group = {};  ///< of a Rewrite, the rows in their order
};

/// What has to be written so that what differs from the base becomes as wanted, and all else stays as it is now.
/// The changes point into `wanted`.
/// @throws DataError Conflict, naming the row, where the same was changed otherwise meanwhile; Usage for a row that is
/// wanted twice
std::vector<RowChange> ChangesOf(const std::vector<RowSet>& base, const std::vector<RowSet>& wanted,
                                 const std::vector<RowSet>& now);

/// Makes sure that the texts go into their columns. @throws DataError TooLong, Usage
void RequireFitting(Connection& connection, const std::vector<RowChange>& changes);

/// The statements in the order in which they are carried out. @throws DataError
QStringList StatementsOf(Connection& connection, const std::vector<RowChange>& changes);

}  // namespace folvane::design
