#pragma once

#include <QString>
#include <memory>

namespace folvane {
class Connection;
}

namespace folvane::transfer {

/// Shows the window of the transfer settings and returns when it is closed.
/// @param what "TransSet" @throws DataError Usage for anything else, and where design tables are missing
void EditTransferSettings(const std::shared_ptr<Connection>& connection, const QString& what);

}  // namespace folvane::transfer
