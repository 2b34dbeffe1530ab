#include "catalogue/Table.h"

#include <algorithm>

namespace folvane {
using namespace Qt::Literals::StringLiterals;

const Column* Table::Find(const QString& column) const {
  const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& candidate) {
    return candidate.name.compare(column, Qt::CaseInsensitive) == 0;
  });
  return found == columns.end() ? nullptr : &*found;
}

Table BusinessTable(const QString& name, std::vector<Column> columns, std::vector<QStringList> indexes) {
  constexpr int kKeyDigits = 20;
  const QString key = u"ArchiveID"_s;
  Table table{name, std::move(columns), {key}, std::move(indexes)};
  if (!table.Find(key)) table.columns.insert(table.columns.begin(), {key, ColumnType::Text, kKeyDigits});
  return table;
}

}  // namespace folvane
