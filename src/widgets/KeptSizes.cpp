#include "widgets/KeptSizes.h"

#include <QHeaderView>
#include <QSplitter>

#include "shell/RegistryValues.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kSizesPath = u"Software\\Norvex\\Folvane\\Windows"_s;

QList<int> ReadSizes(const QString& name, const QList<int>& usual) {
  QList<int> sizes;
  for (const QString& size : QueryValue(kCurrentUser, kSizesPath, name).split(u',', Qt::SkipEmptyParts)) {
    sizes.append(size.toInt());
  }
  return sizes.size() == usual.size() ? sizes : usual;
}

void SaveSizes(const QString& name, const QList<int>& sizes) {
  QStringList texts;
  for (const int size : sizes) texts.append(QString::number(size));
  SaveValue(kCurrentUser, kSizesPath, name, texts.join(u','));
}

}  // namespace

void RestoreSizes(QSplitter& splitter, const QString& name, const QList<int>& usual) {
  splitter.setSizes(ReadSizes(name, usual));
}

void KeepSizes(const QSplitter& splitter, const QString& name) { SaveSizes(name, splitter.sizes()); }

void RestoreSizes(QHeaderView& header, const QString& name, const QList<int>& usual) {
  const QList<int> sizes = ReadSizes(name, usual);
  for (int column = 0; column < sizes.size(); ++column) {
    if (sizes[column] > 0) header.resizeSection(column, sizes[column]);
    header.setSectionHidden(column, sizes[column] == 0);
  }
}

void KeepSizes(const QHeaderView& header, const QString& name) {
  QList<int> sizes;
  for (int column = 0; column < header.count(); ++column) sizes.append(header.sectionSize(column));
  SaveSizes(name, sizes);
}

}  // namespace folvane
