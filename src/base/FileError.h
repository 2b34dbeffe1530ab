#pragma once

#include <folvane/DataError.h>

namespace folvane {

/// A file of the program could not be read or written.
class FileError : public DataError {
 public:
  explicit FileError(const QString& message) : DataError(DataErrorKind::File, message) {}
};

}  // namespace folvane
