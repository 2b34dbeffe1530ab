#include "design/transfer/NumberLength.h"

#include "base/CodePage.h"

namespace folvane {

int ArchiveNumberLength(const std::vector<NumberField>& fields) {
  int length = 0;
  for (const NumberField& field : fields) length += ByteLength(field.separator) + field.length;
  const int first =
      fields.empty() || fields.front().separator.isEmpty() ? 1 : ByteLength(fields.front().separator.left(1));
  return std::max(0, length - first);
}

namespace transfer {
namespace {

// A length that no number of 16 bits is has no piece.
qint16 LengthIn(const NumberPart& part) {
  bool isNumber = false;
  const short length = part.length.toShort(&isNumber);
  return isNumber && length > 0 ? length : 0;
}

}  // namespace

std::vector<NumberField> NumberFieldsOf(const NumberFormat& format, std::size_t count, const QStringList& values) {
  std::vector<NumberField> fields;
  for (std::size_t at = 0; at < count; ++at) {
    const NumberPart& part = format.parts[at];
    fields.push_back({part.field, values.value(qsizetype(at)), part.separator, part.showsCode, LengthIn(part)});
  }
  return fields;
}

int LengthOf(const NumberFormat& format, std::size_t parts) {
  return ArchiveNumberLength(NumberFieldsOf(format, parts, {}));
}

}  // namespace transfer
}  // namespace folvane
