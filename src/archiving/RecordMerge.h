#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace folvane {

class Recordset;

/// Joins records that turned out to be one document to the one that stays. It gets their originals besides its own; the
/// others are taken out of archiving, with a note, and nothing is deleted. There is no transaction: what was done
/// before an error stays.
class RecordMerge {
 public:
  /// @param table  of the records that are to be joined
  /// @param target the key of the record that stays
  /// @throws DataError when its originals cannot be asked for
  RecordMerge(QString table, const QString& target);

  /// The order that the first of the others' originals is shifted by: the one behind the last original of the record
  /// that stays.
  qint16 NextFileOrder() const { return nextFileOrder_; }
  /// The statement for the records of a condition, the one that stays left out.
  QString SearchStatement(const QString& where) const;
  /// Hides the record that stays from what the statement found: an Or in the condition lets it in again.
  void LeaveOutSurvivor(Recordset& found) const;

  /// Is told before each record how many of how many are done.
  using Progress = std::function<void(int done, int total)>;
  /// Joins records by their keys, in this order. Those that were joined before, ahead of an error, are passed over, so
  /// that the same can be asked for again. @throws DataError
  void Merge(const QStringList& keys, const Progress& progress);

  /// The records that were joined.
  int Merged() const { return int(merged_.size()); }
  /// What came of it, in words; the originals that could not be taken over among it.
  QString Outcome() const;

 private:
  void MergeOne(const QString& key);
  /// @return whether they were copied
  bool CopyOriginals(const QString& record, const QString& fileOrder);

  QString table_, target_;
  qint16 nextFileOrder_ = 1;
  std::optional<bool> hasNote_;   ///< whether the table has a field for notes; none before that was asked
  QSet<QString> merged_, noted_;  ///< by their keys
  int leftOut_ = 0;
  QString reason_;  ///< why the last original that was left out could not be taken over
};

}  // namespace folvane
