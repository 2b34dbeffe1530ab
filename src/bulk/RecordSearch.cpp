#include "bulk/RecordSearch.h"

#include <algorithm>

#include "base/IgnoreErrors.h"
#include "data/ValueText.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

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

}  // namespace folvane
