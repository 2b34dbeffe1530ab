// The installed command, run as others run it.
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gmock/gmock.h>

#include "base/FileUpdate.h"
#include "persist/Printed.h"
#include "persist/Tablegrams.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

struct Ended {
  int code;
  QByteArray out, errors;
};

class DatCommand : public testing::Test {
 protected:
  Ended Run(const QStringList& arguments, const QString& output = {}) {
    QProcess process;
    if (!output.isEmpty()) process.setStandardOutputFile(output);
    process.start(QStringLiteral(FOLVANE_DAT), arguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
  }
  QString Path(const QString& name) const { return folder_.filePath(name); }
  QString Write(const QString& name, const QByteArray& content) {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return file.fileName();
  }

  QTemporaryDir folder_;
};

TEST_F(DatCommand, ShowsAFile) {
  const Ended shown = Run({u"show"_s, Write(u"目录.Dat"_s, TextsFile())});
  EXPECT_EQ(shown.code, 0);
  EXPECT_EQ(shown.out, PrintedLines(TextsFile()).join('\n') + '\n');
  EXPECT_EQ(shown.errors, "");
}

TEST_F(DatCommand, ShowsTextsInTheirCodePage) {
  const QString path =
      Write(u"a.Dat"_s, FlatHead(1, 1) + ColumnBytes({1, u"a"_s, 129, 40, 0x24}) + Hex("07 FF 02 C7 D1 0F"));
  EXPECT_THAT(Run({u"show"_s, u"--codepage"_s, u"949"_s, path}).out.toStdString(), testing::HasSubstr(R"({"a":"한"})"));
  EXPECT_EQ(Run({u"show"_s, u"--codepage"_s, u"1"_s, path}).code, 2);
}

TEST_F(DatCommand, CopiesAFile) {
  const QString from = Write(u"a.Dat"_s, RowKindsFile()), to = Write(u"b.Dat"_s, "what was there");
  EXPECT_EQ(Run({u"copy"_s, from, to}).code, 0);
  EXPECT_EQ(ReadFile(to), RowKindsFile());
  EXPECT_EQ(Run({u"copy"_s, from, from}).code, 0);
  EXPECT_EQ(ReadFile(from), RowKindsFile());
}

TEST_F(DatCommand, ShowsAndCopiesNothingOfABrokenFile) {
  const QString path = Write(u"a.Dat"_s, RowKindsFile().chopped(1)), to = Write(u"b.Dat"_s, "what was there");
  const Ended shown = Run({u"show"_s, path});
  EXPECT_EQ(shown.code, 1);
  EXPECT_EQ(shown.out, "");
  EXPECT_EQ(shown.errors, "folvane-dat: 不是完好的记录集文件（偏移 409）：应有 1 个字节，只剩 0 个。\n");
  EXPECT_EQ(Run({u"copy"_s, path, to}).code, 1);
  EXPECT_EQ(ReadFile(to), "what was there");
}

TEST_F(DatCommand, TellsWhatIsNoFile) {
  for (const QString& path : {Path(u"nowhere"_s), folder_.path(), Write(u"empty"_s, {}), u"/dev/zero"_s}) {
    const Ended shown = Run({u"show"_s, path});
    EXPECT_EQ(shown.code, 1) << path.toStdString();
    EXPECT_TRUE(shown.errors.startsWith("folvane-dat: ")) << path.toStdString();
  }
}

TEST_F(DatCommand, TellsWhatCannotBeWritten) {
  const QString path = Write(u"a.Dat"_s, RowKindsFile());
  EXPECT_EQ(Run({u"copy"_s, path, Path(u"nowhere/b.Dat"_s)}).code, 3);
  EXPECT_EQ(Run({u"copy"_s, path, folder_.path()}).code, 3);
  EXPECT_EQ(Run({u"show"_s, path}, u"/dev/full"_s).code, 3);
}

TEST_F(DatCommand, TellsHowItIsUsed) {
  for (const QStringList& wrong : {QStringList{}, QStringList{u"show"_s}, QStringList{u"copy"_s, u"a"_s},
                                   QStringList{u"show"_s, u"a"_s, u"b"_s}, QStringList{u"move"_s, u"a"_s, u"b"_s}}) {
    const Ended ended = Run(wrong);
    EXPECT_EQ(ended.code, 2);
    EXPECT_TRUE(ended.errors.startsWith("用法："));
    EXPECT_EQ(ended.out, "");
  }
  EXPECT_EQ(Run({u"--help"_s}).code, 0);
  EXPECT_TRUE(Run({u"--version"_s}).out.startsWith("folvane-dat 0."));
}

}  // namespace
}  // namespace folvane::test
