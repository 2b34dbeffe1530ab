#include "originals/FtpListing.h"

#include <QRegularExpression>
#include <QStringList>
#include <optional>

#include <folvane/DataError.h>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QStringList LinesOf(const QString& listing) {
  QString plain = listing;
  return plain.remove(u'\r').split(u'\n', Qt::SkipEmptyParts);
}

// -1 for what is no size.
qint64 SizeIn(const QString& text) {
  bool isNumber = false;
  const qint64 size = text.toLongLong(&isNumber);
  return isNumber && size >= 0 ? size : -1;
}

bool IsOwnOrAbove(const QString& name) { return name == u"."_s || name == u".."_s; }

// "type=file;size=12;modify=20260102030405; name with blanks"
std::optional<FtpEntry> EntryOfFacts(const QString& line) {
  const qsizetype blank = line.indexOf(u' ');
  if (blank < 0) return std::nullopt;
  FtpEntry entry{line.mid(blank + 1)};
  for (const QString& fact : line.left(blank).split(u';', Qt::SkipEmptyParts)) {
    const QString name = fact.section(u'=', 0, 0).toLower(), value = fact.section(u'=', 1).toLower();
    if (name == u"size"_s) entry.size = SizeIn(value);
    if (name != u"type"_s) continue;
    if (value == u"cdir"_s || value == u"pdir"_s) return std::nullopt;
    entry.isDirectory = value == u"dir"_s;
  }
  if (entry.isDirectory) entry.size = -1;
  return entry;
}

// "-rw-r--r--   1 owner group    12 Jan  2 03:04 name", with or without the group, or with the date as 2026-01-02
// 03:04. Owner, group and size are no date: a month is no number, and there are 31 days and two centuries.
std::optional<FtpEntry> EntryOfUnix(const QString& line) {
  static const QRegularExpression form(
      u"^([-bcdlps])[-rwxsStTlL]{9}[.+@]?\\s.*?(?:(\\d+)|\\d+,\\s*\\d+)\\s+"
      "(?:\\d*[^\\d\\s]\\S*\\s+(?:0?[1-9]|[12]\\d|3[01])\\s+(?:(?:19|20)\\d{2}|\\d{1,2}:\\d{2})|"
      "\\d{4}-\\d{2}-\\d{2}\\s+\\d{1,2}:\\d{2})\\s(.+)$"_s);
  const QRegularExpressionMatch match = form.match(line);
  if (!match.hasMatch()) return std::nullopt;
  FtpEntry entry{match.captured(3)};
  const QString kind = match.captured(1);
  if (kind == u"-"_s) entry.size = SizeIn(match.captured(2));
  if (kind == u"l"_s) entry.name = entry.name.section(u" -> "_s, 0, 0);
  entry.isDirectory = kind == u"d"_s;
  return entry;
}

// "01-02-26  03:04AM       <DIR>          name"
std::optional<FtpEntry> EntryOfDos(const QString& line) {
  static const QRegularExpression form(
      u"^\\d{1,4}[-/]\\d{1,2}[-/]\\d{1,4}\\s+\\d{1,2}:\\d{2}(?:\\s?[AaPp][Mm])?\\s+(?:(<DIR>)|([\\d,]+))\\s+(.+)$"_s);
  const QRegularExpressionMatch match = form.match(line);
  if (!match.hasMatch()) return std::nullopt;
  FtpEntry entry{match.captured(3)};
  entry.isDirectory = !match.captured(1).isEmpty();
  if (!entry.isDirectory) entry.size = SizeIn(match.captured(2).remove(u','));
  return entry;
}

}  // namespace

std::vector<FtpEntry> EntriesOfFacts(const QString& listing) {
  std::vector<FtpEntry> entries;
  for (const QString& line : LinesOf(listing)) {
    if (const std::optional<FtpEntry> entry = EntryOfFacts(line)) entries.push_back(*entry);
  }
  return entries;
}

std::vector<FtpEntry> EntriesOfText(const QString& listing) {
  static const QRegularExpression total(u"^total \\d+$"_s);
  std::vector<FtpEntry> entries;
  for (const QString& line : LinesOf(listing)) {
    if (total.match(line).hasMatch()) continue;
    std::optional<FtpEntry> entry = EntryOfUnix(line);
    if (!entry) entry = EntryOfDos(line);
    if (!entry) throw DataError(DataErrorKind::File, u"FTP 服务器的目录列表无法识别：%1"_s.arg(line));
    if (!IsOwnOrAbove(entry->name)) entries.push_back(*entry);
  }
  return entries;
}

}  // namespace folvane
