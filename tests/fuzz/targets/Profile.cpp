// A target of libFuzzer: any bytes are read as a profile; a value that is written into it is read again, and what was
// there beside it stays.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <cstdlib>

#include <folvane/DataError.h>

#include "base/CodePage.h"
#include "base/ProfileFile.h"

namespace {

using namespace folvane;
using namespace Qt::Literals::StringLiterals;

void Put(const QString& path, const QByteArray& content) {
  QFile file(path);
  if (!file.open(QFile::WriteOnly) || file.write(content) != content.size()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const QString path = QDir::temp().filePath(u"fuzz-%1.ini"_s.arg(QCoreApplication::applicationPid()));
  const QByteArray content(reinterpret_cast<const char*>(data), qsizetype(size));
  Put(path, content);
  for (const auto encoding : {ProfileFile::Encoding::CodePage, ProfileFile::Encoding::Utf8}) {
    const ProfileFile profile(path, encoding);
    if (ByteLength(profile.Read(u"RegFormula"_s, u"Lwdj"_s, u"fallback"_s, 5)) > 4) std::abort();
    profile.Read(u"YearFormula"_s, u"Fwdj"_s, {});
  }
  if (size % 16 != 0) return 0;
  const ProfileFile profile(path);
  const QString beside = profile.Read(u"YearFormula"_s, u"Fwdj"_s, u"none"_s);
  profile.Write(u"RegFormula"_s, u"Lwdj"_s, u"'4 \r\n[x]"_s);
  if (profile.Read(u"RegFormula"_s, u"Lwdj"_s, {}) != u"'4   [x]"_s) std::abort();
  if (profile.Read(u"YearFormula"_s, u"Fwdj"_s, u"none"_s) != beside) std::abort();
  return 0;
}
