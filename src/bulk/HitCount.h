#pragma once

#include "bulk/RecordSearch.h"

namespace folvane {

/// Counts the hits of a search some records at a time, so that a window can show their number while its user goes on.
/// Does not move the record set, and does not look while a record is being edited, whose edit a move would end.
class HitCount {
 public:
  /// Counts anew, from the current record on or over all.
  void Begin(Recordset& records, RecordSearch search, SearchWay way);
  /// Looks at some more records. Answers whether there are more to look at.
  bool GoOn(Recordset& records);
  qint64 Count() const { return count_; }

 private:
  RecordSearch search_;
  SearchWay way_ = SearchWay::All;
  qint64 next_ = 0;  ///< bookmark of the record to look at next, 0 at the end
  qint64 count_ = 0;
};

}  // namespace folvane
