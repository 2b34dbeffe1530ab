// A target of libFuzzer: any text is read as what number rules read: document numbers, numbers and dates as people type
// them, lengths of code page texts.
#include <cstdlib>

#include "base/CodePage.h"
#include "base/DocumentNumber.h"
#include "base/HalfWidth.h"
#include "base/TypedValues.h"

namespace {

using namespace folvane;

void ReadDocumentNumber(const QString& text) {
  AgencyOf(text);
  const auto number = DocumentNumber::Split(text);
  if (!number) {
    if (NextDocumentNumber(text) != text) std::abort();
    return;
  }
  if (number->Join() != text) std::abort();
  const DocumentNumber next = number->Next();
  if (number->running.isEmpty() != (next.Join() == text)) std::abort();
  const auto again = DocumentNumber::Split(next.Join());
  if (!again || again->running != next.running) std::abort();
}

void ReadTypedValues(const QString& text) {
  if (ReadNumber(text).has_value() != IsNumeric(text) || ReadDate(text).has_value() != IsDate(text)) std::abort();
  try {
    ToInteger(text);
    if (!IsNumeric(text)) std::abort();
  } catch (const NumberError&) {
    // what is to happen to nearly all of them
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
  const QString text = QString::fromUtf8(bytes);
  ReadDocumentNumber(text);
  ReadTypedValues(text);
  ReadTypedValues(FromCodePage(bytes));
  const int limit = int(size % 16);
  const QString cut = LimitByteLength(text, limit);
  if (ByteLength(cut) > limit || !text.startsWith(cut)) std::abort();
  return 0;
}
