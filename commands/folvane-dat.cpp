// folvane-dat show [--codepage NUMBER] FILE   prints a persisted record set as lines of JSON
// folvane-dat copy IN OUT                     reads one and writes it again
#include <QFile>
#include <QStringList>
#include <cstdio>
#include <functional>

#include <folvane/Version.h>

#include "base/FileUpdate.h"
#include "data/persist/TablegramFile.h"

namespace {

using namespace folvane;
using namespace Qt::Literals::StringLiterals;

enum Outcome { Done = 0, Unreadable = 1, WrongUsage = 2, Unwritable = 3 };

constexpr char kUsage[] =
    "用法：folvane-dat show [--codepage 代码页] 文件    以 JSON 行显示 ADTG 格式的记录集文件\n"
    "      folvane-dat copy 源文件 目标文件            读取记录集文件并逐字节原样写出\n"
    "      folvane-dat --help | --version\n";

int Fail(Outcome outcome, const DataError& error) {
  std::fprintf(stderr, "folvane-dat: %s\n", error.what());
  return outcome;
}

int TellUsage() {
  std::fputs(kUsage, stderr);
  return WrongUsage;
}

/// The content of a file, read to its end once, so that nothing comes out of a broken one.
QByteArray ReadWhole(const QString& path) {
  QByteArray content = ReadTablegramFile(path);
  CheckTablegram(content);
  return content;
}

/// Reads a file and does something with its content.
int With(const QString& path, const std::function<void(const QByteArray&)>& write) {
  QByteArray content;
  try {
    content = ReadWhole(path);
  } catch (const DataError& error) {
    return Fail(Unreadable, error);
  }
  try {
    write(content);
  } catch (const DataError& error) {
    return Fail(Unwritable, error);
  }
  return Done;
}

int Show(const QString& path, CodePageReader codePage) {
  return With(path, [&](const QByteArray& content) {
    QFile out;
    if (!out.open(stdout, QIODevice::WriteOnly)) throw FileError(out.errorString());
    PrintTablegram(content, codePage, out);
    if (!out.flush()) throw FileError(out.errorString());
  });
}

int Copy(const QString& from, const QString& to) {
  return With(from, [&](const QByteArray& content) {
    ReplaceFile(to, [&](QIODevice& file) { CopyTablegram(content, file); });
  });
}

int ShowAs(const QStringList& arguments) {
  int codePage = kNationalCodePage;
  QStringList left = arguments;
  if (left.size() == 3 && left[0] == u"--codepage"_s) {
    codePage = left[1].toInt();
    left.remove(0, 2);
  }
  if (left.size() != 1) return TellUsage();
  try {
    return Show(left[0], CodePageReader(codePage));
  } catch (const DataError& error) {
    return Fail(WrongUsage, error);
  }
}

}  // namespace

int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments << QFile::decodeName(argv[i]);
  const QString command = arguments.isEmpty() ? QString() : arguments.takeFirst();
  if (command == u"show"_s) return ShowAs(arguments);
  if (command == u"copy"_s && arguments.size() == 2) return Copy(arguments[0], arguments[1]);
  if (command == u"--help"_s) return std::fputs(kUsage, stdout) < 0 ? Unwritable : Done;
  if (command == u"--version"_s) return std::printf("folvane-dat %s\n", qPrintable(Version())) < 0 ? Unwritable : Done;
  return TellUsage();
}
