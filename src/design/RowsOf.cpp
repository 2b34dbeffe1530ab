#include "base/KeyMaker.h"
#include "design/Shape.h"
#include "design/StoredRows.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

QString Word(bool isOn, const char16_t* on, const char16_t* off = u"") { return QString::fromUtf16(isOn ? on : off); }

void AddLayout(StoredRows& rows, const Design::Table& table) {
  for (const Design::Control& control : table.controls)
    rows.controls.push_back({table.name, control.field, control.type, control.index, control.keyOrder, control.left,
                             control.top, control.width, control.height});
  for (const Design::ListColumn& column : table.columns)
    rows.columns.push_back({table.name, column.field, column.caption, column.width, column.order});
  for (const Design::SearchField& field : table.searchFields)
    rows.searchFields.push_back({table.name, field.field, field.caption, {}, field.order, field.type, field.index});
  for (const Design::NumberPart& part : table.numberParts)
    rows.numberParts.push_back({table.name, part.field, part.caption, part.separator,
                                Word(part.showsCode, u"显示代号", u"显示名称"), table.numberField,
                                table.folderNumberField, part.length});
}

void AddTable(StoredRows& rows, const Design::Table& table, const QString& className) {
  if (table.classId != 0)
    rows.relations.push_back({table.name, table.caption, table.parent, table.relationField, table.classId});
  for (const Design::Field& field : table.fields) {
    DictionaryFieldRow& row = rows.fields.emplace_back();
    row.tableName = table.name;
    row.chnTableName = table.caption;
    row.className = className;
    row.tableType = table.kind;
    row.fieldName = field.name;
    row.chnFieldName = field.caption;
    row.fieldType = field.type;
    row.fieldLong = field.length;
    row.nullFlags = Word(field.isRequired, u"否");
    row.controlIndex = Word(field.isFixedLength, u"1");
    row.auxiDictDetails = field.dictionary;
    row.controlsType = field.isInherited;
    row.zjcFlags = Word(field.isCarried, u"是");
  }
  AddLayout(rows, table);
}

void AddDictionary(StoredRows& rows, const Design::Dictionary& dictionary, const QString& key) {
  rows.dictionaries.push_back({key, dictionary.name, dictionary.kind, Word(dictionary.isSystem, u"1", u"0")});
  for (const Design::DictionaryEntry& entry : dictionary.entries)
    rows.entries.push_back({key, entry.text, entry.code, Word(entry.isSystem, u"1", u"0"), entry.sortKey});
}

void AddTransfer(StoredRows& rows, const Design::TransferMap& map, int number) {
  rows.transfers.push_back({map.source, map.destination, number});
  for (const Design::TransferLink& link : map.links)
    rows.links.push_back({link.source, link.destination, link.caption, number});
}

void AddUser(StoredRows& rows, const Design::User& user) {
  rows.users.push_back({user.id, user.name});
  for (const Design::Rights& rights : user.rights) {
    rows.rights.push_back({user.id, rights.table, rights.words, Word(rights.mayEdit, u"1", u"0"),
                           Word(rights.mayPrint, u"1", u"0"), Word(rights.mayLookAtOriginals, u"1", u"0"),
                           rights.condition});
    for (const QString& field : rights.conditionFields) rows.rightsFields.push_back({user.id, rights.table, field});
  }
}

}  // namespace

RowKeys KeysFor(const StoredRows& rows, const std::vector<const Design*>& designs) {
  RowKeys keys;
  int last = 0;
  for (const TransferPairRow& row : rows.transfers) {
    const QString key = Shape<Design::TransferMap>::KeyOf({row.sourceTbl, row.desTbl, {}});
    if (!keys.transfers.contains(key)) keys.transfers.insert(key, row.recId);
    last = std::max(last, row.recId);
  }
  // Links without a pair must not come to belong to a new one.
  for (const TransferFieldRow& row : rows.links) last = std::max(last, row.iniRecId);
  for (const DictionaryRow& row : rows.dictionaries)
    if (!keys.dictionaries.contains(Folded(row.name))) keys.dictionaries.insert(Folded(row.name), row.dicId);
  for (const Design* design : designs) {
    for (const Design::TransferMap& map : design->transfers)
      if (const QString key = Shape<Design::TransferMap>::KeyOf(map); !keys.transfers.contains(key))
        keys.transfers.insert(key, ++last);
    for (const Design::Dictionary& dictionary : design->dictionaries)
      if (!keys.dictionaries.contains(Folded(dictionary.name)))
        keys.dictionaries.insert(Folded(dictionary.name), CreateName());
  }
  return keys;
}

StoredRows RowsOf(const Design& design, const RowKeys& keys) {
  StoredRows rows;
  for (const Design::Class& item : design.classes) rows.classes.push_back({item.name, item.id, item.parent});
  for (const Design::Table& table : design.tables) {
    const Design::Class* owner = FindByKey(design.classes, QString::number(table.classId));
    AddTable(rows, table, owner ? owner->name : QString());
  }
  for (const Design::Dictionary& dictionary : design.dictionaries)
    AddDictionary(rows, dictionary, keys.dictionaries.value(Folded(dictionary.name)));
  for (const Design::Fonds& fonds : design.fonds) rows.fonds.push_back({fonds.number, fonds.name});
  for (const Design::EntityClass& item : design.entityClasses)
    rows.entityClasses.push_back({item.number, item.fonds, item.name});
  for (const Design::Retention& item : design.retentions) rows.retentions.push_back({item.name, item.code});
  for (const Design::TransferMap& map : design.transfers)
    AddTransfer(rows, map, keys.transfers.value(Shape<Design::TransferMap>::KeyOf(map)));
  for (const Design::Report& report : design.reports)
    rows.reports.push_back({report.id, report.name, report.group, report.type});
  for (const Design::User& user : design.users) AddUser(rows, user);
  return rows;
}

}  // namespace folvane::design
