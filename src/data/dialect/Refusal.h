#pragma once

#include <QString>

namespace folvane::sql {

/// @throws DataError Untranslatable, naming the form that this database's dialect has no counterpart for
[[noreturn]] void Refuse(const QString& form);
/// @throws DataError Untranslatable for a text that no server of the language would take
[[noreturn]] void RejectSyntax(const QString& what);
/// @throws DataError Conversion for a text that is no number or no date
[[noreturn]] void RejectValue(const QString& text, const QString& wanted);

/// The words of RejectValue, for functions that run inside the database.
QString UnfitValueText(const QString& text, const QString& wanted);

}  // namespace folvane::sql
