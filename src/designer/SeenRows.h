#pragma once

#include <QStringList>
#include <vector>

#include <folvane/Design.h>

// What users would see of the records that there are, by rights that may not be applied yet. Nothing is written.
namespace folvane::designer {

/// The first records of a table that a user would see.
struct SeenRows {
  QStringList captions;
  std::vector<QStringList> rows;
  QString words;  ///< how many there are, or why there are none
};

/// @param user of the design, by id; never throws, the words say what went wrong
SeenRows RowsSeenBy(const QString& user, const QString& table, const Design& design, Connection& connection);

/// What the database makes of a condition.
struct TriedCondition {
  bool isRefused = false;
  QString words;  ///< how many records fit, why it is refused, or why it cannot be tried
};

TriedCondition TryCondition(const QString& condition, const Design::Table& table, Connection& connection);

}  // namespace folvane::designer
