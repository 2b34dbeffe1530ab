#include "originals/OriginalFileAction.h"

#include <folvane/HostServices.h>
#include <folvane/OriginalsRequest.h>

#include "data/Recordset.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kNotInstalled =
    u"请确定您的机器中安装了‘映象’工具！\n"
    "若您是XP或2003系统，请安装本系统目录下的 kodak for winxp.EXE 文件\n"
    "若您是98或2000系统，请在Windows系统中的控制面板里安装Windows‘映象’组件"_s;

OriginalsRequest RequestFor(const QString& recordId, const QString& action, const QString& fileId) {
  const SharedState& shared = Shared();
  OriginalsRequest request;
  request.connection = SharedConnection();
  request.recordId = recordId;
  request.databaseKind = shared.DatabaseKind;
  request.storeRoot = shared.OriginalRoot;
  request.ftp = shared.hConnection;
  request.internetAccess = shared.hOpen;
  request.action = action;
  request.fileId = fileId;
  return request;
}

}  // namespace

bool OriginalFileAction(const QString& recordId, const QString& action, const QString& fileId,
                        const QStringList& files) {
  if (!Services().handleOriginals) {
    ShowMessage(kNotInstalled);
    return true;
  }
  try {
    OriginalsRequest request = RequestFor(recordId, action, fileId);
    request.files = files;
    const bool added = Services().handleOriginals(request);
    return added || action != kAddOriginals;
  } catch (const std::exception& error) {
    ShowMessage({ErrorText(error), MessageFlag::Information, u"原文管理"_s, {}, ErrorDetails(error)});
    return true;
  }
}

QString OriginalsStatement(const QString& recordId) {
  return u"Select * from Original_Text Where RecordId='"_s + EscapeSql(recordId) + u"'  Order By FileOrder"_s;
}

QString FirstOriginalOf(const QString& recordId) {
  Recordset originals;
  originals.Open(OriginalsStatement(recordId), SharedConnection());
  return originals.EOF_() ? QString() : originals[u"ID"_s].Text();
}

}  // namespace folvane
