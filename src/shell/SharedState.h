#pragma once

#include <QString>
#include <memory>

#include <folvane/Connection.h>
#include <folvane/FtpConnection.h>

#include "data/Recordset.h"

namespace folvane {

/// What all windows share: one instance in the process, from load to unload. Everything runs on the host's calling
/// thread, so nothing here is locked.
struct SharedState {
  std::shared_ptr<folvane::Connection> Connection;  ///< the host's; never opened, closed or replaced here
  QString UserId;                                   ///< left by the last FileOpen or FileArchive; "" before the first
  QString UserName;                                 ///< as status bars show it
  QString DatabaseKind;      ///< "SQL SERVER" or "SYSBASE": originals lie on an FTP server; any other: in a directory
  Recordset CurrentRecords;  ///< behind the browser's list; the entry window edits it in place

  // The store of originals. A connection to its server is opened with the record browser and kept until the process
  // ends.
  QString OriginalRoot;
  bool hOpen = false;  ///< whether the network can be used
  std::shared_ptr<FtpConnection> hConnection;
  bool FtpConnected = false;
};

SharedState& Shared();

/// The host's connection, for a routine that is about to use it. @throws DataError Usage when the host has set none
std::shared_ptr<Connection> SharedConnection();

/// The given connection if there is one. @throws DataError Usage when it is null
std::shared_ptr<Connection> Required(const std::shared_ptr<Connection>& connection);

}  // namespace folvane
