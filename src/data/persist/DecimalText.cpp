#include "data/persist/DecimalText.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace folvane {

namespace {

constexpr quint32 kBillion = 1'000'000'000;
constexpr int kWidestScale = 48;
constexpr int kMostExponent = 400;  // a double reaches to 308

/// The magnitude in words of 32 bits, the least significant one first, without zeros at the end.
std::vector<quint32> WordsOf(QByteArrayView magnitude) {
  std::vector<quint32> words(std::size_t(magnitude.size() + 3) / 4);
  for (qsizetype i = 0; i < magnitude.size(); ++i)
    words[std::size_t(i) / 4] |= quint32(uchar(magnitude[i])) << i % 4 * 8;
  while (!words.empty() && words.back() == 0) words.pop_back();
  return words;
}

/// Divides by a billion and gives what is left over.
quint32 TakeBillion(std::vector<quint32>& words) {
  quint64 rest = 0;
  for (std::size_t i = words.size(); i-- > 0;) {
    rest = rest << 32 | words[i];
    words[i] = quint32(rest / kBillion);
    rest %= kBillion;
  }
  while (!words.empty() && words.back() == 0) words.pop_back();
  return quint32(rest);
}

/// The digits, "0" at the least.
QByteArray DigitsOf(QByteArrayView magnitude) {
  std::vector<quint32> words = WordsOf(magnitude);
  std::vector<quint32> groups;
  while (!words.empty()) groups.push_back(TakeBillion(words));
  if (groups.empty()) return QByteArrayLiteral("0");
  QByteArray digits = QByteArray::number(groups.back());
  for (std::size_t i = groups.size() - 1; i-- > 0;) digits += QByteArray::number(groups[i]).rightJustified(9, '0');
  return digits;
}

}  // namespace

QByteArray DecimalText(bool negative, QByteArrayView magnitude, int scale, TrailingZeros zeros) {
  QByteArray digits = DigitsOf(magnitude);
  const bool isZero = digits == "0";
  while (zeros == TrailingZeros::Drop && scale > 0 && digits.endsWith('0') && digits.size() > 1) {
    digits.chop(1);
    --scale;
  }
  if (isZero && zeros == TrailingZeros::Drop) scale = 0;
  if (negative && !isZero) digits.prepend('-');
  if (scale == 0) return digits;
  if (scale > kWidestScale || scale < -kWidestScale) return digits + 'E' + QByteArray::number(-scale);
  if (scale < 0) return isZero ? digits : digits + QByteArray(-scale, '0');
  const qsizetype sign = digits.startsWith('-');
  if (digits.size() - sign <= scale) digits.insert(sign, QByteArray(scale + 1 - (digits.size() - sign), '0'));
  return digits.insert(digits.size() - scale, '.');
}

double AsWritten(float value) {
  char digits[24];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
  double same = value;
  std::from_chars(digits, end, same);
  return same;
}

std::optional<DecimalParts> DecimalParts::Read(QByteArrayView text) {
  DecimalParts parts;
  const char* at = text.begin();
  const char* const end = text.end();
  if (at < end && (*at == '-' || *at == '+')) parts.negative = *at++ == '-';
  bool fraction = false, any = false;
  for (; at < end && (*at == '.' || (*at >= '0' && *at <= '9')); ++at) {
    if (*at == '.') {
      if (std::exchange(fraction, true)) return std::nullopt;
      continue;
    }
    any = true;
    parts.scale += fraction;
    if (*at != '0' || !parts.digits.isEmpty()) parts.digits += *at;
  }
  int exponent = 0;
  if (at < end && any && (*at == 'e' || *at == 'E')) {
    if (++at < end && *at == '+') ++at;
    const auto read = std::from_chars(at, end, exponent);
    if (read.ec != std::errc() || exponent > kMostExponent || exponent < -kMostExponent) return std::nullopt;
    at = read.ptr;
  }
  if (!any || at != end) return std::nullopt;
  parts.scale -= exponent;
  if (parts.scale < 0 && !parts.Rescale(0)) return std::nullopt;
  return parts;
}

bool DecimalParts::Rescale(int wanted) {
  if (digits.isEmpty()) {
    scale = wanted;
    return true;
  }
  for (; scale > wanted && digits.endsWith('0'); --scale) digits.chop(1);
  if (scale > wanted) return false;
  digits += QByteArray(wanted - scale, '0');
  scale = wanted;
  return true;
}

bool DecimalParts::PutMagnitude(char* bytes, std::size_t count) const {
  std::fill_n(bytes, count, '\0');
  for (const char digit : digits) {
    unsigned carry = unsigned(digit - '0');
    for (std::size_t i = 0; i < count; ++i) {
      carry += uchar(bytes[i]) * 10u;
      bytes[i] = char(carry);
      carry >>= 8;
    }
    if (carry) return false;
  }
  return true;
}

}  // namespace folvane
