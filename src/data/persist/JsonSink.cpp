#include "data/persist/JsonSink.h"

#include <charconv>
#include <cmath>

#include "data/persist/Utf16.h"

namespace folvane {

/// The shortest number that reads as the same value; JSON has none for what is no number.
template <typename Number>
void JsonSink::Floating(Number value) {
  if (std::isnan(value)) return AppendJsonWord(json_, "NaN");
  if (std::isinf(value)) return AppendJsonWord(json_, value < 0 ? "-Infinity" : "Infinity");
  char digits[32];
  const char* end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
  json_.append(digits, end - digits);
}

void JsonSink::Single(float value) { Floating(value); }
void JsonSink::Double(double value) { Floating(value); }

void JsonSink::Date(const PersistedMoment& value) {
  json_.append('"');
  value.AppendDate(json_);
  json_.append('"');
}

void JsonSink::Time(const PersistedMoment& value) {
  json_.append('"');
  value.AppendTime(json_);
  json_.append('"');
}

void JsonSink::Timestamp(const PersistedMoment& value) {
  json_.append('"');
  value.AppendDate(json_);
  json_.append('T');
  value.AppendTime(json_);
  json_.append('"');
}

void JsonSink::NarrowText(QByteArrayView bytes) { AppendJsonUtf8(json_, codePage_.Read(bytes, text_)); }

void JsonSink::WideText(QByteArrayView bytes) { AppendJsonText(json_, Utf16ToText(bytes)); }

}  // namespace folvane
