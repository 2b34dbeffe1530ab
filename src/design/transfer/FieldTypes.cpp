#include "design/transfer/FieldTypes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "base/TypedValues.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr std::array kWholeTypes{2, 3, 16, 17, 18, 19, 20, 21};
constexpr std::array kOtherNumberTypes{4, 131, 139};
constexpr std::array kDateTypes{133, 135};
constexpr std::array kCountableTypes{2, 3, 4, 5, 6, 11, 16, 17, 18, 19, 20, 21, 131, 201, 203, 205};

template <typename Types>
bool IsOneOf(const Types& types, int type) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

// In the mode of rounding that programs start with, which is to the even neighbour.
double Rounded(double value) { return std::nearbyint(value); }

}  // namespace

FieldBranch BranchOf(int adoType) {
  if (IsOneOf(kWholeTypes, adoType) || IsOneOf(kOtherNumberTypes, adoType)) return FieldBranch::Number;
  return IsOneOf(kDateTypes, adoType) ? FieldBranch::Date : FieldBranch::Text;
}

bool IsCountableFieldType(int adoType) { return IsOneOf(kCountableTypes, adoType); }

std::optional<QVariant> NumberFor(int adoType, const QString& text) {
  bool whole = false;
  if (const qlonglong number = text.toLongLong(&whole); whole) return number;
  const std::optional<double> number = ReadNumber(text);
  if (!number) return {};
  // Decimals keep the digits that a fraction of the machine would lose.
  bool plain = false;
  text.toDouble(&plain);
  if (!IsOneOf(kWholeTypes, adoType)) return plain ? QVariant(text) : QVariant(*number);
  const double rounded = Rounded(*number);
  if (std::abs(rounded) >= std::ldexp(1.0, 63)) throw NumberError(u"数字“%1”超出了整数的范围。"_s.arg(text));
  return qlonglong(rounded);
}

std::optional<QVariant> DateFor(const QString& text) {
  const std::optional<QDate> date = ReadDate(text);
  return date ? std::optional<QVariant>(date->toString(u"yyyy-MM-dd"_s)) : std::nullopt;
}

qint16 CounterOf(double value) {
  const double rounded = Rounded(value);
  if (rounded < std::numeric_limits<qint16>::min() || rounded > std::numeric_limits<qint16>::max())
    throw NumberError(u"溢出：顺序号 %1 超出了 %2。"_s.arg(rounded, 0, 'f', 0).arg(std::numeric_limits<qint16>::max()));
  return qint16(rounded);
}

double NumberIn(const QString& text) {
  const std::optional<double> number = ReadNumber(text);
  if (!number) throw NumberError(u"“%1”不是数字。"_s.arg(text));
  return *number;
}

}  // namespace folvane
