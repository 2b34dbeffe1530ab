#include <QRegularExpression>

#include <folvane/Catalogue.h>
#include <folvane/ClsFolvane.h>
#include <folvane/DataError.h>

#include "archiving/FrmArchive.h"
#include "base/IgnoreErrors.h"
#include "browser/FrmMain.h"
#include "data/Recordset.h"
#include "flows/FlowWindow.h"
#include "shell/ModalWindow.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {

// Some statements compare the id with a number column and do not quote it; elsewhere it is compared as text.
void RequireNumber(const QString& userId) {
  static const QRegularExpression number(QStringLiteral("^ *[+-]?[0-9]+(\\.0+)? *$"));
  if (number.match(userId).hasMatch()) return;
  throw DataError(DataErrorKind::Usage,
                  QStringLiteral("用户编号“%1”不是数字。用户编号应当是整数，例如 12；1 是系统管理员。").arg(userId));
}

// What a failed statement may be owed to: tables or columns of the library's own that the database lacks; "" when it
// has them all, or cannot be asked any more.
QString MissingTables(Connection& connection) {
  QString missing;
  IgnoreErrors([&] { missing = CheckTables(connection).join(QString()); });
  return missing;
}

// Runs an operation of the host's. Nothing but the library's own error leaves it, and one over a statement tells
// which tables it may be owed to.
template <typename Work>
void RunForHost(const std::shared_ptr<Connection>& connection, Work&& work) {
  try {
    std::forward<Work>(work)(Required(connection));
  } catch (const DataError& error) {
    const QString missing = error.Kind() == DataErrorKind::Statement ? MissingTables(*connection) : QString();
    if (missing.isEmpty()) throw;
    const QString text = QStringLiteral("%1\n数据库中的设计表不全：%2可以调用 folvane::CreateTables 建立缺少的部分。");
    throw DataError(error.Kind(), text.arg(error.Message(), missing), error.Statement(), error.NativeCode());
  } catch (const std::exception& error) {
    throw DataError(DataErrorKind::Other, QString::fromUtf8(error.what()));
  } catch (...) {
    throw DataError(DataErrorKind::Other, QStringLiteral("发生了不明的错误。"));
  }
}

template <typename Work>
void RunEntry(Work&& work) {
  RequireApplication();
  RunForHost(Shared().Connection, [&](const auto&) { std::forward<Work>(work)(); });
}

}  // namespace

void ClsFolvane::GetUser(const QString& userId) {
  userId_ = userId;
  RunForHost(connection_, [&](const std::shared_ptr<folvane::Connection>& connection) {
    Recordset users;
    users.Open(QStringLiteral("Select UserName From UserPopedom Where UserID = '") + userId + u'\'', connection);
    const QString name = users.Fields().Item(0).Text();  // an unknown id ends here, past the last row
    RequireNumber(userId);
    Shared().UserName = name;
  });
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
  RunEntry(ShowRecordBrowser);
}

void ClsFolvane::FileArchive() {
  Shared().UserId = userId_;
  RunEntry([] { ShowArchiveWindow({}); });
}

void ClsFolvane::DistributeFile() {
  RunEntry([] { ShowDistribution(); });
}

void ClsFolvane::PassReadFile() {
  RunEntry([] { ShowCirculation(); });
}

void ClsFolvane::TransactFile() {
  RunEntry([] { ShowHandling(QStringLiteral("0")); });
}

void ClsFolvane::HastenFile() {
  RunEntry([] { ShowHandling(QStringLiteral("1")); });
}

}  // namespace folvane
