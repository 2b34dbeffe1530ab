#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "query/OrderText.h"

namespace folvane {

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
