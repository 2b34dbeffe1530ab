#pragma once

#include <QString>

namespace folvane::sql {

/// Throws DataError Untranslatable naming the form that this database cannot be given.
[[noreturn]] void Refuse(const QString& form, const QString& statement = {});

}  // namespace folvane::sql
