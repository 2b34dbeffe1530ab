#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <vector>

#include "data/Schema.h"

namespace folvane::sql {

struct Expression;
struct Query;
using ExpressionPtr = std::unique_ptr<Expression>;
using QueryPtr = std::unique_ptr<Query>;

/// A value or a condition. What `text` and `parts` hold follows from the kind.
struct Expression {
  enum Kind {
    Name,    ///< text: the column; qualifier: the table before the point, or ""
    Text,    ///< text: the literal's value
    Number,  ///< text: the literal as written
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
    Cast,      ///< text: the type in small letters; size; style; parts[0]
    Subquery,  ///< query in brackets
    Exists,    ///< query
    Group,     ///< parts[0] in brackets
  };

  Kind kind;
  QString text, qualifier;
  bool quoted = false;   ///< a name in brackets or quotes
  bool negated = false;  ///< Not Like, Not In, Not Between, Is Not Null
  bool distinct = false;
  bool hasOperand = false, hasElse = false;
  int literal = -1;         ///< of Text and Number: its place among the statement's literals, from 0
  int size = 0, style = 0;  ///< of Cast
  std::vector<ExpressionPtr> parts;
  QueryPtr query;

  // Found when the names are resolved.
  std::optional<TypeGroup> type;  ///< nothing: not known, or a condition
  const ColumnInfo* column = nullptr;
  bool isKey = false;  ///< a column that is its table's whole key

  explicit Expression(Kind kind) : kind(kind) {}
};

struct SelectItem {
  ExpressionPtr value;
  QString alias;
};

struct TableReference {
  QString name, alias;  ///< name "" for a query
  bool quoted = false;
  QueryPtr query;
  QString join;  ///< "" for the first, "," or "INNER JOIN" and so on
  ExpressionPtr on;
  const TableInfo* info = nullptr;
};

struct OrderItem {
  ExpressionPtr value;
  bool descending = false;
};

struct Query {
  bool distinct = false;
  ExpressionPtr top;
  std::vector<SelectItem> items;
  std::vector<TableReference> tables;
  ExpressionPtr where, having;
  std::vector<ExpressionPtr> groupBy;
  std::vector<OrderItem> orderBy;
  QString unionWord;  ///< "UNION" or "UNION ALL" when another query follows
  QueryPtr next;
};

struct Assignment {
  QString column;
  bool quoted = false;
  ExpressionPtr value;
};

struct Statement {
  enum Kind { Select, Insert, Update, Delete, Conditional } kind = Select;
  QueryPtr query;                       ///< Select, Insert ... Select
  TableReference target;                ///< Insert, Update, Delete
  std::vector<Assignment> assignments;  ///< Update; Insert ... Values: column "" where none are named
  std::vector<QString> columns;         ///< Insert ... Select with named columns
  ExpressionPtr where;                  ///< Update, Delete
  ExpressionPtr condition;              ///< If: the whole condition
  QueryPtr then, otherwise;
};

}  // namespace folvane::sql
