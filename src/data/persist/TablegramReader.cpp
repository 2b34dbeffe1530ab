#include "data/persist/TablegramReader.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

bool BitAt(QByteArrayView map, std::size_t index) { return uchar(map[qsizetype(index / 8)]) >> (7 - index % 8) & 1; }

/// What stands in the last byte of a map behind its bits.
uchar PaddingOf(QByteArrayView map, std::size_t bits) {
  return bits % 8 ? uchar(uchar(map.back()) & (0xff >> bits % 8)) : uchar(0);
}

}  // namespace

TablegramReader::TablegramReader(QByteArrayView content) : cursor_(content), head_(ReadTablegramHead(cursor_)) {}

bool TablegramReader::Next(TablegramRow& row) {
  if (ended_) return false;
  const std::size_t offset = cursor_.Offset();
  const uchar token = cursor_.Byte();
  if (token == TablegramToken::End) {
    if (cursor_.Left()) throw BrokenTablegram(cursor_.Offset(), u"结束标记之后还有 %1 个字节。"_s.arg(cursor_.Left()));
    ended_ = true;
    return false;
  }
  row.set = ReadSet(token, offset);
  switch (token & ~TablegramToken::OfChild) {
    case TablegramToken::OriginalRow:
      row.kind = TablegramRow::Original;
      ReadOriginal(row);
      break;
    case TablegramToken::Change:
      row.kind = TablegramRow::Change;
      CheckOrder(row, offset);
      ReadAssigned(row);
      break;
    case TablegramToken::Deletion:
      row.kind = TablegramRow::Deletion;
      CheckOrder(row, offset);
      break;
    case TablegramToken::Insertion:
      row.kind = TablegramRow::Insertion;
      ReadAssigned(row);
      break;
    default:
      throw BrokenTablegram(offset, u"没有标记为 0x%1 的行。"_s.arg(token, 2, 16, QChar(u'0')));
  }
  last_ = row.kind;
  lastSet_ = row.set;
  return true;
}

/// The index of the record set that a row belongs to.
int TablegramReader::ReadSet(uchar token, std::size_t offset) {
  if (!(token & TablegramToken::OfChild)) return 0;
  const quint32 number = cursor_.U32();
  if (number < 2 || number > head_.sets.size())
    throw BrokenTablegram(offset, u"没有编号为 %1 的子记录集。"_s.arg(number));
  return int(number - 1);
}

void TablegramReader::CheckOrder(const TablegramRow& row, std::size_t offset) const {
  const bool follows = last_ == TablegramRow::Original || (last_ == TablegramRow::Change && row.kind != last_);
  if (!follows || row.set != lastSet_) throw BrokenTablegram(offset, u"修改或删除没有跟在它的原行之后。"_s);
}

void TablegramReader::ReadOriginal(TablegramRow& row) {
  const TablegramSet& set = head_.sets[std::size_t(row.set)];
  const QByteArrayView map = cursor_.Take((set.presenceBits + 7) / 8);
  row.padding = PaddingOf(map, set.presenceBits);
  row.cells.resize(set.layouts.size());
  std::size_t bit = 0;
  for (std::size_t i = 0; i < set.layouts.size(); ++i) {
    const ValueLayout& layout = set.layouts[i];
    const bool present = !layout.presence || BitAt(map, bit++);
    row.cells[i] =
        present ? TablegramCell{TablegramCell::Value, ReadValue(layout)} : TablegramCell{TablegramCell::Null, {}};
  }
}

void TablegramReader::ReadAssigned(TablegramRow& row) {
  const TablegramSet& set = head_.sets[std::size_t(row.set)];
  const std::size_t columns = set.layouts.size();
  const QByteArrayView assigned = cursor_.Take((columns + 7) / 8);
  const QByteArrayView nulls = cursor_.Take((columns + 7) / 8);
  row.padding = PaddingOf(assigned, columns);
  row.nullPadding = PaddingOf(nulls, columns);
  row.cells.resize(columns);
  for (std::size_t i = 0; i < columns; ++i) {
    const auto state = TablegramCell::State(int(BitAt(assigned, i)) | int(BitAt(nulls, i)) << 1);
    row.cells[i] = {state, state == TablegramCell::Value ? ReadValue(set.layouts[i]) : QByteArrayView()};
  }
}

QByteArrayView TablegramReader::ReadValue(const ValueLayout& layout) {
  if (layout.kind == ValueLayout::Given) return cursor_.Take(layout.size);
  const std::size_t offset = cursor_.Offset();
  const std::size_t count = layout.kind == ValueLayout::ByteCount ? cursor_.Byte() : cursor_.U32();
  if (count % layout.unit || count < layout.least || count > layout.most)
    throw BrokenTablegram(offset, u"值的字节数 %1 与字段的类型不符。"_s.arg(count));
  return cursor_.Take(count);
}

}  // namespace folvane
