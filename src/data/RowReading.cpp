#include "data/RowReading.h"

#include <algorithm>

#include "data/DatabaseSession.h"
#include "data/KeysetRows.h"
#include "data/KeysetStatement.h"
#include "data/Recordset.h"

namespace folvane {

namespace {

// Whether rows can be named by the values of a column: exactly, in every database.
bool NamesExactly(const ColumnInfo& column) {
  switch (column.type) {
    case AdoType::SmallInt:
    case AdoType::Integer:
    case AdoType::TinyInt:
    case AdoType::UnsignedTinyInt:
    case AdoType::BigInt:
    case AdoType::Char:
    case AdoType::WChar:
    case AdoType::VarChar:
    case AdoType::VarWChar:
      return true;
    default:
      return false;
  }
}

bool HasNamingKey(const TableInfo& table) {
  return !table.key.empty() && std::all_of(table.key.begin(), table.key.end(),
                                           [&](int at) { return NamesExactly(table.columns[std::size_t(at)]); });
}

QStringList KeyColumns(const TableInfo& table) {
  QStringList names;
  for (const int at : table.key) names << table.columns[std::size_t(at)].name;
  return names;
}

}  // namespace

ReadingBorder& RowReading::Border() {
  static ReadingBorder border;
  return border;
}

OpenedRows RowReading::Read(const QString& statement, TextOrder order) {
  const std::optional<KeysetStatement> form = KeysetStatement::Read(statement);
  const TableInfo* found = form ? session_.Table(form->Table()) : nullptr;
  if (!found || !HasNamingKey(*found)) return session_.FetchUntold(statement, order);
  const TableInfo table = *found;  // a failing statement has the tables forgotten
  if (!IsLarge(*form, table)) return ReadWhole(statement, order, table);
  const ReadingBorder& border = Border();
  if (form->HasCondition() && !form->HasOrder()) {
    FetchedRows few = session_.FetchUntold(form->OfFirst(border.result + 1), order);
    if (qint64(few.rows->RowCount()) <= border.result) return few;
  }
  FetchedRows keys = session_.FetchUntold(form->OfColumns(KeyColumns(table)), order);
  OpenedRows opened;
  if (keys.rows->RowCount() > 0) opened = KeysetRows::Open(session_, *form, table, std::move(keys.rows));
  return opened.rows ? std::move(opened) : session_.FetchUntold(statement, order);
}

FetchedRows RowReading::ReadWhole(const QString& statement, TextOrder order, const TableInfo& table) {
  FetchedRows rows = session_.FetchUntold(statement, order);
  if (qint64(rows.rows->RowCount()) > Border().table) isLarge_[table.name] = true;
  return rows;
}

bool RowReading::IsLarge(const KeysetStatement& statement, const TableInfo& table) {
  if (const auto known = isLarge_.constFind(table.name); known != isLarge_.constEnd()) return *known;
  const qint64 most = Border().table + 1;
  const FetchedRows counted =
      session_.FetchUntold(statement.CountingUpTo(most, KeyColumns(table).first()), TextOrder::Plain);
  const bool isLarge = counted.rows->At(0, 0).ToVariant().toLongLong() >= most;
  isLarge_.insert(table.name, isLarge);
  return isLarge;
}

}  // namespace folvane
