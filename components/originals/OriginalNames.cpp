#include "components/originals/OriginalNames.h"

#include <QRegularExpression>

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kNameBytes = 255;
// What file systems take of a name, and short enough for the number that may follow.
constexpr int kFileNameBytes = 200;

// A character beyond ASCII has two bytes in the national code page; one that the code page lacks has fewer, not more.
int BytesOf(QChar unit) { return unit.unicode() < 0x80 ? 1 : 2; }

QString Shortened(const QString& text, int bytes) {
  qsizetype end = 0;
  while (end < text.size()) {
    const bool pair = text[end].isHighSurrogate() && end + 1 < text.size();
    bytes -= BytesOf(text[end]) + (pair ? BytesOf(text[end + 1]) : 0);
    if (bytes < 0) break;
    end += pair ? 2 : 1;
  }
  return text.left(end);
}

QString WithoutControls(QString text) {
  for (QChar& unit : text)
    if (unit.category() == QChar::Other_Control) unit = u' ';
  return text.trimmed();
}

}  // namespace

NameAndType SplitFileName(const QString& fileName) {
  static const QRegularExpression ending(u"^(.+)(\\.[A-Za-z0-9_-]{1,19})$"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
  const auto parts = ending.match(fileName);
  if (!parts.hasMatch()) return {FitName(fileName), {}};
  return {FitName(parts.captured(1)), parts.captured(2)};
}

QString FitName(const QString& name) {
  const QString fitted = Shortened(WithoutControls(name), kNameBytes).trimmed();
  return fitted.isEmpty() ? u"未命名"_s : fitted;
}

QString ExportName(const NameAndType& original, const QStringList& taken) {
  static const QRegularExpression refused(u"[/\\\\:*?\"<>|]"_s), dotsAtTheEnd(u"[. ]+$"_s);
  QString name = FitName(original.name).replace(refused, u"_"_s);
  name = Shortened(name, kFileNameBytes).remove(dotsAtTheEnd);
  const QString type = QString(original.type).replace(refused, u"_"_s);
  if (name.isEmpty()) name = u"未命名"_s;
  QString free = name + type;
  for (int number = 2; taken.contains(free, Qt::CaseInsensitive); ++number)
    free = u"%1 (%2)%3"_s.arg(name).arg(number).arg(type);
  return free;
}

QString SizeText(qint64 bytes) {
  constexpr double kKilo = 1024;
  if (bytes < kKilo) return u"%1 字节"_s.arg(bytes);
  if (bytes < kKilo * kKilo) return u"%1 KB"_s.arg(double(bytes) / kKilo, 0, 'f', 1);
  return u"%1 MB"_s.arg(double(bytes) / kKilo / kKilo, 0, 'f', 1);
}

}  // namespace folvane::originals
