#include "host/demo/TextLists.h"

#include <QFile>
#include <stdexcept>

void InitDemoResources() { Q_INIT_RESOURCE(demo); }

namespace folvane::demo {
using namespace Qt::Literals::StringLiterals;

QByteArray ReadData(const QString& file) {
  InitDemoResources();
  QFile data(u":/folvane/demo/"_s + file);
  if (!data.open(QIODevice::ReadOnly)) throw std::runtime_error("no demo data " + file.toStdString());
  return data.readAll();
}

std::vector<QStringList> ReadLines(const QString& file) {
  std::vector<QStringList> lines;
  for (const QString& line : QString::fromUtf8(ReadData(file)).split(u'\n')) {
    if (line.trimmed().isEmpty() || line.startsWith(u'#')) continue;
    QStringList parts;
    for (const QString& part : line.split(u'|')) parts << part.trimmed();
    lines.push_back(parts);
  }
  return lines;
}

QHash<QString, QStringList> ReadLists(const QString& file) {
  QHash<QString, QStringList> lists;
  QString name;
  for (const QStringList& line : ReadLines(file)) {
    if (line[0].startsWith(u'['))
      name = line[0].mid(1, line[0].size() - 2);
    else
      lists[name] << line[0];
  }
  return lists;
}

}  // namespace folvane::demo
