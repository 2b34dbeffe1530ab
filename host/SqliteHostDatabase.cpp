#include <QDir>
#include <QFileInfo>
#include <sqlite3.h>

#include <folvane/SqliteConnection.h>

#include "host/HostDatabase.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

struct CloseHandle {
  void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;

HostError Refused(const QString& file, sqlite3* handle) {
  const int code = handle ? sqlite3_errcode(handle) : SQLITE_NOMEM;
  const QString shown = QDir::toNativeSeparators(file);
  if (code == SQLITE_NOTADB) return HostError(u"“%1”不是 SQLite 数据库文件。"_s.arg(shown));
  if (code == SQLITE_BUSY) return HostError(u"数据库文件“%1”正被其他程序占用。"_s.arg(shown));
  return HostError(u"无法打开数据库文件“%1”：\n%2"_s.arg(
      shown, QString::fromUtf8(handle ? sqlite3_errmsg(handle) : "out of memory")));
}

bool HasUserTable(sqlite3* handle, const QString& file) {
  bool found = false;
  const auto seen = [](void* flag, int, char**, char**) { return *static_cast<bool*>(flag) = true, 0; };
  const char* statement = "select 1 from sqlite_master where lower(name) = 'userpopedom'";
  if (sqlite3_exec(handle, statement, seen, &found, nullptr) != SQLITE_OK) throw Refused(file, handle);
  return found;
}

QList<HostUser> ReadUsers(sqlite3* handle, const QString& file) {
  if (!HasUserTable(handle, file)) {
    throw HostError(u"“%1”中没有用户表 UserPopedom，不是本系统的数据库。"_s.arg(QDir::toNativeSeparators(file)));
  }
  QList<HostUser> users;
  const auto add = [](void* list, int, char** values, char**) {
    static_cast<QList<HostUser>*>(list)->append(
        {QString::fromUtf8(values[0]).trimmed(), QString::fromUtf8(values[1]).trimmed()});
    return 0;
  };
  if (sqlite3_exec(handle, "select UserID, UserName from UserPopedom", add, &users, nullptr) != SQLITE_OK)
    throw Refused(file, handle);
  return users;
}

}  // namespace

OpenedDatabase OpenSqlite(const QString& file) {
  if (!QFileInfo(file).isFile()) throw HostError(u"数据库文件“%1”不存在。"_s.arg(QDir::toNativeSeparators(file)));
  sqlite3* raw = nullptr;
  const int code = sqlite3_open_v2(file.toUtf8().constData(), &raw, SQLITE_OPEN_READWRITE, nullptr);
  Handle handle(raw);
  if (code != SQLITE_OK) throw Refused(file, handle.get());
  sqlite3_extended_result_codes(handle.get(), 0);

  OpenedDatabase opened;
  opened.users = ReadUsers(handle.get(), file);
  std::shared_ptr<sqlite3> owner(std::move(handle));
  auto connection = AdoptSqlite(owner.get());
  opened.connection = KeepOpen(std::move(owner), std::move(connection));
  return opened;
}

}  // namespace folvane::host
