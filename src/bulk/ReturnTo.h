#pragma once

#include "base/IgnoreErrors.h"
#include "data/Recordset.h"

namespace folvane {

/// Has a record set stand again, at the end of the scope, on the record it stood on; for a walk that is not to move it.
class ReturnTo {
 public:
  explicit ReturnTo(Recordset& records)
      : records_(records), bookmark_(records.AbsolutePosition() > 0 ? records.Bookmark() : 0) {}
  ~ReturnTo() {
    if (bookmark_ > 0) IgnoreErrors([this] { records_.SetBookmark(bookmark_); });
  }
  ReturnTo(const ReturnTo&) = delete;
  ReturnTo& operator=(const ReturnTo&) = delete;

  /// Leaves the record set where it is after all.
  void Stay() { bookmark_ = 0; }

 private:
  Recordset& records_;
  qint64 bookmark_;
};

}  // namespace folvane
