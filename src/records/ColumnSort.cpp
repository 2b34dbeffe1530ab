#include "records/ColumnSort.h"

#include "records/RecordListModel.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kClicked = u"1"_s;

const QString kDescending = u" Desc"_s;

}  // namespace

QString OrderField(const QString& order) {
  const QString item = order.section(u',', 0, 0).trimmed();
  return item.section(u' ', 0, 0);
}

QString WithoutArrows(const QString& caption) { return QString(caption).remove(u'↑').remove(u'↓').trimmed(); }

QString OrderAfterClick(const RecordListModel& list, int column, const QString& order) {
  const ListColumn& clicked = list.Columns().at(size_t(column));
  const bool again = list.FindColumn(OrderField(order)) == column && clicked.tag == kClicked;
  return clicked.key + (again ? kDescending : u" Asc"_s);
}

void MarkOrder(RecordListModel& list, int column, const QString& before, const QString& order) {
  const int ordered = list.FindColumn(OrderField(before));
  if (ordered >= 0) list.SetCaption(ordered, WithoutArrows(list.Columns().at(size_t(ordered)).caption));
  const QString arrow = order.endsWith(kDescending) ? u"↓"_s : u"↑"_s;
  list.SetCaption(column, arrow + WithoutArrows(list.Columns().at(size_t(column)).caption));
  list.SetColumnTag(column, kClicked);
}

}  // namespace folvane
