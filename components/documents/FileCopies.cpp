#include "components/documents/FileCopies.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QUrl>

#include <folvane/DataError.h>

#include "components/common/WholeFile.h"

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;

const QStringList kProgramTypes{
    u".exe"_s, u".com"_s, u".bat"_s, u".cmd"_s,     u".msi"_s,  u".scr"_s, u".pif"_s,      u".cpl"_s,  u".dll"_s,
    u".lnk"_s, u".url"_s, u".reg"_s, u".hta"_s,     u".vbs"_s,  u".vbe"_s, u".js"_s,       u".jse"_s,  u".wsf"_s,
    u".wsh"_s, u".ps1"_s, u".jar"_s, u".sh"_s,      u".run"_s,  u".bin"_s, u".desktop"_s,  u".py"_s,   u".pl"_s,
    u".rb"_s,  u".deb"_s, u".rpm"_s, u".flatpak"_s, u".snap"_s, u".so"_s,  u".appimage"_s, u".bash"_s, u".csh"_s};

constexpr qint64 kPortion = 1 << 20;

[[noreturn]] void RefuseFile(const QString& why) { throw DataError(DataErrorKind::File, why); }

}  // namespace

QString FileName(const QString& name, const QString& type) {
  static const QString forbidden = u"/\\:*?\"<>|"_s;
  QString file = name + type.trimmed();
  for (QChar& letter : file)
    if (forbidden.contains(letter) || letter < u' ') letter = u'_';
  constexpr int kLongest = 60;  // 180 bytes of UTF-8, of the 255 that a name may have
  if (file.size() > kLongest) file = file.left(kLongest - type.size()) + type.trimmed();
  return file.startsWith(u'.') ? u'_' + file : file;
}

void CopyFile(const QString& from, const QString& to) {
  const auto refuse = [&](const QFileDevice& file) {
    RefuseFile(u"无法保存 %1：%2"_s.arg(QDir::toNativeSeparators(to), file.errorString()));
  };
  QFile source(from);
  if (!source.open(QIODevice::ReadOnly)) refuse(source);
  QSaveFile target(to);
  if (!target.open(QIODevice::WriteOnly)) refuse(target);
  while (!source.atEnd()) {
    const QByteArray portion = source.read(kPortion);
    if (portion.isEmpty()) refuse(source);
    if (target.write(portion) < portion.size()) refuse(target);
  }
  if (!components::CommitWhole(target)) refuse(target);
}

bool IsProgram(const QString& path, const QString& type) {
  QString ending = type.trimmed().toLower();
  while (ending.endsWith(u'.') || ending.endsWith(u' ')) ending.chop(1);
  if (kProgramTypes.contains(ending)) return true;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return false;
  const QByteArray head = file.read(16);
  return head.startsWith(
             "\x7f"
             "ELF") ||
         head.startsWith("MZ") || head.startsWith("#!") || head.startsWith("[Desktop Entry");
}

void OpenWithDesktop(const QString& path, const QString& name, const QString& type) {
  if (IsProgram(path, type)) RefuseFile(u"该文件是可以执行的程序，为安全起见不能直接打开，只能另存。"_s);
  static const QTemporaryDir copies;
  static int count = 0;
  // Each in a folder of its own: the user sees the document's name.
  const QString folder = copies.filePath(QString::number(++count));
  if (!QDir().mkpath(folder)) RefuseFile(u"无法建立临时目录 %1。"_s.arg(folder));
  const QString copy = QDir(folder).filePath(FileName(name, type));
  CopyFile(path, copy);
  // What is changed there would be lost.
  QFile::setPermissions(copy, QFile::ReadOwner);
  if (!QDesktopServices::openUrl(QUrl::fromLocalFile(copy))) RefuseFile(u"没有能打开 %1 文件的程序。"_s.arg(type));
}

}  // namespace folvane::documents
