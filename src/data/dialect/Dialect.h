#pragma once

#include <array>

#include "data/dialect/NativeWords.h"
#include "data/dialect/SyntaxTree.h"

namespace folvane::sql {

/// How a column is compared with a literal of a certain kind: a form for each operator, nullptr where the general
/// comparison has to do. $1 is the column; the literal stands in it as the transforms say.
struct LiteralForms {
  const char* equal;
  const char* unequal;
  const char* less;
  const char* lessOrEqual;
  const char* greater;
  const char* greaterOrEqual;
  std::array<Transform, 2> transforms;  ///< of the literal as $2 and as $3

  const char* Of(const QString& op) const;
  bool IsEmpty() const { return !equal; }
};

/// What a database says otherwise than the others. In the forms $1, $2 ... stand for values already put into the
/// dialect, and $o for a comparison operator.
struct Dialect {
  DialectKind kind;
  bool bindsLiterals;        ///< literals go as parameters, not as text
  bool deletesWhileReading;  ///< a query in a Delete of the same table may see rows that are gone already as gone

  // One type as another. A text that is no number or no date is an error of the database.
  const char* textToInteger;
  const char* textToDecimal;
  const char* textToFloat;
  const char* textToDate;
  const char* numberToText;
  const char* numberToDate;
  const char* dateToText;
  const char* numberToInteger;  ///< cut, not rounded
  const char* integerToFloat;
  const char* bitToInteger;  ///< "" where a truth value is a number
  const char* integerToBit;

  // Texts compare without regard to ASCII case and trailing blanks.
  const char* folded;       ///< a text as it is told apart from others
  const char* sortedBy;     ///< the same for Order By, made once a row
  const char* compareText;  ///< two texts that are not folded yet
  bool foldsLiterals;       ///< a literal is compared as Transform::Folded
  const char* compareUnknown;
  const char* inTexts;
  const char* inQuery;
  bool foldsInQuery;       ///< the texts that the query of In gives are folded there
  LiteralForms plainText;  ///< a column and a text without letters
  LiteralForms plainKey;   ///< the same, where the column or the text is a key
  LiteralForms date;
  int mostKeysApart;   ///< In of so many keys at most is a chain of comparisons
  const char* inKeys;  ///< In of keys in one list; "" where it is such a chain

  const char* like;
  const char* likeTrimmed;      ///< the value's trailing blanks do not count
  const char* likeClass;        ///< a pattern with classes
  const char* likeClassEscape;  ///< the same with an escape sign; "" where likeClass takes every pattern
  Transform classPattern;
  const char* likeValue;  ///< a pattern that is no literal

  const char* concat;
  const char* divide;
  const char* modulo;
  const char* addDays;

  const char* sumOfIntegers;
  const char* averageOfIntegers;
  const char* leastText;
  const char* greatestText;
  const char* distinctText;  ///< within Count(Distinct x)

  const char* cutText;  ///< $1 to $2 characters
  const char* padText;
  const char* formatDate;        ///< $1 by the pattern $2
  const char* formatDateLong;    ///< the same for the style with blanks before day and hour
  const char* formatDateInText;  ///< the same for a text that may hold a date, where dates are texts; else ""
  const char* toDecimal;         ///< $1 with a precision $2 and a scale $3
  const char* toBit;

  const char* nullsFirst;
  const char* nullsLast;
  const char* groupedText;  ///< a text that Group By has made one of many; "" where it needs no words
  bool distinctByColumn;    ///< Select Distinct tells texts apart by a collation on the column
  bool ordersUnionsByName;  ///< a union is ordered by its columns' names alone
  bool foldsNames;          ///< names are small unless the catalogue says otherwise
};

const Dialect& DialectOf(DialectKind kind);

extern const Dialect kSqliteDialect;
extern const Dialect kPostgreSqlDialect;

}  // namespace folvane::sql
