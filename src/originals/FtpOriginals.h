#pragma once

#include <memory>

#include <folvane/OriginalFiles.h>

namespace folvane {

/// The store on an FTP server. FilePath counts from the top of the server and so holds the root.
/// @param root the directory on the server that new files go below, "" for its top
std::unique_ptr<OriginalFiles> FtpOriginals(std::shared_ptr<FtpConnection> connection, const QString& root);

}  // namespace folvane
