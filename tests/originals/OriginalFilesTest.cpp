// What both kinds of store have in common.
#include <gmock/gmock.h>

#include "originals/EachStore.h"
#include "support/HostDoubles.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class OriginalFilesTest : public EachStore {};

QStringList Shown(std::vector<StoredFile> files) {
  QStringList shown;
  for (const StoredFile& file : files)
    shown << file.filePath + u"|"_s + file.name + u"|"_s + QString::number(file.size);
  shown.sort();
  return shown;
}

/// A device that breaks off in the middle.
class Breaking : public QIODevice {
 public:
  Breaking() { open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
  bool isSequential() const override { return true; }

 protected:
  qint64 readData(char* bytes, qint64 most) override {
    if (given_ > 500'000) {
      setErrorString(u"扫描仪已断开"_s);
      return -1;
    }
    std::fill_n(bytes, most, 'x');
    given_ += most;
    return most;
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  qint64 given_ = 0;
};

}  // namespace

FOLVANE_ON_EACH_STORE(OriginalFilesTest);

TEST_P(OriginalFilesTest, AFileLiesUnderItsPathOrDirectlyUnderTheRoot) {
  Put({QString(), u"7"_s, u".tif"_s}, "top");
  Put({u"2002\\a"_s, u"8"_s, u".tif"_s}, "below");
  EXPECT_THAT(Files(), ElementsAre(u"2002/a/8.tif"_s, u"7.tif"_s));
  EXPECT_EQ(Read(u"7.tif"_s), "top");
  EXPECT_EQ(Get({u"2002/a"_s, u"8"_s, u".tif"_s}), "below") << "both separators name the same directory";
  EXPECT_TRUE(Store().Has({u"2002/a"_s, u"8"_s, u".tif"_s}));
  EXPECT_FALSE(Store().Has({u"2002"_s, u"8"_s, u".tif"_s}));
  EXPECT_FALSE(Store().Has({u"2003"_s, u"8"_s, u".tif"_s}));
  Store().Remove({u"2002\\a"_s, u"8"_s, u".tif"_s});
  Store().Remove({QString(), u"7"_s, u".tif"_s});
  EXPECT_THAT(Files(), IsEmpty());
}

TEST_P(OriginalFilesTest, BytesComeBackAsTheyWerePutAndProgressEndsWithAll) {
  const QByteArray content = Bytes(1'000'003);
  QBuffer source;
  source.setData(content);
  source.open(QIODevice::ReadOnly);
  qint64 last = 0;
  Store().Put({u"2026"_s, u"7"_s, u".tif"_s}, source, [&](qint64 done, qint64 total) {
    EXPECT_EQ(total, content.size());
    last = done;
    return true;
  });
  EXPECT_EQ(last, content.size());
  EXPECT_EQ(Get({u"2026"_s, u"7"_s, u".tif"_s}), content);
}

TEST_P(OriginalFilesTest, ANameThatIsTakenIsAnErrorAndTheFileStays) {
  Put({u"2026"_s, u"7"_s, u".tif"_s}, "first");
  const DataError error = ErrorFrom([&] { Put({u"2026"_s, u"7"_s, u".tif"_s}, "second"); });
  EXPECT_EQ(error.Kind(), DataErrorKind::File);
  EXPECT_THAT(error.Message(), HasText(u"2026/7.tif"_s));
  EXPECT_EQ(Read(u"2026/7.tif"_s), "first");
  EXPECT_THAT(Files(), ElementsAre(u"2026/7.tif"_s));
}

TEST_P(OriginalFilesTest, ACancelledOrBrokenPutLeavesNothing) {
  QBuffer source;
  source.setData(Bytes(3'000'000));
  source.open(QIODevice::ReadOnly);
  const auto half = [](qint64 done, qint64) { return done < 1'000'000; };
  EXPECT_EQ(ErrorFrom([&] { Store().Put({u"2026"_s, u"7"_s, u".tif"_s}, source, half); }).Message(), u"传输已取消。"_s);
  Breaking device;
  EXPECT_THAT(ErrorFrom([&] {
                Store().Put({u"2026"_s, u"8"_s, u".tif"_s}, device);
              }).Message(),
              HasText(u"扫描仪已断开"_s));
  EXPECT_THAT(Files(), IsEmpty());
}

TEST_P(OriginalFilesTest, AMalformedPlaceIsRefusedInEveryOperationBeforeAnythingIsTouched) {
  Write(u"7.tif"_s, "stays");
  const std::vector<OriginalPlace> places{{u"a/../.."_s, u"7"_s, u".tif"_s}, {u"//x"_s, u"7"_s, u".tif"_s},
                                          {u"C:\\x"_s, u"7"_s, u".tif"_s},   {QString(), u"a/7"_s, u".tif"_s},
                                          {QString(), u"7"_s, u"\\..\\x"_s}, {QString(), u"7\nDELE 7"_s, u".tif"_s},
                                          {QString(), QString(), QString()}};
  for (const OriginalPlace& place : places) {
    EXPECT_THROW(Put(place, "x"), DataError);
    EXPECT_THROW(Get(place), DataError);
    EXPECT_THROW(Store().Remove(place), DataError);
    EXPECT_THROW(Store().Has(place), DataError);
  }
  EXPECT_THAT(Files(), ElementsAre(u"7.tif"_s));
  EXPECT_THAT(server->TakeCommands(), IsEmpty());
}

TEST_P(OriginalFilesTest, AMissingFileIsToldWithItsName) {
  EXPECT_THAT(ErrorFrom([&] { Get({QString(), u"7"_s, u".tif"_s}); }).Message(), HasText(u"7.tif"_s));
  EXPECT_EQ(ErrorFrom([&] { Get({u"2026"_s, u"7"_s, u".tif"_s}); }).Kind(), DataErrorKind::File);
}

TEST_P(OriginalFilesTest, AllFilesAreListedWithThoseThatABrokenTransferLeft) {
  Write(u"7.tif"_s, "1");
  Write(u"2026/a/8.tif"_s, "22");
  Write(u"2026/9.tif.0123456789abcdef.part"_s, "333");
  EXPECT_THAT(Shown(Store().List()),
              ElementsAre(u"2026/a|8.tif|2"_s, u"2026|9.tif.0123456789abcdef.part|3"_s, u"|7.tif|1"_s));
  qint64 told = 0;
  Store().List([&](qint64 found, qint64) {
    told = found;
    return true;
  });
  EXPECT_EQ(told, 3);
  EXPECT_THROW(Store().List([](qint64, qint64) { return false; }), DataError);
}

TEST_P(OriginalFilesTest, AFileOfTodayIsFoundUnderThePathOfToday) {
  FixClock(QDateTime(QDate(2002, 3, 4), QTime(10, 0)));
  EXPECT_EQ(Store().PathOfToday(), u"2002"_s);
  Put({Store().PathOfToday(), u"7"_s, u".tif"_s}, "x");
  EXPECT_THAT(Files(), ElementsAre(u"2002/7.tif"_s));
}

}  // namespace folvane::test
