#include <gtest/gtest.h>

#include <folvane/HostServices.h>

#include "shell/TypedKeys.h"
#include "support/HostDoubles.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

// Counts the beeps for as long as it lives.
struct Beeps {
  Beeps() {
    Services().beep = [this] { ++count; };
  }
  int count = 0;
};

TEST(FilterKey, DigitsAndBackspacePassWithoutABeep) {
  Beeps beeps;
  EXPECT_EQ(FilterKey('0', u"0123456789"_s, true), '0');
  EXPECT_EQ(FilterKey(8, u"0123456789"_s, true), 8);
  EXPECT_EQ(beeps.count, 0);
}

TEST(FilterKey, ALetterBecomesZeroWithABeep) {
  Beeps beeps;
  EXPECT_EQ(FilterKey('a', u"0123456789"_s, true), 0);
  EXPECT_EQ(beeps.count, 1);
}

TEST(FilterKey, BackspaceHasToBeAllowed) {
  Beeps beeps;
  EXPECT_EQ(FilterKey(8, u"0123456789"_s, false), 0);
  EXPECT_EQ(beeps.count, 1);
}

TEST(FilterKey, CaseDoesNotMatterAndTheKeyComesBackAsTyped) {
  Beeps beeps;
  EXPECT_EQ(FilterKey('x', u"XY"_s, false), 'x');
  EXPECT_EQ(FilterKey('X', u"xy"_s, false), 'X');
  EXPECT_EQ(FilterKey(u'文', u"件文"_s, false), u'文');
  EXPECT_EQ(beeps.count, 0);
}

TEST(FilterKey, AFailingBeepIsPassedOver) {
  Services().beep = [] { throw std::runtime_error("no sound"); };
  EXPECT_EQ(FilterKey('a', u"0"_s, false), 0);
}

}  // namespace
}  // namespace folvane
