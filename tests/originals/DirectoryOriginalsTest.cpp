#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "originals/DirectoryOriginals.h"
#include "originals/FtpTestServer.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::IsEmpty;

namespace {

/// A store beside a directory that is none of its business.
class DirectoryOriginalsTest : public testing::Test {
 protected:
  void SetUp() override {
    QDir(folder_.path()).mkpath(u"store/2026"_s);
    QDir(folder_.path()).mkpath(u"outside"_s);
    Write(u"outside/7.tif"_s);
    store_ = DirectoryOriginals(folder_.filePath(u"store"_s));
  }
  QString Path(const QString& file) const { return folder_.filePath(file); }
  void Write(const QString& file) const {
    QFile stored(Path(file));
    ASSERT_TRUE(stored.open(QIODevice::WriteOnly) && stored.write("abc") == 3);
  }
  void Put(const OriginalPlace& place, const QByteArray& content = "xyz") const {
    QBuffer source;
    source.setData(content);
    source.open(QIODevice::ReadOnly);
    store_->Put(place, source);
  }
  QByteArray Get(const OriginalPlace& place) const {
    QBuffer target;
    target.open(QIODevice::WriteOnly);
    store_->Get(place, target);
    return target.data();
  }
  bool OutsideIsUntouched() const {
    return QDir(Path(u"outside"_s)).entryList(QDir::Files) == QStringList{u"7.tif"_s} &&
           QFileInfo(Path(u"outside/7.tif"_s)).size() == 3;
  }

  QTemporaryDir folder_;
  std::unique_ptr<OriginalFiles> store_;
};

}  // namespace

TEST_F(DirectoryOriginalsTest, ADirectoryThatIsALinkToElsewhereIsNotFollowed) {
  QFile::link(Path(u"outside"_s), Path(u"store/out"_s));
  for (const QString& path : {u"out"_s, u"2026/../out"_s, u"out/deeper"_s}) {
    const OriginalPlace place{path, u"7"_s, u".tif"_s};
    EXPECT_THROW(Get(place), DataError) << path.toStdString();
    EXPECT_THROW(store_->Has(place), DataError) << path.toStdString();
    EXPECT_THROW(store_->Remove(place), DataError) << path.toStdString();
    EXPECT_THROW(Put(place), DataError) << path.toStdString();
  }
  EXPECT_THAT(store_->List(), IsEmpty());
  EXPECT_TRUE(OutsideIsUntouched());
  EXPECT_FALSE(QFileInfo::exists(Path(u"outside/deeper"_s)));
}

TEST_F(DirectoryOriginalsTest, AFileThatIsALinkToElsewhereIsNotFollowed) {
  QFile::link(Path(u"outside/7.tif"_s), Path(u"store/2026/7.tif"_s));
  QFile::link(Path(u"outside/none.tif"_s), Path(u"store/2026/8.tif"_s));
  EXPECT_THROW(Get({u"2026"_s, u"7"_s, u".tif"_s}), DataError);
  EXPECT_THROW(store_->Remove({u"2026"_s, u"7"_s, u".tif"_s}), DataError);
  EXPECT_THROW(Put({u"2026"_s, u"7"_s, u".tif"_s}), DataError);
  EXPECT_THROW(Put({u"2026"_s, u"8"_s, u".tif"_s}), DataError);
  EXPECT_THAT(store_->List(), IsEmpty());
  EXPECT_TRUE(OutsideIsUntouched());
}

TEST_F(DirectoryOriginalsTest, ALinkThatStaysInTheStoreAndARootThatIsOneAreFollowed) {
  Write(u"store/2026/7.tif"_s);
  QFile::link(Path(u"store/2026"_s), Path(u"store/now"_s));
  QFile::link(Path(u"store"_s), Path(u"root"_s));
  store_ = DirectoryOriginals(Path(u"root"_s));
  EXPECT_EQ(Get({u"now"_s, u"7"_s, u".tif"_s}), "abc");
  EXPECT_EQ(store_->List().size(), 1U) << "each file once";
}

TEST_F(DirectoryOriginalsTest, ARootThatCannotBeReachedIsToldWithItsPath) {
  for (const QString& root : {Path(u"none"_s), u"\\\\server\\share"_s, Path(u"outside/7.tif"_s)}) {
    const DataError error = ErrorFrom([&] { DirectoryOriginals(root); });
    EXPECT_EQ(error.Kind(), DataErrorKind::File);
    EXPECT_THAT(error.Message(), HasText(root));
  }
  EXPECT_THROW(DirectoryOriginals(QString()), DataError) << "never the top of the file system";
  QDir(Path(u"store"_s)).removeRecursively();
  EXPECT_THAT(ErrorFrom([&] { Put({u"2026"_s, u"7"_s, u".tif"_s}); }).Message(), HasText(Path(u"store"_s)));
  EXPECT_THROW(store_->Has({u"2026"_s, u"7"_s, u".tif"_s}), DataError);
  EXPECT_THROW(store_->List(), DataError);
}

TEST_F(DirectoryOriginalsTest, ARootThatCannotBeWrittenIsToldWithItsPath) {
  store_ = DirectoryOriginals(u"/proc"_s);  // where not even the superuser makes a file
  EXPECT_THAT(ErrorFrom([&] { Put({QString(), u"7"_s, u".tif"_s}); }).Message(), HasText(u"/proc"_s));
  EXPECT_THAT(ErrorFrom([&] { Put({u"2026"_s, u"7"_s, u".tif"_s}); }).Message(), HasText(u"/proc/2026"_s));
}

TEST_F(DirectoryOriginalsTest, AMissingFileIsRemovedAndAFileThatCannotBeIsTold) {
  store_->Remove({u"2026"_s, u"7"_s, u".tif"_s});
  store_->Remove({u"2027"_s, u"7"_s, u".tif"_s});
  QDir(Path(u"store/2026"_s)).mkdir(u"8.tif"_s);
  EXPECT_THAT(ErrorFrom([&] { store_->Remove({u"2026"_s, u"8"_s, u".tif"_s}); }).Message(), HasText(u"2026/8.tif"_s));
  EXPECT_FALSE(store_->Has({u"2026"_s, u"8"_s, u".tif"_s})) << "a directory is no file";
  EXPECT_THROW(Get({u"2026"_s, u"8"_s, u".tif"_s}), DataError);
}

TEST_F(DirectoryOriginalsTest, AFileIsFoundWhateverTheCaseOfItsName) {
  Write(u"store/2026/7.TIF"_s);
  EXPECT_EQ(Get({u"2026"_s, u"7"_s, u".tif"_s}), "abc");
  store_->Remove({u"2026"_s, u"7"_s, u".tif"_s});
  EXPECT_THAT(store_->List(), IsEmpty());
}

TEST_F(DirectoryOriginalsTest, AProcessKilledWhilePuttingLeavesNothingHalfUnderAName) {
  const QByteArray content = Bytes(700'000);
  for (int round = 0; round < 8; ++round) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      for (int number = 0;; ++number) Put({u"%1"_s.arg(round), QString::number(number), u".tif"_s}, content);
    }
    usleep(useconds_t(3'000 + 4'321 * round));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
  int whole = 0;
  for (const StoredFile& file : store_->List()) {
    if (file.name.endsWith(u".part"_s)) continue;
    ++whole;
    EXPECT_EQ(Get({file.filePath, file.name, QString()}), content) << file.name.toStdString();
  }
  EXPECT_GT(whole, 0);
}

}  // namespace folvane::test
