#include "data/dialect/EmittedNames.h"

namespace folvane::sql {

void EmittedNames::Enter(const std::vector<TableReference>& tables) {
  for (const TableReference& table : tables) Enter(table);
}

QByteArray EmittedNames::OfTable(const TableReference& table) const {
  return table.info ? words_.Quoted(table.info->name) : OfAlias(table.name);
}

QByteArray EmittedNames::OfColumn(const QString& name, const ColumnInfo* info) const {
  return info ? words_.Quoted(info->name) : OfAlias(name);
}

QByteArray EmittedNames::OfQualifier(const QString& name) const {
  for (auto table = inSight_.rbegin(); table != inSight_.rend(); ++table)
    if ((*table)->alias.isEmpty() && (*table)->name.compare(name, Qt::CaseInsensitive) == 0) return OfTable(**table);
  return OfAlias(name);
}

QByteArray EmittedNames::OfAlias(const QString& name) const {
  return words_.Quoted(dialect_.foldsNames ? name.toLower() : name);
}

}  // namespace folvane::sql
