#include "query/CriterionBox.h"
#include "query/QueryFixture.h"
#include "query/SimpleCondition.h"

namespace folvane::test {
namespace {

TEST(SimpleConditionTest, ATextBoxAsksForWhatContainsTheText) {
  EXPECT_EQ(LikeCondition(u"F"_s, u"x"_s), u"F Like '%x%'"_s);
  EXPECT_EQ(LikeCondition(u"F"_s, u" "_s), u"F Like '% %'"_s);
  EXPECT_EQ(LikeCondition(u"F"_s, u"O'B[1]"_s), u"F Like '%O'B[1]%'"_s) << "nothing is escaped";
  EXPECT_EQ(LikeCondition(u"F"_s, QString()), QString());
}

TEST(SimpleConditionTest, APairOfLimitsTakesOneEndOrBoth) {
  EXPECT_EQ(RangeCondition(u"F"_s, u"1"_s, u"5"_s), u"(F BETWEEN '1' And '5')"_s);
  EXPECT_EQ(RangeCondition(u"F"_s, u"1"_s, QString()), u"(F >= '1')"_s);
  EXPECT_EQ(RangeCondition(u"F"_s, QString(), u"5"_s), u"(F <= '5')"_s);
  EXPECT_EQ(RangeCondition(u"F"_s, QString(), QString()), QString());
}

TEST(SimpleConditionTest, ALimitIsANumberOrADateAsTheFieldHoldsIt) {
  const std::vector<std::pair<QString, QString>> limits{
      {u" 12 "_s, u"12"_s},
      {u"-3.5"_s, u"-3.5"_s},
      {u"１２"_s, u"12"_s},
      {u"2002/3/4"_s, u"2002-03-04"_s},
      {u"2002-3-4"_s, u"2002-03-04"_s},
      {u"2002.3.4"_s, u"2002-03-04"_s},
      {u"20020304"_s, u"20020304"_s},
      {u"2002-03"_s, u"2002-03"_s},
      {u"2002-13-40"_s, u"2002-13-40"_s},
      {u"  "_s, QString()},
  };
  for (const auto& [typed, limit] : limits) EXPECT_EQ(RangeLimit(typed), limit) << qPrintable(typed);
}

TEST(SimpleConditionTest, TermsStandByKindAndNotByTheirPlaceOnTheScreen) {
  SimpleCriteria criteria;
  criteria.dictionaryTexts = {{u"D"_s, u"d"_s}, {u"E"_s, QString()}};
  criteria.dates = {{u"X"_s, u"2002-01-01"_s, u"2002-12-31"_s},
                    {u"Y"_s, u"2002-01-01"_s, QString()},
                    {u"Z"_s, QString(), u"2002-12-31"_s},
                    {u"N"_s, QString(), QString()}};
  criteria.ranges = {u"(R >= '1')"_s, QString()};
  criteria.likes = {QString(), u"L Like '%l%'"_s};
  EXPECT_EQ(SimpleCondition(u"T"_s, criteria),
            u"T.L Like '%l%' And (R >= '1') And (T.X BETWEEN '2002-01-01' And '2002-12-31') And "
            "(T.Y >= '2002-01-01') And (T.Z <= '2002-12-31') And T.D Like '%d%'"_s);
  EXPECT_EQ(SimpleCondition(u"T"_s, {}), QString());
}

TEST(LikeCriterionBoxTest, ItHasACaptionAFieldAndAResult) {
  LikeCriterionBox box;
  box.setProperty("Caption", u"题名"_s);
  box.setProperty("DataField", u"Amaintitle"_s);
  EXPECT_EQ(box.property("Caption"), u"题名"_s);
  EXPECT_EQ(box.property("Result"), QString());
  box.setProperty("text", u"防汛"_s);
  EXPECT_EQ(box.property("Result"), u"Amaintitle Like '%防汛%'"_s);
  Retype(box, u"档案"_s);
  EXPECT_EQ(box.property("text"), u"档案"_s);
  EXPECT_EQ(box.Result(), u"Amaintitle Like '%档案%'"_s);
}

TEST(RangeCriterionBoxTest, ItTakesTheSignsOfNumbersAndDatesAtBothEnds) {
  RangeCriterionBox box;
  box.setProperty("Caption", u"登记号"_s);
  box.setProperty("DataField", u"RegID"_s);
  EXPECT_EQ(box.property("Result"), QString());
  Type(Find(box, u"Begin"_s), u"1'a２"_s);
  EXPECT_EQ(TextIn(box, u"Begin"_s), u"12"_s);
  EXPECT_EQ(box.property("Result"), u"(RegID >= '12')"_s);
  Type(Find(box, u"End"_s), u"2002/3/4"_s);
  EXPECT_EQ(box.property("Result"), u"(RegID BETWEEN '12' And '2002-03-04')"_s);
  Retype(Find(box, u"Begin"_s), QString());
  EXPECT_EQ(box.property("Result"), u"(RegID <= '2002-03-04')"_s);
}

class SimpleConditionSelectTest : public QueryTest {};
FOLVANE_ON_EACH_DATABASE(SimpleConditionSelectTest);

TEST_P(SimpleConditionSelectTest, TheConditionsOfTheBoxesSelectByNumberAndByDate) {
  const std::vector<std::pair<QString, QString>> selections{
      {RangeCondition(u"RegID"_s, u"2"_s, u"10"_s), u"2 10"_s},
      {RangeCondition(u"RegID"_s, u"9"_s, {}), u"10 11"_s},
      {RangeCondition(u"RegID"_s, {}, u"2"_s), u"1 2"_s},
      {RangeCondition(u"FinishDate"_s, u"20020311"_s, {}), u"2 10"_s},
      {RangeCondition(u"FinishDate"_s, u"20020301"_s, u"20020331"_s), u"1 2"_s},
      {RangeCondition(u"Lwdj.FileDate"_s, u"2002-03-05"_s, u"2002-04-01"_s), u"2 10"_s},
      {RangeCondition(u"Lwdj.FileDate"_s, {}, u"2002-03-04"_s), u"1"_s},
      {u"Lwdj."_s + LikeCondition(u"Amaintitle"_s, u"通知"_s), u"1 2"_s},
      {u"Lwdj."_s + LikeCondition(u"Amaintitle"_s, u"o''BRIEN"_s), u"11"_s},
      {u"Lwdj."_s + LikeCondition(u"DocNo"_s, u"[国青]"_s), u"1 2 10"_s},
  };
  for (const auto& [condition, found] : selections) EXPECT_EQ(Found(condition), found) << qPrintable(condition);
}

}  // namespace
}  // namespace folvane::test
