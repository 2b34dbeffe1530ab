#pragma once

#include "base/IgnoreErrors.h"
#include "data/Recordset.h"

namespace folvane {

/// Has a record set stand again, at the end of the scope, on the record it stood on, or behind the last one; for a walk
/// that is not to move it.
class ReturnTo {
 public:
  explicit ReturnTo(Recordset& records)
      : records_(records),
        bookmark_(records.AbsolutePosition() > 0 ? records.Bookmark() : 0),
        isBehindLast_(records.EOF_() && records.RecordCount() > 0) {}
  ~ReturnTo() {
    IgnoreErrors([this] {
      if (bookmark_ > 0) records_.SetBookmark(bookmark_);
      if (!isBehindLast_) return;
      records_.MoveLast();
      records_.MoveNext();
    });
  }
  ReturnTo(const ReturnTo&) = delete;
  ReturnTo& operator=(const ReturnTo&) = delete;

  /// Leaves the record set where it is after all.
  void Stay() {
    bookmark_ = 0;
    isBehindLast_ = false;
  }

 private:
  Recordset& records_;
  qint64 bookmark_;
  bool isBehindLast_;
};

}  // namespace folvane
