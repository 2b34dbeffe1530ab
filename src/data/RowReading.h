#pragma once

#include <QHash>

#include "data/FetchedRows.h"

namespace folvane {

class DatabaseSession;
class KeysetStatement;
enum class TextOrder;

/// Which rows are read whole, and which are known by their keys until they are looked at. Measured: below, whole rows
/// cost less than a person notices and all that walks through them is quicker.
struct ReadingBorder {
  qint64 table = 20'000;  ///< a table of no more rows is read whole
  qint64 result = 256;    ///< so is what a condition leaves of a larger one, where that is no more rows
};

/// Reads the rows of the statements that hosts and windows open, the way that costs least.
class RowReading {
 public:
  explicit RowReading(DatabaseSession& session) : session_(session) {}

  /// @throws DataError
  OpenedRows Read(const QString& statement, TextOrder order);
  /// Forgets the sizes of the tables.
  void Forget() { isLarge_.clear(); }

  /// Where the border runs in this process. Tests move it.
  static ReadingBorder& Border();

 private:
  FetchedRows ReadWhole(const QString& statement, TextOrder order, const TableInfo& table);
  bool IsLarge(const KeysetStatement& statement, const TableInfo& table);

  DatabaseSession& session_;
  QHash<QString, bool> isLarge_;  ///< by the table's name; that of a small table holds until more rows are seen
};

}  // namespace folvane
