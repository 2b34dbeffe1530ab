#pragma once

namespace folvane {

struct TransferTables;

/// Whether the user may transfer the record at the source's position: whether it meets the condition of the user's
/// rights, with the values of the archive number, or of the record, in place of the fields. The database judges it.
/// @throws DataError also for a condition that it cannot judge
bool CheckUserScope(const TransferTables& tables);

}  // namespace folvane
