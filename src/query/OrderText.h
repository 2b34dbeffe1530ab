#pragma once

#include <QString>
#include <vector>

namespace folvane {

/// One part of an order: a field and its direction.
struct OrderItem {
  QString field;
  bool descending = false;

  bool operator==(const OrderItem&) const = default;
};

/// An order text taken apart at its commas. The field ends at the first blank; what follows it is ascending when it is
/// Asc in any case, and so is an item with nothing behind its field.
std::vector<OrderItem> OrderItemsOf(const QString& order);

/// An order as it stands behind Order By: "CreatedDate Desc,RegID Asc".
QString OrderTextOf(const std::vector<OrderItem>& items);
/// The same to be shown, for items that hold captions.
QString OrderWordsOf(const std::vector<OrderItem>& items);

/// Whether an order is the plain one by the key of the records, or has that in it: it is no choice of the user then.
bool OrdersByKey(const QString& order);

/// An order that fits into so many characters: a longer one is cut there, and then before its last comma; "" when that
/// leaves nothing.
QString FittedOrder(const QString& order, int size);

}  // namespace folvane
