#include "host/OfficeCopy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <filesystem>
#include <memory>
#include <sqlite3.h>

#include "host/HostDatabase.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

struct CloseDatabase {
  void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

HostError Failed(const QString& file, const QString& why) {
  return HostError(u"无法备份，“%1”：%2"_s.arg(QDir::toNativeSeparators(file), why));
}

Database OpenFile(const QString& file, int flags) {
  sqlite3* raw = nullptr;
  const int code = sqlite3_open_v2(file.toUtf8().constData(), &raw, flags, nullptr);
  Database database(raw);
  if (code != SQLITE_OK) throw Failed(file, raw ? QString::fromUtf8(sqlite3_errmsg(raw)) : u"内存不足"_s);
  return database;
}

// Some pages at a time, so that those who work in the database get in between.
bool CopyPages(sqlite3* from, sqlite3* to, const QString& target, const std::function<bool(double)>& progress) {
  constexpr int kPages = 256, kPause = 20, kMostPauses = 1500;  // pages, milliseconds, pauses in a row: half a minute
  const std::unique_ptr<sqlite3_backup, int (*)(sqlite3_backup*)> copy(sqlite3_backup_init(to, "main", from, "main"),
                                                                       sqlite3_backup_finish);
  if (!copy) throw Failed(target, QString::fromUtf8(sqlite3_errmsg(to)));
  for (int pauses = 0;;) {
    const int code = sqlite3_backup_step(copy.get(), kPages);
    if (code == SQLITE_DONE) return true;
    const bool isHeld = code == SQLITE_BUSY || code == SQLITE_LOCKED;
    if (code != SQLITE_OK && !(isHeld && ++pauses < kMostPauses))
      throw Failed(target, QString::fromUtf8(sqlite3_errstr(code)));
    if (isHeld) sqlite3_sleep(kPause);
    if (!isHeld) pauses = 0;
    const int pages = sqlite3_backup_pagecount(copy.get());
    if (!progress(pages ? 1 - double(sqlite3_backup_remaining(copy.get())) / pages : 0)) return false;
  }
}

void RequireWhole(sqlite3* copy, const QString& target) {
  QString found;
  const auto note = [](void* text, int, char** values, char**) {
    *static_cast<QString*>(text) = QString::fromUtf8(values[0]);
    return 1;  // the first finding is enough
  };
  sqlite3_exec(copy, "PRAGMA integrity_check(1)", note, &found, nullptr);
  if (found != u"ok")
    throw Failed(target, u"副本不完好，"_s + (found.isEmpty() ? QString::fromUtf8(sqlite3_errmsg(copy)) : found));
}

}  // namespace

bool CopyOffice(const QString& source, const QString& target, const std::function<bool(double done)>& progress) {
  if (QFileInfo(source).canonicalFilePath() == QFileInfo(target).canonicalFilePath())
    throw Failed(target, u"副本不能就是数据库文件本身"_s);
  const QString unfinished = target + u".new"_s;
  QFile::remove(unfinished);
  const auto tidy = qScopeGuard([&] { QFile::remove(unfinished); });
  {
    const Database from = OpenFile(source, SQLITE_OPEN_READONLY);
    const Database to = OpenFile(unfinished, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (!CopyPages(from.get(), to.get(), target, progress)) return false;
    RequireWhole(to.get(), target);
  }
  std::error_code refused;
  std::filesystem::rename(unfinished.toStdU16String(), target.toStdU16String(), refused);  // in place of what is there
  if (refused) throw Failed(target, QString::fromLocal8Bit(refused.message().c_str()));
  return true;
}

}  // namespace folvane::host
