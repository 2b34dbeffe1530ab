#pragma once

#include <QString>
#include <QVariant>
#include <vector>

namespace folvane::sql {

/// What a literal turns into where it stands: the same for every literal of one class in one statement shape.
enum class Transform {
  Plain,
  Trimmed,  ///< without trailing blanks
  PastEnd,  ///< the first text after all that continue it with blanks
  Folded,   ///< without trailing blanks, ASCII letters small
  Number,   ///< a quoted number
  Date,     ///< a quoted date as YYYY-MM-DD[ HH:MM:SS]
  Pattern,  ///< a Like pattern without classes, in the native language
};

struct Literal {
  bool quoted = false;
  QString text;
};

/// The classes of literals that a translation may depend on, as the signs that stand for them in a shape.
enum LiteralClass : char16_t {
  EmptyText = 0xE000,
  KeyText,  ///< no ASCII letter: needs no folding
  PlainText,
  BracketText,  ///< holds "[" or an escape candidate: translated anew each time
  NumberLiteral,
};

LiteralClass ClassOf(QStringView text);

/// The value that a transformed literal binds. @throws DataError Conversion for a text that is no number or no date
QVariant Apply(Transform transform, const Literal& literal);

/// A statement with its literals taken out, and the literals in their order.
struct Shape {
  QString key;
  std::vector<Literal> literals;
  bool cacheable = true;
};

/// One pass over the statement. A statement that holds what the pass does not understand is not cacheable.
void ReadShape(const QString& statement, Shape& shape);

}  // namespace folvane::sql
