#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QAbstractItemView;

namespace folvane {

class ListStatus;

/// A transfer as a window orders it.
struct ArchiveOrder {
  QString source, destination;
  QString statement;                  ///< of the source rows
  QAbstractItemView* list = nullptr;  ///< whose selected rows name the records; null for the ticked or current ones
  QStringList ticked = {};            ///< the keys of the ticked records in their order
  bool withOriginals = true;
  /// Marks what was transferred; part of the transaction, so that nobody finds a record in the archive that still
  /// waits.
  std::function<void()> mark = {};
};

/// What came of it.
struct ArchiveOutcome {
  bool isRun = false;  ///< false where the user left it or broke it off, or there was nothing to be asked for
  int count = 0;       ///< records that were transferred
  QString note;        ///< what the user should know besides, "" for nothing
};

/// Transfers the records by the shared archive number; how many were transferred is told, of ticked ones the first
/// number, too. @throws DataError
/// @param status shows how far it has come and lets the user end it; null for a transfer that shows nothing
ArchiveOutcome TransferRecords(const ArchiveOrder& order, ListStatus* status);

/// The same after asking for the archive number's fields. @throws DataError
ArchiveOutcome ArchiveRecords(const ArchiveOrder& order, ListStatus* status);

}  // namespace folvane
