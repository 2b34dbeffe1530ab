#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "originals/FtpListing.h"
#include "support/QtPrinting.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

QStringList Shown(const std::vector<FtpEntry>& entries) {
  QStringList shown;
  for (const FtpEntry& entry : entries)
    shown << entry.name + u"|"_s + (entry.isDirectory ? u"dir"_s : QString::number(entry.size));
  return shown;
}

}  // namespace

TEST(FtpListingTest, FactsNameFilesAndDirectoriesButNotTheDirectoryItself) {
  const QString listing =
      u"type=cdir;modify=20260102; .\r\nType=pdir; ..\r\ntype=file;size=12;UNIX.mode=0644; 收文 一.tif\r\n"
      "modify=20260102;TYPE=Dir;size=4096; 2026\r\ntype=file; ;x=1; .part\r\n"_s;
  EXPECT_THAT(Shown(EntriesOfFacts(listing)), ElementsAre(u"收文 一.tif|12"_s, u"2026|dir"_s, u";x=1; .part|-1"_s));
}

TEST(FtpListingTest, ASizeThatIsNoneIsAsGoodAsNotTold) {
  const QString listing =
      u"type=file;size=-12; a\r\ntype=file;size=x; b\r\ntype=file;size=99999999999999999999; c\r\n"_s;
  EXPECT_THAT(Shown(EntriesOfFacts(listing)), ElementsAre(u"a|-1"_s, u"b|-1"_s, u"c|-1"_s));
}

TEST(FtpListingTest, TheFormOfUnixIsReadWithBlanksInNamesAndWithoutAGroup) {
  const QString listing =
      u"total 8\ndrwxr-xr-x   2 owner group     4096 Jan  2 03:04 2026\r\n"
      "-rw-r--r--   1 owner group       12 Jan  2  2003 a 1 b.tif\n"
      "-rw-------   1 owner        34 Dec 31 23:59 c.tif\n"
      "-rw-r--r--+  1 1000 1000 56 2026-01-02 03:04 d.tif\n"
      "-rw-r--r--   1 owner group       7 1月 2 03:04 收文.tif\n"
      "drwxr-xr-x    2 0        0            4096 Jan 02 03:04 2003\n"
      "-rw-r--r--    1 14       50           4321 Nov 23 10:00 1234.tif\n"
      "-rw-r--r--    1 ftp      14           4321 Nov 23 10:00 5678.tif\n"
      "lrwxrwxrwx   1 owner group        5 Jan  2 03:04 link -> /etc\n"
      "drwxr-xr-x   2 owner group     4096 Jan  2 03:04 .\n"_s;
  EXPECT_THAT(Shown(EntriesOfText(listing)),
              ElementsAre(u"2026|dir"_s, u"a 1 b.tif|12"_s, u"c.tif|34"_s, u"d.tif|56"_s, u"收文.tif|7"_s,
                          u"2003|dir"_s, u"1234.tif|4321"_s, u"5678.tif|4321"_s, u"link|-1"_s));
}

TEST(FtpListingTest, TheFormOfDosIsRead) {
  const QString listing =
      u"01-02-26  03:04AM       <DIR>          2026\r\n01-02-2026  03:04PM            1,234 a b.tif\r\n"
      "2026-01-02  13:04                   56 c.tif\r\n"_s;
  EXPECT_THAT(Shown(EntriesOfText(listing)), ElementsAre(u"2026|dir"_s, u"a b.tif|1234"_s, u"c.tif|56"_s));
}

TEST(FtpListingTest, ALineInNoKnownFormIsAnErrorAndNoEmptyDirectory) {
  EXPECT_THROW(EntriesOfText(u"ls: cannot open directory '.'"_s), DataError);
  EXPECT_TRUE(EntriesOfText(u"total 0\r\n"_s).empty());
}

}  // namespace folvane::test
