#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "catalogue/FieldRows.h"
#include "query/ConditionText.h"

namespace folvane {

/// A condition as the user sees it.
struct ShownCondition {
  QString connector, field, relation, value;
  QString position;   ///< as shown; not what Remove takes
  QString flaw = {};  ///< why it does not count as it reads, in words for the user; "" when it does
  int number = 0;     ///< the number that it is saved under; 0 for one that is not in the table and counts for nothing
};

/// The list of conditions of a table that all its users share: kept in FindCirSave as they are added and removed, so
/// that the list and the table are in step. A condition that the table did not take stays in the list with its flaw.
///
/// Rows of FindCirSave are removed and renumbered by their number alone, whatever table they are for.
class CompoundQuery {
 public:
  /// Reads the fields and the saved conditions. @throws DataError
  explicit CompoundQuery(const QString& table);

  /// The captions of the fields on offer.
  QStringList Fields() const;
  const std::vector<ShownCondition>& Conditions() const { return conditions_; }

  /// The values that the dictionary of that name holds. @throws DataError
  static QStringList ValuesFor(const QString& caption);

  /// What is missing from a condition that is to be added, in words for the user; "" when nothing is.
  QString Missing(const ShownCondition& typed) const;
  /// Adds a condition that nothing is missing from. @throws DataError when the field cannot be looked up
  void Add(const ShownCondition& typed);
  /// Removes the condition at that position of the list, from 1. @throws DataError, the table being as before then, and
  /// the list as the table
  void Remove(int position);

  /// What is saved as a text, with the restriction behind the condition. Conditions that another user has removed since
  /// get their flaw.
  ConditionText Text(const QString& restriction);
  /// The conditions that the last text was made of, as they read: those of the list that are in the table, and what
  /// another user has added.
  const QString& InForce() const { return inForce_; }
  /// The conditions of the list with a flaw, each with its flaw behind it.
  QStringList Flawed() const;
  /// Removes all that is saved for the table. @throws DataError
  void Forget() const;

 private:
  void ReadSaved();
  QueryConditionRow Map(const ShownCondition& condition);
  void Save(const QueryConditionRow& row) const;
  void RemoveSaved(int position) const;
  bool TakeOut(int position);
  void MarkGone(std::vector<QueryConditionRow> saved);

  QString table_;
  std::vector<DictionaryFieldRow> fields_;
  std::vector<ShownCondition> conditions_;
  QString field_, comparison_, connector_;  ///< of the last words that could be mapped
  QString inForce_;
};

}  // namespace folvane
