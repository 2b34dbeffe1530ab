// Files that are damaged or lie: each ends with an error that tells the place, or is read, and never in anything else.

#include <gmock/gmock.h>

#include "base/FileUpdate.h"
#include "data/persist/RowLoader.h"
#include "persist/Hierarchies.h"
#include "persist/Printed.h"
#include "persist/Tablegrams.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

/// The message of the error that reading ends with, "" when it ends well.
std::string Refusal(const QByteArray& file) {
  try {
    PrintedLines(file);
    return {};
  } catch (const FileError& error) {
    return error.what();
  }
}

/// Small files of every kind of row, value and record set.
std::vector<QByteArray> SmallFiles() { return {RowKindsFile(), TextsFile(), HierarchyFile()}; }

TEST(BrokenRecordSetFiles, AFileThatIsCutAnywhereIsRefused) {
  for (const QByteArray& file : SmallFiles())
    for (qsizetype length = 0; length < file.size(); ++length)
      EXPECT_NE(Refusal(file.first(length)), "") << "cut at " << length;
}

TEST(BrokenRecordSetFiles, AnyByteMayBeAnother) {
  for (const QByteArray& file : SmallFiles()) {
    ASSERT_EQ(Refusal(file), "");
    for (qsizetype at = 0; at < file.size(); ++at) {
      for (const int change : {0x01, 0x80, 0xff}) {
        QByteArray changed = file;
        changed[at] = char(changed[at] ^ change);
        Refusal(changed);  // it ends, and what it throws is a FileError
      }
    }
  }
}

TEST(BrokenRecordSetFiles, AByteBehindTheEndIsTold) {
  EXPECT_THAT(Refusal(RowKindsFile() + '\0'), HasSubstr("（偏移 410）：结束标记之后还有 1 个字节"));
}

TEST(BrokenRecordSetFiles, OtherFilesAreNamed) {
  EXPECT_EQ(Refusal("<?xml version='1.0'?>"), "这是 XML 格式的记录集文件，只能读取 ADTG 格式的记录集文件。");
  EXPECT_EQ(Refusal("<xml xmlns:s='uuid:BDC6E3F0'>"), "这是 XML 格式的记录集文件，只能读取 ADTG 格式的记录集文件。");
  EXPECT_EQ(Refusal("PK\x03\x04 and more"), "不是 ADTG 格式的记录集文件。");
  EXPECT_THAT(Refusal(Hex("01 07 54 47 21 00 00 01 00")), HasSubstr("文件头的版本或字节顺序无法识别"));
}

TEST(BrokenRecordSetFiles, ATypeThatIsNotKnownIsToldWithItsField) {
  EXPECT_THAT(Refusal(FlatHead(1, 0) + ColumnBytes({1, u"卷号"_s, 9, 4, 0x14}) + Hex("0F")),
              HasSubstr("（偏移 270）：字段“卷号”的类型 9 无法识别"));
}

TEST(BrokenRecordSetFiles, HugeSizesTakeNoMemory) {
  const QByteArray head = FlatHead(1, -1) + ColumnBytes({1, u"a"_s, 130, 0xffffffff, 0xa4});
  EXPECT_THAT(Refusal(head + Hex("07 FF FE FF FF FF 41 00")), HasSubstr("应有 4294967294 个字节，只剩 2 个"));
  EXPECT_EQ(Refusal(head + Hex("0F")), "");  // the count of rows is no promise
}

TEST(BrokenRecordSetFiles, RowsThatTakeNoRoomAreRefused) {
  const QByteArray column = ColumnBytes({1, u"a"_s, 129, 0, 0x14});
  EXPECT_THAT(Refusal(FlatHead(1, 9) + column + QByteArray(9, '\x07') + '\x0f'), HasSubstr("字段“a”的长度为 0"));
}

TEST(BrokenRecordSetFiles, AChangeNeedsARowAheadOfIt) {
  const QByteArray head = FlatHead(1, 1) + ColumnBytes({1, u"a"_s, 2, 2, 0x34});
  EXPECT_THAT(Refusal(head + Hex("0A 00 80 0F")), HasSubstr("没有跟在它的原行之后"));
  EXPECT_THAT(Refusal(head + Hex("0D 80 00 01 00 0C 0F")), HasSubstr("没有跟在它的原行之后"));
  EXPECT_THAT(Refusal(head + Hex("07 7F 0C 0C 0F")), HasSubstr("没有跟在它的原行之后"));
  EXPECT_THAT(Refusal(head + Hex("07 7F 0A 00 80 0A 00 80 0F")), HasSubstr("没有跟在它的原行之后"));
  EXPECT_EQ(Refusal(head + Hex("07 7F 0A 00 80 0C 0F")), "");
}

TEST(BrokenRecordSetFiles, HalfACharacterIsRefused) {
  const QByteArray head = FlatHead(1, 1) + ColumnBytes({1, u"a"_s, 130, 40, 0x24});
  EXPECT_THAT(Refusal(head + Hex("07 FF 03 41 00 42 0F")), HasSubstr("值的字节数 3 与字段的类型不符"));
}

TEST(BrokenRecordSetFiles, FieldsAreCounted) {
  EXPECT_THAT(Refusal(FlatHead(2, 0) + ColumnBytes({1, u"a"_s, 2, 2, 0x34}) + Hex("0F")),
              HasSubstr("记录集应有 2 个字段，却有 1 个"));
  EXPECT_THAT(Refusal(FlatHead(1, 0) + ColumnBytes({2, u"a"_s, 2, 2, 0x34}) + Hex("0F")),
              HasSubstr("第 1 个字段的序号是 2"));
}

TEST(BrokenRecordSetFiles, ChildRecordSetsWithoutAPlaceAreRefused) {
  const QByteArray flat = FlatHead(1, 0) + ColumnBytes({1, u"a"_s, 2, 2, 0x34});
  EXPECT_THAT(Refusal(flat + flat.sliced(37) + Hex("0F")), HasSubstr("子记录集不属于任何字段"));
  const QByteArray file = HierarchyFile();
  const qsizetype child = file.indexOf(Hex("03 67 00"), 40);
  EXPECT_THAT(Refusal(file.first(child) + Hex("0F")), HasSubstr("缺少子记录集的描述"));
  EXPECT_THAT(Refusal(flat + Hex("87 02 00 00 00 7F 0F")), HasSubstr("没有编号为 2 的子记录集"));
}

TEST(BrokenRecordSetFiles, RecordSetsInRecordSetsEndWithTheFile) {
  // Each of many sets holds a chapter of which the next one is the content; the last one's is missing.
  const QByteArray chapters = NestedSets(2'000);
  EXPECT_THAT(Refusal(chapters), HasSubstr("记录集应有 1 个字段，却有 0 个"));
}

}  // namespace
}  // namespace folvane::test
