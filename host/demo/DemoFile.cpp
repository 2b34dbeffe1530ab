#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringEncoder>
#include <stdexcept>

#include "host/demo/DemoDatabase.h"
#include "host/demo/SqliteFile.h"
#include "host/demo/TextLists.h"

namespace folvane::demo {
using namespace Qt::Literals::StringLiterals;

void MakeDemoFile(const QString& file, DemoOptions options) {
  const QFileInfo info(file);
  if (info.exists() && !options.replace) throw std::runtime_error(file.toStdString() + ": the file is there already");
  if (options.storeDirectory.isEmpty()) options.storeDirectory = info.absolutePath() + u"/Data"_s;
  MakeSqliteFile(file, [&](Connection& connection) { MakeDemoDatabase(connection, options); });
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
                u"[YearFormula]"_s, u"Lwdj=CreatedDate"_s, u"Fwdj=DocNo"_s, u"Hyjy=CreatedDate"_s,
                u"Htdj=CreatedDate"_s, u"Gdwj=FileYear"_s, u"Wsda_Aj=FileYear"_s, u"Zpda=FileYear"_s, QString()});
  // Documents that are registered are numbered anew each year.
  WriteProfile(directory + u"/RegIDFormula.Ini"_s,
               {line, u"# RegID Formula Rule2 按文件时间累加"_s, line, QString(), u"[RegFormula]"_s, u"Lwdj=2"_s,
                u"Fwdj=2"_s, u"Hyjy=2"_s, u"Htdj=2"_s, QString()});
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
