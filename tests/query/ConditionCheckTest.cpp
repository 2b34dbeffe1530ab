#include "data/DatabaseSession.h"
#include "query/ConditionCheck.h"
#include "query/QueryFixture.h"

namespace folvane::test {
namespace {

class ConditionCheckTest : public QueryTest {
 protected:
  /// The flaw of a condition on Lwdj.
  QString Flaw(const QString& caption, const QString& field, const QString& comparison, const QString& value) {
    QueryConditionRow row;
    row.tableName = u"Lwdj"_s;
    row.chnCompField = caption;
    row.compField = field;
    row.compRelation = comparison;
    row.compValue = value;
    return FlawOf(row, design_, *Connected());
  }
  void SetUp() override {
    QueryTest::SetUp();
    const std::vector<std::pair<QString, QString>> fields{{u"登记号"_s, u"RegID"_s},
                                                          {u"题名"_s, u"Amaintitle"_s},
                                                          {u"成文日期"_s, u"FileDate"_s},
                                                          {u"页数"_s, u"Pages"_s}};
    for (const auto& [caption, field] : fields) {
      design_.emplace_back();
      design_.back().chnFieldName = caption;
      design_.back().fieldName = field;
    }
    TakeStatements();
  }

  std::vector<DictionaryFieldRow> design_;
};

FOLVANE_ON_EACH_DATABASE(ConditionCheckTest);

TEST_P(ConditionCheckTest, AConditionThatCanBeComparedHasNoFlawAndCostsNoStatement) {
  EXPECT_EQ(Flaw(u"题名"_s, u"Amaintitle"_s, u"="_s, u"abc"_s), QString());
  EXPECT_EQ(Flaw(u"登记号"_s, u"RegID"_s, u">="_s, u"-5"_s), QString());
  EXPECT_EQ(Flaw(u"登记号"_s, u"regid"_s, u"="_s, u" 5 "_s), QString());
  EXPECT_EQ(Flaw(u"成文日期"_s, u"FileDate"_s, u"<"_s, u"2002-03-04"_s), QString());
  EXPECT_EQ(TakeStatements(), QStringList());
}

TEST_P(ConditionCheckTest, AValueThatTheFieldCannotBeComparedWithIsTold) {
  EXPECT_EQ(Flaw(u"登记号"_s, u"RegID"_s, u"="_s, u"abc"_s), u"“abc”不是数字"_s);
  EXPECT_EQ(Flaw(u"登记号"_s, u"RegID"_s, u"="_s, u"5.5"_s), u"“5.5”不是整数"_s);
  EXPECT_EQ(Flaw(u"成文日期"_s, u"FileDate"_s, u"<"_s, u"去年"_s), OnSqlite() ? QString() : u"“去年”不是日期"_s)
      << "SQLite keeps dates as texts";
  EXPECT_EQ(Flaw(u"登记号"_s, u"RegID"_s, u"Like"_s, u"abc"_s), QString()) << "patterns are compared as texts";
}

TEST_P(ConditionCheckTest, AFieldThatTheTableDoesNotHaveIsTold) {
  EXPECT_EQ(Flaw(u"页数"_s, u"Pages"_s, u"="_s, u"5"_s), u"表中没有字段“页数”"_s);
  EXPECT_EQ(Flaw(u"没有"_s, QString(), u"="_s, u"5"_s), u"表中没有字段“没有”"_s);
}

TEST_P(ConditionCheckTest, ACaptionThatStandsForAnotherFieldIsTold) {
  EXPECT_EQ(Flaw(u"没有"_s, u"RegID"_s, u"="_s, u"5"_s), u"表中没有字段“没有”，实际比较的是“登记号”"_s);
}

TEST_P(ConditionCheckTest, AColumnThatWasAddedSinceTheTableWasReadIsFound) {
  EXPECT_EQ(Flaw(u"页数"_s, u"Pages"_s, u"="_s, u"5"_s), u"表中没有字段“页数”"_s);
  Run(u"alter table Lwdj add Pages integer"_s);
  EXPECT_EQ(Flaw(u"页数"_s, u"Pages"_s, u"="_s, u"5"_s), QString());
}

TEST_P(ConditionCheckTest, OfATableThatTheDatabaseDoesNotKnowNothingIsSaidAgainstItsColumns) {
  Run(u"drop table Lwdj"_s);
  DatabaseSession::Of(*Connected()).RefreshSchema();
  EXPECT_EQ(Flaw(u"登记号"_s, u"RegID"_s, u"="_s, u"abc"_s), QString());
}

}  // namespace
}  // namespace folvane::test
