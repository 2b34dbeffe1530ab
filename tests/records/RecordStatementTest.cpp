#include <gtest/gtest.h>

#include "records/RecordStatement.h"
#include "support/QtPrinting.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

TEST(RecordStatementTest, WithoutAConditionThereIsNoWherePart) {
  EXPECT_EQ(RecordStatement(u"Lwdj"_s, QString(), u"ArchiveId Desc"_s),
            u"Select * From Lwdj Order By ArchiveId Desc"_s);
  EXPECT_EQ(RecordStatement(u"Lwdj"_s, u"1 = 2"_s, u"RegID Asc"_s),
            u"Select * From Lwdj Where 1 = 2 Order By RegID Asc"_s);
}

TEST(RecordStatementTest, RightsAndAQueryAreJoinedByAnd) {
  EXPECT_EQ(JoinedWithRights(u"(a = 1)"_s, u"b = 2"_s), u"(a = 1) And b = 2"_s);
  EXPECT_EQ(JoinedWithRights(u"1 = 2"_s, QString()), u"1 = 2"_s);
  EXPECT_EQ(JoinedWithRights(QString(), u"b = 2"_s), u"b = 2"_s);
  EXPECT_EQ(JoinedWithRights(QString(), QString()), QString());
}

TEST(RecordStatementTest, AQueryThatJoinsByOrIsBoundAsAWhole) {
  EXPECT_EQ(JoinedWithRights(u"(a = 1)"_s, u"T.G > '2' or T.F = '1'  "_s), u"(a = 1) And (T.G > '2' or T.F = '1'  )"_s);
  EXPECT_EQ(JoinedWithRights(u"(a = 1)"_s, u"b = 2 And c = 3 Or d = 4"_s), u"(a = 1) And (b = 2 And c = 3 Or d = 4)"_s);
}

TEST(RecordStatementTest, AQueryWithoutRightsStaysAsItIs) {
  EXPECT_EQ(JoinedWithRights(QString(), u"b = 2 Or c = 3"_s), u"b = 2 Or c = 3"_s);
}

TEST(RecordStatementTest, AnOrInsideParenthesesIsBoundAlready) {
  EXPECT_FALSE(HasTopLevelOr(u"(DocNo = '' Or DocNo Is Null)"_s));
  EXPECT_FALSE(HasTopLevelOr(u"((a = 1 Or b = 2) And c = 3)"_s));
  EXPECT_TRUE(HasTopLevelOr(u"(a = 1 And b = 2) OR (c = 3)"_s));
}

TEST(RecordStatementTest, AnOrInAValueOrANameIsNone) {
  EXPECT_FALSE(HasTopLevelOr(u"T.F Like '%this or that%'"_s));
  EXPECT_FALSE(HasTopLevelOr(u"T.F = 'it''s ( Or'"_s));
  EXPECT_FALSE(HasTopLevelOr(u"[a Or b] = 1 And \"c Or d\" = 2"_s));
  EXPECT_FALSE(HasTopLevelOr(u"OrderNo = 1 And Author = 'x' And T.Color = 'y'"_s));
  EXPECT_TRUE(HasTopLevelOr(u"T.F = ')' or T.G = '('"_s));
}

// Parentheses around such a text would make whole what the database has to refuse.
TEST(RecordStatementTest, ATextThatDoesNotCloseWhatItOpensIsLeftToTheDatabase) {
  EXPECT_FALSE(HasTopLevelOr(u"T.F = 'x') Or ('1'='1'"_s));
  EXPECT_FALSE(HasTopLevelOr(u"T.F = ('x' Or '1'='1'"_s));
  EXPECT_FALSE(HasTopLevelOr(u"T.F = 'it's' Or a = 1"_s));
}

}  // namespace folvane::test
