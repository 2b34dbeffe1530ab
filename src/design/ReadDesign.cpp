#include "catalogue/ReadRows.h"
#include "data/DatabaseSession.h"
#include "design/Shape.h"
#include "design/StoredRows.h"

namespace folvane {
namespace design {
namespace {
using namespace Qt::Literals::StringLiterals;

// What stands between the parts of an archive number may be a blank.
template <class Row>
bool KeepsBlanks(const RowColumn<Row>& column) {
  return column.column.name == u"ListSeparator";
}

template <class Row>
void Read(Connection& connection, std::vector<Row>& rows) {
  const QString table = Row::Description().name;
  if (!DatabaseSession::Of(connection).Table(table)) return;
  // Not held beyond this call, as the connection is not.
  const std::shared_ptr<Connection> borrowed(std::shared_ptr<Connection>(), &connection);
  rows = ReadRows<Row>(borrowed, u"Select * From "_s + table);
  for (const RowColumn<Row>& column : Row::Columns()) {
    const auto* text = std::get_if<QString Row::*>(&column.member);
    if (!text || KeepsBlanks(column)) continue;
    for (Row& row : rows) row.** text = WithoutEndBlanks(row.**text);
  }
}

// Fields stand in the order of their columns, which no change of a row disturbs; those without one come last, by name.
void SortFields(Connection& connection, Design::Table& table) {
  const TableInfo* info = DatabaseSession::Of(connection).Table(table.name);
  const auto place = [&](const Design::Field& field) {
    const int column = info ? info->IndexOf(field.name) : -1;
    return std::pair(column < 0 ? std::numeric_limits<int>::max() : column, Folded(field.name));
  };
  std::stable_sort(table.fields.begin(), table.fields.end(),
                   [&](const Design::Field& one, const Design::Field& other) { return place(one) < place(other); });
}

}  // namespace

StoredRows ReadStoredRows(Connection& connection) {
  StoredRows rows;
  Read(connection, rows.classes);
  Read(connection, rows.relations);
  Read(connection, rows.fields);
  Read(connection, rows.controls);
  Read(connection, rows.columns);
  Read(connection, rows.searchFields);
  Read(connection, rows.numberParts);
  Read(connection, rows.dictionaries);
  Read(connection, rows.entries);
  Read(connection, rows.fonds);
  Read(connection, rows.entityClasses);
  Read(connection, rows.retentions);
  Read(connection, rows.transfers);
  Read(connection, rows.links);
  Read(connection, rows.reports);
  Read(connection, rows.users);
  Read(connection, rows.rights);
  Read(connection, rows.rightsFields);
  return rows;
}

}  // namespace design

Design ReadDesign(Connection& connection) {
  DatabaseSession::Of(connection).RefreshSchema();
  Design design = design::DesignOf(design::ReadStoredRows(connection));
  for (Design::Table& table : design.tables) design::SortFields(connection, table);
  return design;
}

}  // namespace folvane
