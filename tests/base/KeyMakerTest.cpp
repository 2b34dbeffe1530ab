#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "base/KeyMaker.h"
#include "support/HostDoubles.h"
#include "support/Processes.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

const QDateTime kLastSecond(QDate(2002, 12, 31), QTime(23, 59, 59));

TEST(CreateName, IsTheTimeToTheSecondAndSixRandomDigits) {
  test::FixClock(kLastSecond);
  test::FixRandom({0.0012345});
  EXPECT_EQ(CreateName(), u"20021231235959001234"_s);
}

TEST(CreateName, PadsEveryPartWithZeros) {
  test::FixClock(QDateTime(QDate(2003, 1, 2), QTime(3, 4, 5)));
  test::FixRandom({0.0});
  EXPECT_EQ(CreateName(), u"20030102030405000000"_s);
}

TEST(CreateName, CutsTheRandomDigitsInsteadOfRounding) {
  test::FixClock(kLastSecond);
  test::FixRandom({0.9999999});
  EXPECT_EQ(CreateName(), u"20021231235959999999"_s);
}

TEST(CreateName, TwoNamesOfOneSecondDifferOnlyByTheirRandomDigits) {
  test::FixClock(kLastSecond);
  const QString first = CreateName(), second = CreateName();
  EXPECT_EQ(first.left(14), second.left(14));
  EXPECT_NE(first.right(6), second.right(6));
}

TEST(CreateName, ReadsTheClockAnewForEachPart) {
  Services().now = [reading = 0]() mutable {
    ++reading;  // each reading tells its number in the part that it is asked for
    return QDateTime(QDate(2000 + reading, reading, reading), QTime(reading, reading, reading));
  };
  test::FixRandom({0.5});
  EXPECT_EQ(CreateName(), u"20010203040506500000"_s);
}

TEST(CreateName, TakesOneRandomNumber) {
  test::FixClock(kLastSecond);
  test::FixRandom({0.1, 0.1, 0.3});
  EXPECT_EQ(CreateName().right(6), u"100000"_s);
  EXPECT_EQ(CreateName().right(6), u"100000"_s);
  EXPECT_EQ(CreateName().right(6), u"300000"_s);
}

TEST(CreateName, IsNeverTheSameTwiceInABulkOfTenThousand) {
  std::set<QString> names;
  for (int count = 0; count < 10'000; ++count) names.insert(CreateName());
  EXPECT_EQ(names.size(), 10'000u);
}

// How many of the numbers that two processes take in the same moment both have.
std::ptrdiff_t TakenByBoth() {
  const auto take = [] {
    QByteArrayList names;
    for (int count = 0; count < 2000; ++count) names << CreateName().right(6).toLatin1();
    return names.join(',');
  };
  std::map<QByteArray, int> taken;
  for (const QByteArray& answer : test::AtOnce({take, take}))
    for (const QByteArray& digits : answer.split(',')) ++taken[digits];
  return std::count_if(taken.begin(), taken.end(), [](const auto& digits) { return digits.second > 1; });
}

// Both are copies of this process, which has just taken one. Numbers that were all random would meet each time.
TEST(CreateName, TakesOtherNumbersInEachProcess) {
  CreateName();
  int met = 0;
  for (int time = 0; time < 3; ++time) met += TakenByBoth() > 0;
  EXPECT_LE(met, 1) << "which happens in one of 250";
}

TEST(ClockSeededRandom, BeginsAnywhereBelowOne) {
  double sum = 0, least = 1, greatest = 0;
  for (int count = 0; count < 1'000; ++count) {
    const double number = ClockSeededRandom().Next();
    sum += number;
    least = std::min(least, number);
    greatest = std::max(greatest, number);
  }
  EXPECT_GE(least, 0.0);
  EXPECT_LT(greatest, 1.0);
  EXPECT_NEAR(sum / 1'000, 0.5, 0.1);  // 11 standard deviations
}

TEST(ClockSeededRandom, CountsOnByMillionths) {
  ClockSeededRandom random;
  const int first = int(random.Next() * 1e6);
  for (int count = 1; count <= 10'000; ++count) ASSERT_EQ(int(random.Next() * 1e6), (first + count) % 1'000'000);
}

}  // namespace
}  // namespace folvane
