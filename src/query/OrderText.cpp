#include "query/OrderText.h"

#include <algorithm>

#include "base/CodePage.h"
#include "catalogue/FieldRows.h"
#include "catalogue/ReadRows.h"
#include "data/Recordset.h"
#include "records/ListOrder.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString Joined(const std::vector<OrderItem>& items, const QString& ascending, const QString& descending) {
  QStringList parts;
  for (const OrderItem& item : items) parts << item.field + (item.descending ? descending : ascending);
  return parts.join(u',');
}

std::vector<DictionaryFieldRow> ReadFields(const QString& statement) {
  return ReadRows<DictionaryFieldRow>(SharedConnection(), statement);
}

// The items by the names of their fields; one whose caption has gone since is left out.
std::vector<OrderItem> WithFieldNames(const QString& table, const std::vector<OrderItem>& chosen) {
  std::vector<OrderItem> items;
  for (const OrderItem& item : chosen) {
    const auto fields = ReadFields(u"Select FieldName from DynamicWindows Where TableName='"_s + table +
                                   u"' and ChnFieldName='"_s + EscapeSql(item.field) + u"'"_s);
    if (!fields.empty()) items.push_back({fields.front().fieldName, item.descending});
  }
  return items;
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

QString FittedOrder(const QString& order, int size) {
  if (FitsByteLength(order, size)) return order;
  const QString cut = LimitByteLength(order, size);
  return cut.left(qMax(cut.lastIndexOf(u','), 0));
}

std::vector<OrderItem> ShownOrder(const QString& table, const QString& order) {
  std::vector<OrderItem> shown;
  if (OrdersByKey(order)) return shown;
  for (const OrderItem& item : OrderItemsOf(order)) {
    const QString caption = GetChnFieldName(table, item.field);
    if (!caption.isEmpty()) shown.push_back({caption, item.descending});
  }
  return shown;
}

QStringList OfferedCaptions(const QString& table, const std::vector<OrderItem>& chosen) {
  QStringList captions;
  for (const auto& row : ReadFields(u"Select ChnFieldName from DynamicWindows Where TableName='"_s + table + u"'"_s)) {
    const bool isChosen = std::any_of(chosen.begin(), chosen.end(),
                                      [&](const OrderItem& item) { return item.field == row.chnFieldName; });
    if (!isChosen) captions << row.chnFieldName;
  }
  return captions;
}

ChosenOrder KeepOrder(const QString& table, const std::vector<OrderItem>& chosen) {
  ChosenOrder order{OrderTextOf(WithFieldNames(table, chosen)), OrderWordsOf(chosen)};
  Recordset kept;
  kept.Open(u"Select * From FindCirOrder Where TableName = '"_s + table + u"' And UserID="_s + Shared().UserId,
            SharedConnection(), CursorType::Static, LockType::ReadOnly);
  order.sql = FittedOrder(order.sql, kept[u"OrderStr"_s].DefinedSize());
  if (!order.sql.isEmpty()) StoreOrder(table, order.sql, kept.EOF_());
  return order;
}

}  // namespace folvane
