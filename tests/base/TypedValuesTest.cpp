#include <gtest/gtest.h>

#include "base/TypedValues.h"
#include "support/HostDoubles.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

struct TextCase {
  QString text;
  bool accepted;
};

void PrintTo(const TextCase& c, std::ostream* out) { *out << '"' << c.text.toStdString() << '"'; }

class Number : public testing::TestWithParam<TextCase> {};

TEST_P(Number, IsJudgedAsThePlatformDoes) { EXPECT_EQ(IsNumeric(GetParam().text), GetParam().accepted); }

// clang-format off
const TextCase kNumbers[] = {
    {u"0"_s, true},
    {u"17"_s, true},
    {u"017"_s, true},
    {u"10.5"_s, true},
    {u".5"_s, true},
    {u"5."_s, true},
    {u""_s, false},
    {u" "_s, false},
    {u"."_s, false},
    {u"abc"_s, false},
    {u"12a"_s, false},
    {u"1.2.3"_s, false},
    {u"2002-01-01"_s, false},
    {u"12%"_s, false},
    {u"True"_s, false},
    {u"NaN"_s, false},
    {u"inf"_s, false},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Plain, Number, testing::ValuesIn(kNumbers));

// clang-format off
const TextCase kSigned[] = {
    {u"-5"_s, true},
    {u"+5"_s, true},
    {u"- 5"_s, true},
    {u"5-"_s, true},     // a sign may stand behind, as in ledgers
    {u"5+"_s, true},
    {u"(5)"_s, true},    // a ledger's negative number
    {u"-"_s, false},
    {u"--5"_s, false},
    {u"+-5"_s, false},
    {u"-5-"_s, false},   // one sign is enough
    {u"(-5)"_s, false},
    {u"(5"_s, false},
    {u"5)"_s, false},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Signed, Number, testing::ValuesIn(kSigned));

// clang-format off
const TextCase kForms[] = {
    {u" 17 "_s, true},
    {u"\t17"_s, true},
    {u"1 7"_s, false},
    {u"1,000"_s, true},
    {u"1,0,0"_s, true},     // the place of the commas is not looked at
    {u"1,000.50"_s, true},
    {u",1"_s, false},       // a comma groups digits: there has to be one before it
    {u"1.000,5"_s, false},  // and none groups decimals
    {u"￥100"_s, true},     // both forms of the sign were the locale's own at some time
    {u"¥100"_s, true},
    {u"-¥100"_s, true},
    {u"¥-100"_s, true},
    {u"100￥"_s, false},    // the locale puts it in front
    {u"$100"_s, false},     // and knows no other
    {u"1e5"_s, true},
    {u"1E-5"_s, true},
    {u"1D5"_s, true},       // the exponent of double precision
    {u"1e+5"_s, true},
    {u"1e5.0"_s, false},
    {u"1e"_s, false},
    {u"e5"_s, false},
    {u"1e400"_s, false},    // more than a double holds
    {u"&HFF"_s, true},
    {u"&hff"_s, true},
    {u"&O17"_s, true},
    {u"&HFG"_s, false},
    {u"&O8"_s, false},
    {u"&H"_s, false},
    {u"0xFF"_s, false},
    {u"１７"_s, true},      // the East Asian platform reads full-width forms
    {u"－１．５"_s, true},
    {u"一七"_s, false},
    {u"١٧"_s, false},       // digits of other scripts are letters
    {u"(¥5)"_s, true},
    {u"17\r\n"_s, true},    // white space of any kind around it
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Forms, Number, testing::ValuesIn(kForms));

TEST(ReadNumber, GivesTheValue) {
  EXPECT_EQ(ReadNumber(u"1,000.5"_s), 1000.5);
  EXPECT_EQ(ReadNumber(u"5-"_s), -5.0);
  EXPECT_EQ(ReadNumber(u"(5)"_s), -5.0);
  EXPECT_EQ(ReadNumber(u"￥-2"_s), -2.0);
  EXPECT_EQ(ReadNumber(u"1.5d3"_s), 1500.0);
  EXPECT_EQ(ReadNumber(u"&H1F"_s), 31.0);
  EXPECT_EQ(ReadNumber(u"abc"_s), std::nullopt);
}

TEST(ToInteger, RoundsAHalfToTheEvenNeighbour) {
  EXPECT_EQ(ToInteger(u"10.5"_s), 10);
  EXPECT_EQ(ToInteger(u"11.5"_s), 12);
  EXPECT_EQ(ToInteger(u"-0.5"_s), 0);
  EXPECT_EQ(ToInteger(u"-1.5"_s), -2);
  EXPECT_EQ(ToInteger(u"10.4"_s), 10);
  EXPECT_EQ(ToInteger(u"10.6"_s), 11);
  EXPECT_EQ(ToInteger(u"-10.6"_s), -11);
}

TEST(ToInteger, ReadsEightHexadecimalDigitsAsASignedWord) { EXPECT_EQ(ToInteger(u"&HFFFFFFFF"_s), -1); }

TEST(ToInteger, RefusesWhatAWordCannotHold) {
  EXPECT_EQ(ToInteger(u"2147483647.4"_s), 2147483647);
  EXPECT_THROW(ToInteger(u"2147483648"_s), NumberError);
  EXPECT_THROW(ToInteger(u"&H100000000"_s), NumberError);
}

TEST(ToInteger, SaysThatATextIsNoNumber) {
  try {
    ToInteger(u"甲"_s);
    FAIL() << "the text was taken";
  } catch (const NumberError& error) {
    EXPECT_EQ(QString::fromUtf8(error.what()), u"“甲”不是数字。"_s);
  }
}

class Date : public testing::TestWithParam<TextCase> {};

TEST_P(Date, IsJudgedAsThePlatformDoes) { EXPECT_EQ(IsDate(GetParam().text), GetParam().accepted); }

// clang-format off
const TextCase kDates[] = {
    {u"2002-01-01"_s, true},
    {u"2002-1-1"_s, true},
    {u"2002/1/1"_s, true},
    {u" 2002-01-01 "_s, true},
    {u"2002 1 1"_s, true},
    {u"2002-1/1"_s, true},
    {u"2000-2-29"_s, true},
    {u"1900-2-29"_s, false},    // no leap year, whatever a spreadsheet says
    {u"9999-12-31"_s, true},
    {u"2002-01-01\n"_s, true},
    {u"2002-2-29"_s, false},
    {u"2002-02-00"_s, false},
    {u"2002-13-01"_s, false},   // with the year first nothing but year, month, day
    {u"2002-00-01"_s, false},
    {u"20020101"_s, false},     // a number
    {u"2002"_s, false},
    {u""_s, false},
    {u"文件"_s, false},
    {u"2002--1"_s, false},
    {u"2002-1-"_s, false},
    {u"1-1-1-1"_s, false},
    {u"10000-1-1"_s, false},
    {u"0099-1-1"_s, false},     // calendars of the platform begin with the year 100
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(YearFirst, Date, testing::ValuesIn(kDates));

// clang-format off
const TextCase kOtherOrders[] = {
    {u"1-2-2002"_s, true},        // month, day, year
    {u"13-2-2002"_s, true},       // day, month, year, where the other does not exist
    {u"13-13-2002"_s, false},
    {u"02-1-1"_s, true},
    {u"99-12-31"_s, true},
    {u"2002-1"_s, true},          // year and month
    {u"1-2002"_s, true},
    {u"12-31"_s, true},           // of the current year
    {u"31-12"_s, true},
    {u"13-50"_s, false},
    {u"2/29/2000"_s, true},
    {u"29/2/2001"_s, false},
    {u"12/31/29"_s, true},        // two digits are a year of this century up to 29
    {u"2002,1,1"_s, true},
    {u"2002.1.1"_s, false},       // points join the parts of a time
    {u"1.2.2002"_s, false},
    {u"Jan 1, 2002"_s, true},
    {u"1-Jan-2002"_s, true},
    {u"1 january 2002"_s, true},
    {u"30-Feb-2002"_s, false},
    {u"Jan"_s, false},
    {u"Foo 1, 2002"_s, false},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(OtherOrders, Date, testing::ValuesIn(kOtherOrders));

// clang-format off
const TextCase kChinese[] = {
    {u"2002年1月1日"_s, true},
    {u"2002 年 1 月 1 日"_s, true},
    {u"2002年1月"_s, true},
    {u"1月1日"_s, true},
    {u"2月29日"_s, true},               // some current years have it
    {u"2月30日"_s, false},
    {u"2002年"_s, false},               // one number is no date
    {u"1月"_s, false},
    {u"2002年13月1日"_s, false},
    {u"２００２－０１－０１"_s, true},
    {u"二〇〇二年一月一日"_s, false},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Chinese, Date, testing::ValuesIn(kChinese));

// clang-format off
const TextCase kTimes[] = {
    {u"12:30"_s, true},                      // a time of day is a date of the first day of the calendar
    {u"23:59:59"_s, true},
    {u"24:00"_s, false},
    {u"12:60"_s, false},
    {u"12:"_s, false},
    {u"12"_s, false},
    {u"13.50"_s, true},                      // so the platform says, though it is a number as well
    {u"13.70"_s, false},
    {u"1:30 PM"_s, true},
    {u"1pm"_s, true},
    {u"13:30 PM"_s, false},
    {u"下午3:05"_s, true},
    {u"上午10时30分"_s, true},
    {u"10时"_s, true},
    {u"3:05 下午"_s, true},                  // the words of the locale may stand behind as well
    {u"下午3:05 下午"_s, false},
    {u"13:05 下午"_s, false},
    {u"2002-1-1 3:05 下午"_s, true},
    {u"2002-1-1 12:30"_s, true},
    {u"12:30 2002-1-1"_s, true},
    {u"2002年1月1日 12时30分15秒"_s, true},
    {u"2002-01-01T12:30"_s, false},
    {u"2002-1-1 25:00"_s, false},
    {u"2002-13-1 12:30"_s, false},
    {u"12:30 13:30"_s, false},
    {u"12:30:15:10"_s, false},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Times, Date, testing::ValuesIn(kTimes));

struct DateCase {
  QString text;
  QDate date;
};

void PrintTo(const DateCase& value, std::ostream* out) { *out << value.text.toStdString(); }

class DateReading : public testing::TestWithParam<DateCase> {};

TEST_P(DateReading, GivesTheDay) {
  test::FixClock(QDateTime(QDate(2002, 3, 4), QTime(10, 0)));
  EXPECT_EQ(ReadDate(GetParam().text), GetParam().date);
}

// clang-format off
const DateCase kReadDates[] = {
    {u"2002-03-04"_s, {2002, 3, 4}},
    {u" 2002/3/4 12:30"_s, {2002, 3, 4}},
    {u"3-4-2002"_s, {2002, 3, 4}},
    {u"13-2-2002"_s, {2002, 2, 13}},
    {u"99-12-31"_s, {1999, 12, 31}},
    {u"12/31/29"_s, {2029, 12, 31}},
    {u"12-31"_s, {2002, 12, 31}},        // of the current year
    {u"31-12"_s, {2002, 12, 31}},
    {u"2001-5"_s, {2001, 5, 1}},
    {u"5-2001"_s, {2001, 5, 1}},
    {u"2-29"_s, {2029, 2, 1}},           // no day of this year, but a month and a year
    {u"2002年3月4日"_s, {2002, 3, 4}},
    {u"2002年3月"_s, {2002, 3, 1}},
    {u"3月4日"_s, {2002, 3, 4}},
    {u"2月29日"_s, {2002, 3, 1}},
    {u"２００２－０１－０２"_s, {2002, 1, 2}},
    {u"Jan 2, 2002"_s, {2002, 1, 2}},
    {u"2-Jan-2002"_s, {2002, 1, 2}},
    {u"Jan 2"_s, {2002, 1, 2}},
    {u"Jan 2001"_s, {2001, 1, 1}},
    {u"12:30"_s, {1899, 12, 30}},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Forms, DateReading, testing::ValuesIn(kReadDates));

}  // namespace
}  // namespace folvane
