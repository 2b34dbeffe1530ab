#pragma once

#include <QHash>
#include <optional>

#include "catalogue/RowWriter.h"
#include "host/demo/Letter.h"
#include "host/demo/RecordContext.h"
#include "host/demo/RecordKeys.h"
#include "host/demo/WorkCalendar.h"

namespace folvane::demo {

/// The archive's documents that are kept by item, Gdwj: outgoing documents of closed years, numbered within year,
/// entity class and retention period.
class SingleRecords {
 public:
  explicit SingleRecords(const RecordContext& around);

  /// Begins a year; gives how many documents it takes.
  int OpenYear(int year);
  void Take(const Letter& letter, const QString& entityClass, const std::vector<StoredFile>& originals);
  void Finish() { rows_.Finish(); }

 private:
  RecordContext around_;
  RecordKeys keys_;
  RowWriter rows_;
  QHash<QString, int> lastItems_;  ///< of the year, by the number's fixed parts
  ArchivedYear year_;
  int taken_ = 0;
  std::optional<WorkCalendar> spring_;
};

}  // namespace folvane::demo
