#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "shell/SqlText.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

QStringList Parts(const QString& text, const QString& delimiter) {
  QStringList parts{u"left from before"_s};
  SplitText(parts, text, delimiter);
  return parts;
}

TEST(SplitText, ATrailingCommaGivesAnEmptyLastElement) {
  EXPECT_EQ(Parts(u"a,b,"_s, u","_s), (QStringList{u"a"_s, u"b"_s, QString()}));
}

TEST(SplitText, AnEmptyTextGivesOneEmptyElement) { EXPECT_EQ(Parts({}, u","_s), QStringList{QString()}); }

TEST(SplitText, WithoutADelimiterItIsTheComma) { EXPECT_EQ(Parts(u"文,件"_s, {}), (QStringList{u"文"_s, u"件"_s})); }

TEST(SplitText, ATextWithoutTheDelimiterIsOneElement) { EXPECT_EQ(Parts(u"a,b"_s, u"@"_s), QStringList{u"a,b"_s}); }

TEST(EscapeSql, DoublesQuotesAndKeepsBracketsOutsideOfLike) { EXPECT_EQ(EscapeSql(u"O'N[e]il"_s), u"O''N[e]il"_s); }

TEST(UnescapedLiteral, QuotesAnyTextButOneWithAQuoteThatIsNotDoubled) {
  EXPECT_EQ(UnescapedLiteral(u"[a]%\"--"_s), u"'[a]%\"--'"_s);
  EXPECT_EQ(UnescapedLiteral(u"''it''s''''"_s), u"'''it''s'''''"_s);
  for (const char* text : {"'", "it's", "'''", "' '", "'' '", "x' -- "})
    EXPECT_THROW(UnescapedLiteral(QLatin1String(text)), DataError) << text;
}

TEST(EscapeSql, OpensBracketsInLike) { EXPECT_EQ(EscapeSql(u"O'N[e]il"_s, true), u"O''N[[]e]il"_s); }

}  // namespace
}  // namespace folvane
