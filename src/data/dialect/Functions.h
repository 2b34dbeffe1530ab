#pragma once

#include <QString>

#include "data/dialect/NativeWords.h"
#include "data/dialect/SyntaxTree.h"

namespace folvane::sql {

/// A function of the language: what it takes and gives, and how the databases say it. In the forms $1, $2 ... stand for
/// the arguments and $* for all of them, separated by commas.
struct Function {
  enum Result { OfType, OfFirst, OfStrongest };

  const char* name;
  int least, most;        ///< arguments; most -1 for any number
  const char* arguments;  ///< a letter for each: T text, I whole number, N number, D date, A anything
  Result resultRule;
  ValueType result;
  const char* sqlite;
  const char* postgres;

  const char* Form(DialectKind dialect) const { return dialect == DialectKind::Sqlite ? sqlite : postgres; }
};

/// nullptr for a function that is not known or does not take so many arguments.
const Function* FindFunction(const QString& name, std::size_t arguments);

/// DatePart, DateDiff and DateAdd, whose first argument is a word such as "year".
bool IsDateFunction(const QString& name);
/// Their form for a part, in which $1 and $2 are the arguments behind it; nullptr when the part is not known.
const char* DateFunctionForm(DialectKind dialect, const QString& function, const QString& part);

/// How Convert(varchar, date, style) writes a date, in the signs of PostgreSQL's to_char, "dd" and "hh" meaning a day
/// and an hour of twelve with a blank in front; nullptr for a style that is not known.
/// https://learn.microsoft.com/sql/t-sql/functions/cast-and-convert-transact-sql
const char* DateStyle(int style);

/// A type that Cast and Convert know.
struct CastType {
  enum Trait {
    Plain,
    Padded,     ///< char: filled with blanks
    Unlimited,  ///< text: not cut at 30 characters when no size is given
    Bit,
  };

  const char* name;
  ValueType type;
  Trait trait = Plain;
};

const CastType* FindCastType(const QString& name);

}  // namespace folvane::sql
