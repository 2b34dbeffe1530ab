#include "bulk/RecordSearch.h"

#include <algorithm>

#include "base/IgnoreErrors.h"
#include "bulk/ReturnTo.h"
#include "data/ValueText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kRecordsAtATime = 1000;

qint64 BookmarkOf(const Recordset& records) { return StandsOnRecord(records) ? records.Bookmark() : 0; }

bool IsEdited(const Recordset& records) { return records.EditMode() != EditModeKind::None; }

}  // namespace

void BeginSearch(Recordset& records, SearchWay way) {
  if (way == SearchWay::All && records.RecordCount() > 0) records.MoveFirst();
}

void StepSearch(Recordset& records, SearchWay way) {
  way == SearchWay::Up ? records.MovePrevious() : records.MoveNext();
}

bool StandsOnRecord(const Recordset& records) { return records.AbsolutePosition() > 0; }

RecordSearch::RecordSearch(const SearchTerms& terms, QString field)
    : field_(std::move(field)), whole_(u"*"_s + terms.find + u"*"_s) {
  hasHits_ = !terms.like || IgnoreErrors([this] { pattern_.emplace(whole_); });
}

int RecordSearch::NextHit(const Recordset& records, int from) const {
  if (!hasHits_) return -1;
  const FieldList fields = records.Fields();
  if (!field_.isEmpty()) {
    const int index = fields.IndexOf(field_);
    return index >= from && Hits(fields.Item(field_)) ? index : -1;
  }
  for (int index = std::max(from, 1); index < fields.Count(); ++index) {
    if (Hits(fields.Item(index))) return index;
  }
  return -1;
}

bool RecordSearch::IsHit(const Recordset& records) const {
  bool hit = false;
  IgnoreErrors([&] { hit = NextHit(records) >= 0; });
  return hit;
}

bool RecordSearch::Hits(const Field& field) const {
  const QVariant value = field.Value();
  if (!value.isValid()) return false;
  const QString text = ValueText(value);
  return pattern_ ? pattern_->Matches(text) : text == whole_;
}

void HitCount::Begin(Recordset& records, RecordSearch search, SearchWay way) {
  search_ = std::move(search);
  way_ = way;
  next_ = count_ = 0;
  if (IsEdited(records)) return;
  const ReturnTo before(records);
  BeginSearch(records, way_);
  next_ = BookmarkOf(records);
}

bool HitCount::GoOn(Recordset& records) {
  if (next_ == 0 || IsEdited(records)) return false;
  const ReturnTo before(records);
  records.SetBookmark(next_);
  for (int done = 0; done < kRecordsAtATime && StandsOnRecord(records); ++done, StepSearch(records, way_))
    count_ += search_.IsHit(records) ? 1 : 0;
  next_ = BookmarkOf(records);
  return next_ > 0;
}

}  // namespace folvane
