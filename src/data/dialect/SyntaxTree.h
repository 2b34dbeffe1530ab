#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

#include "data/Schema.h"

namespace folvane::sql {

struct Expression;
struct Query;
/// Shared, so that a rewrite can put a finished expression in two places; a shared one is not changed any more.
using ExpressionPtr = std::shared_ptr<Expression>;
using QueryPtr = std::unique_ptr<Query>;

/// What an expression gives. Of two types that meet, the later one wins: Date over Float over Decimal over Integer over
/// Text, the data type precedence of the language.
enum class ValueType { Unknown, Condition, Null, Binary, Text, Integer, Decimal, Float, Date };

inline bool IsNumeric(ValueType type) {
  return type == ValueType::Integer || type == ValueType::Decimal || type == ValueType::Float;
}

/// What a literal turns into where it stands: the same for every literal of one class in one template of a statement.
enum class Transform {
  Plain,     ///< as it is written
  Text,      ///< a text; a number's digits as a text
  Stored,    ///< the same, as its column keeps it
  Integer,   ///< a quoted whole number, "" for 0
  Decimal,   ///< a quoted number
  Float,     ///< a quoted number, "" for 0
  Date,      ///< a quoted date as YYYY-MM-DD[ HH:MM:SS]
  DateEnd,   ///< the last of the forms in which that moment may be stored as text
  Trimmed,   ///< without trailing blanks
  PastEnd,   ///< the first text after all that continue it with blanks
  Folded,    ///< without trailing blanks, ASCII letters small
  Pattern,   ///< a Like pattern without classes, in the native language
  Regex,     ///< a Like pattern as a regular expression over the whole text, whatever blanks follow
  Variants,  ///< a list of the text with no, one, two ... trailing blanks
};

/// A value or a condition. What `text` and `parts` hold follows from the kind.
struct Expression {
  enum Kind {
    Name,      ///< text: the column; qualifier: the table before the point, or ""
    Text,      ///< text: the literal's value
    Number,    ///< text: the literal as written
    Constant,  ///< text: a value that a rewrite has made, written into the statement as a text
    Null,
    Star,      ///< "*", with a qualifier or without
    Unary,     ///< text: "-", "+" or "NOT"; parts[0]
    Binary,    ///< text: the operator, AND and OR included; parts[0], parts[1]
    Like,      ///< parts: value, pattern and, with Escape, the escape sign
    In,        ///< parts[0] and the list, or parts[0] and query
    Between,   ///< parts: value, low, high
    IsNull,    ///< parts[0]
    Call,      ///< text: the function in small letters; distinct for Count(Distinct x)
    Case,      ///< parts: [operand,] when, then, when, then, ... [, else]; flags in hasOperand, hasElse
    Cast,      ///< text: the type in small letters; size, scale, style; parts[0]
    Subquery,  ///< query in brackets
    Exists,    ///< query
    Group,     ///< parts[0] in brackets
    Native,    ///< form: the dialect's own words, $1 ... $9 for the parts, $* for all of them with commas between
  };

  Kind kind;
  QString text, qualifier;
  bool negated = false;  ///< Not Like, Not In, Not Between, Is Not Null
  bool distinct = false;
  bool hasOperand = false, hasElse = false;
  int size = 0, scale = -1, style = -1;  ///< of Cast; 0 and -1 where none is given
  QByteArray form;                       ///< of Native
  std::vector<ExpressionPtr> parts;
  QueryPtr query;

  int literal = -1;  ///< of Text and Number: its index among the statement's literals, from 0
  Transform transform = Transform::Plain;
  int limit = 0;  ///< the most characters that Transform::Variants may give; 0 for any number

  // Found when the names are resolved.
  ValueType type = ValueType::Unknown;
  const ColumnInfo* column = nullptr;  ///< of a literal: the column that Transform::Stored is for
  bool isKey = false;                  ///< a column that is its table's whole key

  explicit Expression(Kind kind) : kind(kind) {}
};

inline ExpressionPtr MakeExpression(Expression::Kind kind) { return std::make_shared<Expression>(kind); }

struct SelectItem {
  ExpressionPtr value;
  QString alias;
};

struct TableReference {
  QString name, alias;  ///< name "" for a query
  QueryPtr query;
  QString join;  ///< "" for the first, "," or "INNER JOIN" and so on
  ExpressionPtr on;
  const TableInfo* info = nullptr;
};

struct OrderTerm {
  ExpressionPtr value;
  bool descending = false;
  QByteArray nulls;  ///< what the dialect writes behind the item
};

struct Query {
  bool distinct = false;
  std::vector<ExpressionPtr> distinctOn;  ///< set by a dialect that tells rows apart by other values than it shows
  ExpressionPtr top;
  std::vector<SelectItem> items;
  std::vector<TableReference> tables;
  ExpressionPtr where, having;
  std::vector<ExpressionPtr> groupBy;
  std::vector<OrderTerm> orderBy;  ///< of the first query of a union: the order of the whole
  QByteArray unionWord;            ///< "UNION" or "UNION ALL" when another query follows
  QueryPtr next;
  /// A union in brackets, told apart and ordered from outside, by more than its columns' names.
  bool wrapped = false;
  std::vector<ExpressionPtr> distinctAround;  ///< as distinctOn, around the brackets
};

struct Assignment {
  QString column;
  ExpressionPtr value;
  const ColumnInfo* info = nullptr;
};

struct Statement {
  enum Kind { Select, Insert, Update, Delete, Conditional } kind = Select;
  QueryPtr query;                       ///< Select, Insert ... Select
  TableReference target;                ///< Insert, Update, Delete
  std::vector<Assignment> assignments;  ///< Update; Insert: the columns, with values only for Insert ... Values
  ExpressionPtr where;                  ///< Update, Delete
  ExpressionPtr condition;              ///< If: the whole condition
  QueryPtr then, otherwise;
};

}  // namespace folvane::sql
