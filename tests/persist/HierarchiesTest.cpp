#include <QJsonArray>
#include <QtEndian>
#include <gmock/gmock.h>

#include "base/FileUpdate.h"
#include "data/persist/RowLoader.h"
#include "persist/Hierarchies.h"
#include "persist/Printed.h"
#include "persist/Tablegrams.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

namespace {

/// Where in a file the descriptors of its first record set begin.
constexpr int kFirstSet = 37;

QByteArray Number(quint32 number) {
  number = qToLittleEndian(number);
  return {reinterpret_cast<const char*>(&number), sizeof number};
}

/// A descriptor with more behind it.
QByteArray Longer(QByteArray column, const QByteArray& more) {
  column[1] = char(column[1] + more.size());
  return column + more;
}

/// A column of the rows behind a chapter that equals one of the row that the chapter stands in.
QByteArray InCommon(quint32 parent, quint32 child) { return Number(parent) + Number(child) + Number(0); }

/// The chapter "Lines", whose rows have the first column of both record sets in common.
QByteArray Chapter(int ordinal, const QByteArray& child = {}, const QByteArray& relation = InCommon(1, 1)) {
  return Longer(ColumnBytes({ordinal, u"Lines"_s, 136, 4, 0x2010}),
                child + Number(quint32(relation.size())) + relation + Number(0));
}

}  // namespace

namespace {
QByteArray FileOf(const QByteArray& chapter) {
  return FlatHead(2, 1) + ColumnBytes({1, u"OrderId"_s, 3, 4, 0x14}) + chapter + FlatHead(2, 2).sliced(kFirstSet) +
         Longer(ColumnBytes({1, u"OrderId"_s, 3, 4, 0x14}), Number(2)) +
         Longer(ColumnBytes({2, u"Text"_s, 130, 20, 0x24}), Number(2)) + Hex("07 7F 01 00 00 00") +
         Hex("87 02 00 00 00 FF 01 00 00 00 02 41 00 8A 02 00 00 00 40 00 02 42 00") +
         Hex("8D 02 00 00 00 C0 00 01 00 00 00 02 43 00") + Hex("87 02 00 00 00 7F 01 00 00 00 8C 02 00 00 00") +
         Hex("0F");
}
}  // namespace

QByteArray HierarchyFile() { return FileOf(Chapter(2)); }

QByteArray NestedSets(int count) {
  QByteArray file = FlatHead(1, 0) + Chapter(1);
  for (int i = 2; i <= count; ++i) file += FlatHead(1, 0).sliced(kFirstSet) + Chapter(1, Number(quint32(i)));
  return file + FlatHead(1, 0).sliced(kFirstSet);
}

namespace {

TEST(HierarchicalRecordSetFiles, ComeOutByteForByte) { EXPECT_EQ(Copied(HierarchyFile()), HierarchyFile()); }

TEST(HierarchicalRecordSetFiles, AreShownWhole) {
  const Printed printed = PrintedFile(HierarchyFile());
  ASSERT_EQ(printed.sets.size(), 2u);
  EXPECT_EQ(printed.sets[1][u"parent"_s], 1);
  EXPECT_EQ(printed.sets[1][u"chapter"_s], u"Lines"_s);
  EXPECT_EQ(printed.fields[1][u"child"_s], 2);
  EXPECT_EQ(printed.fields[1][u"relation"_s], (QJsonArray{QJsonArray{1, 1, 0}}));
  ASSERT_EQ(printed.rows.size(), 4u);
  EXPECT_EQ(printed.rows[0][u"recordset"_s], 1);
  EXPECT_EQ(printed.rows[0][u"values"_s], (QJsonObject{{u"OrderId"_s, 1}, {u"Lines"_s, QJsonValue::Null}}));
  EXPECT_EQ(printed.rows[1][u"recordset"_s], 2);
  EXPECT_EQ(printed.rows[1][u"status"_s], u"changed"_s);
  EXPECT_EQ(printed.rows[1][u"values"_s], (QJsonObject{{u"OrderId"_s, 1}, {u"Text"_s, u"B"_s}}));
  EXPECT_EQ(printed.rows[1][u"original"_s], (QJsonObject{{u"OrderId"_s, 1}, {u"Text"_s, u"A"_s}}));
  EXPECT_EQ(printed.rows[2][u"status"_s], u"inserted"_s);
  EXPECT_EQ(printed.rows[3][u"status"_s], u"deleted"_s);
}

TEST(HierarchicalRecordSetFiles, TellEveryColumnThatARelationIsAbout) {
  const QByteArray file = FileOf(Chapter(2, {}, InCommon(1, 2) + InCommon(3, 4)));
  EXPECT_EQ(Copied(file), file);
  EXPECT_EQ(PrintedFile(file).fields[1][u"relation"_s], (QJsonArray{QJsonArray{1, 2, 0}, QJsonArray{3, 4, 0}}));
}

TEST(HierarchicalRecordSetFiles, AreNotOpenedAsOneRecordSet) {
  CodePageReader codePage(kNationalCodePage);
  try {
    LoadTablegram(HierarchyFile(), codePage);
    FAIL();
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "该文件是分层的记录集（字段“Lines”含有子记录集），不能作为普通记录集打开。");
  }
}

}  // namespace
}  // namespace folvane::test
