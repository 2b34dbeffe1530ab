#include "host/demo/TextLists.h"

#include <QFile>
#include <stdexcept>

void InitDemoResources() { Q_INIT_RESOURCE(demo); }

namespace folvane::demo {
using namespace Qt::Literals::StringLiterals;

std::vector<QStringList> ReadLines(const QString& file) {
  InitDemoResources();
  QFile data(u":/folvane/demo/"_s + file);
  if (!data.open(QIODevice::ReadOnly)) throw std::runtime_error("no demo data " + file.toStdString());
  std::vector<QStringList> lines;
  for (const QString& line : QString::fromUtf8(data.readAll()).split(u'\n')) {
    if (line.trimmed().isEmpty() || line.startsWith(u'#')) continue;
    QStringList parts;
    for (const QString& part : line.split(u'|')) parts << part.trimmed();
    lines.push_back(parts);
  }
  return lines;
}

TextLists TextLists::Read(const QString& file) {
  TextLists lists;
  for (const QStringList& line : ReadLines(file)) {
    const QString& text = line[0];
    if (text.startsWith(u'[')) {
      lists.names << text.mid(1, text.size() - 2);
      lists.entries[lists.names.last()];
    } else {
      lists.entries[lists.names.last()].push_back({text, line.value(1)});
    }
  }
  return lists;
}

}  // namespace folvane::demo
