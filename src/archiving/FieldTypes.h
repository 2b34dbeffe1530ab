#pragma once

#include <QString>
#include <QVariant>
#include <optional>

namespace folvane {

// What the ADO type of an archive table's field decides.

/// How a value of a record comes into a field.
enum class FieldBranch {
  Number,  ///< only as a number
  Date,    ///< only as a date
  Text,    ///< as the text it is, cut to the field's size; so go fractions, amounts and truth values too
};

FieldBranch BranchOf(int adoType);

/// Whether records are counted on in a running number field of that type: numbers, and the long types as well.
bool IsCountableFieldType(int adoType);

/// The number that a text stands for, as a field of that type takes it: a whole one in a field of whole numbers, a half
/// rounded to the even neighbour. None when the text is no number.
std::optional<QVariant> NumberFor(int adoType, const QString& text);

/// The date that a text stands for, as YYYY-MM-DD; none when it is none.
std::optional<QVariant> DateFor(const QString& text);

/// A counter's new value, a half rounded to the even neighbour. @throws NumberError when 16 bits do not hold it
qint16 CounterOf(double value);

/// The value of a number that a record has. @throws NumberError when the text is none
double NumberIn(const QString& text);

}  // namespace folvane
