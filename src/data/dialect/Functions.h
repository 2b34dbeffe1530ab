#pragma once

#include <optional>

#include "data/Schema.h"
#include "data/drivers/Driver.h"

namespace folvane::sql {

/// A function of the T-SQL flavour: what it gives and how the others say it. In the forms $1, $2 ... stand for the
/// arguments and $* for all of them, separated by commas.
struct Function {
  const char* name;
  int least, most;  ///< arguments; most -1 for any number
  std::optional<TypeGroup> result;
  bool takesText;  ///< its first argument is taken as text
  const char* sqlite;
  const char* postgres;

  const char* Form(DialectKind dialect) const { return dialect == DialectKind::Sqlite ? sqlite : postgres; }
};

/// nullptr for a function that is not known.
const Function* FindFunction(const QString& name, int arguments);

/// The type group of a Cast or Convert, nothing for a type that is not known.
std::optional<TypeGroup> GroupOfTypeWord(const QString& word);

/// A date function over a part such as "year"; "" when the part or the function is not known.
QString DatePartForm(DialectKind dialect, const QString& function, const QString& part);

/// How Convert(varchar, date, style) says the date; "" for a style that is not known.
QString DateStyleForm(DialectKind dialect, int style);

}  // namespace folvane::sql
