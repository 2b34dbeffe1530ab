#pragma once

#include <QString>

namespace folvane {

/// A condition that the user put together; both texts are empty when there is none.
struct AskedQuery {
  QString condition;
  QString words;  ///< the same for reading; the compound query only
};

// Each opens a query window for a table and unloads it again. @throws DataError
AskedQuery AskSimpleQuery(const QString& table);
AskedQuery AskCompoundQuery(const QString& table);

}  // namespace folvane
