#pragma once

#include <QString>

#include <folvane/Export.h>

namespace folvane {

/// Makes the keys of records.
class FOLVANE_EXPORT createdname {
 public:
  /// A key of 20 digits: the present time as yyyymmddhhnnss and six random digits.
  QString CreateName() const;
};

}  // namespace folvane
