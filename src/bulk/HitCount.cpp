#include "bulk/HitCount.h"

#include "bulk/ReturnTo.h"

namespace folvane {
namespace {

constexpr int kRecordsAtATime = 1000;

qint64 Place(const Recordset& records) { return StandsOnRecord(records) ? records.Bookmark() : 0; }

bool IsEdited(const Recordset& records) { return records.EditMode() != EditModeKind::None; }

}  // namespace

void HitCount::Begin(Recordset& records, RecordSearch search, SearchWay way) {
  search_ = std::move(search);
  way_ = way;
  next_ = count_ = 0;
  if (IsEdited(records)) return;
  const ReturnTo place(records);
  BeginSearch(records, way_);
  next_ = Place(records);
}

bool HitCount::GoOn(Recordset& records) {
  if (next_ == 0 || IsEdited(records)) return false;
  const ReturnTo place(records);
  records.SetBookmark(next_);
  for (int done = 0; done < kRecordsAtATime && StandsOnRecord(records); ++done, StepSearch(records, way_))
    count_ += search_.IsHit(records) ? 1 : 0;
  next_ = Place(records);
  return next_ > 0;
}

}  // namespace folvane
