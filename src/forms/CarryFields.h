#pragma once

#include <QString>
#include <memory>
#include <vector>

#include <folvane/Connection.h>

namespace folvane {

/// A field whose value a new record starts with.
struct CarryField {
  QString FieldName;
  QString FieldType;
  QString Value;
  bool Fixed = false;  ///< taken from the parent record; otherwise carried from the record before

  bool operator==(const CarryField&) const = default;
};

/// The record under which the records of a child table stand; both texts empty where there is none.
struct ParentRecord {
  QString table;
  QString where;  ///< the condition that selects it
};

/// Whether values of the type are numbers, by the word of the data dictionary.
bool IsNumberType(const QString& fieldType);

/// The fields of a table that a new record takes over, from 1; at 0 stands "<None>". First those shared with the parent
/// record, with its values, then those carried from the record before, still without values.
/// @throws DataError
std::vector<CarryField> LoadCarryFields(const std::shared_ptr<Connection>& connection, const QString& table,
                                        const ParentRecord& parent);

}  // namespace folvane
