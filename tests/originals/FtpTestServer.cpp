#include "originals/FtpTestServer.h"

#include <QBuffer>

namespace folvane::test {

DataError ErrorFrom(const std::function<void()>& step) {
  try {
    step();
  } catch (const DataError& error) {
    return error;
  }
  ADD_FAILURE() << "no error";
  return DataError(DataErrorKind::Other, QStringLiteral("no error"));
}

QByteArray Bytes(int count) {
  QByteArray bytes(count, Qt::Uninitialized);
  for (int i = 0; i < count; ++i) bytes[i] = char(i % 251);
  return bytes;
}

void Put(FtpConnection& connection, const QString& name, const QByteArray& content) {
  QBuffer source;
  source.setData(content);
  source.open(QIODevice::ReadOnly);
  connection.Put(source, name);
}

QByteArray Get(FtpConnection& connection, const QString& name) {
  QBuffer target;
  target.open(QIODevice::WriteOnly);
  connection.Get(name, target);
  return target.data();
}

QStringList Names(const std::vector<FtpEntry>& entries) {
  QStringList names;
  for (const FtpEntry& entry : entries) names << entry.name;
  names.sort();
  return names;
}

}  // namespace folvane::test
