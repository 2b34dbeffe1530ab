#pragma once

#include <QStringList>
#include <vector>

#include <folvane/Design.h>

#include "catalogue/Table.h"

// The tables of the records themselves, as a design wants them.
namespace folvane::design {

/// The defined size of a column without a limit.
inline constexpr int kAnyLength = 2147483647;

/// A field as a column: numbers, dates and texts of its length.
Column ColumnOf(const Design::Field& field);

/// What has to happen to a table of the database.
struct PhysicalStep {
  enum class Kind { CreateTable, AddColumn, WidenColumn, DropColumn, DropTable };
  Kind kind;
  Table table;         ///< by the database's own name of it; of a new one all there is
  Column column = {};  ///< that the step is about
  qint64 rows = 0;     ///< records in the table, or those that have something in the column

  bool IsLoss() const { return (kind == Kind::DropColumn || kind == Kind::DropTable) && rows > 0; }
  bool operator==(const PhysicalStep& other) const {
    return kind == other.kind && table.name == other.table.name && column.name == other.column.name;
  }
};

/// The steps from the tables that are there to those that a design wants. A column that is longer than its field, or of
/// another type that takes its values, stays as it is.
/// @throws DataError Usage for names that cannot be given and types that cannot be changed; Untranslatable where only
/// the server's own tools can make what is missing
std::vector<PhysicalStep> PhysicalSteps(Connection& connection, const Design& base, const Design& wanted);

/// The statements of a step in the database's own words. @throws DataError
QStringList StatementsOf(Connection& connection, const PhysicalStep& step);

/// Carries a step out. @throws DataError
void CarryOut(Connection& connection, const PhysicalStep& step);

}  // namespace folvane::design
