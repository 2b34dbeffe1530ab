#pragma once

#include <sane/sane.h>

#include <folvane/DataError.h>

namespace folvane::scanning {

/// What a scanner's refusal is called to the user.
QString StatusInWords(SANE_Status status);

/// The scanner has refused.
class ScanError : public DataError {
 public:
  explicit ScanError(SANE_Status status) : DataError(DataErrorKind::Other, StatusInWords(status)), status_(status) {}
  SANE_Status Status() const { return status_; }

 private:
  SANE_Status status_;
};

/// @throws ScanError unless the status is SANE_STATUS_GOOD
inline void RequireGood(SANE_Status status) {
  if (status != SANE_STATUS_GOOD) throw ScanError(status);
}

}  // namespace folvane::scanning
