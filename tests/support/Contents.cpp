#include "support/Contents.h"

#include <algorithm>
#include <iterator>

#include <folvane/HostServices.h>

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

Contents ContentsOf(const std::string& kind, const std::function<std::vector<QStringList>(const QString&)>& rows) {
  const QString tables = kind == "SQLite"
                             ? u"select name from sqlite_master where type = 'table' and name not like 'sqlite_%'"_s
                             : u"select tablename from pg_tables where schemaname = current_schema()"_s;
  Contents contents;
  for (const QStringList& table : rows(tables)) {
    QStringList& found = contents[table.front()];
    for (const QStringList& row : rows(u"select * from "_s + table.front()))
      found << row.join(u'|').replace(Services().programDirectory, u"PROGRAM"_s);
    found.sort();
  }
  return contents;
}

Contents ContentsOf(TestDatabase& database) {
  return ContentsOf(database.Kind(), [&](const QString& sql) { return database.Rows(sql); });
}

QString Difference(const Contents& expected, const Contents& actual) {
  QStringList lines;
  for (const auto& [table, rows] : actual) {
    const auto before = expected.find(table);
    const QStringList old = before == expected.end() ? QStringList() : before->second;
    QStringList gone, come;
    std::set_difference(old.begin(), old.end(), rows.begin(), rows.end(), std::back_inserter(gone));
    std::set_difference(rows.begin(), rows.end(), old.begin(), old.end(), std::back_inserter(come));
    for (const QString& row : gone) lines << table + u" - "_s + row;
    for (const QString& row : come) lines << table + u" + "_s + row;
  }
  return lines.join(u'\n');
}

}  // namespace folvane::test
