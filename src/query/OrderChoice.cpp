#include "query/OrderChoice.h"

#include <algorithm>

#include "catalogue/FieldRows.h"
#include "catalogue/ReadRows.h"
#include "data/Recordset.h"
#include "records/ListOrder.h"
#include "shell/SharedState.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

std::vector<DictionaryFieldRow> ReadFields(const QString& statement) {
  return ReadRows<DictionaryFieldRow>(SharedConnection(), statement);
}

// The items by the names of their fields; one whose caption has gone since is left out.
std::vector<OrderItem> WithFieldNames(const QString& table, const std::vector<OrderItem>& chosen) {
  std::vector<OrderItem> items;
  for (const OrderItem& item : chosen) {
    const auto fields = ReadFields(u"Select FieldName from DynamicWindows Where TableName='"_s + table +
                                   u"' and ChnFieldName='"_s + item.field + u"'"_s);
    if (!fields.empty()) items.push_back({fields.front().fieldName, item.descending});
  }
  return items;
}

}  // namespace

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
