#pragma once

#include <QDate>
#include <QString>
#include <optional>

#include <folvane/DataError.h>

namespace folvane {

/// A text that was to become a number is none, or one that the number's type cannot hold.
class NumberError : public DataError {
 public:
  explicit NumberError(const QString& message) : DataError(DataErrorKind::Conversion, message) {}
};

// How the platform of the Chinese locale reads what people type: half-width and full-width characters alike.

/// The number that the text stands for, none when it is no number. Blanks around it, one sign before or behind it,
/// brackets for a negative one, the currency sign, commas between the digits before the point, an exponent by E or D,
/// and whole numbers as &HFF or &O17 are read; nothing else is.
std::optional<double> ReadNumber(const QString& text);

bool IsNumeric(const QString& text);

/// The text as a 32-bit integer, a half rounded to the even neighbour. @throws NumberError
int ToInteger(const QString& text);

/// The date that the text stands for, none when it is none. The text is a date, a time of day, or both in either order.
/// With the year first it is year, month, day; otherwise month, day, year or day, month, year, whichever exists. Two
/// numbers are a month and a day, or a year and a month. Where the year is missing it is the current one, where the day
/// is missing the first; a time of day alone is of 1899-12-30.
std::optional<QDate> ReadDate(const QString& text);

bool IsDate(const QString& text);

}  // namespace folvane
