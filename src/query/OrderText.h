#pragma once

#include <QString>
#include <QStringList>
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

/// An order that fits into so many characters: a longer one is cut there, and then before its last comma; "" when that
/// leaves nothing.
QString FittedOrder(const QString& order, int size);

/// The order of a table as the user sees it: items with captions for fields. Parts whose field the design does not know
/// any more are left out, and the plain order is no choice. @throws DataError
std::vector<OrderItem> ShownOrder(const QString& table, const QString& order);

/// The captions of a table's fields that an order does not have. @throws DataError
QStringList OfferedCaptions(const QString& table, const std::vector<OrderItem>& chosen);

/// An order as the caller gets it and to be shown.
struct ChosenOrder {
  QString sql, words;
};

/// Keeps the chosen order, items with captions, for the user. It is shortened to whole items where its column is too
/// short; when not even one fits, nothing is kept and the result is "". @throws DataError
ChosenOrder KeepOrder(const QString& table, const std::vector<OrderItem>& chosen);

}  // namespace folvane
