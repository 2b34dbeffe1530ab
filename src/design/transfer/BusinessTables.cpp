#include "design/transfer/BusinessTables.h"

#include <QRegularExpression>

#include <folvane/Connection.h>
#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "design/transfer/Names.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

/// The texts of a statement's rows by the names of its columns.
class Cells {
 public:
  Cells(Connection& connection, const QString& statement) : result_(connection, statement) {}
  qint64 Count() const { return result_.RowCount(); }
  QString At(qint64 row, const QString& column) const {
    return WithoutEndBlanks(result_.Text(row, result_.Find(column)));
  }

 private:
  ResultSet result_;
};

// Of a table that may be changed, or of one that may not.
template <typename Table>
auto FindField(Table& table, const QString& name) {
  const auto found = std::find_if(table.fields.begin(), table.fields.end(),
                                  [&](const TableField& field) { return IsSame(field.name, name); });
  return found == table.fields.end() ? nullptr : &*found;
}

// What may stand behind From: a row that says anything else is wrong.
bool IsTableName(const QString& name) {
  static const QRegularExpression kName(u"^[\\w$#.]+$"_s, QRegularExpression::UseUnicodePropertiesOption);
  return kName.match(name).hasMatch();
}

}  // namespace

const TableField* BusinessTable::Find(const QString& field) const { return FindField(*this, field); }

bool BusinessTable::Has(const QString& field) const {
  const TableField* found = Find(field);
  return found && found->isThere;
}

BusinessTables::BusinessTables(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {
  ReadFields();
  ReadRelations();
  ReadControls();
}

BusinessTables::BusinessTables(std::vector<BusinessTable> tables) : designed_(std::move(tables)) {
  for (const BusinessTable& table : designed_) complete_.emplace(WithoutEndBlanks(table.name).toLower(), table);
}

BusinessTable& BusinessTables::TableNamed(const QString& name) {
  const auto found = std::find_if(designed_.begin(), designed_.end(),
                                  [&](const BusinessTable& table) { return IsSame(table.name, name); });
  if (found != designed_.end()) return *found;
  BusinessTable& table = designed_.emplace_back();
  table.name = name;
  table.isDesigned = true;
  return table;
}

void BusinessTables::ReadFields() {
  const Cells rows(*connection_,
                   u"Select TableName,ChnTableName,TableType,FieldName,ChnFieldName,FieldType,FieldLong,"
                   "AuxiDictDetails From DynamicWindows"_s);
  for (qint64 at = 0; at < rows.Count(); ++at) {
    const QString name = rows.At(at, u"TableName"_s), field = rows.At(at, u"FieldName"_s);
    if (name.isEmpty()) continue;
    BusinessTable& table = TableNamed(name);
    if (table.caption.isEmpty()) table.caption = rows.At(at, u"ChnTableName"_s);
    if (table.type.isEmpty()) table.type = rows.At(at, u"TableType"_s);
    if (field.isEmpty() || FindField(table, field)) continue;
    TableField& added = table.fields.emplace_back();
    added.name = field;
    added.caption = rows.At(at, u"ChnFieldName"_s);
    added.typeWord = rows.At(at, u"FieldType"_s);
    added.limit = rows.At(at, u"FieldLong"_s).toInt();
    added.dictionary = rows.At(at, u"AuxiDictDetails"_s);
    added.isDesigned = true;
  }
}

void BusinessTables::ReadRelations() {
  const Cells rows(*connection_, u"Select TableName,ChnTableName From Design_TableRelation"_s);
  for (qint64 at = 0; at < rows.Count(); ++at) {
    const QString name = rows.At(at, u"TableName"_s);
    if (name.isEmpty()) continue;
    BusinessTable& table = TableNamed(name);
    if (table.caption.isEmpty()) table.caption = rows.At(at, u"ChnTableName"_s);
  }
}

void BusinessTables::ReadControls() {
  const Cells rows(*connection_,
                   u"Select DataSource,DataField From SaveControls Where ControlType <> 3 And ControlType <> 5"_s);
  for (qint64 at = 0; at < rows.Count(); ++at) {
    const QString source = rows.At(at, u"DataSource"_s);
    for (BusinessTable& table : designed_) {
      if (!IsSame(table.name, source)) continue;
      if (TableField* field = FindField(table, rows.At(at, u"DataField"_s))) field->isAsked = true;
    }
  }
}

const BusinessTable& BusinessTables::Get(const QString& name) {
  const QString key = WithoutEndBlanks(name).toLower();
  if (const auto known = complete_.find(key); known != complete_.end()) return known->second;
  const auto designed = std::find_if(designed_.begin(), designed_.end(),
                                     [&](const BusinessTable& table) { return IsSame(table.name, name); });
  BusinessTable table;
  table.name = name;
  if (designed != designed_.end()) table = *designed;
  ReadColumns(table);
  return complete_.emplace(key, std::move(table)).first->second;
}

void BusinessTables::ReadColumns(BusinessTable& table) const {
  if (!connection_ || !IsTableName(table.name)) return;
  try {
    const ResultSet none(*connection_, u"Select * From "_s + table.name + u" Where 1 = 2"_s);
    table.isThere = true;
    for (int column = 0; column < none.ColumnCount(); ++column) {
      TableField* field = FindField(table, none.ColumnName(column));
      if (!field) {
        field = &table.fields.emplace_back();
        field->name = none.ColumnName(column);
      }
      field->isThere = true;
      field->adoType = none.ColumnType(column);
      field->size = none.ColumnSize(column);
    }
  } catch (const DataError& error) {
    // A name that stands for nothing. Whatever else went wrong is no matter of the name.
    if (error.Kind() != DataErrorKind::Statement && error.Kind() != DataErrorKind::Untranslatable) throw;
  }
}

}  // namespace folvane::transfer
