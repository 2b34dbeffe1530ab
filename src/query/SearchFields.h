#pragma once

#include <QString>
#include <vector>

#include "catalogue/FieldRows.h"

namespace folvane {

/// The kinds of input of a simple query, as SimSearch numbers them.
namespace SearchInput {
enum : int { Like = 1, Range = 2, Dates = 3, Dictionary = 4 };
}

/// A field by its caption and its name.
struct NamedField {
  QString caption, field;

  bool operator==(const NamedField&) const = default;
};

/// The fields of a table's simple query in their order. An index that is no index of its kind, being below 1 or taken
/// already, is replaced by the next one that is free, so that every field has an input of its own. @throws DataError
std::vector<SearchFieldRow> ReadSearchFields(const QString& table);

/// The fields that are chosen for the simple query, in their order. @throws DataError
std::vector<NamedField> ReadChosenFields(const QString& table);

/// The fields of a table that are not chosen yet, which is told by the caption. @throws DataError
std::vector<NamedField> ReadOfferedFields(const QString& table, const std::vector<NamedField>& chosen);

/// Makes the chosen fields those of the table's simple query. @throws DataError, the fields being as before then
void SaveSimSearch(const QString& table, const std::vector<NamedField>& chosen);

/// The kind of input for a field: by its type first, then by whether it has a dictionary. A field that the design does
/// not know gets a plain text box. @throws DataError
int GetCtlType(const QString& table, const QString& field);

}  // namespace folvane
