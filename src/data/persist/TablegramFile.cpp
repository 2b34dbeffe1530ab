#include "data/persist/TablegramFile.h"

#include <QDir>
#include <QFileInfo>

#include "base/FileUpdate.h"
#include "data/persist/TablegramPrinter.h"
#include "data/persist/TablegramWriter.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QByteArray ReadTablegramFile(const QString& path) {
  const QFileInfo file(path);
  const QString name = QDir::toNativeSeparators(path);
  if (!file.exists()) throw FileError(u"文件 %1 不存在。"_s.arg(name));
  if (!file.isFile()) throw FileError(u"%1 不是文件，不能作为记录集打开。"_s.arg(name));
  QByteArray content = ReadFile(path);
  if (content.isEmpty()) throw FileError(u"文件 %1 是空的。"_s.arg(name));
  return content;
}

void CheckTablegram(QByteArrayView content) {
  TablegramReader reader(content);
  TablegramRow row;
  while (reader.Next(row)) {
  }
}

void CopyTablegram(QByteArrayView content, QIODevice& out) {
  TablegramReader reader(content);
  TablegramWriter writer(out, reader.Head());
  writer.WriteHead();
  TablegramRow row;
  while (reader.Next(row)) writer.WriteRow(row);
  writer.WriteEnd();
}

void PrintTablegram(QByteArrayView content, CodePageReader& codePage, QIODevice& out) {
  TablegramReader reader(content);
  TablegramPrinter printer(reader.Head(), codePage, out);
  printer.PrintHead();
  PersistedRecords records(reader);
  PersistedRecord record;
  while (records.Next(record)) printer.Print(record);
}

}  // namespace folvane
