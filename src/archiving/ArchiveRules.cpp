#include <folvane/ArchiveRules.h>

#include "archiving/ArchiveNumber.h"

namespace folvane {

QString ComposeArchiveNumber(const std::vector<NumberField>& fields, const QString& table) {
  QString number;
  for (const NumberField& field : fields) number += field.separator + ComposeNoPiece(field, field.value, table);
  return WithoutFirstSeparator(number);
}

}  // namespace folvane
