#include "base/FileRegistryStore.h"

#include <QStandardPaths>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// A line holds one value, and a name ends at "=". What would break that is written as %XX.
QString Escaped(const QString& text, const QString& special) {
  QString result;
  for (const QChar character : text) {
    if (special.contains(character)) {
      result += u"%%1"_s.arg(character.unicode(), 2, 16, QChar(u'0'));
    } else {
      result += character;
    }
  }
  return result;
}

QString EscapedValue(const QString& text) { return Escaped(text, QString::fromLatin1("%\r\n\0", 4)); }
QString EscapedName(const QString& name) { return Escaped(name, QString::fromLatin1("%\r\n\0=;[", 7)); }

QString Unescaped(const QString& text) { return QString::fromUtf8(QByteArray::fromPercentEncoding(text.toUtf8())); }

}  // namespace

FileRegistryStore::FileRegistryStore(const QString& path) : file_(path, ProfileFile::Encoding::Utf8) {}

QString FileRegistryStore::Read(const QString& key, const QString& name) const {
  return Unescaped(file_.Read(EscapedName(key), EscapedName(name), {}));
}

void FileRegistryStore::Write(const QString& key, const QString& name, const QString& text) {
  // The quotes keep blanks at the ends and quotes of the text's own: the reader takes off this one pair.
  file_.Write(EscapedName(key), EscapedName(name), u'"' + EscapedValue(text) + u'"');
}

QString FileRegistryStore::UserPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/Norvex/Folvane/registry.ini"_s;
}

}  // namespace folvane
