#include <QRegularExpression>
#include <cmath>
#include <limits>

#include "base/HalfWidth.h"
#include "base/TypedValues.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QRegularExpression Whole(const char16_t* pattern) {
  return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromUtf16(pattern)),
                            QRegularExpression::CaseInsensitiveOption);
}

struct RadixNumber {
  quint64 value = 0;
  bool fitsWord = false;  ///< eight hexadecimal digits or as many bits: read as a signed word where a word is wanted
};

std::optional<RadixNumber> ReadRadixNumber(const QString& text) {
  static const QRegularExpression pattern = Whole(uR"(&(?:h([0-9a-f]+)|o([0-7]+)))");
  const QRegularExpressionMatch match = pattern.match(text);
  if (!match.hasMatch()) return {};
  const bool hex = match.hasCaptured(1);
  bool fits = false;
  const quint64 value = match.capturedView(hex ? 1 : 2).toULongLong(&fits, hex ? 16 : 8);
  if (!fits) return {};
  return RadixNumber{value, value <= std::numeric_limits<quint32>::max()};
}

std::optional<double> ReadDecimal(const QString& text) {
  static const QRegularExpression pattern = Whole(
      // sign, currency sign and opening bracket in any order; digits; sign and closing bracket
      uR"(([+-]?)\s*(\(?)\s*[¥￥]?\s*([+-]?)\s*(\d[\d,]*\.?\d*|\.\d+)(?:[ed]([+-]?\d+))?\s*([+-]?)\s*(\)?))");
  const QRegularExpressionMatch match = pattern.match(text);
  if (!match.hasMatch()) return {};
  const QString signs = match.captured(1) + match.captured(3) + match.captured(6);
  const bool opened = match.capturedLength(2) > 0, closed = match.capturedLength(7) > 0;
  if (signs.size() > 1 || opened != closed || (opened && !signs.isEmpty())) return {};
  QString digits = match.captured(4).remove(u',');
  if (match.hasCaptured(5)) digits += u'e' + match.captured(5);
  bool fits = false;
  const double number = digits.toDouble(&fits);
  if (!fits || std::isinf(number)) return {};
  return signs == u"-" || opened ? -number : number;
}

QString Prepared(const QString& text) { return ToHalfWidth(text).trimmed(); }

double RoundHalfToEven(double number) {
  const double below = std::floor(number);
  const double rest = number - below;
  if (rest != 0.5) return std::round(number);
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

}  // namespace

std::optional<double> ReadNumber(const QString& text) {
  const QString prepared = Prepared(text);
  if (const auto number = ReadRadixNumber(prepared)) return double(number->value);
  return ReadDecimal(prepared);
}

bool IsNumeric(const QString& text) { return ReadNumber(text).has_value(); }

int ToInteger(const QString& text) {
  if (const auto number = ReadRadixNumber(Prepared(text)); number && number->fitsWord) return qint32(number->value);
  const std::optional<double> number = ReadNumber(text);
  if (!number) throw NumberError(u"“%1”不是数字。"_s.arg(text));
  const double rounded = RoundHalfToEven(*number);
  if (rounded < std::numeric_limits<int>::min() || rounded > std::numeric_limits<int>::max())
    throw NumberError(u"数字“%1”超出了整数的范围。"_s.arg(text));
  return int(rounded);
}

}  // namespace folvane
