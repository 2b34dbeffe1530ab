#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringEncoder>
#include <sqlite3.h>
#include <stdexcept>

#include <folvane/SqliteConnection.h>

#include "host/demo/DemoDatabase.h"
#include "host/demo/TextLists.h"

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

void MakeDemoFile(const QString& file, DemoOptions options) {
  const QFileInfo info(file);
  if (info.exists() && !options.replace) throw std::runtime_error(file.toStdString() + ": the file is there already");
  if (options.storeDirectory.isEmpty()) options.storeDirectory = info.absolutePath() + u"/Data"_s;
  // What stands there now stays until its successor is finished.
  const QString unfinished = file + u".new"_s;
  QFile::remove(unfinished);
  {
    UnfinishedFile made(unfinished);
    MakeDemoDatabase(*AdoptSqlite(made.Handle()), options);
    made.Finish();
  }
  QFile::remove(file);
  if (!QFile::rename(unfinished, file)) throw std::runtime_error(file.toStdString() + ": cannot be replaced");
}

// The library reads its settings in the code page of Simplified Chinese systems, with CR LF.
namespace {

void WriteProfile(const QString& path, const QStringList& lines) {
  QStringEncoder encoder("GBK");
  QSaveFile file(path);
  if (encoder.isValid() && file.open(QIODevice::WriteOnly)) {
    file.write(encoder(lines.join(u"\r\n"_s)));
    if (file.commit()) return;
  }
  throw std::runtime_error(file.fileName().toStdString() + ": " + file.errorString().toStdString());
}

}  // namespace

void WriteDemoProfiles(const QString& directory) {
  const QString line = u"#--------------------------------------------------------------"_s;
  WriteProfile(directory + u"/YearFormula.Ini"_s,
               {line, u"# 自定义字段显示数据"_s, u"#要求：表中含有该字段,字段名用英文名！"_s, QString(),
                u"[YearFormula]"_s, u"Lwdj=CreatedDate"_s, u"Fwdj=DocNo"_s, QString()});
  // Incoming and outgoing documents are numbered anew each year.
  WriteProfile(directory + u"/RegIDFormula.Ini"_s, {line, u"# RegID Formula Rule2 按文件时间累加"_s, line, QString(),
                                                    u"[RegFormula]"_s, u"Lwdj=2"_s, u"Fwdj=2"_s, QString()});
}

void WriteDemoReports(const QString& directory) {
  InitDemoResources();
  const QDir templates(u":/folvane/demo/Reports"_s), folder(directory + u"/Reports"_s);
  bool written = folder.mkpath(u"."_s);
  for (const QString& name : templates.entryList(QDir::Files)) {
    if (folder.exists(name)) continue;
    written = written && QFile::copy(templates.filePath(name), folder.filePath(name)) &&
              QFile::setPermissions(folder.filePath(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
  }
  if (!written) throw std::runtime_error("cannot write " + folder.path().toStdString());
}

}  // namespace folvane::demo
