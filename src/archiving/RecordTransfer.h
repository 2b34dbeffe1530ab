#pragma once

#include <QSet>
#include <QStringList>
#include <optional>

#include <folvane/HostServices.h>

#include "archiving/TransferTables.h"

namespace folvane {

/// What became of a record.
enum class RecordResult : qint16 {
  Transferred = 1,
  Skipped = 0,      ///< not to be archived, out of the user's rights, or gone
  EndKeeping = -1,  ///< the user ends the transfer and keeps the records before this one
  Cancel = -2,      ///< nothing is to be kept: the user wants so, or an error says so
};

/// Transfers records one by one inside a transaction.
class RecordTransfer {
 public:
  explicit RecordTransfer(TransferTables& tables) : tables_(tables) {}

  /// Writes the archive's row of a source record, with its numbers and originals. A value that does not convert is
  /// asked about. Throws nothing: an error becomes the Failure.
  RecordResult TransferOneRecord(const QString& archiveId);

  /// What the user is to be told of a record that failed; none after a Cancel of his own.
  const std::optional<MessageRequest>& Failure() const { return failure_; }
  /// The text about the first archive number; "" before there is one.
  const QString& ResultMsg() const { return resultMsg_; }
  /// The archive's rows written so far, and the numbers composed for them.
  const QSet<QString>& WrittenKeys() const { return writtenKeys_; }
  const QSet<QString>& Numbers() const { return numbers_; }

 private:
  RecordResult Transfer(const QString& archiveId);
  bool IsToBeTransferred(const QString& archiveId);
  void AddRow();
  std::optional<RecordResult> TakeMappedFields();
  std::optional<RecordResult> TakeField(const MappedField& mapped);
  void CountPages();
  QString ComposeNumber();
  QString Piece(const NumberField& field) const;
  void CopyOriginals(const QString& archiveId);

  TransferTables& tables_;
  QString key_;  ///< of the row that is being written
  std::optional<MessageRequest> failure_;
  QString resultMsg_;
  QSet<QString> writtenKeys_, numbers_;
};

}  // namespace folvane
