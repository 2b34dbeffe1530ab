// Which values a column of a type holds, and what is read from it then.
#include <QByteArray>
#include <gtest/gtest.h>
#include <limits>

#include "data/persist/ColumnPlan.h"
#include "data/persist/JsonSink.h"
#include "data/persist/ValueEncoder.h"

namespace folvane::test {
namespace {

constexpr const char* kDoesNotFit = "does not fit";

ColumnDescriptor Column(int type, int precision = 0, int scale = 0) {
  ColumnDescriptor column;
  column.type = quint16(type);
  column.precision = quint32(precision);
  column.scale = scale;
  return column;
}

/// What is read from a column that a value was put into.
std::string Held(const ColumnDescriptor& column, const Cell& cell) {
  QByteArrayView bytes;
  ValueEncoder encoder(column);
  if (!encoder.Encode(cell, bytes)) return kDoesNotFit;
  QByteArray shown;
  CodePageReader codePage(kNationalCodePage);
  JsonSink sink(shown, codePage);
  DecodeValue(column, bytes, sink);
  return shown.replace('"', "").toStdString();
}

std::string Held(const ColumnDescriptor& column, const char* text) {
  Cell cell;
  cell.kind = Cell::Text;
  cell.bytes = QByteArrayView(text);
  return Held(column, cell);
}

std::string HeldInteger(int type, qint64 number) {
  Cell cell;
  cell.kind = Cell::Integer;
  cell.integer = number;
  return Held(Column(type), cell);
}

std::string HeldReal(int type, double number) {
  Cell cell;
  cell.kind = Cell::Real;
  cell.real = number;
  return Held(Column(type), cell);
}

struct Range {
  int type;
  const char *least, *below, *greatest, *above;
};

TEST(ValuesThatFitAColumn, WholeNumbersUpToTheEndsOfTheirType) {
  for (const Range& range : {
           Range{AdoType::TinyInt, "-128", "-129", "127", "128"},
           Range{AdoType::UnsignedTinyInt, "0", "-1", "255", "256"},
           Range{AdoType::SmallInt, "-32768", "-32769", "32767", "32768"},
           Range{AdoType::UnsignedSmallInt, "0", "-1", "65535", "65536"},
           Range{AdoType::Integer, "-2147483648", "-2147483649", "2147483647", "2147483648"},
           Range{AdoType::Error, "-2147483648", "-2147483649", "2147483647", "2147483648"},
           Range{AdoType::UnsignedInt, "0", "-1", "4294967295", "4294967296"},
           Range{AdoType::BigInt, "-9223372036854775808", "-9223372036854775809", "9223372036854775807",
                 "9223372036854775808"},
           Range{AdoType::UnsignedBigInt, "0", "-1", "18446744073709551615", "18446744073709551616"},
           Range{AdoType::Currency, "-922337203685477.5808", "-922337203685477.5809", "922337203685477.5807",
                 "922337203685477.5808"},
       }) {
    SCOPED_TRACE(range.type);
    EXPECT_EQ(Held(Column(range.type), range.least), range.least);
    EXPECT_EQ(Held(Column(range.type), range.greatest), range.greatest);
    EXPECT_EQ(Held(Column(range.type), range.below), kDoesNotFit);
    EXPECT_EQ(Held(Column(range.type), range.above), kDoesNotFit);
  }
}

TEST(ValuesThatFitAColumn, WholeNumbersHoweverTheyAreWritten) {
  for (const char* text : {" 7 ", "+7", "07", "7.0", "7.", "0.7e1", "700E-2"})
    EXPECT_EQ(Held(Column(AdoType::Integer), text), "7") << text;
  EXPECT_EQ(Held(Column(AdoType::Integer), "-0"), "0");
  for (const char* text : {"", "7.5", "7,0", "7 7", "7.0.0", "0.5e", "7e9999", "7e401", "e1", ".", "-"})
    EXPECT_EQ(Held(Column(AdoType::Integer), text), kDoesNotFit) << text;
  EXPECT_EQ(HeldInteger(AdoType::SmallInt, 32767), "32767");
  EXPECT_EQ(HeldInteger(AdoType::SmallInt, 32768), kDoesNotFit);
  EXPECT_EQ(HeldInteger(AdoType::UnsignedTinyInt, -1), kDoesNotFit);
}

TEST(ValuesThatFitAColumn, TruthValuesAreWhatDatabasesTellThemAs) {
  EXPECT_EQ(HeldInteger(AdoType::Boolean, 1), "true");
  EXPECT_EQ(HeldInteger(AdoType::Boolean, -1), "true");
  EXPECT_EQ(HeldInteger(AdoType::Boolean, 0), "false");
  EXPECT_EQ(HeldInteger(AdoType::Boolean, 2), kDoesNotFit);
  EXPECT_EQ(HeldInteger(AdoType::Boolean, -2), kDoesNotFit);
  EXPECT_EQ(Held(Column(AdoType::Boolean), "yes"), kDoesNotFit);
}

TEST(ValuesThatFitAColumn, FloatingNumbersThatReadTheSameAfterwards) {
  EXPECT_EQ(Held(Column(AdoType::Double), "0.1"), "0.1");
  EXPECT_EQ(Held(Column(AdoType::Double), "-12345.678"), "-12345.678");
  EXPECT_EQ(Held(Column(AdoType::Double), "0.12345678901234567890"), kDoesNotFit);
  EXPECT_EQ(Held(Column(AdoType::Double), "many"), kDoesNotFit);
  EXPECT_EQ(HeldInteger(AdoType::Double, 9007199254740992), "9007199254740992");
  EXPECT_EQ(HeldInteger(AdoType::Double, 9007199254740993), kDoesNotFit);
  EXPECT_EQ(HeldInteger(AdoType::Double, -9007199254740992), "-9007199254740992");
  EXPECT_EQ(HeldInteger(AdoType::Double, -9007199254740993), kDoesNotFit);
  EXPECT_EQ(HeldReal(AdoType::Double, 0.1), "0.1");
  EXPECT_EQ(HeldReal(AdoType::Single, 0.5), "0.5");
  EXPECT_EQ(HeldReal(AdoType::Single, 0.1), "0.1") << "it is written as the single is";
  EXPECT_EQ(HeldReal(AdoType::Single, 0.1234567890123), kDoesNotFit);
  EXPECT_EQ(HeldReal(AdoType::Single, std::numeric_limits<double>::quiet_NaN()), "NaN");
}

TEST(ValuesThatFitAColumn, MoneyWithFourDigitsBehindThePoint) {
  EXPECT_EQ(Held(Column(AdoType::Currency), "12.5"), "12.5");
  EXPECT_EQ(Held(Column(AdoType::Currency), "-12.3456"), "-12.3456");
  EXPECT_EQ(Held(Column(AdoType::Currency), "0"), "0");
  EXPECT_EQ(Held(Column(AdoType::Currency), "12.34560"), "12.3456");
  EXPECT_EQ(Held(Column(AdoType::Currency), "12.34567"), kDoesNotFit);
}

TEST(ValuesThatFitAColumn, DecimalsOfTwelveBytesAndTwentyEightDigitsBehindThePoint) {
  const ColumnDescriptor column = Column(AdoType::Decimal);
  EXPECT_EQ(Held(column, "-12.5"), "-12.5");
  EXPECT_EQ(Held(column, "79228162514264337593543950335"), "79228162514264337593543950335");
  EXPECT_EQ(Held(column, "79228162514264337593543950336"), kDoesNotFit);
  EXPECT_EQ(Held(column, "0.0000000000000000000000000001"), "0.0000000000000000000000000001");
  EXPECT_EQ(Held(column, "0.00000000000000000000000000001"), kDoesNotFit);
  EXPECT_EQ(Held(column, "none"), kDoesNotFit);
}

TEST(ValuesThatFitAColumn, NumericsOfTheirPrecisionAndScale) {
  const ColumnDescriptor column = Column(AdoType::Numeric, 5, 2);
  EXPECT_EQ(Held(column, "123.45"), "123.45");
  EXPECT_EQ(Held(column, "-7"), "-7.00");
  EXPECT_EQ(Held(column, "0"), "0.00");
  EXPECT_EQ(Held(column, "1234.5"), kDoesNotFit);
  EXPECT_EQ(Held(column, "1.234"), kDoesNotFit);
  const ColumnDescriptor wide = Column(AdoType::Numeric, 39, 0);
  EXPECT_EQ(Held(wide, "340282366920938463463374607431768211455"), "340282366920938463463374607431768211455");
  EXPECT_EQ(Held(wide, "340282366920938463463374607431768211456"), kDoesNotFit);
}

TEST(ValuesThatFitAColumn, NumbersOfVaryingLengthWithTheScaleTheyHave) {
  const ColumnDescriptor column = Column(AdoType::VarNumeric);
  EXPECT_EQ(Held(column, "1234.5"), "1234.5");
  EXPECT_EQ(Held(column, "-0.007"), "-0.007");
  EXPECT_EQ(Held(column, "0"), "0");
  EXPECT_EQ(Held(column, "1e-127"), "1E-127");
  EXPECT_EQ(Held(column, "1e-128"), kDoesNotFit);
}

TEST(ValuesThatFitAColumn, VariantsHoldNumbers) {
  EXPECT_EQ(HeldInteger(AdoType::Variant, -5), "-5");
  EXPECT_EQ(HeldReal(AdoType::Variant, 2.5), "2.5");
  EXPECT_EQ(Held(Column(AdoType::Variant), "5"), kDoesNotFit);
}

TEST(ValuesThatFitAColumn, GuidsInBraces) {
  const ColumnDescriptor column = Column(AdoType::Guid);
  EXPECT_EQ(Held(column, "{01234567-89ab-CDEF-0123-456789ABCDEF}"), "{01234567-89AB-CDEF-0123-456789ABCDEF}");
  for (const char* text : {"01234567-89AB-CDEF-0123-456789ABCDEF", "{01234567-89AB-CDEF-0123-456789ABCDE}",
                           "{01234567-89AB-CDEF-0123-456789ABCDEF)", "(01234567-89AB-CDEF-0123-456789ABCDEF}",
                           "{01234567-89AB-CDEF-01234-56789ABCDEF}", "{0123456789AB-CDEF-0123-4567-89ABCDEF}",
                           "{01234567-89AB-CDEF-0123-456789ABCDEG}", "{0123456--89AB-CDEF-0123-456789ABCDEF}"})
    EXPECT_EQ(Held(column, text), kDoesNotFit) << text;
  EXPECT_EQ(HeldInteger(AdoType::Guid, 5), kDoesNotFit);
}

TEST(ValuesThatFitNoColumn, GoIntoATextOfAnyLength) {
  for (const int type : {AdoType::Integer, AdoType::Numeric, AdoType::DbDate, AdoType::Char}) {
    ColumnDescriptor column = Column(type);
    column.maxLength = 4;
    column.flags = ColumnFlag::Fixed;
    const ColumnDescriptor any = OtherDescriptors(column).back();
    EXPECT_EQ(any.type, AdoType::WChar) << type;
    EXPECT_EQ(any.maxLength, kNoLimit) << type;
    EXPECT_FALSE(any.flags & ColumnFlag::Fixed) << type;
  }
}

TEST(ColumnsOfAFile, HoldTextOfAnyLengthWhereNoneIsDefined) {
  ColumnInfo column;
  column.type = AdoType::VarChar;
  for (const int size : {0, std::numeric_limits<int>::max()}) {
    column.definedSize = size;
    EXPECT_EQ(DescribeForFile(column, 1).maxLength, quint32(std::numeric_limits<int>::max())) << size;
  }
  column.definedSize = 1;
  EXPECT_EQ(DescribeForFile(column, 1).maxLength, 1U);
}

TEST(ValuesThatFitAColumn, DaysAtMidnight) {
  const ColumnDescriptor column = Column(AdoType::DbDate);
  for (const char* text : {"2002-03-04", "2002/3/4", "20020304", "2002-03-04 00:00", "2002-03-04T00:00:00.000"})
    EXPECT_EQ(Held(column, text), "2002-03-04") << text;
  EXPECT_EQ(Held(column, "-0005-12-31"), "-0005-12-31");
  EXPECT_EQ(Held(column, "+32767-12-31"), "+32767-12-31");
  for (const char* text : {"2002-03-04 00:00:01", "2002-03-04 00:01", "2002-03-04 01:00", "2002-03-04 00:00:00.5",
                           "2002-02-29", "+32768-01-01", "下周", "2002-03-04x00:00"})
    EXPECT_EQ(Held(column, text), kDoesNotFit) << text;
  EXPECT_EQ(HeldInteger(AdoType::DbDate, 20020304), kDoesNotFit);
}

TEST(ValuesThatFitAColumn, TimesOfDayToTheSecond) {
  const ColumnDescriptor column = Column(AdoType::DbTime);
  EXPECT_EQ(Held(column, "23:59:59"), "23:59:59");
  EXPECT_EQ(Held(column, "05:06"), "05:06:00");
  EXPECT_EQ(Held(column, "05:06:07.0"), "05:06:07");
  for (const char* text :
       {"05:06:07.5", "24:00:00", "05:60:00", "05:06:60", "5:06:07", "05-06-07", "05:06:", "05:06:07.", "05:06:07 "})
    EXPECT_EQ(Held(column, text), kDoesNotFit) << text;
}

TEST(ValuesThatFitAColumn, MomentsWithTheFractionsThatTheirTypeKnows) {
  const auto held = [](int type, const char* text) { return Held(Column(type), text); };
  EXPECT_EQ(held(AdoType::DbTimeStamp, "2002-03-04 05:06:07.123456789"), "2002-03-04T05:06:07.123456789");
  EXPECT_EQ(held(AdoType::DbTimeStamp, "2002/3/4 5:06:07"), "2002-03-04T05:06:07");
  EXPECT_EQ(held(AdoType::DbTimeStamp, "2002/3/4 5:06:07.5"), kDoesNotFit);
  EXPECT_EQ(held(AdoType::DbTimeStamp, "2002-03-04 05:06:07 x"), kDoesNotFit);
  EXPECT_EQ(held(AdoType::Date, "2002-03-04 05:06:07.125"), "2002-03-04T05:06:07.125");
  EXPECT_EQ(held(AdoType::Date, "1899-12-29 18:00:00"), "1899-12-29T18:00:00");
  EXPECT_EQ(held(AdoType::Date, "2002-03-04 05:06:07.1255"), kDoesNotFit);
  EXPECT_EQ(held(AdoType::FileTime, "2002-03-04 05:06:07.1234567"), "2002-03-04T05:06:07.1234567");
  EXPECT_EQ(held(AdoType::FileTime, "1601-01-01"), "1601-01-01T00:00:00");
  EXPECT_EQ(held(AdoType::FileTime, "1600-12-31"), kDoesNotFit);
  EXPECT_EQ(held(AdoType::FileTime, "2002-03-04 05:06:07.12345678"), kDoesNotFit);
}

}  // namespace
}  // namespace folvane::test
