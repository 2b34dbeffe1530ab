#include <folvane/ClsFolvane.h>
#include <folvane/DataError.h>

#include "browser/RecordBrowser.h"
#include "data/Recordset.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {

[[noreturn]] void RefuseMissingWindow(const QString& window) {
  throw DataError(DataErrorKind::Usage, QStringLiteral("本版本尚未提供“%1”窗口。").arg(window));
}

// Runs an operation of the host's. Nothing but the library's own error leaves it.
template <typename Work>
void RunForHost(Work&& work) {
  try {
    std::forward<Work>(work)();
  } catch (const DataError&) {
    throw;
  } catch (const std::exception& error) {
    throw DataError(DataErrorKind::Other, QString::fromUtf8(error.what()));
  }
}

}  // namespace

void ClsFolvane::GetUser(const QString& userId) {
  userId_ = userId;
  Recordset users;
  users.Open(QStringLiteral("Select UserName From UserPopedom Where UserID = '") + userId + u'\'',
             Required(connection_));
  Shared().UserName = users.Fields().Item(0).Text();  // an unknown id ends here, past the last row
}

QString ClsFolvane::GetUser() const { return userId_; }

void ClsFolvane::Connection(std::shared_ptr<folvane::Connection> connection) {
  connection_ = std::move(connection);
  Shared().Connection = connection_;
}

void ClsFolvane::GetCopyRight(const QString& databaseKind) { Shared().DatabaseKind = databaseKind; }

// The user's id reaches the windows by these two operations alone: the flow windows see the id that an earlier one
// left, and none when they come first.
void ClsFolvane::FileOpen() {
  Shared().UserId = userId_;
  SharedConnection();
  RunForHost(ShowRecordBrowser);
}

void ClsFolvane::FileArchive() {
  Shared().UserId = userId_;
  SharedConnection();
  RefuseMissingWindow(QStringLiteral("文件归档"));
}

void ClsFolvane::DistributeFile() {
  SharedConnection();
  RefuseMissingWindow(QStringLiteral("文件分发"));
}

void ClsFolvane::PassReadFile() {
  SharedConnection();
  RefuseMissingWindow(QStringLiteral("文件传阅"));
}

void ClsFolvane::TransactFile() {
  SharedConnection();
  RefuseMissingWindow(QStringLiteral("文件处理"));
}

void ClsFolvane::HastenFile() {
  SharedConnection();
  RefuseMissingWindow(QStringLiteral("文件催办"));
}

}  // namespace folvane
