#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include "data/RowStore.h"
#include "data/persist/Tablegram.h"

namespace folvane {

/// Turns values of one column into the bytes that a file holds for them.
class ValueEncoder {
 public:
  explicit ValueEncoder(const ColumnDescriptor& column) : column_(column) {}

  /// Gives the bytes of a value other than null; they live until the next call and as long as the cell's. False when
  /// the column cannot hold the value as it is: another kind of value, too large or too long.
  bool Encode(const Cell& cell, QByteArrayView& bytes);

 private:
  bool EncodeText(const Cell& cell, QByteArrayView& bytes);
  bool EncodeBytes(const Cell& cell, QByteArrayView& bytes);
  bool EncodeVariant(const Cell& cell);
  bool Fit(QByteArrayView& bytes, QByteArrayView blank);

  const ColumnDescriptor& column_;
  QByteArray buffer_, text_;
};

/// A value as text in UTF-8, numbers with all their digits.
QByteArrayView CellText(const Cell& cell, QByteArray& buffer);

}  // namespace folvane
