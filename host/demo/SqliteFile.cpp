#include "host/demo/SqliteFile.h"

#include <QFile>
#include <filesystem>
#include <sqlite3.h>
#include <stdexcept>

#include <folvane/SqliteConnection.h>

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

// The database file while it is being made: gone again unless it is finished.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const QString& path) : path_(path) {
    const int code =
        sqlite3_open_v2(path.toUtf8().constData(), &handle_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (code == SQLITE_OK) return;
    const std::string why = sqlite3_errmsg(handle_);
    sqlite3_close_v2(handle_);
    throw std::runtime_error(path.toStdString() + ": " + why);
  }
  ~UnfinishedFile() {
    sqlite3_close_v2(handle_);
    if (!finished_) QFile::remove(path_);
  }
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  sqlite3* Handle() const { return handle_; }
  void Finish() { finished_ = true; }

 private:
  QString path_;
  sqlite3* handle_ = nullptr;
  bool finished_ = false;
};

}  // namespace

void MakeSqliteFile(const QString& path, const std::function<void(Connection&)>& fill) {
  const QString unfinished = path + u".new"_s;
  QFile::remove(unfinished);
  {
    UnfinishedFile made(unfinished);
    fill(*AdoptSqlite(made.Handle()));
    made.Finish();
  }
  std::error_code refused;
  std::filesystem::rename(unfinished.toStdU16String(), path.toStdU16String(), refused);
  if (!refused) return;
  QFile::remove(unfinished);
  throw std::runtime_error(path.toStdString() + ": " + refused.message());
}

}  // namespace folvane::demo
