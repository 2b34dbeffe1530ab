#pragma once

#include <QString>
#include <functional>

class QAbstractItemView;

namespace folvane {

/// A transfer as the record browser and the entry window order it; originals go along.
struct ArchiveOrder {
  QString source, destination;
  QString statement;                  ///< of the source rows
  QAbstractItemView* list = nullptr;  ///< whose selected rows name the records; null for the current record
  /// Runs the transfer, which is told how far it has come and answers whether to go on; null for one that shows
  /// nothing.
  std::function<bool(int done, int total)> progress = {};
};

/// What came of it.
struct ArchiveOutcome {
  bool isRun = false;  ///< false where the user left it or broke it off, or there was nothing to be asked for
  int count = 0;       ///< records that were transferred
  QString note;        ///< what the user should know besides, "" for nothing
};

/// Asks for the archive number's fields and transfers the records; how many were transferred is told. @throws DataError
ArchiveOutcome ArchiveRecords(const ArchiveOrder& order);

}  // namespace folvane
