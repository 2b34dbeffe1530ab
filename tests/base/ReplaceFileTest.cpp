#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "base/FileUpdate.h"
#include "support/FullDisk.h"
#include "support/QtPrinting.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(ReplaceFile, KeepsTheOldFileUntilTheNewOneIsWhole) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"file"_s);
  ReplaceFile(path, [](QIODevice& file) { file.write("old"); });
  ReplaceFile(path, [&](QIODevice& file) {
    file.write("new");
    EXPECT_EQ(ReadFile(path), "old");
  });
  EXPECT_EQ(ReadFile(path), "new");
}

TEST(ReplaceFile, LeavesNothingBehindWhenWritingFails) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"file"_s);
  ReplaceFile(path, [](QIODevice& file) { file.write("old"); });
  EXPECT_THROW(ReplaceFile(path,
                           [](QIODevice& file) {
                             file.write("half");
                             throw FileError(u"no more"_s);
                           }),
               FileError);
  EXPECT_EQ(ReadFile(path), "old");
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"file"_s});
}

// However it is written: at once, in pieces that are buffered, or in many.
TEST(ReplaceFile, KeepsTheOldFileWhereTheDiskHasNoRoomForTheNewOne) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"file"_s);
  ReplaceFile(path, [](QIODevice& file) { file.write("old"); });
  for (const auto& [size, pieces] : {std::pair(2000, 1), {200'000, 1}, {300, 100}, {7000, 30}}) {
    const test::FullDisk full(1500);
    EXPECT_THROW(ReplaceFile(path,
                             [&, size = size, pieces = pieces](QIODevice& file) {
                               for (int piece = 0; piece < pieces; ++piece) file.write(QByteArray(size, 'x'));
                             }),
                 FileError)
        << pieces << " of " << size;
    EXPECT_EQ(ReadFile(path), "old");
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"file"_s});
}

TEST(ReplaceFile, TellsWhatCannotBeWritten) {
  const QTemporaryDir folder;
  EXPECT_THROW(ReplaceFile(folder.filePath(u"nowhere/file"_s), [](QIODevice&) {}), FileError);
}

}  // namespace
}  // namespace folvane
