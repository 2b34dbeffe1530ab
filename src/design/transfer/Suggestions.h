#pragma once

#include "design/transfer/BusinessTables.h"
#include "design/transfer/Settings.h"

namespace folvane::transfer {

/// A link that could be made.
struct Suggestion {
  FieldLink link;
  QString reason;  ///< "字段名相同", "标题相同"
};

/// For the fields of the destination that have no link yet and are not given by the transfer itself: the field of the
/// source with the same name, or else with the same caption. A caption that several fields have suggests nothing.
/// @throws DataError
std::vector<Suggestion> SuggestLinks(const Settings& settings, const TransferSet& set, BusinessTables& tables);

}  // namespace folvane::transfer
