#include "host/demo/FixedRows.h"

#include "catalogue/Catalogue.h"
#include "catalogue/RowWriter.h"
#include "host/demo/TextLists.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

// The last two describe the flow tables for queries; what belongs to business tables is written with those.
const QStringList kTables{
    u"Design_ClassRelation"_s, u"Design_TableRelation"_s,    u"FindCirSave"_s,      u"FindCirOrder"_s,
    u"DataTransfer_Ini"_s,     u"DataTransfer_Details"_s,    u"ArchiveNo_Format"_s, u"FondsDefine"_s,
    u"EntityClass"_s,          u"RetentionYear"_s,           u"Report_Index"_s,     u"UserPopedom"_s,
    u"UserPopedomScope"_s,     u"UserPopedomScopeDetails"_s, u"DynamicWindows"_s,   u"SimSearch"_s};

QVariant ValueOf(const Column& column, const QString& text) {
  if (text == u"null"_s) return {};
  if (column.type == ColumnType::Integer) return text.toLongLong();
  return text;
}

void WriteTable(Connection& connection, const Table& table) {
  const std::vector<QStringList> lines = ReadLines(u"rows/"_s + table.name + u".txt"_s);
  const QStringList& columns = lines.front();
  RowWriter writer(connection, table.name, columns);
  for (auto line = lines.begin() + 1; line != lines.end(); ++line) {
    std::vector<QVariant> values;
    for (qsizetype i = 0; i < columns.size(); ++i) values.push_back(ValueOf(*table.Find(columns[i]), line->value(i)));
    writer.Add(std::move(values));
  }
  writer.Finish();
}

// Dictionaries came first of all, on the evening before the first record.
QString DictionaryKey(int number) { return u"20"_s + QString::number(number).rightJustified(18, u'0'); }

}  // namespace

void WriteFixedRows(Connection& connection) {
  for (const QString& table : kTables) WriteTable(connection, *FindCatalogueTable(table));
}

void WriteDictionaries(Connection& connection) {
  TextLists lists = TextLists::Read(u"dictionaries.txt"_s);
  for (const QStringList& sender : ReadLines(u"senders.txt"_s))
    lists.entries[u"来文单位"_s].push_back({sender[0], QString()});
  RowWriter dictionaries(connection, u"AssistantDictionary"_s, {u"DicID"_s, u"Name"_s, u"ClassType"_s, u"IsSystem"_s});
  RowWriter entries(connection, u"AssistantDicKey"_s, {u"DicID"_s, u"Name"_s, u"KeyCode"_s, u"IsSystem"_s, u"Note"_s});
  for (qsizetype i = 0; i < lists.names.size(); ++i) {
    const QString key = DictionaryKey(int(i) + 1);
    dictionaries.Add({key, lists.names[i], u"2 - 字符型"_s, u"1"_s});
    int order = 0;
    for (const Entry& entry : lists.entries[lists.names[i]])
      entries.Add({key, entry.text, entry.code, u"1"_s, QString::number(++order).rightJustified(3, u'0')});
  }
  dictionaries.Finish();
  entries.Finish();
}

}  // namespace folvane::demo
