#include "data/ColumnSurvey.h"

#include <algorithm>

#include "data/persist/ColumnPlan.h"
#include "data/persist/DecimalText.h"
#include "data/persist/ValueEncoder.h"

namespace folvane {

namespace {

constexpr int kMostDigits = 38;
constexpr int kUsualDigits = 18;

}  // namespace

/// Calls `look` with the value of every row, and with the one before where that is another; it answers whether to go
/// on.
template <typename Look>
void ColumnSurvey::EachValue(Look look) {
  const auto column = std::size_t(column_);
  for (qint64 i = 0; i < rows_.Count(); ++i) {
    const RowId row = rows_.At(i);
    if (!look(rows_.Current(row)[column])) return;
    if (rows_.Source().StateOf(row) == RowChange::Modified && !look(rows_.Original(row)[column])) return;
  }
}

ColumnDescriptor ColumnSurvey::Fitted(const ColumnDescriptor& descriptor) {
  ColumnDescriptor fitted = descriptor.type == AdoType::Numeric ? WithDigits(descriptor) : descriptor;
  if (Holds(fitted)) return fitted;
  for (const ColumnDescriptor& other : OtherDescriptors(descriptor))
    if (fitted = other; Holds(fitted)) break;
  return fitted;
}

/// As many digits behind the point as the longest fraction has, and ahead of it as the largest number.
ColumnDescriptor ColumnSurvey::WithDigits(ColumnDescriptor descriptor) {
  int whole = 0, fraction = 0;
  QByteArray buffer;
  EachValue([&](const Cell& cell) {
    const auto parts = cell.kind == Cell::Null ? std::nullopt : DecimalParts::Read(CellText(cell, buffer));
    if (!parts) return true;
    whole = std::max(whole, int(parts->digits.size()) - parts->scale);
    fraction = std::max(fraction, parts->scale);
    return true;
  });
  descriptor.scale = std::min(fraction, kMostDigits);
  descriptor.precision = quint32(std::clamp(whole + fraction, kUsualDigits, kMostDigits));
  return descriptor;
}

/// Whether all values fit; the descriptor learns of nulls, and of the longest value where it sets no limit itself.
bool ColumnSurvey::Holds(ColumnDescriptor& descriptor) {
  ValueEncoder encoder(descriptor);
  bool fits = true, nulls = false;
  qsizetype longest = 0;
  EachValue([&](const Cell& cell) {
    QByteArrayView bytes;
    if (cell.kind == Cell::Null)
      nulls = true;
    else
      fits = encoder.Encode(cell, bytes);
    longest = std::max(longest, bytes.size());
    return fits;
  });
  if (nulls) descriptor.flags |= ColumnFlag::Nullable;
  if (!(descriptor.flags & ColumnFlag::Long) && descriptor.maxLength == kNoLimit)
    descriptor.maxLength = quint32(std::max<qsizetype>(longest / (descriptor.type == AdoType::WChar ? 2 : 1), 1));
  return fits;
}

}  // namespace folvane
