#include <folvane/DataError.h>
#include <folvane/OriginalFiles.h>
#include <folvane/OriginalsRequest.h>

#include "originals/DirectoryOriginals.h"
#include "originals/FtpOriginals.h"
#include "originals/OriginalStore.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

OriginalFiles::~OriginalFiles() = default;

std::unique_ptr<OriginalFiles> OpenOriginalFiles(const OriginalsRequest& request) {
  if (!LieOnServer(request.databaseKind)) return DirectoryOriginals(request.storeRoot);
  if (!request.ftp) {
    throw DataError(DataErrorKind::Lost,
                    u"存储原文的 FTP 服务器没有连接：请检查 Report_Info 中的服务器地址、端口、用户名和密码，"
                    "确认服务器已启动，然后重新进入系统。"_s);
  }
  return FtpOriginals(request.ftp, request.storeRoot);
}

}  // namespace folvane
