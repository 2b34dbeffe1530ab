#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

namespace folvane {

/// Whether zeros at the end of a fraction are kept: of numbers with a scale of their column, not of those that have
/// each their own.
enum class TrailingZeros { Keep, Drop };

/// A whole number, little-endian, divided by ten to the power of `scale`, with all its digits. Scales that no number
/// of 38 digits needs are told by an exponent.
QByteArray DecimalText(bool negative, QByteArrayView magnitude, int scale, TrailingZeros zeros);

/// The double that reads as a single does: 0.1 and not 0.100000001490116.
double AsWritten(float value);

/// A decimal number taken apart: ±digits / 10^scale. An exponent is worked in.
struct DecimalParts {
  bool negative = false;
  QByteArray digits;  ///< without leading zeros; "" for zero
  int scale = 0;      ///< never negative

  /// The number as a text, nothing when it is none.
  static std::optional<DecimalParts> Read(QByteArrayView text);
  /// Changes the scale without changing the number; false when digits would be lost.
  bool Rescale(int wanted);
  /// Puts the digits as a whole number, little-endian, into so many bytes; false when they do not suffice.
  bool PutMagnitude(char* bytes, std::size_t count) const;
};

}  // namespace folvane
