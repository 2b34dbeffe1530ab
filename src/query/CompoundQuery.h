#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "query/ConditionText.h"

namespace folvane {

/// A condition as the user sees it.
struct ShownCondition {
  QString connector, field, relation, value;
  QString place;  ///< as shown; not what Remove takes
};

/// The list of conditions of a table that all its users share: kept in FindCirSave as they are added and removed, so
/// that the list and the table are in step. Where the table cannot follow, the list goes on alone.
///
/// Rows of FindCirSave are removed and renumbered by their number alone, whatever table they are for.
class CompoundQuery {
 public:
  /// Reads the fields and the saved conditions. @throws DataError
  explicit CompoundQuery(const QString& table);

  /// The captions of the fields on offer.
  const QStringList& Fields() const { return fields_; }
  const std::vector<ShownCondition>& Conditions() const { return conditions_; }

  /// The values that the dictionary of that name holds. @throws DataError
  static QStringList ValuesFor(const QString& caption);

  /// What is missing from a condition that is to be added, in words for the user; "" when nothing is.
  QString Missing(const ShownCondition& typed) const;
  /// Adds a condition that nothing is missing from. @throws DataError when the field cannot be looked up
  void Add(const ShownCondition& typed);
  /// Removes the condition at that place of the list, from 1. @throws DataError
  void Remove(int place);

  /// What is saved as a text, with the restriction behind the condition.
  ConditionText Text(const QString& restriction) const;
  /// Removes all that is saved for the table. @throws DataError
  void Forget() const;

 private:
  void Map(const ShownCondition& condition);
  void Save(const ShownCondition& condition) const;

  QString table_;
  QStringList fields_;
  std::vector<ShownCondition> conditions_;
  QString field_, comparison_, connector_;  ///< of the last words that could be mapped
};

}  // namespace folvane
