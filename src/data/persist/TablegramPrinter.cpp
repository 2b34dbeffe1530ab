#include "data/persist/TablegramPrinter.h"

#include <QSet>
#include <QtEndian>

#include "data/persist/JsonSink.h"
#include "data/persist/JsonText.h"
#include "data/persist/TypeNames.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray JsonNumber(qint64 number) { return QByteArray::number(number); }

QByteArray JsonBool(bool value) { return value ? QByteArrayLiteral("true") : QByteArrayLiteral("false"); }

QByteArray JsonString(const QString& text) {
  QByteArray json;
  AppendJsonText(json, text);
  return json;
}

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
    keys.push_back(JsonString(key));
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
  line_ += R"({"kind":"recordset","recordset":)" + JsonNumber(qint64(index) + 1);
  if (set.parent >= 0) {
    const ColumnDescriptor& chapter = head_.sets[std::size_t(set.parent)].columns[std::size_t(set.parentColumn)];
    line_ += R"(,"parent":)" + JsonNumber(set.parent + 1) + R"(,"chapter":)" + JsonString(chapter.name);
  }
  line_ += R"(,"fields":)" + JsonNumber(set.totalColumns) + R"(,"visibleFields":)" + JsonNumber(set.visibleColumns) +
           R"(,"rows":)" + JsonNumber(set.rowCount);
  EndLine();
}

void TablegramPrinter::PrintField(std::size_t index, std::size_t at) {
  const TablegramSet& set = head_.sets[index];
  const ColumnDescriptor& column = set.columns[at];
  const int type = AdoTypeOf(column);
  line_ += R"({"kind":"field","recordset":)" + JsonNumber(qint64(index) + 1) + R"(,"ordinal":)" +
           JsonNumber(column.ordinal) + R"(,"name":)" + JsonString(column.name) + R"(,"key":)" + keys_[index][at] +
           R"(,"type":)" + JsonNumber(type) + R"(,"typeName":")" + AdoTypeName(type).toByteArray() +
           R"(","storedType":)" + JsonNumber(column.type) + R"(,"size":)" + JsonNumber(column.maxLength) +
           R"(,"precision":)" + JsonNumber(column.precision) + R"(,"scale":)" + JsonNumber(column.scale) +
           R"(,"flags":)" + JsonNumber(column.flags) + R"(,"flagNames":[)";
  QByteArrayList names;
  for (const QByteArrayView name : ColumnFlagNames(column.flags)) names << '"' + name.toByteArray() + '"';
  line_ += names.join(',') + R"(],"nullable":)" + JsonBool(column.flags & ColumnFlag::Nullable) + R"(,"visible":)" +
           JsonBool(column.visible) + R"(,"autoIncrement":)" + JsonBool(column.autoIncrement);
  AppendOrigin(column, set);
  if (column.IsChapter()) AppendRelation(column);
  EndLine();
}

/// Where in a database the column comes from.
void TablegramPrinter::AppendOrigin(const ColumnDescriptor& column, const TablegramSet& set) {
  const auto add = [&](quint32 part, const char* key, const QString& text) {
    if (column.presence & part) line_ += QByteArray(",\"") + key + "\":" + JsonString(text);
  };
  add(ColumnPart::Catalog, "baseCatalog", column.catalog);
  add(ColumnPart::Schema, "baseSchema", column.schema);
  for (const TableDescriptor& table : set.tables)
    if (table.ordinal == column.table) add(ColumnPart::Table, "baseTable", table.updateName);
  add(ColumnPart::TableColumnName, "baseColumn", column.tableColumnName);
}

/// The record set behind a chapter, and which of its columns equals which of the parent's.
void TablegramPrinter::AppendRelation(const ColumnDescriptor& column) {
  line_ += R"(,"child":)" + JsonNumber(column.childSet + 1);
  QByteArrayList triples;
  const auto number = [&](qsizetype at) { return JsonNumber(qFromLittleEndian<quint32>(column.relation.data() + at)); };
  for (qsizetype at = 0; at + 12 <= column.relation.size(); at += 12)
    triples << '[' + number(at) + ',' + number(at + 4) + ',' + number(at + 8) + ']';
  line_ += R"(,"relation":[)" + triples.join(',') + ']';
}

void TablegramPrinter::Print(const PersistedRecord& record) {
  const auto set = std::size_t(record.set);
  line_ += R"({"kind":"row","recordset":)" + JsonNumber(record.set + 1) + R"(,"status":")";
  line_ += StateName(record.state);
  line_ += R"(","values":)";
  AppendValues(set, record.cells);
  if (record.state == PersistedRecord::Changed) {
    line_ += R"(,"original":)";
    AppendValues(set, record.original);
  }
  EndLine();
}

void TablegramPrinter::AppendValues(std::size_t set, const std::vector<TablegramCell>& cells) {
  JsonSink sink(line_, codePage_);
  line_ += '{';
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i) line_ += ',';
    line_ += keys_[set][i];
    line_ += ':';
    cells[i].state == TablegramCell::Value ? DecodeValue(head_.sets[set].columns[i], cells[i].bytes, sink)
                                           : sink.Empty();
  }
  line_ += '}';
}

void TablegramPrinter::EndLine() {
  line_ += "}\n";
  if (out_.write(line_) != line_.size()) throw FileError(out_.errorString());
  line_.clear();
}

}  // namespace folvane
