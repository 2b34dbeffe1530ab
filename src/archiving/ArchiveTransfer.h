#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

#include "archiving/RecordTransfer.h"
#include "archiving/TakenNumbers.h"
#include "archiving/TransferTables.h"

namespace folvane {

/// The transfer of records from a registration table into an archive table: their fields, numbers and originals, the
/// mark in the source, and the record of the volume, in one transaction. One object for one transfer.
class ArchiveTransfer {
 public:
  /// Is told after each record how many of how many were looked at; answers false to take everything back.
  using Progress = std::function<bool(int done, int total)>;

  Progress onProgress;
  std::function<void()> beforeCommit;  ///< of a transfer that keeps something; what it throws takes everything back
  std::function<QString()> askTitle;   ///< of a volume that is new

  /// @param records      their keys, in the order of their numbers
  /// @param marksSource whether the source's rows get the mark of an archived record here
  /// @throws DataError what fails outside of a record; nothing is kept then, and no transaction left open
  void DoFileArch(const TransferOrder& order, const QStringList& records, bool marksSource);

  /// Makes or refreshes the record of a volume. @return the key of one that was made, "" otherwise
  /// @throws DataError
  QString InputAmaintitle(const QString& objectTable, const QString& parentTable, const QString& storeField,
                          const QString& scopeClause) const;

  qint16 SucceedCount() const { return succeedCount_; }
  const QString& ResultMsg() const { return resultMsg_; }

 private:
  enum class Ending { Complete, Keeping, TakenBack };

  Ending TransferAll(const QStringList& records, bool marksSource, RecordTransfer& transfer);
  void MarkSource();
  void WriteVolume();
  bool AreNumbersTaken(const RecordTransfer& transfer) const;

  std::unique_ptr<TransferTables> tables_;
  std::unique_ptr<TakenNumbers> taken_;
  int firstCounter_ = -1;
  QString volumeTable_, volumeMade_;  ///< the volume that the transfer made, by its key; "" for none
  qint16 succeedCount_ = 0;
  QString resultMsg_;
};

}  // namespace folvane
