#pragma once

#include <QString>
#include <vector>

#include <folvane/Connection.h>

#include "catalogue/FieldRows.h"
#include "catalogue/QueryRows.h"

namespace folvane {

/// Why a condition cannot be carried out as it reads, in words for the user: a field that the table does not have, a
/// caption that stands for another field, a value that cannot be compared with the field. "" when nothing is known
/// against it, as for a table whose columns the database does not tell. No statement is run for it.
/// @param design the fields of the condition's table
QString FlawOf(const QueryConditionRow& condition, const std::vector<DictionaryFieldRow>& design,
               Connection& connection);

/// Why a column of that ADO type cannot be compared with a value, in words for the user; "" when it can.
QString FlawOfValue(const QString& value, int adoType);

}  // namespace folvane
