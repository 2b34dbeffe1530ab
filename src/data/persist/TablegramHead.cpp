#include <algorithm>

#include "data/persist/TablegramReader.h"
#include "data/persist/ValueLayout.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

void ReadHeader(ByteCursor& cursor) {
  const std::size_t known = std::min(cursor.Left(), std::size_t(kTablegramHeader.size()));
  const QByteArrayView begin = cursor.Take(known);
  if (begin == kTablegramHeader) return;
  if (begin.startsWith("<xml") || begin.startsWith("<?xml"))
    throw FileError(u"这是 XML 格式的记录集文件，只能读取 ADTG 格式的记录集文件。"_s);
  if (begin.size() < 5 || begin.first(5) != kTablegramHeader.first(5))
    throw FileError(u"不是 ADTG 格式的记录集文件。"_s);
  throw BrokenTablegram(5, u"文件头的版本或字节顺序无法识别。"_s);
}

void ExpectToken(ByteCursor& cursor, uchar token, const QString& part) {
  const std::size_t offset = cursor.Offset();
  if (cursor.Byte() != token) throw BrokenTablegram(offset, u"此处应为%1。"_s.arg(part));
}

HandlerOptions ReadOptions(ByteCursor& cursor) {
  ExpectToken(cursor, TablegramToken::HandlerOptions, u"处理选项"_s);
  ByteCursor frame = cursor.Frame();
  HandlerOptions options;
  options.classId = frame.Take(16);
  options.updateKind = frame.Byte();
  options.originalUrl = frame.Text();
  options.updateUrl = frame.Text();
  options.friendlyName = frame.Text();
  options.asyncOption = frame.U16();
  options.rest = frame.TakeRest();
  return options;
}

void ReadResult(ByteCursor& cursor, TablegramSet& set) {
  ExpectToken(cursor, TablegramToken::Result, u"记录集描述"_s);
  ByteCursor frame = cursor.Frame();
  set.resultId = frame.Take(16);
  set.resultInfo = frame.Byte();
  set.cursorModel = frame.Byte();
  set.normalization = frame.Byte();
  set.visibleColumns = frame.U16();
  set.totalColumns = frame.U16();
  set.computedColumns = frame.U16();
  set.tableCount = frame.U16();
  set.orderByColumns = frame.U16();
  set.rowCount = frame.U32();
  set.resultProperties = frame.TakeRest();
}

TableDescriptor ReadTable(ByteCursor& cursor) {
  ExpectToken(cursor, TablegramToken::Table, u"表描述"_s);
  ByteCursor frame = cursor.Frame();
  TableDescriptor table;
  table.ordinal = frame.U16();
  table.originalName = frame.Text();
  table.updateName = frame.Text();
  table.codePage = frame.U16();
  table.columnCount = frame.U16();
  table.key.resize(frame.U16());
  for (quint16& ordinal : table.key) ordinal = frame.U16();
  table.rest = frame.TakeRest();
  return table;
}

quint32 ReadPresence(ByteCursor& frame) {
  const QByteArrayView bytes = frame.Take(3);
  return quint32(uchar(bytes[0])) << 16 | quint32(uchar(bytes[1])) << 8 | uchar(bytes[2]);
}

struct SizedPart {
  quint32 part;
  std::size_t size;
};

/// Takes those of some parts of known sizes that are there, as one piece.
QByteArrayView TakeParts(ByteCursor& frame, quint32 presence, std::initializer_list<SizedPart> parts) {
  std::size_t size = 0;
  for (const SizedPart& part : parts)
    if (presence & part.part) size += part.size;
  return frame.Take(size);
}

ColumnDescriptor ReadColumn(ByteCursor& cursor, bool ofChild) {
  ExpectToken(cursor, TablegramToken::Column, u"字段描述"_s);
  ByteCursor frame = cursor.Frame();
  ColumnDescriptor column;
  column.presence = ReadPresence(frame);
  const auto has = [&](quint32 part) { return (column.presence & part) != 0; };
  column.ordinal = frame.U16();
  if (has(ColumnPart::Name)) column.name = frame.Text();
  if (has(ColumnPart::Table)) column.table = frame.U16();
  if (has(ColumnPart::TableColumn)) column.tableColumn = frame.U16();
  if (has(ColumnPart::TableColumnName)) column.tableColumnName = frame.Text();
  column.type = frame.U16();
  column.maxLength = frame.U32();
  column.precision = frame.U32();
  column.scale = frame.Take<qint32>();
  column.flags = frame.U32();
  if (has(ColumnPart::Catalog)) column.catalog = frame.Text();
  if (has(ColumnPart::Schema)) column.schema = frame.Text();
  column.beforeAutoIncrement = TakeParts(frame, column.presence,
                                         {{ColumnPart::CollatingSequence, 4},
                                          {ColumnPart::ComputeMode, 4},
                                          {ColumnPart::DateTimePrecision, 4},
                                          {ColumnPart::DefaultValue, 16}});
  if (has(ColumnPart::AutoIncrement)) column.autoIncrement = frame.U16();
  column.afterAutoIncrement = TakeParts(frame, column.presence,
                                        {{ColumnPart::CaseSensitive, 2},
                                         {ColumnPart::MultiValued, 2},
                                         {ColumnPart::Searchable, 4},
                                         {ColumnPart::Unique, 2},
                                         {ColumnPart::OctetLength, 4}});
  column.visible = frame.U16();
  if (ofChild) column.child = frame.U32();
  if (column.IsChapter()) {
    column.relation = frame.Take(frame.U32());
    column.relationEnd = frame.Take(4);
  }
  if (has(ColumnPart::Calculation)) column.calculation = frame.Take(frame.U32());
  column.rest = frame.TakeRest();
  return column;
}

void ReadColumns(ByteCursor& cursor, TablegramSet& set, bool ofChild) {
  constexpr std::size_t kShortestColumn = 30;
  set.columns.reserve(std::min(std::size_t(set.totalColumns), cursor.Left() / kShortestColumn));
  while (cursor.Left() && cursor.Peek() == TablegramToken::Column) {
    const std::size_t offset = cursor.Offset();
    const ColumnDescriptor& column = set.columns.emplace_back(ReadColumn(cursor, ofChild));
    if (column.ordinal != set.columns.size())
      throw BrokenTablegram(offset, u"第 %1 个字段的序号是 %2。"_s.arg(set.columns.size()).arg(column.ordinal));
    set.layouts.push_back(LayoutOf(column, offset));
    set.presenceBits += set.layouts.back().presence;
  }
  if (set.columns.empty() || set.columns.size() != set.totalColumns)
    throw BrokenTablegram(cursor.Offset(),
                          u"记录集应有 %1 个字段，却有 %2 个。"_s.arg(set.totalColumns).arg(set.columns.size()));
}

/// Finds out whose chapters the record sets are: each set is followed by those of its chapters, from left to right.
class Chapters {
 public:
  void Place(std::vector<TablegramSet>& sets, TablegramSet& set, std::size_t offset) {
    if (sets.empty()) return;
    if (open_.empty()) throw BrokenTablegram(offset, u"子记录集不属于任何字段。"_s);
    set.parent = open_.back().set;
    set.parentColumn = open_.back().column;
    sets[std::size_t(set.parent)].columns[std::size_t(set.parentColumn)].childSet = int(sets.size());
    open_.pop_back();
  }
  void Add(const TablegramSet& set, int index) {
    for (std::size_t i = set.columns.size(); i-- > 0;)
      if (set.columns[i].IsChapter()) open_.push_back({index, int(i)});
  }
  bool AllPlaced() const { return open_.empty(); }

 private:
  struct Chapter {
    int set, column;
  };
  std::vector<Chapter> open_;  ///< that wait for their record sets, the next one last
};

}  // namespace

Tablegram ReadTablegramHead(ByteCursor& cursor) {
  ReadHeader(cursor);
  Tablegram head;
  head.options = ReadOptions(cursor);
  Chapters chapters;
  do {
    const std::size_t offset = cursor.Offset();
    TablegramSet set;
    chapters.Place(head.sets, set, offset);
    ReadResult(cursor, set);
    ExpectToken(cursor, TablegramToken::Context, u"记录集环境"_s);
    set.contextProperties = cursor.Frame().TakeRest();
    while (cursor.Left() && cursor.Peek() == TablegramToken::Table) set.tables.push_back(ReadTable(cursor));
    ReadColumns(cursor, set, !head.sets.empty());
    head.sets.push_back(std::move(set));
    chapters.Add(head.sets.back(), int(head.sets.size() - 1));
  } while (cursor.Left() && cursor.Peek() == TablegramToken::Result);
  if (!chapters.AllPlaced()) throw BrokenTablegram(cursor.Offset(), u"缺少子记录集的描述。"_s);
  return head;
}

}  // namespace folvane
