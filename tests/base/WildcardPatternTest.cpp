#include <gtest/gtest.h>

#include "base/WildcardPattern.h"
#include "support/QtPrinting.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

struct MatchCase {
  QString pattern, text;
  bool matches;
};

void PrintTo(const MatchCase& c, std::ostream* out) {
  *out << '"' << c.pattern.toStdString() << "\" on \"" << c.text.toStdString() << '"';
}

class Pattern : public testing::TestWithParam<MatchCase> {};

TEST_P(Pattern, MatchesAsTheOperatorDoes) {
  EXPECT_EQ(WildcardPattern(GetParam().pattern).Matches(GetParam().text), GetParam().matches);
}

// clang-format off
const MatchCase kSigns[] = {
    {u"AB###"_s, u"AB123"_s, true},
    {u"AB###"_s, u"ab123"_s, false},                   // binary: case counts
    {u"AB###"_s, u"AB12"_s, false},
    {u"AB###"_s, u"AB1234"_s, false},                  // the whole text, not a part of it
    {u"ABC*XYZ"_s, u"ABCDEFGHI-VWXYZ"_s, true},
    {u"ABC*XYZ"_s, u"ABCXYZ"_s, true},
    {u"ABC*XYZ"_s, u"ABCXY"_s, false},
    {u"1???X"_s, u"1uxcX"_s, true},
    {u"1???X"_s, u"1uxcx"_s, false},
    {u"??"_s, u"文件"_s, true},
    {u"#"_s, u"１"_s, false},                          // a digit is 0 to 9
    {u"#"_s, u"#"_s, false},
    {u"#*"_s, u"1"_s, true},
    {u"?"_s, u"\n"_s, true},                           // a line break is a character
    {u" "_s, u""_s, false},                            // blanks count
    {u"*〔####〕*号"_s, u"国发〔2002〕17号"_s, true},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Signs, Pattern, testing::ValuesIn(kSigns));

// clang-format off
const MatchCase kRuns[] = {
    {u""_s, u""_s, true},
    {u""_s, u"a"_s, false},
    {u"*"_s, u""_s, true},
    {u"**"_s, u"abc"_s, true},
    {u"?"_s, u""_s, false},
    {u"a*b"_s, u"ab1b"_s, true},
    {u"*ab*ab"_s, u"abxab"_s, true},
    {u"*ab*ab"_s, u"ab"_s, false},
    {u"*a?b"_s, u"aaxb"_s, true},
    {u"*x"_s, u"xxy"_s, false},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Runs, Pattern, testing::ValuesIn(kRuns));

// clang-format off
const MatchCase kLists[] = {
    {u"[abc]"_s, u"b"_s, true},
    {u"[abc]"_s, u"d"_s, false},
    {u"[abc]"_s, u""_s, false},
    {u"[a-f]"_s, u"f"_s, true},
    {u"[a-f]"_s, u"F"_s, false},
    {u"[A-Za-z][0-9]"_s, u"q7"_s, true},
    {u"[一-龥]"_s, u"文"_s, true},
    {u"[!x]"_s, u"y"_s, true},
    {u"[!x]"_s, u"x"_s, false},
    {u"[!x]"_s, u""_s, false},            // one character that is not x, not none
    {u"[!a-c]*"_s, u"d1"_s, true},
    {u"[!a-cx-z]"_s, u"y"_s, false},      // negation is of the whole list
    {u"[!0-9]"_s, u"５"_s, true},
    {u"[^a]"_s, u"^"_s, true},            // another operator's negation is a character here
    {u"[^a]"_s, u"b"_s, false},
    {u"[a!]"_s, u"!"_s, true},            // negation only at the front
    {u"[!]"_s, u"!"_s, true},             // alone it stands for itself
    {u"[!!]"_s, u"!"_s, false},
    {u"a[]b"_s, u"ab"_s, true},           // no character at all
    {u"[]"_s, u""_s, true},
    {u"[[]17[]]"_s, u"[17]"_s, true},     // the list is empty and the ] after it stands for itself
    {u"[[]17]"_s, u"[17]"_s, true},
    {u"a]"_s, u"a]"_s, true},
    {u"[*?#]"_s, u"#"_s, true},
    {u"[*?#]"_s, u"a"_s, false},
    {u"[-a]"_s, u"-"_s, true},
    {u"[a-]"_s, u"-"_s, true},
    {u"[!-a]"_s, u"-"_s, false},
    {u"[-]"_s, u"-"_s, true},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Lists, Pattern, testing::ValuesIn(kLists));

TEST(WildcardPattern, RefusesAListThatIsNotClosed) {
  EXPECT_THROW(WildcardPattern(u"a["), PatternError);
  EXPECT_THROW(WildcardPattern(u"[abc"), PatternError);
}

TEST(WildcardPattern, RefusesADescendingRange) { EXPECT_THROW(WildcardPattern(u"[z-a]"), PatternError); }

TEST(WildcardPattern, RefusesAHyphenThatJoinsNothing) { EXPECT_THROW(WildcardPattern(u"[a-c-e]"), PatternError); }

TEST(WildcardPattern, SaysWhatIsWrongWithAPattern) {
  try {
    WildcardPattern(u"AB[12");
    FAIL() << "the pattern was taken";
  } catch (const PatternError& error) {
    EXPECT_EQ(QString::fromUtf8(error.what()), u"格式“AB[12”有误：方括号没有闭合。"_s);
  }
}

TEST(WildcardPattern, StaysFastOnRunsThatDoNotFit) {
  const QString text(20000, u'a');
  EXPECT_FALSE(WildcardPattern(u"*a*a*a*a*a*a*a*b").Matches(text));
}

}  // namespace
}  // namespace folvane
