#include <QFile>
#include <gmock/gmock.h>

#include "base/FileUpdate.h"
#include "persist/Tablegrams.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

TEST(CopiesOfRecordSetFiles, EachSampleComesOutByteForByte) {
  ASSERT_EQ(Samples().size(), 55);
  for (const QString& sample : Samples()) {
    const QByteArray file = ReadFile(sample + u".adtg"_s);
    EXPECT_TRUE(Copied(file) == file) << sample.toStdString();
  }
}

TEST(CopiesOfRecordSetFiles, EveryKindOfRowComesOutByteForByte) {
  EXPECT_EQ(Copied(RowKindsFile()).toHex(), RowKindsFile().toHex());
  EXPECT_EQ(RowKindsFile().size(), 410);
}

TEST(CopiesOfRecordSetFiles, TextsComeOutByteForByte) {
  EXPECT_EQ(Copied(TextsFile()).toHex(), TextsFile().toHex());
  EXPECT_EQ(TextsFile().size(), 514);
}

TEST(CopiesOfRecordSetFiles, BitsWithoutMeaningAreKept) {
  QByteArray file = FlatHead(2, 1) + ColumnBytes({1, u"a"_s, 2, 2, 0x34}) + ColumnBytes({2, u"b"_s, 2, 2, 0x34}) +
                    Hex("07 95 01 00 0A 4B 81 02 00 0D C0 FF 0F");
  EXPECT_EQ(Copied(file).toHex(), file.toHex());
}

TEST(CopiesOfRecordSetFiles, PartsThatAreRarelyThereAreKept) {
  // Collating sequence, default value, case sensitive, searchable, octet length, a calculation, and bytes behind it.
  const QByteArray column =
      Hex("06 45 00 80 91 AC 01 00 01 00 61 00 02 00 02 00 00 00 00 00 00 00 00 00 00 00 34 00 00 00"
          "01 02 03 04  01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 10  FF FF  FF FF 03 00 00 00 08 00 00 00  FF FF"
          "01 00 00 00 00  AA BB CC");
  const QByteArray file = FlatHead(1, 0) + column + Hex("0F");
  EXPECT_EQ(Copied(file).toHex(), file.toHex());
}

}  // namespace
}  // namespace folvane::test
