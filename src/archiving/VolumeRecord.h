#pragma once

#include <QString>
#include <functional>

#include "archiving/ArchiveNumber.h"

namespace folvane {

/// What a volume's record is made of.
struct VolumeOrder {
  QString objectTable;  ///< of the records in the volume
  QString parentTable;
  QString storeField;       ///< the parent's column of the composed number, "" for none
  QString scopeClause;      ///< the rows of the volume in both tables
  NumberFormat format;      ///< of the object table
  QString dictionaryTable;  ///< whose dictionaries the pieces are made with
  /// The text of a fixed field of the number, as the record that was transferred last has it.
  std::function<QString(const NumberField& field)> fieldText;
  std::function<QString()> askTitle;  ///< asks the user for the title of a new volume
};

/// Makes the record of a volume in the parent table, or refreshes its sums where it is there.
/// @return the key of the record that was made, "" for one that was there
/// @throws DataError
QString WriteVolumeRecord(const VolumeOrder& order);

}  // namespace folvane
