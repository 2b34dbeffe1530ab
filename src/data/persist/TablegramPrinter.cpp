#include "data/persist/TablegramPrinter.h"

#include <QSet>
#include <QtEndian>
#include <algorithm>

#include "data/persist/JsonSink.h"
#include "data/persist/JsonText.h"
#include "data/persist/TypeNames.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

/// The names of the fields, each once: of several fields of one name the further ones are called c and the number of
/// the field from 0, as ADO calls them in its XML.
std::vector<QByteArray> KeysOf(const TablegramSet& set) {
  QSet<QString> names, taken;
  for (const ColumnDescriptor& column : set.columns) names.insert(column.name);
  std::vector<QByteArray> keys;
  for (const ColumnDescriptor& column : set.columns) {
    QString key = column.name;
    if (taken.contains(key)) {
      key = u"c%1"_s.arg(column.ordinal - 1);
      while (names.contains(key) || taken.contains(key)) key += u'_';
    }
    taken.insert(key);
    AppendJsonText(keys.emplace_back(), key);
  }
  return keys;
}

QByteArrayView StateName(PersistedRecord::State state) {
  switch (state) {
    case PersistedRecord::Changed:
      return "changed";
    case PersistedRecord::Inserted:
      return "inserted";
    case PersistedRecord::Deleted:
      return "deleted";
    case PersistedRecord::Unchanged:
      break;
  }
  return "unchanged";
}

}  // namespace

TablegramPrinter::TablegramPrinter(const Tablegram& head, CodePageReader& codePage, QIODevice& out)
    : head_(head), codePage_(codePage), out_(out) {
  for (const TablegramSet& set : head.sets) keys_.push_back(KeysOf(set));
}

void TablegramPrinter::PrintHead() {
  for (std::size_t set = 0; set < head_.sets.size(); ++set) {
    PrintSet(set);
    for (std::size_t column = 0; column < head_.sets[set].columns.size(); ++column) PrintField(set, column);
  }
}

void TablegramPrinter::PrintSet(std::size_t index) {
  const TablegramSet& set = head_.sets[index];
  line_.Begin();
  line_.Word("kind", "recordset");
  line_.Number("recordset", qint64(index) + 1);
  if (set.parent >= 0) {
    line_.Number("parent", set.parent + 1);
    line_.Text("chapter", head_.sets[std::size_t(set.parent)].columns[std::size_t(set.parentColumn)].name);
  }
  line_.Number("fields", set.totalColumns);
  line_.Number("visibleFields", set.visibleColumns);
  line_.Number("rows", set.rowCount);
  EndLine();
}

void TablegramPrinter::PrintField(std::size_t index, std::size_t at) {
  const TablegramSet& set = head_.sets[index];
  const ColumnDescriptor& column = set.columns[at];
  const int type = AdoTypeOf(column);
  line_.Begin();
  line_.Word("kind", "field");
  line_.Number("recordset", qint64(index) + 1);
  line_.Number("ordinal", column.ordinal);
  line_.Text("name", column.name);
  line_.Value("key").append(keys_[index][at]);
  line_.Number("type", type);
  line_.Word("typeName", AdoTypeName(type));
  line_.Number("storedType", column.type);
  line_.Number("size", column.maxLength);
  line_.Number("precision", column.precision);
  line_.Number("scale", column.scale);
  AppendFlags(column.flags);
  line_.Bool("nullable", column.flags & ColumnFlag::Nullable);
  line_.Bool("visible", column.visible);
  line_.Bool("autoIncrement", column.autoIncrement);
  AppendOrigin(column, set);
  if (column.IsChapter()) AppendRelation(column);
  EndLine();
}

void TablegramPrinter::AppendFlags(quint32 flags) {
  line_.Number("flags", flags);
  QByteArray& names = line_.Value("flagNames").append('[');
  for (const QByteArrayView name : ColumnFlagNames(flags)) {
    if (!names.endsWith('[')) names.append(',');
    AppendJsonWord(names, name);
  }
  names.append(']');
}

/// Where in a database the column comes from.
void TablegramPrinter::AppendOrigin(const ColumnDescriptor& column, const TablegramSet& set) {
  if (column.presence & ColumnPart::Catalog) line_.Text("baseCatalog", column.catalog);
  if (column.presence & ColumnPart::Schema) line_.Text("baseSchema", column.schema);
  const auto table = std::find_if(set.tables.begin(), set.tables.end(),
                                  [&](const TableDescriptor& one) { return one.ordinal == column.table; });
  if ((column.presence & ColumnPart::Table) && table != set.tables.end()) line_.Text("baseTable", table->updateName);
  if (column.presence & ColumnPart::TableColumnName) line_.Text("baseColumn", column.tableColumnName);
}

/// The record set behind a chapter, and which of its columns equals which of the parent's.
void TablegramPrinter::AppendRelation(const ColumnDescriptor& column) {
  constexpr qsizetype kNumber = sizeof(quint32), kTriple = 3 * kNumber;
  line_.Number("child", column.childSet + 1);
  QByteArray& triples = line_.Value("relation").append('[');
  for (qsizetype at = 0; at + kTriple <= column.relation.size(); at += kTriple) {
    if (at) triples.append(',');
    for (qsizetype part = 0; part < kTriple; part += kNumber) {
      triples.append(part ? ',' : '[');
      AppendJsonNumber(triples, qFromLittleEndian<quint32>(column.relation.data() + at + part));
    }
    triples.append(']');
  }
  triples.append(']');
}

void TablegramPrinter::Print(const PersistedRecord& record) {
  const auto set = std::size_t(record.set);
  line_.Begin();
  line_.Word("kind", "row");
  line_.Number("recordset", record.set + 1);
  line_.Word("status", StateName(record.state));
  AppendValues("values", set, record.cells);
  if (record.state == PersistedRecord::Changed) AppendValues("original", set, record.original);
  EndLine();
}

void TablegramPrinter::AppendValues(QByteArrayView key, std::size_t set, const std::vector<TablegramCell>& cells) {
  QByteArray& json = line_.Value(key);
  JsonSink sink(json, codePage_);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    json.append(i ? ',' : '{');
    json.append(keys_[set][i]);
    json.append(':');
    cells[i].state == TablegramCell::Value ? DecodeValue(head_.sets[set].columns[i], cells[i].bytes, sink)
                                           : sink.Empty();
  }
  json.append('}');
}

void TablegramPrinter::EndLine() {
  const QByteArray& line = line_.End();
  if (out_.write(line) != line.size()) throw FileError(out_.errorString());
}

}  // namespace folvane
