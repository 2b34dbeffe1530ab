#include "design/ClerksRows.h"

#include <folvane/ResultSet.h>

#include "data/DatabaseSession.h"
#include "design/FormArrangement.h"
#include "design/Names.h"
#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kRules = u"SaveCollect"_s, kOrders = u"FindCirOrder"_s, kConditions = u"FindCirSave"_s;
const QString kDefaultOrder = u"ArchiveId Desc"_s;
constexpr int kNoIndex = 0;  ///< controls of fields count from 1

QString OfTable(const QString& table) { return u" Where TableName = "_s + TextLiteral(table); }

using Controls = std::vector<Design::Control>;

const Design::Control* FindControl(const Controls& controls, int type, int index) {
  const auto found = std::find_if(controls.begin(), controls.end(), [&](const Design::Control& control) {
    return MakesControl(control) && control.type == type && control.index == index;
  });
  return found == controls.end() ? nullptr : &*found;
}

const Design::Control* FindControl(const Controls& controls, const QString& field) {
  const auto found = std::find_if(controls.begin(), controls.end(), [&](const Design::Control& control) {
    return MakesControl(control) && IsSame(control.field, field);
  });
  return found == controls.end() ? nullptr : &*found;
}

/// The rules and orders of one database.
class ClerksRows {
 public:
  explicit ClerksRows(Connection& connection) : connection_(connection) {}

  void FollowControls(const Design::Table& before, const Design::Table& now) {
    if (before.controls == now.controls || !IsThere(kRules)) return;
    const ResultSet rules(connection_, u"Select CenterControlIndex,ControlType,ControlIndex,FieldName From "_s +
                                           kRules + OfTable(now.name) + u" And ControlType <> 0"_s);
    for (qint64 row = 0; row < rules.RowCount(); ++row)
      FollowControl(before, now, rules.Text(row, 0), rules.Value(row, 1).toInt(), rules.Value(row, 2).toInt(),
                    rules.Text(row, 3));
  }

  void LeaveColumns(const QString& table, const QStringList& columns) {
    if (!IsThere(kOrders)) return;
    const ResultSet orders(connection_, u"Select UserID,OrderStr From "_s + kOrders + OfTable(table));
    for (qint64 row = 0; row < orders.RowCount(); ++row) {
      QStringList items = orders.Text(row, 1).split(u',');
      const auto isGone = [&](const QString& item) {
        return columns.contains(item.trimmed().section(u' ', 0, 0), Qt::CaseInsensitive);
      };
      if (items.removeIf(isGone) == 0) continue;
      if (items.isEmpty()) items << kDefaultOrder;
      statements << u"Update %1 Set OrderStr = %2%3 And UserID = %4"_s.arg(kOrders, TextLiteral(items.join(u',')),
                                                                           OfTable(table), orders.Text(row, 0));
    }
  }

  void LeaveTable(const QString& table) {
    for (const QString& kept : {kRules, kOrders, kConditions})
      if (IsThere(kept)) statements << u"Delete From "_s + kept + OfTable(table);
  }

  QStringList statements;

 private:
  bool IsThere(const QString& table) { return DatabaseSession::Of(connection_).Table(table) != nullptr; }

  // A rule whose control was taken off the form waits for one of its field to come back.
  void FollowControl(const Design::Table& before, const Design::Table& now, const QString& line, int type, int index,
                     const QString& ruled) {
    const Design::Control* was = FindControl(before.controls, type, index);
    const QString field = was ? was->field : ruled;
    if (const Design::Control* same = FindControl(now.controls, type, index); was && same && IsSame(same->field, field))
      return;
    const QString ofRule = OfTable(now.name) + u" And CenterControlIndex = "_s + line;
    if (const Design::Control* follows = FindControl(now.controls, field)) {
      statements << Tied(follows->type, follows->index) + ofRule;
    } else if (!FindNamed(now.fields, field)) {
      statements << u"Delete From "_s + kRules + ofRule;
    } else if (was) {
      statements << Tied(type, kNoIndex) + ofRule;
    }
  }

  static QString Tied(int type, int index) {
    return u"Update %1 Set ControlType = %2, ControlIndex = %3"_s.arg(kRules).arg(type).arg(index);
  }

  Connection& connection_;
};

}  // namespace

QStringList ClerksStatements(Connection& connection, const Design& base, const Design& wanted,
                             const std::vector<PhysicalStep>& drops) {
  ClerksRows rows(connection);
  for (const Design::Table& table : wanted.tables)
    if (const Design::Table* before = FindSame(base.tables, table)) rows.FollowControls(*before, table);
  // A database may spell the name of a table otherwise than the rows of the clerks do.
  for (const Design::Table& table : base.tables) {
    QStringList columns;
    for (const PhysicalStep& step : drops) {
      if (!IsSame(step.table.name, table.name)) continue;
      if (step.kind == PhysicalStep::Kind::DropTable)
        rows.LeaveTable(table.name);
      else
        columns << step.column.name;
    }
    if (!columns.isEmpty()) rows.LeaveColumns(table.name, columns);
  }
  return rows.statements;
}

}  // namespace folvane::design
