#pragma once

#include <QStringList>
#include <optional>
#include <vector>

#include <folvane/Design.h>

#include "design/transfer/BusinessTables.h"

// Conditions for the rows of a table, as they are put together line by line.
namespace folvane::designer {

/// One comparison, with the brackets around it.
struct ConditionLine {
  bool isOr = false;          ///< ties it to the line above; of no meaning in the first
  int opens = 0, closes = 0;  ///< brackets in front of it and behind it
  QString field;              ///< by its name
  QString relation, value;    ///< the relation by its word

  bool operator==(const ConditionLine&) const = default;
};

using RowCondition = std::vector<ConditionLine>;

/// The words for comparing, those of the queries and 开头为, 为空, 不为空.
const QStringList& RelationWords();
/// Whether a relation compares with a value.
bool TakesValue(const QString& relation);

/// What follows Where; "" for no lines.
QString SqlOf(const RowCondition& condition, const Design::Table& table);
/// The same with captions, to be read.
QString WordsOf(const RowCondition& condition, const Design::Table& table);
/// The lines that a condition consists of; nothing where it has another form.
std::optional<RowCondition> LinesOf(const QString& sql, const Design::Table& table);
/// A condition in words, or as it stands where it has another form.
QString ConditionShown(const QString& sql, const Design::Table& table);

/// Why lines make no condition, in words; "" when they do.
/// @param columns the same table with its columns
QString FlawOf(const RowCondition& condition, const transfer::BusinessTable& columns);

}  // namespace folvane::designer
