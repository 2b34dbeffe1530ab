#pragma once

#include <QByteArray>
#include <QString>
#include <algorithm>
#include <optional>
#include <vector>

#include "data/Rows.h"

namespace folvane {

/// One condition of a Find or Filter text over a column: an operator and a literal.
class Condition {
 public:
  enum Operator { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, Like };

  /// @param literal invalid for the word null, text for a quoted one, a number otherwise
  /// @throws DataError Usage for an operator that null does not take, Conversion for a literal that the column does not
  Condition(int column, const ColumnInfo& info, Operator op, const QVariant& literal);

  int Column() const { return column_; }
  Operator Op() const { return op_; }
  bool Holds(const QVariant& value) const;
  /// For Equal over text or number: the form that equal values share; nothing when an index does not serve.
  std::optional<QByteArray> IndexKey() const;

 private:
  int Compare(const QVariant& value) const;

  int column_;
  TypeGroup group_;
  Operator op_;
  QVariant literal_;
  QByteArray folded_;  ///< of a text literal
};

/// The form that equal values of an index share, of a value that is not null.
QByteArray IndexKeyOf(const Cell& cell, TypeGroup group);

/// A Filter text: conditions joined by And within Or, with brackets.
class Criteria {
 public:
  /// @throws DataError Usage for a text that cannot be read or an unknown field
  static Criteria Parse(const QString& text, const Rows& rows);

  /// @param valueOf gives the value of a column
  template <typename ValueOf>
  bool Holds(ValueOf valueOf) const {
    return std::any_of(alternatives_.begin(), alternatives_.end(), [&](const std::vector<Condition>& all) {
      return std::all_of(all.begin(), all.end(),
                         [&](const Condition& condition) { return condition.Holds(valueOf(condition.Column())); });
    });
  }
  /// The columns that the conditions are over.
  std::vector<int> Columns() const;
  /// The condition that a single text such as Find's consists of, nullptr when it holds more.
  const Condition* Single() const;
  /// An equality that every row that meets the text must meet, nullptr when there is none.
  const Condition* Anchor() const;

 private:
  std::vector<std::vector<Condition>> alternatives_;  ///< joined by Or; within one, by And
  friend class CriteriaParser;
};

}  // namespace folvane
