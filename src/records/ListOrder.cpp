#include "records/ListOrder.h"

#include "catalogue/QueryRows.h"
#include "catalogue/ReadRows.h"
#include "records/RecordListModel.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kClicked = u"1"_s;

const QString kDescending = u" Desc"_s;
const QString kDefaultOrder = u"ArchiveId Desc"_s;

void Unmark(RecordListModel& list, int column) {
  list.SetCaption(column, WithoutArrows(list.Columns().at(size_t(column)).caption));
}

QString OfTableAndUser(const QString& table) {
  return u" Where TableName = '"_s + table + u"' and UserID="_s + Shared().UserId;
}

QString InsertOrder(const QString& begin, const QString& table, const QString& order) {
  return begin + u"(TableName,OrderStr,UserID) Values('"_s + table + u"','"_s + order + u"',"_s + Shared().UserId +
         u")"_s;
}

}  // namespace

QString OrderField(const QString& order) {
  const QString item = order.section(u',', 0, 0).trimmed();
  return item.section(u' ', 0, 0);
}

bool OrdersByKey(const QString& order) { return order.contains(u"ArchiveID"_s, Qt::CaseInsensitive); }

QString WithoutArrows(const QString& caption) { return QString(caption).remove(u'↑').remove(u'↓').trimmed(); }

QString OrderAfterClick(const RecordListModel& list, int column, const QString& order) {
  const ListColumn& clicked = list.Columns().at(size_t(column));
  const bool again = list.FindColumn(OrderField(order)) == column && clicked.tag == kClicked;
  return clicked.key + (again ? kDescending : u" Asc"_s);
}

void MarkOrder(RecordListModel& list, int column, const QString& before, const QString& order) {
  if (const int ordered = list.FindColumn(OrderField(before)); ordered >= 0) Unmark(list, ordered);
  const QString arrow = order.endsWith(kDescending) ? u"↓"_s : u"↑"_s;
  list.SetCaption(column, arrow + WithoutArrows(list.Columns().at(size_t(column)).caption));
  list.SetColumnTag(column, kClicked);
}

void UnmarkOrder(RecordListModel& list) {
  for (int column = 0; column < list.columnCount(); ++column) Unmark(list, column);
}

QString ReadDefaultOrder(const QString& table) {
  const std::vector<BrowseOrderRow> orders =
      ReadRows<BrowseOrderRow>(SharedConnection(), u"Select OrderStr From FindCirOrder"_s + OfTableAndUser(table));
  if (!orders.empty()) return orders.front().orderStr;
  SharedConnection()->Execute(InsertOrder(u"Insert into FindCirOrder"_s, table, kDefaultOrder));
  return kDefaultOrder;
}

void SaveOrder(const QString& table, const QString& order) {
  StoreOrder(
      table, order,
      ReadRows<BrowseOrderRow>(SharedConnection(), u"Select * From FindCirOrder"_s + OfTableAndUser(table)).empty());
}

void StoreOrder(const QString& table, const QString& order, bool isNew) {
  SharedConnection()->Execute(isNew
                                  ? InsertOrder(u"Insert Into FindCirOrder"_s, table, order)
                                  : u"Update FindCirOrder Set OrderStr = '"_s + order + u"'"_s + OfTableAndUser(table));
}

}  // namespace folvane
