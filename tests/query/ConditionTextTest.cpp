#include "query/Comparison.h"
#include "query/ConditionText.h"
#include "query/QueryFixture.h"

namespace folvane::test {
namespace {

/// A saved condition as it is written here: connector, field, comparison word, value.
struct Saved {
  QString connector, field, relation, value;
};

QueryConditionRow Row(const Saved& saved) {
  static const QHash<QString, QString> captions{{u"RegID"_s, u"登记号"_s},      {u"Amaintitle"_s, u"题名"_s},
                                                {u"DocNo"_s, u"文号"_s},        {u"SecurityClass"_s, u"密级"_s},
                                                {u"FileDate"_s, u"成文日期"_s}, {u"F"_s, u"F"_s}};
  QueryConditionRow row;
  row.compField = saved.field;
  row.chnCompField = captions.value(saved.field, saved.field);
  row.compRelation = ComparisonOperator(saved.relation);
  row.chnCompRelation = saved.relation;
  row.compValue = saved.value;
  row.andOrRelation = Connector(saved.connector);
  row.chnAndOrRelation = saved.connector;
  return row;
}

ConditionText TextFor(const QString& table, const std::vector<Saved>& conditions) {
  std::vector<QueryConditionRow> rows;
  for (const Saved& saved : conditions) rows.push_back(Row(saved));
  return TextOf(table, rows);
}

struct Case {
  const char* scenario;
  std::vector<Saved> conditions;
  QString sql, words;
};

// What is saved, and the two texts of it.
const std::vector<Case>& Cases() {
  static const std::vector<Case> cases{
      {"nothing", {}, u""_s, u""_s},
      {"one condition has no trailing blank", {{u""_s, u"F"_s, u"等于"_s, u"5"_s}}, u"T.F = '5'"_s, u"F 等于 5"_s},
      {"one condition drops its connector",
       {{u"或"_s, u"F"_s, u"大于等于"_s, u"5"_s}},
       u"T.F >= '5'"_s,
       u"F 大于等于 5"_s},
      {"不包含 is shown as 包含, and a bracket is escaped",
       {{u""_s, u"F"_s, u"不包含"_s, u"a[1]"_s}},
       u"T.F Not Like '%a[[]1]%'"_s,
       u"F 包含 a[1]"_s},
      {"包含", {{u""_s, u"F"_s, u"包含"_s, u"50%_"_s}}, u"T.F Like '%50%_%'"_s, u"F 包含 50%_"_s},
      {"brackets stay outside of patterns", {{u""_s, u"F"_s, u"等于"_s, u"[1]"_s}}, u"T.F = '[1]'"_s, u"F 等于 [1]"_s},
      {"a quote is not doubled", {{u""_s, u"F"_s, u"等于"_s, u"O'B"_s}}, u"T.F = 'O'B'"_s, u"F 等于 O'B"_s},
      {"the later of two conditions comes first, and two blanks end the text",
       {{u""_s, u"F"_s, u"等于"_s, u"1"_s}, {u"与"_s, u"G"_s, u"大于"_s, u"2"_s}},
       u"T.G > '2' and T.F = '1'  "_s,
       u"(G 大于 2) 与 (F 等于 1)  "_s},
      {"three conditions in reverse, each followed by its connector",
       {{u""_s, u"F"_s, u"小于"_s, u"1"_s},
        {u"或"_s, u"G"_s, u"不包含"_s, u"["_s},
        {u"与"_s, u"H"_s, u"不等于"_s, u""_s}},
       u"T.H <> '' and T.G Not Like '%[[]%' or T.F < '1'  "_s,
       u"(H 不等于 ) 与 (G 包含 [) 或 (F 小于 1)  "_s},
  };
  return cases;
}

TEST(ConditionTextTest, SavedConditionsBecomeTheTextsOfTheList) {
  for (const Case& each : Cases()) {
    SCOPED_TRACE(each.scenario);
    const ConditionText text = TextFor(u"T"_s, each.conditions);
    EXPECT_EQ(text.sql, each.sql);
    EXPECT_EQ(text.words, each.words);
  }
}

TEST(ConditionTextTest, TheRestrictionStandsBehindTheWholeTextAsItIs) {
  EXPECT_EQ(Restricted(u"T.F = '1' or T.G = '2'  "_s, u"H = 3"_s), u"T.F = '1' or T.G = '2'   and H = 3"_s);
  EXPECT_EQ(Restricted(u"T.F = '1'"_s, QString()), u"T.F = '1'"_s);
  EXPECT_EQ(Restricted(QString(), u"H = 3"_s), QString());
}

TEST(ConditionTextTest, TheEightWordsOfComparisonHaveTheirOperators) {
  QStringList pairs;
  for (const QString& word : ComparisonWords()) pairs << word + ComparisonOperator(word);
  EXPECT_EQ(pairs.join(u' '), u"等于= 大于> 大于等于>= 小于< 小于等于<= 不等于<> 包含Like 不包含Not Like"_s);
  EXPECT_EQ(ComparisonOperator(u"like"_s), QString());
  EXPECT_EQ(ConnectorWords(), (QStringList{u"与"_s, u"或"_s}));
  EXPECT_EQ(Connector(u"与"_s) + Connector(u"或"_s), u"andor"_s);
}

class ConditionSelectTest : public QueryTest {};
FOLVANE_ON_EACH_DATABASE(ConditionSelectTest);

TEST_P(ConditionSelectTest, TheTextsSelectWhatTheyWouldOnASqlServer) {
  struct Selection {
    std::vector<Saved> conditions;
    QString restriction, found;
  };
  const QString number = u"RegID"_s, title = u"Amaintitle"_s, docNo = u"DocNo"_s, secret = u"SecurityClass"_s;
  const std::vector<Selection> selections{
      {{{u""_s, number, u"大于"_s, u"2"_s}}, u""_s, u"10 11"_s},
      {{{u""_s, number, u"不等于"_s, u"10"_s}}, u""_s, u"1 2 11"_s},
      {{{u""_s, docNo, u"包含"_s, u"[2002]"_s}}, u""_s, u"1 2"_s},
      {{{u""_s, title, u"不包含"_s, u"a[1]"_s}}, u""_s, u"1 2 11"_s},
      {{{u""_s, title, u"包含"_s, u"A[1]"_s}}, u""_s, u"10"_s},
      {{{u""_s, secret, u"不等于"_s, u"秘密"_s}}, u""_s, u"2"_s},
      {{{u""_s, u"FileDate"_s, u"小于等于"_s, u"2002-03-05"_s}}, u""_s, u"1 2"_s},
      {{{u""_s, title, u"包含"_s, u"防汛"_s}, {u"与"_s, number, u"小于"_s, u"5"_s}}, u""_s, u"1"_s},
      {{{u""_s, title, u"包含"_s, u"防汛"_s}, {u"或"_s, number, u"等于"_s, u"2"_s}}, u""_s, u"1 2 10"_s},
      // The restriction binds the first condition alone, which stands last.
      {{{u""_s, title, u"包含"_s, u"防汛"_s}, {u"或"_s, number, u"等于"_s, u"2"_s}}, u"RegID > 5"_s, u"2 10"_s},
      // and before or: in reverse order too.
      {{{u""_s, number, u"等于"_s, u"11"_s},
        {u"或"_s, secret, u"等于"_s, u"秘密"_s},
        {u"与"_s, number, u"大于"_s, u"5"_s}},
       u""_s,
       u"10 11"_s},
  };
  for (const Selection& each : selections) {
    const QString condition = Restricted(TextFor(u"Lwdj"_s, each.conditions).sql, each.restriction);
    EXPECT_EQ(Found(condition), each.found) << qPrintable(condition);
  }
}

}  // namespace
}  // namespace folvane::test
