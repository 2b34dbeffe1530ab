// A value of every type, as it lies in a file and as it is shown.
#include <QJsonArray>
#include <QtEndian>
#include <gmock/gmock.h>

#include "persist/Printed.h"
#include "persist/Tablegrams.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kFixed = 0x34, kVariable = 0x24, kLong = 0xa4;

/// The value of the only field of the only row, as it is printed.
QByteArray Shown(const ColumnSpec& column, const char* value, int codePage = 936) {
  const QByteArray file = FlatHead(1, 1) + ColumnBytes(column) + Hex("07 FF") + Hex(value) + Hex("0F");
  EXPECT_EQ(Copied(file).toHex(), file.toHex());
  const QByteArray line = PrintedLines(file, codePage).last();
  const QByteArray before = R"({"kind":"row","recordset":1,"status":"unchanged","values":{"a":)";
  EXPECT_TRUE(line.startsWith(before));
  return line.mid(before.size()).chopped(2);
}

QByteArray Shown(int type, quint32 size, const char* value) { return Shown({1, u"a"_s, type, size, kFixed}, value); }

TEST(ValuesInRecordSetFiles, WholeNumbers) {
  EXPECT_EQ(Shown(16, 1, "80"), "-128");
  EXPECT_EQ(Shown(17, 1, "FF"), "255");
  EXPECT_EQ(Shown(2, 2, "00 80"), "-32768");
  EXPECT_EQ(Shown(18, 2, "FF FF"), "65535");
  EXPECT_EQ(Shown(3, 4, "FE FF FF FF"), "-2");
  EXPECT_EQ(Shown(19, 4, "FF FF FF FF"), "4294967295");
  EXPECT_EQ(Shown(20, 8, "00 00 00 00 00 00 00 80"), R"("-9223372036854775808")");
  EXPECT_EQ(Shown(21, 8, "FF FF FF FF FF FF FF FF"), R"("18446744073709551615")");
  EXPECT_EQ(Shown(10, 4, "05 40 00 80"), "-2147467259");
}

TEST(ValuesInRecordSetFiles, TruthValues) {
  EXPECT_EQ(Shown(11, 2, "FF FF"), "true");
  EXPECT_EQ(Shown(11, 2, "00 00"), "false");
}

TEST(ValuesInRecordSetFiles, FloatingNumbersAreTheShortestThatReadTheSame) {
  EXPECT_EQ(Shown(4, 4, "CD CC CC 3D"), "0.1");
  EXPECT_EQ(Shown(5, 8, "9A 99 99 99 99 99 B9 3F"), "0.1");
  EXPECT_EQ(Shown(5, 8, "9C 75 00 88 3C E4 37 7E"), "1e+300");
  EXPECT_EQ(Shown(5, 8, "00 00 00 00 00 00 F0 FF"), R"("-Infinity")");
  EXPECT_EQ(Shown(4, 4, "00 00 C0 7F"), R"("NaN")");
}

TEST(ValuesInRecordSetFiles, MoneyHasFourDigitsBehindThePoint) {
  EXPECT_EQ(Shown(6, 8, "FF FF FF FF FF FF FF 7F"), R"("922337203685477.5807")");
  EXPECT_EQ(Shown(6, 8, "00 00 00 00 00 00 00 80"), R"("-922337203685477.5808")");
  EXPECT_EQ(Shown(6, 8, "EC FF FF FF FF FF FF FF"), R"("-0.002")");
}

TEST(ValuesInRecordSetFiles, DecimalsKeepAllTheirDigits) {
  EXPECT_EQ(Shown(14, 16, "00 00 1C 80  FF FF FF FF  FF FF FF FF FF FF FF FF"), R"("-7.9228162514264337593543950335")");
  EXPECT_EQ(Shown(14, 16, "00 00 04 00  00 00 00 00  39 30 00 00 00 00 00 00"), R"("1.2345")");
  EXPECT_EQ(Shown(14, 16, "00 00 04 80  00 00 00 00  00 00 00 00 00 00 00 00"), R"("0")");
}

TEST(ValuesInRecordSetFiles, NumericsShowTheScaleOfTheirColumn) {
  EXPECT_EQ(Shown(131, 19, "12 04 01  40 E2 01 00 00 00 00 00 00 00 00 00 00 00 00 00"), R"("12.3456")");
  EXPECT_EQ(Shown(131, 19, "12 04 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"), R"("0.0000")");
  EXPECT_EQ(Shown(131, 19, "26 00 00  FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF"),
            R"("-340282366920938463463374607431768211455")");
}

TEST(ValuesInRecordSetFiles, NumbersOfVaryingLength) {
  EXPECT_EQ(Shown(139, 16, "05 05 01 01 39 30"), R"("1234.5")");
  EXPECT_EQ(Shown(139, 16, "04 01 00 01 07"), R"("7")");
  EXPECT_EQ(Shown(139, 16, "04 01 FE 01 03"), R"("300")");
  EXPECT_EQ(Shown(139, 16, "04 01 7F 00 03"), R"("-3E-127")");
}

TEST(ValuesInRecordSetFiles, Days) {
  EXPECT_EQ(Shown(133, 6, "D2 07 03 00 04 00"), R"("2002-03-04")");
  EXPECT_EQ(Shown(133, 6, "FB FF 0D 00 00 00"), R"("-0005-13-00")");
  EXPECT_EQ(Shown(134, 6, "08 00 1E 00 05 00"), R"("08:30:05")");
  EXPECT_EQ(Shown(134, 6, "63 00 3C 00 FF FF"), R"("99:60:65535")");
}

TEST(ValuesInRecordSetFiles, Moments) {
  EXPECT_EQ(Shown(135, 16, "D2 07 03 00 04 00 05 00 06 00 07 00 00 00 00 00"), R"("2002-03-04T05:06:07")");
  EXPECT_EQ(Shown(135, 16, "D2 07 03 00 04 00 05 00 06 00 07 00 F0 CC 2A 1D"), R"("2002-03-04T05:06:07.48934424")");
  EXPECT_EQ(Shown(135, 16, "FF 7F 01 00 01 00 00 00 00 00 00 00 00 00 00 00"), R"("+32767-01-01T00:00:00")");
  EXPECT_EQ(Shown(64, 8, "00 80 3E D5 DE B1 9D 01"), R"("1970-01-01T00:00:00")");
  EXPECT_EQ(Shown(64, 8, "01 00 00 00 00 00 00 00"), R"("1601-01-01T00:00:00.0000001")");
}

TEST(ValuesInRecordSetFiles, DaysSinceTheEndOf1899) {
  EXPECT_EQ(Shown(7, 8, "00 00 00 00 00 00 00 00"), R"("1899-12-30T00:00:00")");
  EXPECT_EQ(Shown(7, 8, "00 00 00 00 00 00 F4 BF"), R"("1899-12-29T06:00:00")");  // -1.25
  EXPECT_EQ(Shown(7, 8, "00 00 00 00 E0 38 E2 40"), R"("2002-03-04T00:00:00")");  // 37319
  EXPECT_EQ(Shown(7, 8, "00 00 00 00 00 00 F8 7F"), R"("NaN")");
}

TEST(ValuesInRecordSetFiles, Guids) {
  EXPECT_EQ(Shown(72, 16, "67 45 23 01 AB 89 EF CD 01 23 45 67 89 AB CD EF"),
            R"("{01234567-89AB-CDEF-0123-456789ABCDEF}")");
}

TEST(ValuesInRecordSetFiles, VariantsAreWhatTheyHold) {
  EXPECT_EQ(Shown(12, 16, "00 00 AA BB CC DD EE FF 00 00 00 00 00 00 00 00"), "null");
  EXPECT_EQ(Shown(12, 16, "02 00 00 00 00 00 00 00 FF FF 00 00 00 00 00 00"), "-1");
  EXPECT_EQ(Shown(12, 16, "0B 00 00 00 00 00 00 00 FF FF 00 00 00 00 00 00"), "true");
  EXPECT_EQ(Shown(12, 16, "06 00 00 00 00 00 00 00 10 27 00 00 00 00 00 00"), R"("1")");
  EXPECT_EQ(Shown(12, 16, "14 00 00 00 00 00 00 00 01 00 00 00 00 00 00 00"), R"("1")");
  EXPECT_EQ(Shown(12, 16, "0E 00 01 80 00 00 00 00 0F 00 00 00 00 00 00 00"), R"("-1.5")");
  EXPECT_EQ(Shown(12, 16, "08 00 00 00 00 00 00 00 01 02 03 04 00 00 00 00"), R"("08000000000000000102030400000000")");
}

TEST(ValuesInRecordSetFiles, TextsAreCountedInBytesAheadOfThem) {
  const auto text = [](quint32 size, int flags, const char* value) {
    return Shown({1, u"a"_s, 130, size, flags}, value);
  };
  EXPECT_EQ(text(40, kVariable, "04 73 51 8E 4E"), R"("关于")");
  EXPECT_EQ(text(127, kVariable, "02 41 00"), R"("A")");
  EXPECT_EQ(text(128, kVariable, "02 00 00 00 41 00"), R"("A")");
  EXPECT_EQ(text(16, kLong, "02 41 00"), R"("A")");
  EXPECT_EQ(text(0xffffffff, kLong, "02 00 00 00 41 00"), R"("A")");
  EXPECT_EQ(text(2, kFixed, "41 00 20 00"), R"("A ")");
  EXPECT_EQ(text(300, kFixed, "04 00 00 00 41 00 20 00"), R"("A ")");
  EXPECT_EQ(text(40, kVariable, "00"), R"("")");
}

TEST(ValuesInRecordSetFiles, TextsOfEightBitsAreInACodePage) {
  const auto text = [](quint32 size, int flags, const char* value, int codePage = 936) {
    return Shown({1, u"a"_s, 129, size, flags}, value, codePage);
  };
  EXPECT_EQ(text(255, kVariable, "04 B9 D8 D3 DA"), R"("关于")");
  EXPECT_EQ(text(256, kVariable, "04 00 00 00 B9 D8 D3 DA"), R"("关于")");
  EXPECT_EQ(text(4, kFixed, "41 30 30 31"), R"("A001")");
  EXPECT_EQ(text(300, kFixed, "04 00 00 00 41 30 30 31"), R"("A001")");
  EXPECT_EQ(text(40, kVariable, "02 E4 80", 1252), R"("ä€")");
  EXPECT_EQ(text(40, kVariable, "02 C7 D1", 949), R"("한")");
  EXPECT_EQ(text(40, kVariable, "02 80 FF", 936), "\"€\uFFFD\"");
}

TEST(ValuesInRecordSetFiles, WhatLiesBehindAZeroInAFixedTextIsNotShown) {
  EXPECT_EQ(Shown({1, u"a"_s, 129, 4, kFixed}, "41 00 42 43"), R"("A")");
  EXPECT_EQ(Shown({1, u"a"_s, 130, 3, kFixed}, "00 4E 00 00 41 00"), "\"\u4e00\"");
  EXPECT_EQ(Shown({1, u"a"_s, 129, 4, kVariable}, "03 41 00 42"), R"("A\u0000B")");
}

TEST(ValuesInRecordSetFiles, WhatJsonCannotHoldIsEscaped) {
  const auto text = [](const char* value) { return Shown({1, u"a"_s, 130, 40, kVariable}, value); };
  EXPECT_EQ(text("0C 22 00 5C 00 0A 00 0D 00 09 00 01 00"), R"("\"\\\n\r\t\u0001")");
  EXPECT_EQ(text("04 3D D8 00 DE"), "\"\U0001F600\"");
  EXPECT_EQ(text("06 00 DE 3D D8 41 00"), R"("\ude00\ud83dA")");
}

TEST(ValuesInRecordSetFiles, Bytes) {
  const auto bytes = [](quint32 size, int flags, const char* value) {
    return Shown({1, u"a"_s, 128, size, flags}, value);
  };
  EXPECT_EQ(bytes(4, kFixed, "00 01 FE FF"), R"("0001feff")");
  EXPECT_EQ(bytes(255, kVariable, "02 00 FF"), R"("00ff")");
  EXPECT_EQ(bytes(256, kFixed, "02 00 00 00 00 FF"), R"("00ff")");
  EXPECT_EQ(bytes(0xffffffff, kLong, "00 00 00 00"), R"("")");
}

TEST(ValuesInRecordSetFiles, FieldsTellTheTypeThatAdoGivesThem) {
  struct Told {
    ColumnSpec column;
    int type;
    const char* name;
  };
  const Told columns[]{
      {{1, u"a"_s, 129, 4, kFixed}, 129, "adChar"},         {{1, u"a"_s, 129, 4, kVariable}, 200, "adVarChar"},
      {{1, u"a"_s, 129, 4, kLong}, 201, "adLongVarChar"},   {{1, u"a"_s, 130, 4, kFixed}, 130, "adWChar"},
      {{1, u"a"_s, 130, 4, kVariable}, 202, "adVarWChar"},  {{1, u"a"_s, 130, 4, kLong}, 203, "adLongVarWChar"},
      {{1, u"a"_s, 128, 4, kFixed}, 128, "adBinary"},       {{1, u"a"_s, 128, 4, kVariable}, 204, "adVarBinary"},
      {{1, u"a"_s, 128, 4, kLong}, 205, "adLongVarBinary"}, {{1, u"a"_s, 3, 4, kFixed}, 3, "adInteger"},
      {{1, u"a"_s, 131, 19, kFixed}, 131, "adNumeric"}};
  for (const auto& [column, type, name] : columns) {
    const Printed printed = PrintedFile(FlatHead(1, 0) + ColumnBytes(column) + Hex("0F"));
    EXPECT_EQ(printed.fields[0][u"type"_s].toInt(), type);
    EXPECT_EQ(printed.fields[0][u"typeName"_s].toString(), QLatin1String(name));
    EXPECT_EQ(printed.fields[0][u"storedType"_s].toInt(), column.type);
  }
}

TEST(ValuesInRecordSetFiles, FieldsTellTheirFlagsByName) {
  const auto flags = [](int set) {
    const Printed printed = PrintedFile(FlatHead(1, 0) + ColumnBytes({1, u"a"_s, 3, 4, set}) + Hex("0F"));
    return printed.fields[0][u"flagNames"_s].toArray();
  };
  EXPECT_EQ(flags(0x34), (QJsonArray{u"write"_s, u"fixed"_s, u"nullable"_s}));
  EXPECT_EQ(flags(0x1058), (QJsonArray{u"writeUnknown"_s, u"fixed"_s, u"mayBeNull"_s, u"cacheDeferred"_s}));
}

TEST(ValuesInRecordSetFiles, NullsAreTold) {
  const Printed printed = PrintedFile(TextsFile());
  ASSERT_EQ(printed.rows.size(), 2u);
  EXPECT_EQ(printed.Values(u"CODE"_s), (QJsonArray{u"A001"_s, QJsonValue::Null}));
  EXPECT_EQ(printed.Values(u"MEMO"_s), (QJsonArray{u"长文本"_s, QString()}));
}

}  // namespace
}  // namespace folvane::test
