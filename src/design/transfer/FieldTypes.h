#pragma once

#include <QString>
#include <QVariant>
#include <optional>

#include <folvane/ArchiveRules.h>

namespace folvane {

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
