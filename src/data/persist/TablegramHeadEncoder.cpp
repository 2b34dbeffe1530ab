#include <QtEndian>

#include "base/FileUpdate.h"
#include "data/persist/TablegramWriter.h"
#include "data/persist/Utf16.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

/// Gathers the bytes of one part of the file.
class FrameBuilder {
 public:
  FrameBuilder& U8(uchar value) {
    bytes_.append(char(value));
    return *this;
  }
  FrameBuilder& U16(quint16 value) { return Number(value); }
  FrameBuilder& U32(quint32 value) { return Number(value); }
  FrameBuilder& Bytes(QByteArrayView bytes) {
    bytes_.append(bytes);
    return *this;
  }
  FrameBuilder& Text(const QString& text) {
    if (text.size() > 0xffff) ThrowTooLong(text);
    U16(quint16(text.size()));
    AppendUtf16(bytes_, text);
    return *this;
  }
  FrameBuilder& TextIf(bool wanted, const QString& text) { return wanted ? Text(text) : *this; }
  FrameBuilder& U16If(bool wanted, quint16 value) { return wanted ? U16(value) : *this; }

  /// The part with its token and its size ahead.
  void EndInto(QByteArray& file, uchar token, const QString& name = {}) {
    if (bytes_.size() > 0xffff) ThrowTooLong(name);
    file += FrameBuilder().U8(token).U16(quint16(bytes_.size())).bytes_ + bytes_;
  }

 private:
  template <typename Value>
  FrameBuilder& Number(Value value) {
    value = qToLittleEndian(value);
    return Bytes(QByteArrayView(reinterpret_cast<const char*>(&value), sizeof value));
  }
  [[noreturn]] static void ThrowTooLong(const QString& name) {
    throw FileError(u"名称太长，无法写入记录集文件：%1"_s.arg(name.left(40)));
  }

  QByteArray bytes_;
};

void EncodeOptions(const HandlerOptions& options, QByteArray& file) {
  FrameBuilder()
      .Bytes(options.classId)
      .U8(options.updateKind)
      .Text(options.originalUrl)
      .Text(options.updateUrl)
      .Text(options.friendlyName)
      .U16(options.asyncOption)
      .Bytes(options.rest)
      .EndInto(file, TablegramToken::HandlerOptions);
}

void EncodeResult(const TablegramSet& set, QByteArray& file) {
  FrameBuilder()
      .Bytes(set.resultId)
      .U8(set.resultInfo)
      .U8(set.cursorModel)
      .U8(set.normalization)
      .U16(set.visibleColumns)
      .U16(set.totalColumns)
      .U16(set.computedColumns)
      .U16(set.tableCount)
      .U16(set.orderByColumns)
      .U32(set.rowCount)
      .Bytes(set.resultProperties)
      .EndInto(file, TablegramToken::Result);
}

void EncodeTable(const TableDescriptor& table, QByteArray& file) {
  FrameBuilder frame;
  frame.U16(table.ordinal)
      .Text(table.originalName)
      .Text(table.updateName)
      .U16(table.codePage)
      .U16(table.columnCount)
      .U16(quint16(table.key.size()));
  for (const quint16 ordinal : table.key) frame.U16(ordinal);
  frame.Bytes(table.rest).EndInto(file, TablegramToken::Table, table.updateName);
}

void EncodeColumn(const ColumnDescriptor& column, bool ofChild, QByteArray& file) {
  const auto has = [&](quint32 part) { return (column.presence & part) != 0; };
  FrameBuilder frame;
  frame.U8(uchar(column.presence >> 16))
      .U8(uchar(column.presence >> 8))
      .U8(uchar(column.presence))
      .U16(column.ordinal)
      .TextIf(has(ColumnPart::Name), column.name)
      .U16If(has(ColumnPart::Table), column.table)
      .U16If(has(ColumnPart::TableColumn), column.tableColumn)
      .TextIf(has(ColumnPart::TableColumnName), column.tableColumnName)
      .U16(column.type)
      .U32(column.maxLength)
      .U32(column.precision)
      .U32(quint32(column.scale))
      .U32(column.flags)
      .TextIf(has(ColumnPart::Catalog), column.catalog)
      .TextIf(has(ColumnPart::Schema), column.schema)
      .Bytes(column.beforeAutoIncrement)
      .U16If(has(ColumnPart::AutoIncrement), column.autoIncrement)
      .Bytes(column.afterAutoIncrement)
      .U16(column.visible);
  if (ofChild) frame.U32(column.child);
  if (column.IsChapter()) frame.U32(quint32(column.relation.size())).Bytes(column.relation).Bytes(column.relationEnd);
  if (has(ColumnPart::Calculation)) frame.U32(quint32(column.calculation.size())).Bytes(column.calculation);
  frame.Bytes(column.rest).EndInto(file, TablegramToken::Column, column.name);
}

}  // namespace

QByteArray EncodeTablegramHead(const Tablegram& head) {
  QByteArray file(kTablegramHeader.data(), kTablegramHeader.size());
  EncodeOptions(head.options, file);
  for (std::size_t i = 0; i < head.sets.size(); ++i) {
    const TablegramSet& set = head.sets[i];
    EncodeResult(set, file);
    FrameBuilder().Bytes(set.contextProperties).EndInto(file, TablegramToken::Context);
    for (const TableDescriptor& table : set.tables) EncodeTable(table, file);
    for (const ColumnDescriptor& column : set.columns) EncodeColumn(column, i > 0, file);
  }
  return file;
}

}  // namespace folvane
