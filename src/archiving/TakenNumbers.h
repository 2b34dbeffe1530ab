#pragma once

#include <QSet>
#include <QString>
#include <memory>
#include <optional>

#include <folvane/Connection.h>

namespace folvane {

/// What a transfer gave its records.
struct GivenNumbers {
  QSet<QString> keys;     ///< of the rows that it wrote
  QSet<QString> numbers;  ///< composed
  QString storeField;     ///< the column of the composed numbers
  QString counterField;   ///< the column of the counter, "" where none is kept
  int firstCounter = 0, lastCounter = -1;
  QString scopeClause;             ///< the rows that are counted together, and that of their volume
  QString volumeTable, volumeKey;  ///< of a volume that was made, "" for none
};

/// Tells whether the numbers of a transfer were meanwhile given by another workstation's, too, or its volume made. Made
/// before the first number is read. What stood in the table by then is not asked about: a number may well be as it was
/// before.
class TakenNumbers {
 public:
  TakenNumbers(std::shared_ptr<Connection> connection, const QString& table);

  /// To be asked as the last thing before the commit. Where two transfers ask at the same time, one waits for the end
  /// of the other. @throws DataError
  bool AnyOf(const GivenNumbers& given);

 private:
  std::optional<qint64> CountRows() const;
  bool IsCounterTaken(const GivenNumbers& given) const;
  bool IsNumberTaken(const GivenNumbers& given) const;
  bool IsVolumeTaken(const GivenNumbers& given) const;
  bool FindsOthers(const QString& condition, const QSet<QString>& keys) const;

  std::shared_ptr<Connection> connection_;
  QString table_;
  std::optional<qint64> rowsBefore_;
};

}  // namespace folvane
