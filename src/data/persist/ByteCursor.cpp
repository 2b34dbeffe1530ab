#include "data/persist/ByteCursor.h"

#include "data/persist/Utf16.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

FileError BrokenTablegram(std::size_t offset, const QString& reason) {
  return FileError(u"不是完好的记录集文件（偏移 %1）：%2"_s.arg(offset).arg(reason));
}

QString ByteCursor::Text() {
  const std::size_t units = U16();
  return Utf16ToText(Take(units * 2));
}

void ByteCursor::ThrowCutOff(std::size_t wanted) const {
  throw BrokenTablegram(Offset(), u"应有 %1 个字节，只剩 %2 个。"_s.arg(wanted).arg(Left()));
}

}  // namespace folvane
