#include "design/Shape.h"
#include "design/StoredRows.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

// The first of those with the same key stays.
template <class List>
void AddOnce(List& list, const typename List::value_type& item) {
  if (!FindSame(list, item)) list.push_back(item);
}

/// Puts a design together out of the rows.
class Reading {
 public:
  explicit Reading(const StoredRows& rows) : rows_(rows) {}

  Design Read() {
    for (const ClassRelationRow& row : rows_.classes)
      AddOnce(design_.classes, {row.classId, row.className, row.classParent});
    ReadRelations();
    ReadFields();
    ReadLayouts();
    ReadNumbers();
    ReadDictionaries();
    ReadCodes();
    ReadTransfers();
    ReadUsers();
    PutInOrder(design_);
    return std::move(design_);
  }

 private:
  Design::Table& TableNamed(const QString& name) {
    if (Design::Table* found = FindNamed(design_.tables, name)) return *found;
    Design::Table& table = design_.tables.emplace_back();
    table.name = name;
    return table;
  }

  void ReadRelations() {
    for (const TableRelationRow& row : rows_.relations) {
      if (row.tableName.isEmpty() || row.classId == 0) continue;
      Design::Table& table = TableNamed(row.tableName);
      if (table.classId != 0) continue;
      table.caption = row.chnTableName;
      table.classId = row.classId;
      table.parent = row.tableParent;
      table.relationField = row.relationField;
    }
  }

  void ReadFields() {
    for (const DictionaryFieldRow& row : rows_.fields) {
      if (row.tableName.isEmpty() || row.fieldName.isEmpty()) continue;
      Design::Table& table = TableNamed(row.tableName);
      if (table.fields.empty()) {
        table.kind = row.tableType;
        if (!row.chnTableName.isEmpty()) table.caption = row.chnTableName;
      }
      AddOnce(table.fields,
              {row.fieldName, row.chnFieldName, row.fieldType, row.fieldLong, row.auxiDictDetails,
               row.nullFlags == u"否", row.controlIndex == u"1", row.controlsType == 1, row.zjcFlags == u"是"});
    }
  }

  void ReadLayouts() {
    for (const EntryControlRow& row : rows_.controls)
      if (!row.dataSource.isEmpty())
        AddOnce(TableNamed(row.dataSource).controls, {row.dataField, row.controlType, row.controlIndex, row.keyOrder,
                                                      row.left, row.top, row.width, row.height});
    for (const ListColumnFormatRow& row : rows_.columns)
      if (!row.tableName.isEmpty() && !row.fieldName.isEmpty())
        AddOnce(TableNamed(row.tableName).columns, {row.fieldName, row.chnFieldName, row.columnWidth, row.orderNo});
    for (const SearchFieldRow& row : rows_.searchFields)
      if (!row.tableName.isEmpty() && !row.dataField.isEmpty())
        AddOnce(TableNamed(row.tableName).searchFields,
                {row.dataField, row.chnDataField, row.ctlType, row.ctlIndex, row.orderNo});
  }

  // The last row decides where the number goes, as it does in a transfer.
  void ReadNumbers() {
    for (const NumberPartRow& row : rows_.numberParts) {
      if (row.tableName.isEmpty()) continue;
      Design::Table& table = TableNamed(row.tableName);
      table.numberParts.push_back(
          {row.fieldName, row.fieldChn, row.listSeparator, row.showMode == u"显示代号", row.lengh});
      table.numberField = row.storeField;
      table.folderNumberField = row.folderNoField;
    }
  }

  void ReadDictionaries() {
    QHash<QString, QString> names;
    for (const DictionaryRow& row : rows_.dictionaries) {
      if (row.name.isEmpty() || row.dicId.isEmpty() || FindNamed(design_.dictionaries, row.name)) continue;
      design_.dictionaries.push_back({row.name, row.classType, row.isSystem == u"1", {}});
      names.insert(Folded(row.dicId), row.name);
    }
    for (const DictionaryEntryRow& row : rows_.entries)
      if (const auto name = names.constFind(Folded(row.dicId)); name != names.constEnd())
        AddOnce(FindNamed(design_.dictionaries, *name)->entries,
                {row.name, row.keyCode, row.note, row.isSystem == u"1"});
  }

  void ReadCodes() {
    for (const FondsRow& row : rows_.fonds) AddOnce(design_.fonds, {row.fondsNo, row.fondsName});
    for (const EntityClassRow& row : rows_.entityClasses)
      AddOnce(design_.entityClasses, {row.fondsNo, row.classNo, row.className});
    for (const RetentionRow& row : rows_.retentions) AddOnce(design_.retentions, {row.name, row.code});
    for (const ReportRow& row : rows_.reports)
      AddOnce(design_.reports, {row.reportId, row.reportName, row.reportGroupId, row.reportType});
  }

  void ReadTransfers() {
    for (const TransferPairRow& pair : rows_.transfers) {
      Design::TransferMap map{pair.sourceTbl, pair.desTbl, {}};
      if (FindSame(design_.transfers, map)) continue;
      for (const TransferFieldRow& row : rows_.links)
        if (row.iniRecId == pair.recId) AddOnce(map.links, {row.sourceField, row.desField, row.sourceChn});
      design_.transfers.push_back(map);
    }
  }

  void ReadUsers() {
    for (const UserRow& row : rows_.users) AddOnce(design_.users, {row.userId, row.userName, {}});
    for (const TableRightsRow& row : rows_.rights)
      if (Design::User* user = FindNamed(design_.users, row.userId))
        AddOnce(user->rights, {row.popTableName,
                               row.popStrChn,
                               row.popEditData == u"1",
                               row.popPrintData == u"1",
                               row.popLookFile == u"1",
                               row.popCondition,
                               {}});
    for (const RightsFieldRow& row : rows_.rightsFields) {
      Design::User* user = FindNamed(design_.users, row.userId);
      Design::Rights* rights = user ? FindNamed(user->rights, row.popTableName) : nullptr;
      if (rights && !rights->conditionFields.contains(row.fieldName, Qt::CaseInsensitive))
        rights->conditionFields << row.fieldName;
    }
  }

  const StoredRows& rows_;
  Design design_;
};

}  // namespace

Design DesignOf(const StoredRows& rows) { return Reading(rows).Read(); }

}  // namespace folvane::design
