#pragma once

#include <QString>

#include <folvane/Export.h>

namespace folvane {

/// Turns codes into their texts and names into their codes.
class FOLVANE_EXPORT ClsCodeConvert {
 public:
  /// @param kind 1: the name of the fonds numbered `code`; 2: the name of the class numbered `code` in the current
  ///             fonds; 3: the code of the retention period named `code`
  /// @return "" when there is none, and for any other kind
  /// @throws DataError
  QString ConvertChn(qint16 kind, const QString& code) const;
};

}  // namespace folvane
