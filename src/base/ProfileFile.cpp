#include "base/ProfileFile.h"

#include <QByteArrayList>
#include <QFile>
#include <optional>

#include "base/CodePage.h"
#include "base/FileUpdate.h"
#include "base/IgnoreErrors.h"
#include "base/Surroundings.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr char kLineEnd[] = "\r\n";

QString Decode(QByteArrayView bytes, ProfileFile::Encoding encoding) {
  return encoding == ProfileFile::Encoding::Utf8 ? QString::fromUtf8(bytes) : FromCodePage(bytes);
}

QByteArray Encode(const QString& text, ProfileFile::Encoding encoding) {
  return encoding == ProfileFile::Encoding::Utf8 ? text.toUtf8() : ToCodePage(text);
}

bool SameName(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

std::optional<QString> SectionName(const QString& line) {
  const QString text = line.trimmed();
  const qsizetype end = text.lastIndexOf(u']');
  if (!text.startsWith(u'[') || end < 0) return {};
  return text.mid(1, end - 1);
}

// The position of the "=" of a line "key=value", -1 for any other line.
qsizetype KeyEnd(const QString& line) { return line.trimmed().startsWith(u';') ? -1 : line.indexOf(u'='); }

QString WithoutQuotes(const QString& value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() && (value[0] == u'"' || value[0] == u'\'');
  return quoted ? value.mid(1, value.size() - 2) : value;
}

QString OnOneLine(QString value) {
  value.replace(u'\r', u' ').replace(u'\n', u' ');
  return value;
}

/// The file taken apart into lines, each with its line end. The bytes of a line that is not written to stay as they
/// are.
class ProfileText {
 public:
  ProfileText(const QByteArray& content, ProfileFile::Encoding encoding) : encoding_(encoding) {
    for (qsizetype start = 0; start < content.size();) {
      const qsizetype end = content.indexOf('\n', start);
      const qsizetype next = end < 0 ? content.size() : end + 1;
      lines_ << content.mid(start, next - start);
      start = next;
    }
  }

  std::optional<QString> Value(const QString& section, const QString& key) const {
    const KeyLocation location = Find(section, key);
    if (location.keyLine < 0) return {};
    const QString line = Text(location.keyLine);
    return WithoutQuotes(line.mid(KeyEnd(line) + 1).trimmed());
  }

  void SetValue(const QString& section, const QString& key, const QString& value) {
    const KeyLocation location = Find(section, key);
    if (location.keyLine >= 0) {
      const QString line = Text(location.keyLine);
      lines_[location.keyLine] = Line(line.left(KeyEnd(line)) + u'=' + value);
      return;
    }
    qsizetype next = location.insertAt;
    if (!location.sectionFound) Insert(next++, u'[' + section + u']');
    Insert(next, key + u'=' + value);
  }

  QByteArray Content() const { return lines_.join(); }

 private:
  struct KeyLocation {
    bool sectionFound = false;
    qsizetype keyLine = -1;
    qsizetype insertAt = 0;  ///< where a missing key belongs: behind the section's last line that is not blank
  };

  QString Text(qsizetype index) const { return Decode(lines_[index], encoding_); }
  QByteArray Line(const QString& text) const { return Encode(text, encoding_) + kLineEnd; }

  void Insert(qsizetype index, const QString& text) {
    if (index > 0 && !lines_[index - 1].endsWith('\n')) lines_[index - 1] += kLineEnd;
    lines_.insert(index, Line(text));
  }

  KeyLocation Find(const QString& section, const QString& key) const {
    KeyLocation location;
    location.insertAt = lines_.size();
    for (qsizetype index = 0; index < lines_.size(); ++index) {
      const QString line = Text(index);
      if (const auto name = SectionName(line)) {
        if (location.sectionFound) break;  // only the first section of a name counts
        location.sectionFound = SameName(*name, section);
        if (location.sectionFound) location.insertAt = index + 1;
      } else if (location.sectionFound) {
        const qsizetype end = KeyEnd(line);
        if (end >= 0 && SameName(line.left(end).trimmed(), key)) {
          location.keyLine = index;
          break;
        }
        if (!line.trimmed().isEmpty()) location.insertAt = index + 1;
      }
    }
    return location;
  }

  ProfileFile::Encoding encoding_;
  QByteArrayList lines_;
};

}  // namespace

ProfileFile::ProfileFile(const QString& path, Encoding encoding) : path_(ExistingPath(path)), encoding_(encoding) {}

bool ProfileFile::Exists() const { return QFile::exists(path_); }

void ProfileFile::Create(const QStringList& lines) const {
  QByteArray content;
  for (const QString& line : lines) content += Encode(line, encoding_) + kLineEnd;
  UpdateFile(path_, [&content](const QByteArray&) { return content; });
}

QString ProfileFile::Read(const QString& section, const QString& key, const QString& fallback, int bufferSize) const {
  const ProfileText text(ReadFile(path_), encoding_);
  const QString value = text.Value(section, key).value_or(fallback);
  return bufferSize > 0 ? LimitByteLength(value, bufferSize - 1) : value;
}

void ProfileFile::Write(const QString& section, const QString& key, const QString& value) const {
  UpdateFile(path_, [&](const QByteArray& content) {
    ProfileText text(content, encoding_);
    text.SetValue(section, key, OnOneLine(value));
    return text.Content();
  });
}

QString TableProfile::Read(const QString& table) const {
  const QString none = u"0"_s;
  const ProfileFile profile(path);
  if (!profile.Exists()) {
    const QStringList lines{u'[' + section + u']', table + u'=' + none};
    IgnoreErrors([&] { profile.Create(heading + lines); });
    return none;
  }
  const QString value = profile.Read(section, table, QString(), bufferSize);
  if (!value.isEmpty()) return value;
  IgnoreErrors([&] { profile.Write(section, table, none); });
  return none;
}

}  // namespace folvane
