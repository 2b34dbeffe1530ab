#include "query/OrderText.h"

#include <QStringList>

#include "base/CodePage.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString Joined(const std::vector<OrderItem>& items, const QString& ascending, const QString& descending) {
  QStringList parts;
  for (const OrderItem& item : items) parts << item.field + (item.descending ? descending : ascending);
  return parts.join(u',');
}

}  // namespace

std::vector<OrderItem> OrderItemsOf(const QString& order) {
  std::vector<OrderItem> items;
  if (order.isEmpty()) return items;
  for (const QString& item : order.split(u',')) {
    const qsizetype blank = item.indexOf(u' ');
    const QString direction = blank < 0 ? u"ASC"_s : item.mid(blank + 1).toUpper();
    items.push_back({blank < 0 ? item : item.left(blank), direction != u"ASC"});
  }
  return items;
}

QString OrderTextOf(const std::vector<OrderItem>& items) { return Joined(items, u" Asc"_s, u" Desc"_s); }

QString OrderWordsOf(const std::vector<OrderItem>& items) { return Joined(items, u"(升序)"_s, u"(降序)"_s); }

bool OrdersByKey(const QString& order) { return order.contains(u"ArchiveID"_s, Qt::CaseInsensitive); }

QString FittedOrder(const QString& order, int size) {
  if (FitsByteLength(order, size)) return order;
  const QString cut = LimitByteLength(order, size);
  return cut.left(qMax(cut.lastIndexOf(u','), 0));
}

}  // namespace folvane
