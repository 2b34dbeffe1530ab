#include "design/DesignedTransfers.h"

#include <algorithm>

#include <folvane/Connection.h>

#include "data/DatabaseSession.h"
#include "data/Schema.h"
#include "design/PhysicalTables.h"
#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

// As the database has the column, or as it will be made of the field.
ColumnInfo ColumnFor(const Design::Field& field) {
  const Column column = ColumnOf(field);
  switch (column.type) {
    case ColumnType::Integer:
      return {field.name, AdoType::Integer, 4};
    case ColumnType::Date:
      return {field.name, AdoType::DbDate, 6};
    case ColumnType::Text:
      return {field.name, AdoType::VarChar, column.length};
    default:
      return {field.name, AdoType::LongVarChar, kAnyLength};
  }
}

bool IsAsked(const Design::Table& table, const QString& field) {
  return std::any_of(table.controls.begin(), table.controls.end(), [&](const Design::Control& control) {
    return control.type != 3 && control.type != 5 && IsSame(control.field, field);
  });
}

void PutColumn(transfer::BusinessTable& table, const ColumnInfo& column) {
  auto field = std::find_if(table.fields.begin(), table.fields.end(),
                            [&](const transfer::TableField& known) { return IsSame(known.name, column.name); });
  if (field == table.fields.end()) {
    field = table.fields.emplace(field);
    field->name = column.name;
  }
  field->isThere = true;
  field->adoType = column.type;
  field->size = column.definedSize;
}

transfer::BusinessTable TableFor(const Design::Table& table, Connection* connection) {
  transfer::BusinessTable found{table.name, table.caption, table.kind};
  found.isDesigned = !table.fields.empty();
  found.isThere = found.isDesigned;
  for (const Design::Field& field : table.fields) {
    found.fields.push_back(
        {field.name, field.caption, field.type, field.dictionary, field.length, true, IsAsked(table, field.name)});
    PutColumn(found, ColumnFor(field));
  }
  if (found.isThere) PutColumn(found, {u"ArchiveID"_s, AdoType::VarChar, 20});
  if (!connection) return found;
  if (const TableInfo* info = DatabaseSession::Of(*connection).Table(table.name)) {
    found.isThere = true;
    for (const ColumnInfo& column : info->columns) PutColumn(found, column);
  }
  return found;
}

}  // namespace

transfer::BusinessTables TablesOf(const Design& design, Connection* connection) {
  std::vector<transfer::BusinessTable> tables;
  for (const Design::Table& table : design.tables) tables.push_back(TableFor(table, connection));
  // Transfers may name tables that only the database knows.
  for (const Design::TransferMap& map : design.transfers)
    for (const QString& name : {map.source, map.destination}) {
      Design::Table unknown;
      unknown.name = name;
      if (!name.isEmpty() && !FindNamed(design.tables, name)) tables.push_back(TableFor(unknown, connection));
    }
  return transfer::BusinessTables(std::move(tables));
}

transfer::NumberFormat FormatOf(const Design::Table& table) {
  transfer::NumberFormat format{table.name, {}, table.numberField, table.folderNumberField};
  for (const Design::NumberPart& part : table.numberParts)
    format.parts.push_back({part.field, part.caption, part.separator, QString::number(part.length), part.showsCode});
  return format;
}

transfer::Settings SettingsOf(const Design& design) {
  transfer::Settings settings;
  for (const Design::TransferMap& map : design.transfers) {
    transfer::TransferSet set{QString::number(settings.sets.size() + 1), map.source, map.destination};
    for (const Design::TransferLink& link : map.links)
      set.links.push_back({link.source, link.destination, link.caption});
    settings.sets.push_back(std::move(set));
  }
  for (const Design::Table& table : design.tables)
    if (!table.numberParts.empty()) settings.formats.push_back(FormatOf(table));
  return settings;
}

}  // namespace folvane::design
