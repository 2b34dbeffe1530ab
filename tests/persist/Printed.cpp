#include "persist/Printed.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>

#include "data/persist/TablegramFile.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

QByteArrayList PrintedLines(const QByteArray& file, int codePage) {
  CodePageReader texts(codePage);
  QBuffer out;
  out.open(QIODevice::WriteOnly);
  PrintTablegram(file, texts, out);
  QByteArrayList lines = out.data().split('\n');
  lines.removeLast();
  return lines;
}

Printed PrintedFile(const QByteArray& file, int codePage) {
  Printed printed;
  for (const QByteArray& line : PrintedLines(file, codePage)) {
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(line, &error).object();
    if (error.error != QJsonParseError::NoError) qFatal("no JSON: %s", line.constData());
    const QString kind = object[u"kind"_s].toString();
    (kind == u"recordset"_s ? printed.sets : kind == u"field"_s ? printed.fields : printed.rows).push_back(object);
  }
  return printed;
}

QJsonArray Printed::Values(const QString& key) const {
  QJsonArray values;
  for (const QJsonObject& row : rows) values.append(row[u"values"_s][key]);
  return values;
}

}  // namespace folvane::test
