#pragma once

#include <QString>
#include <optional>

#include "base/WildcardPattern.h"
#include "data/Recordset.h"

namespace folvane {

/// What to look for in records, and what to put in its place.
struct SearchTerms {
  QString find = {}, replace = {};
  bool allFields = true;
  QString caption = {};  ///< of the one field to look in, where not in all
  bool like = true;      ///< a value that has the text anywhere in it; otherwise one that is the text between two stars
};

enum class SearchWay { All, Up, Down };

/// Puts the record set on the record where a search in that way begins, and on the next one; beyond the last of them it
/// stands on none.
void BeginSearch(Recordset& records, SearchWay way);
void StepSearch(Recordset& records, SearchWay way);
bool StandsOnRecord(const Recordset& records);

/// Looks for a text in the fields of records. All fields means all but the first.
class RecordSearch {
 public:
  /// Has no hits.
  RecordSearch() = default;
  /// @param field the one to look in, "" for all. A text that is no pattern has no hits.
  RecordSearch(const SearchTerms& terms, QString field);

  /// The first field from `from` on whose value in the current record is hit, -1 for none. @throws DataError
  int NextHit(const Recordset& records, int from = 0) const;
  /// The same of all fields; one that cannot be looked at is no hit.
  bool IsHit(const Recordset& records) const;

 private:
  bool Hits(const Field& field) const;

  QString field_;
  QString whole_;                           ///< the pattern as a text
  std::optional<WildcardPattern> pattern_;  ///< none when whole values are compared
  bool hasHits_ = false;
};

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
