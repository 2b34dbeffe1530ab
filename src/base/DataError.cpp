#include <folvane/DataError.h>

namespace folvane {

DataError::DataError(DataErrorKind kind, const QString& message, const QString& statement, const QString& nativeCode)
    : kind_(kind), message_(message), statement_(statement), nativeCode_(nativeCode), utf8_(message.toUtf8()) {}

DataError& DataError::About(const QString& column) {
  column_ = column;
  return *this;
}

DataError& DataError::AsDuplicate() {
  isDuplicate_ = true;
  return *this;
}

DataError& DataError::During(const QString& statement) {
  statement_ = statement;
  return *this;
}

}  // namespace folvane
