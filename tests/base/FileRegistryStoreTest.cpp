#include <gtest/gtest.h>
#include <thread>

#include "base/FileRegistryStore.h"
#include "support/HostDoubles.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kKey = u"HKEY_LOCAL_MACHINE\\Software\\Norvex\\MainFlags"_s;

class FileRegistryStoreTest : public testing::Test {
 protected:
  QString Path() const { return directory_.Path(u"Folvane/registry.ini"_s); }
  QByteArray Bytes() const { return directory_.Read(u"Folvane/registry.ini"_s); }

  test::TempProgramDirectory directory_;
};

TEST_F(FileRegistryStoreTest, AMissingKeyOrValueIsEmpty) {
  FileRegistryStore store(Path());
  EXPECT_EQ(store.Read(kKey, u"FolvaneDefault"_s), QString());
  store.Write(kKey, u"UseSpecialSign"_s, u"True"_s);
  EXPECT_EQ(store.Read(kKey, u"FolvaneDefault"_s), QString());
}

TEST_F(FileRegistryStoreTest, KeysAndNamesCompareWithoutRegardToCase) {
  FileRegistryStore store(Path());
  store.Write(kKey, u"FolvaneDefault"_s, u"Lwdj"_s);
  EXPECT_EQ(store.Read(kKey.toUpper(), u"folvanedefault"_s), u"Lwdj"_s);
  store.Write(kKey.toLower(), u"FOLVANEDEFAULT"_s, u"Fwdj"_s);
  EXPECT_EQ(Bytes(), QByteArray("[" + kKey.toUtf8() + "]\r\nFolvaneDefault=\"Fwdj\"\r\n"));
}

TEST_F(FileRegistryStoreTest, GivesBackEveryTextAsItWasWritten) {
  FileRegistryStore store(Path());
  for (const QString& text : {u"Fwdj,Left(CreatedDate,4) = '2002'"_s, u"'quoted'"_s, u"\"quoted\""_s, u"  blanks  "_s,
                              u"two\r\nlines"_s, u"100%"_s, u"%41"_s, u"C:\\档案\\"_s, u"ñ\U0001F600"_s, QString()}) {
    store.Write(kKey, u"Value"_s, text);
    EXPECT_EQ(FileRegistryStore(Path()).Read(kKey, u"Value"_s), text);
  }
}

TEST_F(FileRegistryStoreTest, NamesMayHoldWhatALineUsesForItself) {
  FileRegistryStore store(Path());
  store.Write(u"Root\\a]b"_s, u"x=y;[z]"_s, u"1"_s);
  store.Write(u"Root\\a]b"_s, u";x"_s, u"2"_s);
  EXPECT_EQ(store.Read(u"Root\\a]b"_s, u"x=y;[z]"_s), u"1"_s);
  EXPECT_EQ(store.Read(u"Root\\a]b"_s, u";x"_s), u"2"_s);
}

TEST_F(FileRegistryStoreTest, KeepsOrderAndWhatOthersPutIn) {
  directory_.Write(u"Folvane/registry.ini"_s, "; by hand\r\n[B]\r\ny=1\r\n\r\n[A]\r\n");
  FileRegistryStore store(Path());
  EXPECT_EQ(store.Read(u"B"_s, u"y"_s), u"1"_s);
  store.Write(u"A"_s, u"x"_s, u"2"_s);
  store.Write(u"B"_s, u"x"_s, u"3"_s);
  EXPECT_EQ(Bytes(), QByteArray("; by hand\r\n[B]\r\ny=1\r\nx=\"3\"\r\n\r\n[A]\r\nx=\"2\"\r\n"));
}

TEST_F(FileRegistryStoreTest, OfTwoThatWriteAtATimeNeitherLosesTheOthersValues) {
  const auto writeAll = [this](const QString& prefix) {
    FileRegistryStore store(Path());
    for (int number = 0; number < 20; ++number) store.Write(kKey, prefix + QString::number(number), prefix);
  };
  std::thread other([&] { writeAll(u"a"_s); });
  writeAll(u"b"_s);
  other.join();
  FileRegistryStore store(Path());
  for (int number = 0; number < 20; ++number) {
    EXPECT_EQ(store.Read(kKey, u"a"_s + QString::number(number)), u"a"_s) << number;
    EXPECT_EQ(store.Read(kKey, u"b"_s + QString::number(number)), u"b"_s) << number;
  }
}

}  // namespace
}  // namespace folvane
