#include <QDir>
#include <gtest/gtest.h>

#include "base/FileUpdate.h"
#include "base/ProfileFile.h"
#include "support/HostDoubles.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;
using test::TempProgramDirectory;

class ProfileFileTest : public testing::Test {
 protected:
  ProfileFile File(const QString& name = u"Test.Ini"_s) const { return ProfileFile(directory_.Path(name)); }
  void Write(const QByteArray& bytes) const { directory_.Write(u"Test.Ini"_s, bytes); }
  QByteArray Bytes() const { return directory_.Read(u"Test.Ini"_s); }
  QString Value(const QString& section, const QString& key) const { return File().Read(section, key, u"<none>"_s); }

  TempProgramDirectory directory_;
};

TEST_F(ProfileFileTest, FindsSectionAndKeyWithoutRegardToCase) {
  Write("[YearFormula]\r\nFWDJ=CreatedDate\r\n");
  EXPECT_EQ(Value(u"YEARFORMULA"_s, u"fwdj"_s), u"CreatedDate"_s);
}

TEST_F(ProfileFileTest, ReadsAndWritesTheNationalCodePage) {
  Write("[\xCE\xC4]\r\n\xBC\xFE=\xB5\xC7\xBC\xC7\r\n");
  EXPECT_EQ(Value(u"文"_s, u"件"_s), u"登记"_s);
  File().Write(u"文"_s, u"件"_s, u"归档"_s);
  EXPECT_EQ(Bytes(), QByteArray("[\xCE\xC4]\r\n\xBC\xFE=\xB9\xE9\xB5\xB5\r\n"));
}

TEST_F(ProfileFileTest, ASecondByteThatLooksLikeABracketOrALetterIsPartOfItsCharacter) {
  File().Write(u"a俔"_s, u"訾俔"_s, u"偊"_s);  // these have second bytes in the range of ASCII
  EXPECT_EQ(Value(u"a俔"_s, u"訾俔"_s), u"偊"_s);
}

TEST_F(ProfileFileTest, TheFallbackStandsForAMissingFileSectionOrKey) {
  EXPECT_EQ(Value(u"s"_s, u"k"_s), u"<none>"_s);
  Write("[s]\r\nother=1\r\n[t]\r\nk=2\r\n");
  EXPECT_EQ(Value(u"s"_s, u"k"_s), u"<none>"_s);
  EXPECT_EQ(Value(u"u"_s, u"k"_s), u"<none>"_s);
}

TEST_F(ProfileFileTest, AnEmptyValueIsNotMissing) {
  Write("[s]\r\nk=\r\n");
  EXPECT_EQ(Value(u"s"_s, u"k"_s), QString());
}

TEST_F(ProfileFileTest, TheFirstSectionAndKeyOfANameCount) {
  Write("[s]\r\nk=1\r\nk=2\r\n[S]\r\nk=3\r\nl=4\r\n");
  EXPECT_EQ(Value(u"s"_s, u"k"_s), u"1"_s);
  EXPECT_EQ(Value(u"s"_s, u"l"_s), u"<none>"_s);
}

TEST_F(ProfileFileTest, BlanksAroundKeyAndValueAndOnePairOfQuotesGo) {
  Write("[s]\r\n  a  =  one two  \r\nb=\" x \"\r\nc='y'\r\nd=\"z'\r\ne=\"\r\n");
  EXPECT_EQ(Value(u"s"_s, u"a"_s), u"one two"_s);
  EXPECT_EQ(Value(u"s"_s, u"b"_s), u" x "_s);
  EXPECT_EQ(Value(u"s"_s, u"c"_s), u"y"_s);
  EXPECT_EQ(Value(u"s"_s, u"d"_s), u"\"z'"_s);
  EXPECT_EQ(Value(u"s"_s, u"e"_s), u"\""_s);
}

TEST_F(ProfileFileTest, LinesOutsideSectionsAndCommentsAreNoKeys) {
  Write("k=0\r\n# k=1\r\n[s]\r\n;k=2\r\nk=3\r\n");
  EXPECT_EQ(Value(u"s"_s, u"k"_s), u"3"_s);
  EXPECT_EQ(Value(u"s"_s, u";k"_s), u"<none>"_s);
}

TEST_F(ProfileFileTest, TheBufferCutsTheValueInBytesAtWholeCharacters) {
  Write("[s]\r\na=12345\r\nb=\xCE\xC4\xBC\xFE\r\n");
  EXPECT_EQ(File().Read(u"s"_s, u"a"_s, {}, 5), u"1234"_s);
  EXPECT_EQ(File().Read(u"s"_s, u"a"_s, {}, 6), u"12345"_s);
  EXPECT_EQ(File().Read(u"s"_s, u"b"_s, {}, 4), u"文"_s);
}

TEST_F(ProfileFileTest, WritingChangesOneLineAndKeepsAllOthersToTheByte) {
  Write("# \xD7\xD4 comment \xFF\r\n\r\n[s]\nb = 1\r\n; note\r\n A = 2\r\n\r\n[t]\r\nlast");
  File().Write(u"S"_s, u"a"_s, u"3"_s);
  EXPECT_EQ(Bytes(), QByteArray("# \xD7\xD4 comment \xFF\r\n\r\n[s]\nb = 1\r\n; note\r\n A =3\r\n\r\n[t]\r\nlast"));
}

TEST_F(ProfileFileTest, AMissingKeyGoesBehindTheLastLineOfItsSection) {
  Write("[s]\r\na=1\r\n\r\n[t]\r\nb=2\r\n");
  File().Write(u"s"_s, u"c"_s, u"3"_s);
  EXPECT_EQ(Bytes(), QByteArray("[s]\r\na=1\r\nc=3\r\n\r\n[t]\r\nb=2\r\n"));
}

TEST_F(ProfileFileTest, AMissingSectionGoesToTheEnd) {
  Write("[s]\r\na=1");
  File().Write(u"t"_s, u"b"_s, u"2"_s);
  EXPECT_EQ(Bytes(), QByteArray("[s]\r\na=1\r\n[t]\r\nb=2\r\n"));
}

TEST_F(ProfileFileTest, AMissingFileIsMade) {
  File().Write(u"s"_s, u"k"_s, u"1"_s);
  EXPECT_EQ(Bytes(), QByteArray("[s]\r\nk=1\r\n"));
}

TEST_F(ProfileFileTest, ALineBreakInAValueMakesNoLineOfItsOwn) {
  File().Write(u"s"_s, u"k"_s, u"1\r\n[t]\nx=2"_s);
  EXPECT_EQ(Bytes(), QByteArray("[s]\r\nk=1  [t] x=2\r\n"));
}

TEST_F(ProfileFileTest, CreatesAFileOfGivenLines) {
  File().Create({u"# 文件"_s, {}, u"[s]"_s});
  EXPECT_EQ(Bytes(), QByteArray("# \xCE\xC4\xBC\xFE\r\n\r\n[s]\r\n"));
}

TEST_F(ProfileFileTest, CreatesAnEmptyFileOfNoLines) {
  File().Create({});
  EXPECT_TRUE(File().Exists());
  EXPECT_EQ(Bytes(), QByteArray());
}

TEST_F(ProfileFileTest, FindsTheFileWhateverTheCaseOfItsName) {
  EXPECT_FALSE(File(u"SBC.INI"_s).Exists());
  directory_.Write(u"SBC.Ini"_s, "[s]\r\nk=1\r\n");
  EXPECT_TRUE(File(u"SBC.INI"_s).Exists());
  File(u"sbc.ini"_s).Write(u"s"_s, u"k"_s, u"2"_s);
  EXPECT_EQ(directory_.Read(u"SBC.Ini"_s), QByteArray("[s]\r\nk=2\r\n"));
}

TEST_F(ProfileFileTest, NothingIsLeftBesideTheFile) {
  File().Write(u"s"_s, u"k"_s, u"1"_s);
  EXPECT_EQ(QDir(directory_.Path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"Test.Ini"_s});
}

TEST_F(ProfileFileTest, AFileThatCannotBeWrittenIsAnErrorThatNamesIt) {
  directory_.Write(u"Folder"_s, "a file stands where the folder should be");
  try {
    File(u"Folder/Test.Ini"_s).Write(u"s"_s, u"k"_s, u"1"_s);
    FAIL() << "no error";
  } catch (const FileError& error) {
    EXPECT_TRUE(QString::fromUtf8(error.what()).contains(u"Folder/Test.Ini 无法写入"_s)) << error.what();
  }
}

}  // namespace
}  // namespace folvane
