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

// A process that copies another begins with what that has drawn so far.
TEST(CreateName, DrawsOtherNumbersInEachProcess) {
  constexpr int kDraws = 1000;
  CreateName();
  const auto draw = [] {
    QByteArrayList names;
    for (int count = 0; count < kDraws; ++count) names << CreateName().right(6).toLatin1();
    return names.join(',');
  };
  std::map<QByteArray, int> drawn;
  for (const QByteArray& answer : test::AtOnce({draw, draw}))
    for (const QByteArray& digits : answer.split(',')) ++drawn[digits];
  const auto both = std::count_if(drawn.begin(), drawn.end(), [](const auto& digits) { return digits.second > 1; });
  EXPECT_GT(drawn.size(), kDraws);
  EXPECT_LT(both, 20) << "of a million numbers, where chance alone gives one";
}

TEST(ClockSeededRandom, StaysBelowOneAndSpreadsOverTheRange) {
  ClockSeededRandom random;
  double sum = 0, least = 1, greatest = 0;
  for (int count = 0; count < 10'000; ++count) {
    const double number = random.Next();
    sum += number;
    least = std::min(least, number);
    greatest = std::max(greatest, number);
  }
  EXPECT_GE(least, 0.0);
  EXPECT_LT(greatest, 1.0);
  EXPECT_NEAR(sum / 10'000, 0.5, 0.05);  // 17 standard deviations
}

}  // namespace
}  // namespace folvane
