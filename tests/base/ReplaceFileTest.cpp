#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "base/FileUpdate.h"
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

TEST(ReplaceFile, TellsWhatCannotBeWritten) {
  const QTemporaryDir folder;
  EXPECT_THROW(ReplaceFile(folder.filePath(u"nowhere/file"_s), [](QIODevice&) {}), FileError);
}

}  // namespace
}  // namespace folvane
