#pragma once

#include <QString>
#include <QStringList>
#include <memory>

#include <folvane/Connection.h>
#include <folvane/FtpConnection.h>

namespace folvane {

/// What a user wants done with the originals of a record.
struct OriginalsRequest {
  std::shared_ptr<Connection> connection;
  QString recordId;                    ///< the key of the record, Original_Text.RecordID
  QString databaseKind;                ///< "SQL SERVER" or "SYSBASE": the files lie on an FTP server
  QString storeRoot;                   ///< of the directory or on the server, without trailing backslash
  std::shared_ptr<FtpConnection> ftp;  ///< null while there is none
  bool internetAccess = false;         ///< whether FTP has been made ready
  QString action;                      ///< "AddState", "BrowseState", "ScanState"; "" to manage the originals
  QString fileId;                      ///< of "BrowseState": Original_Text.ID
  QStringList files;                   ///< of "AddState": paths that the user has already chosen; none to be asked for
};

}  // namespace folvane
