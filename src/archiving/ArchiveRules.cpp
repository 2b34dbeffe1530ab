#include <folvane/ArchiveRules.h>

#include "archiving/ArchiveNumber.h"
#include "base/CodePage.h"

namespace folvane {

QString ComposeArchiveNumber(const std::vector<NumberField>& fields, const QString& table) {
  QString number;
  for (const NumberField& field : fields) number += field.separator + ComposeNoPiece(field, field.value, table);
  return WithoutFirstSeparator(number);
}

int ArchiveNumberLength(const std::vector<NumberField>& fields) {
  int length = 0;
  for (const NumberField& field : fields) length += ByteLength(field.separator) + field.length;
  const int first =
      fields.empty() || fields.front().separator.isEmpty() ? 1 : ByteLength(fields.front().separator.left(1));
  return std::max(0, length - first);
}

}  // namespace folvane
