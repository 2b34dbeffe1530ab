#include "designer/SeenRows.h"

#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "data/DatabaseSession.h"
#include "data/Schema.h"
#include "design/ConditionNames.h"
#include "design/Names.h"
#include "design/Shape.h"
#include "designer/RowCondition.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMostSeen = 50;

// Why the table cannot be asked, "" when it can.
QString ReasonNotToAsk(const Design::Table& table, const QString& condition, const TableInfo* info) {
  if (const QString complaint = design::NameComplaint(table.name); !complaint.isEmpty()) return complaint + u'。';
  if (!info) return u"表还没有建立，应用设计后才有记录。"_s;
  for (const QString& field : design::FieldsIn(condition, table))
    if (info->IndexOf(field) < 0) return u"字段“%1”还没有建立，应用设计后才能试用条件。"_s.arg(field);
  return {};
}

QString Where(const QString& condition) { return condition.isEmpty() ? QString() : u" Where ("_s + condition + u')'; }

qint64 CountOf(const QString& table, const QString& condition, Connection& connection) {
  const ResultSet counted(connection, u"Select Count(*) From "_s + table + Where(condition));
  return counted.Value(0, 0).toLongLong();
}

void ReadRows(SeenRows& seen, const Design::Table& table, const QString& condition, const TableInfo& info,
              Connection& connection) {
  QStringList names;
  for (const Design::ListColumn& column : table.columns) {
    if (info.IndexOf(column.field) < 0) continue;
    names << column.field;
    seen.captions << column.caption;
  }
  const qint64 count = CountOf(table.name, condition, connection);
  seen.words = count > kMostSeen ? u"共 %1 条记录，下面是前 %2 条。"_s.arg(count).arg(kMostSeen)
                                 : u"共 %1 条记录。"_s.arg(count);
  if (names.isEmpty()) {
    seen.words += u"列表中没有已经建立的列。"_s;
    return;
  }
  const ResultSet rows(
      connection,
      u"Select Top %1 %2 From %3%4"_s.arg(kMostSeen).arg(names.join(u',')).arg(table.name, Where(condition)));
  for (qint64 row = 0; row < rows.RowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < rows.ColumnCount(); ++column) cells << rows.Text(row, column);
    seen.rows.push_back(cells);
  }
}

}  // namespace

SeenRows RowsSeenBy(const QString& id, const QString& name, const Design& design, Connection& connection) {
  const Design::User* user = design::FindNamed(design.users, id);
  const Design::Table* table = design::FindNamed(design.tables, name);
  SeenRows seen;
  if (!user || !table) return seen;
  const bool isAdministrator = user->id.toInt() == 1;
  const Design::Rights* rights = design::FindNamed(user->rights, name);
  if (!isAdministrator && !rights) {
    seen.words = u"没有这个表的权限，看不到任何记录。"_s;
    return seen;
  }
  const QString condition = isAdministrator ? QString() : rights->condition;
  try {
    const TableInfo* info = DatabaseSession::Of(connection).Table(table->name);
    seen.words = ReasonNotToAsk(*table, condition, info);
    if (seen.words.isEmpty()) ReadRows(seen, *table, condition, *info, connection);
  } catch (const DataError& error) {
    seen.words = u"数据库不接受：%1"_s.arg(error.Message());
    seen.rows.clear();
  }
  return seen;
}

TriedCondition TryCondition(const QString& condition, const Design::Table& table, Connection& connection) {
  try {
    const TableInfo* info = DatabaseSession::Of(connection).Table(table.name);
    if (const QString reason = ReasonNotToAsk(table, condition, info); !reason.isEmpty()) return {false, reason};
    return {false, u"符合条件的有 %1 条记录。"_s.arg(CountOf(table.name, condition, connection))};
  } catch (const DataError& error) {
    return {true, u"数据库不接受这个条件：%1"_s.arg(error.Message())};
  }
}

}  // namespace folvane::designer
