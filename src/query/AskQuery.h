#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

/// A condition that the user put together; both texts are empty when there is none.
struct AskedQuery {
  QString condition;
  QString words;        ///< its conditions as they read in the list; the compound query only
  QStringList ignored;  ///< what the user saw as conditions and does not count as it reads, each with why
};

// Each opens a query window for a table and unloads it again. @throws DataError
AskedQuery AskSimpleQuery(const QString& table);
AskedQuery AskCompoundQuery(const QString& table);

/// Opens the window that puts a sort order together and unloads it again. @return "" for no change @throws DataError
QString AskOrder(const QString& table, const QString& oldOrder);

}  // namespace folvane
