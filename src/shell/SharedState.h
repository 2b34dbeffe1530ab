#pragma once

#include <QList>
#include <QString>
#include <QStringList>
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

  // The archive number of the table that records are to be transferred into, a field of it at each index from 1 on;
  // element 0 is empty. The last field is the running number.
  QStringList ArchNoFieldName{QString()}, ArchNoFieldValue{QString()}, ArchNoSeparator{QString()};
  QList<bool> ArchNoShowCode{false};  ///< whether the code of a value stands in the number, not its name
  QList<qint16> ArchNoLength{0};      ///< in bytes of the national code page
  QString ArchNoStoreField;           ///< the column that takes the composed number
  QString ArchNoFolderField;          ///< the column that takes the number without its last field; "(无)" for none
};

SharedState& Shared();

/// The host's connection, for a routine that is about to use it. @throws DataError Usage when the host has set none
std::shared_ptr<Connection> SharedConnection();

/// The given connection if there is one. @throws DataError Usage when it is null
std::shared_ptr<Connection> Required(const std::shared_ptr<Connection>& connection);

}  // namespace folvane
