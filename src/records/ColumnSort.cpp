#include "records/ColumnSort.h"

#include "records/RecordListModel.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kClicked = u"1"_s;

QString Clicked(RecordListModel& list, int column, bool descending) {
  const ListColumn& clicked = list.Columns().at(size_t(column));
  list.SetCaption(column, (descending ? u"↓"_s : u"↑"_s) + WithoutArrows(clicked.caption));
  list.SetColumnTag(column, kClicked);
  return clicked.key + (descending ? u" Desc"_s : u" Asc"_s);
}

}  // namespace

QString OrderField(const QString& order) {
  const QString item = order.section(u',', 0, 0).trimmed();
  return item.section(u' ', 0, 0);
}

QString WithoutArrows(const QString& caption) { return QString(caption).remove(u'↑').remove(u'↓').trimmed(); }

QString ClickColumn(RecordListModel& list, int column, const QString& order) {
  const int ordered = list.FindColumn(OrderField(order));
  if (ordered == column) return Clicked(list, column, list.Columns().at(size_t(column)).tag == kClicked);
  if (ordered >= 0) list.SetCaption(ordered, WithoutArrows(list.Columns().at(size_t(ordered)).caption));
  return Clicked(list, column, false);
}

}  // namespace folvane
