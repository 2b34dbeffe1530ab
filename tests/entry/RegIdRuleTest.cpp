#include "EntryFixture.h"
#include "entry/RegIdRule.h"

namespace folvane::test {
namespace {

class RegIdRuleTest : public EntryTest {
 protected:
  void Add(const QString& key, int number, const QString& date, const QString& fonds = u"F1"_s) {
    Run(u"insert into Lwdj (ArchiveID,RegID,CreatedDate,FileDate,FondsNo) values ('%1',%2,'%3','%3','%4')"_s.arg(
        key, QString::number(number), date, fonds));
  }
  static RegIdRule Rule(int formula) { return {u"Lwdj"_s, formula, u" (Lwdj.FondsNo='F1') "_s, u"RegID < 8"_s, true}; }
  void AddThreeRecords() {
    Add(u"1"_s, 4, u"2002-03-04"_s);
    Add(u"2"_s, 9, u"2002-05-06"_s, u"F2"_s);
    Add(u"3"_s, 20, u"2001-03-04"_s);
  }
  /// RegID of a new record with these values.
  QString Computed(const RegIdRule& rule, const QString& field = {}, const QString& value = {}) {
    Recordset& records = OpenRecords();
    records.AddNew();
    if (!field.isEmpty()) records[field].SetValue(value);
    ComputeRegId(records, rule);
    return records[u"RegID"_s].IsNull() ? u"<null>"_s : records[u"RegID"_s].Text();
  }
};

TEST_P(RegIdRuleTest, CountsFromOneInAnEmptyTable) {
  EXPECT_EQ(NextRegId(Rule(RegFormula::CreatedDate), u"CreatedDate"_s, u"2002"_s), 1);
  EXPECT_EQ(TakeStatements().last(), u"Select Max(RegID) From Lwdj Where CreatedDate Like '2002%'"_s);
}

TEST_P(RegIdRuleTest, CountsEachYearByItself) {
  AddThreeRecords();
  EXPECT_EQ(NextRegId(Rule(RegFormula::CreatedDate), u"CreatedDate"_s, u"2002"_s), 10);
  EXPECT_EQ(NextRegId(Rule(RegFormula::FileDate), u"FileDate"_s, u"2001"_s), 21);
}

TEST_P(RegIdRuleTest, JoinsTheRightsUnderRulesFourAndSix) {
  AddThreeRecords();
  EXPECT_EQ(NextRegId(Rule(RegFormula::CreatedDateAndRights), u"CreatedDate"_s, u"2002"_s), 5);
  EXPECT_EQ(TakeStatements().last(),
            u"Select Max(RegID) From Lwdj Where CreatedDate Like '2002%' AND (Lwdj.FondsNo='F1')"_s);
  EXPECT_EQ(NextRegId(Rule(RegFormula::FileDateAndRights), u"FileDate"_s, u"2002"_s), 5);
}

TEST_P(RegIdRuleTest, JoinsNoRightsThatAreBlank) {
  RegIdRule rule = Rule(RegFormula::CreatedDateAndRights);
  rule.rowLimit = u"  "_s;
  NextRegId(rule, u"CreatedDate"_s, u"2002"_s);
  EXPECT_EQ(TakeStatements().last(), u"Select Max(RegID) From Lwdj Where CreatedDate Like '2002%'"_s);
}

TEST_P(RegIdRuleTest, CountsTheBrowsersListUnderRuleSeven) {
  AddThreeRecords();
  RegIdRule rule = Rule(RegFormula::BrowserCondition);
  EXPECT_EQ(NextRegId(rule, {}, {}), 5);
  EXPECT_EQ(TakeStatements().last(), u"Select Max(RegID) From Lwdj Where  (Lwdj.FondsNo='F1')  And RegID < 8"_s);
  rule.rowLimit.clear();
  NextRegId(rule, {}, {});
  EXPECT_EQ(TakeStatements().last(), u"Select Max(RegID) From Lwdj Where RegID < 8"_s);
}

TEST_P(RegIdRuleTest, ReadsTheWholeTableUnderRuleSevenWithoutConditions) {
  AddThreeRecords();
  EXPECT_EQ(NextRegId({u"Lwdj"_s, RegFormula::BrowserCondition, {}, {}, false}, {}, {}), 21);
  EXPECT_EQ(TakeStatements().last(), u"Select Max(RegID) From Lwdj"_s);
}

TEST_P(RegIdRuleTest, ComputesTheNumberOfTheRecordsYear) {
  AddThreeRecords();
  EXPECT_EQ(Computed(Rule(RegFormula::CreatedDate), u"CreatedDate"_s, u"20010304"_s), u"21"_s);
  EXPECT_EQ(Computed(Rule(RegFormula::FileDate), u"FileDate"_s, u"2002-12-31"_s), u"10"_s);
  EXPECT_EQ(Computed(Rule(RegFormula::DocNo), u"DocNo"_s, u"X〔2002〕17号"_s), u"17"_s);
  EXPECT_EQ(Computed(Rule(RegFormula::BrowserCondition)), u"5"_s);
}

TEST_P(RegIdRuleTest, TakesAMissingCreatedDateForAnyYear) {
  AddThreeRecords();
  EXPECT_EQ(Computed(Rule(RegFormula::CreatedDate)), u"21"_s);
}

TEST_P(RegIdRuleTest, ComputesNothingWithoutAFileDate) {
  AddThreeRecords();
  EXPECT_EQ(Computed(Rule(RegFormula::FileDate)), u"<null>"_s);
}

TEST_P(RegIdRuleTest, ComputesNothingUnderRulesZeroAndOne) {
  EXPECT_EQ(Computed(Rule(RegFormula::None)), u"<null>"_s);
  EXPECT_EQ(Computed(Rule(RegFormula::AutoNumber)), u"<null>"_s);
  EXPECT_TRUE(TakeStatements().isEmpty());
}

TEST_P(RegIdRuleTest, ANumberIsSharedWithinItsYearOrScope) {
  AddThreeRecords();
  Add(u"4"_s, 20, u"2002-07-08"_s, u"F2"_s);
  Add(u"5"_s, 9, u"2002-07-08"_s);
  Add(u"6"_s, 4, u"2002-07-08"_s);
  Recordset& records = OpenRecords();
  const auto shares = [&](const QString& key, int formula) {
    records.MoveFirst();
    records.Find(u"ArchiveID = '%1'"_s.arg(key));
    return IsRegIdShared(records, Rule(formula));
  };
  EXPECT_TRUE(shares(u"5"_s, RegFormula::CreatedDate));
  EXPECT_TRUE(shares(u"5"_s, RegFormula::FileDate));
  EXPECT_FALSE(shares(u"5"_s, RegFormula::CreatedDateAndRights)) << "the other is of another fonds";
  EXPECT_FALSE(shares(u"4"_s, RegFormula::CreatedDate)) << "the other is of another year";
  EXPECT_TRUE(shares(u"6"_s, RegFormula::BrowserCondition));
  EXPECT_FALSE(shares(u"5"_s, RegFormula::BrowserCondition)) << "the list has none of that number";
  EXPECT_FALSE(shares(u"5"_s, RegFormula::DocNo));
  EXPECT_FALSE(shares(u"5"_s, RegFormula::AutoNumber));
  EXPECT_TRUE(TakeStatements().filter(u"RegID ="_s).isEmpty()) << "the host is not told of it";
}

TEST_P(RegIdRuleTest, FollowsADocumentNumberInAnyState) {
  Recordset& records = OpenRecords();
  records.AddNew();
  const TypedField picker{ControlKind::F_Organ, u"docno"_s, u"国发〔2002〕第018号"_s};
  EXPECT_TRUE(FollowTyping(records, Rule(RegFormula::DocNo), picker, false));
  EXPECT_EQ(records[u"RegID"_s].Text(), u"18"_s);
  EXPECT_FALSE(FollowTyping(records, Rule(RegFormula::CreatedDate), picker, true));
  EXPECT_FALSE(FollowTyping(records, Rule(RegFormula::DocNo), {ControlKind::Cmb, u"DocNo"_s, u"〔2002〕1号"_s}, false));
}

TEST_P(RegIdRuleTest, FollowsTheYearOfANewRecordOnly) {
  AddThreeRecords();
  Recordset& records = OpenRecords();
  const TypedField date{ControlKind::DTP_Arch, u"CREATEDDATE"_s, u"20010304"_s};
  EXPECT_FALSE(FollowTyping(records, Rule(RegFormula::CreatedDate), date, false));
  EXPECT_TRUE(FollowTyping(records, Rule(RegFormula::CreatedDate), date, true));
  EXPECT_EQ(records[u"RegID"_s].Text(), u"21"_s);
}

TEST_P(RegIdRuleTest, FollowsOnlyTheDateOfItsRule) {
  Recordset& records = OpenRecords();
  records.AddNew();
  const auto follows = [&](int formula, int controlType, const QString& field, const QString& text) {
    return FollowTyping(records, Rule(formula), {controlType, field, text}, true);
  };
  EXPECT_TRUE(follows(RegFormula::FileDate, ControlKind::DTP, u"FileDate"_s, u"2002-03-04"_s));
  EXPECT_TRUE(follows(RegFormula::FileDateAndRights, ControlKind::Txt, u"FileDate"_s, u"2002"_s));
  EXPECT_FALSE(follows(RegFormula::CreatedDate, ControlKind::DTP, u"CreatedDate"_s, u"2002-03-04"_s));
  EXPECT_FALSE(follows(RegFormula::CreatedDate, ControlKind::Txt, u"FileDate"_s, u"2002"_s));
  EXPECT_FALSE(follows(RegFormula::FileDate, ControlKind::DTP_Arch, u"FileDate"_s, QString()));
}

TEST(RunningNumber, StandsBetweenTheYearAndTheSign) {
  EXPECT_EQ(RunningNumberIn(u"X〔2002〕17号"_s, true), u"17"_s);
  EXPECT_EQ(RunningNumberIn(u"X[2002]第017号"_s, false), u"017"_s);
}

TEST(RunningNumber, IsEmptyBeforeItIsTyped) { EXPECT_EQ(RunningNumberIn(u"〔2002〕号"_s, true), QString()); }

TEST(RunningNumber, NeedsTheBracketThatIsSwitchedOn) {
  EXPECT_EQ(RunningNumberIn(u"X〔2002〕17号"_s, false), QString());
  EXPECT_EQ(RunningNumberIn(u"X[2002]17号"_s, true), QString());
}

TEST(RunningNumber, NeedsTheSignBehindTheYear) {
  EXPECT_EQ(RunningNumberIn(u"号〔2002〕17"_s, true), QString());
  EXPECT_EQ(RunningNumberIn(QString(), true), QString());
}

FOLVANE_ON_EACH_DATABASE(RegIdRuleTest);

}  // namespace
}  // namespace folvane::test
