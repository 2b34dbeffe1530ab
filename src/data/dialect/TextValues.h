#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace folvane::sql {

// How the language reads numbers and dates out of texts. Blanks around them are passed over.

/// A whole number with a sign or without; "" is 0. Nothing for anything else, a decimal point included.
std::optional<qlonglong> IntegerFromText(QStringView text);
/// A number without an exponent; "" is none.
std::optional<double> DecimalFromText(QStringView text);
/// A number; "" is 0.
std::optional<double> FloatFromText(QStringView text);
/// A moment without a time zone (in UTC). Reads 2002-03-04, 20020304, 2002/3/4 and 3/4/2002, with or without a time of
/// day; "" is 1900-01-01.
std::optional<QDateTime> MomentFromText(QStringView text);
/// A moment as YYYY-MM-DD, with HH:MM:SS[.fff] behind it unless it is midnight.
QString MomentText(const QDateTime& moment);
/// The one after the other.
std::optional<QString> DateFromText(QStringView text);

// What those functions call the thing that a text should be, for messages.
QString IntegerWord();
QString NumberWord();
QString DateWord();

}  // namespace folvane::sql
