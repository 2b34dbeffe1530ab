#pragma once

#include <QString>
#include <QVariant>
#include <vector>

#include "data/dialect/SyntaxTree.h"

namespace folvane::sql {

/// A literal of a statement, as a piece of its text.
struct Literal {
  enum Kind : unsigned char { Text, Integer, Decimal, Float };
  /// What a translation may depend on; signs in a statement's template.
  enum Trait : unsigned char {
    Plain = 1,          ///< no ASCII letter: compares without folding
    Long = 2,           ///< of 16 characters or more, as keys are
    IsPattern = 4,      ///< stands right behind Like; the traits below are known
    HasClass = 8,       ///< [abc], [a-f], [^x], or a bracket that is never closed
    EndsOpen = 16,      ///< ends with "%"
    EndsAnywhere = 32,  ///< ends with "_" or a blank, which may be one of the value's own trailing blanks
  };

  Kind kind = Text;
  unsigned char traits = 0;
  bool hasDoubledQuotes = false;
  qsizetype begin = 0, length = 0;  ///< without the quotes

  bool Has(Trait trait) const { return traits & trait; }
  /// The value, in the statement's own memory where it stands there as it is.
  QString ValueIn(const QString& statement) const;
};

/// A position in a translated text where a literal goes.
struct Slot {
  qsizetype at;
  int literal;
  Transform transform;
  int limit;
  ColumnInfo column;  ///< that Transform::Stored is for

  bool IsSameValue(const Slot& other) const {
    return literal == other.literal && transform == other.transform && limit == other.limit &&
           column.name == other.column.name;
  }
};

/// The value that a transformed literal stands for; it may lie in the statement's text and goes with it.
/// @throws DataError Conversion, TooLong
QVariant ValueOf(const Literal& literal, const QString& statement, const Slot& slot);

/// The same as a piece of a statement, quoted for PostgreSQL.
QByteArray TextOf(const Literal& literal, const QString& statement, const Slot& slot);

/// A text as a literal of PostgreSQL, safe whatever standard_conforming_strings says.
/// https://www.postgresql.org/docs/15/sql-syntax-lexical.html#SQL-SYNTAX-STRINGS
QByteArray QuotedText(const QString& text);

}  // namespace folvane::sql
