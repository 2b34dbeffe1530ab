#include "originals/OriginalPlaces.h"

#include <QRandomGenerator>
#include <algorithm>

#include <folvane/DataError.h>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

bool IsSeparator(QChar c) { return c == u'/' || c == u'\\'; }

bool IsBreak(QChar c) { return c.isNull() || c == u'\n' || c == u'\r'; }

bool Holds(const QString& text, bool (*what)(QChar)) { return std::any_of(text.begin(), text.end(), what); }

// "C:" begins a drive's path, also without a separator behind it.
bool NamesDrive(const QString& part) { return part.size() >= 2 && part[1] == u':' && part[0].isLetter(); }

[[noreturn]] void Refuse(const OriginalPlace& place, const QString& reason) {
  QString shown = u"FilePath“%1”，ID“%2”，Type“%3”"_s.arg(place.filePath, place.id, place.type);
  shown.replace(QChar::Null, u'␀').replace(u'\n', u'␊').replace(u'\r', u'␍');
  throw DataError(DataErrorKind::File, u"原文的存储位置不合法：%1（%2）。"_s.arg(reason, shown));
}

void CheckName(const OriginalPlace& place, const QString& part, const QString& what) {
  if (Holds(part, IsSeparator)) Refuse(place, what + u" 中有目录分隔符"_s);
  if (part.contains(u".."_s)) Refuse(place, what + u" 中有“..”"_s);
}

}  // namespace

QStringList PathParts(const QString& path) {
  QString plain = path;
  return plain.replace(u'\\', u'/').split(u'/', Qt::SkipEmptyParts);
}

CheckedPlace Checked(const OriginalPlace& place) {
  if (Holds(place.filePath + place.id + place.type, IsBreak)) Refuse(place, u"有换行符或空字符"_s);
  CheckName(place, place.id, u"ID"_s);
  CheckName(place, place.type, u"Type"_s);
  CheckedPlace checked{PathParts(place.filePath), place.id + place.type};
  if (checked.name.isEmpty()) Refuse(place, u"没有文件名"_s);
  if (checked.name == u"."_s || checked.name == u".."_s) Refuse(place, u"文件名是目录"_s);
  // One separator in front is only one too many: the path stands behind the store's.
  if (place.filePath.size() > 1 && IsSeparator(place.filePath[0]) && IsSeparator(place.filePath[1]))
    Refuse(place, u"FilePath 是网络路径"_s);
  for (const QString& part : checked.directories + QStringList{checked.name}) {
    if (part == u".."_s) Refuse(place, u"FilePath 通向上级目录"_s);
    if (NamesDrive(part)) Refuse(place, u"有盘符"_s);
  }
  return checked;
}

QString TemporaryName(const QString& name) {
  const quint64 number = QRandomGenerator::global()->generate64();
  return u"%1.%2.part"_s.arg(name).arg(number, 16, 16, QChar(u'0'));
}

void FailOn(const QString& path, const QString& reason) {
  throw DataError(DataErrorKind::File, u"原文文件 %1：%2"_s.arg(path, reason));
}

void FailCancelled() { throw DataError(DataErrorKind::Other, u"传输已取消。"_s); }

}  // namespace folvane
