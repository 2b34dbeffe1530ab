#include "EntryFixture.h"
#include "entry/ProofingRule.h"

namespace folvane::test {
namespace {

/// The proofing rules of a table against what a form shows.
class FirstBrokenRuleTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    Run(u"insert into Lwdj (ArchiveID,DocNo,FondsNo,Pages) values ('1','甲','F1',5)"_s);
    Run(u"insert into Lwdj (ArchiveID,DocNo,FondsNo,Pages) values ('2','乙','F2',6)"_s);
    OpenRecords();
  }

  void AddRule(const QString& field, const QString& relation, const QString& value, int controlType = 1,
               int controlIndex = 1) {
    Run(u"insert into SaveCollect (TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,"
        "Relation,CollectValue) values ('Lwdj',%1,'%2',%3,%4,'字段','%5','%6')"_s.arg(rules_++)
            .arg(field)
            .arg(controlIndex)
            .arg(controlType)
            .arg(relation, value));
  }
  void Show(const QString& text, int controlType = 1) { shown_ = {{{controlType, 1}, u"Amaintitle"_s, {}, {}, text}}; }
  std::optional<BrokenRule> Broken(const QString& fondsNo = {}) const {
    return FirstBrokenRule(u"Lwdj"_s, fondsNo, shown_);
  }

  ShownFields shown_{{{1, 1}, {}, {}, {}, {}}};

 private:
  int rules_ = 0;
};

TEST_P(FirstBrokenRuleTest, PassesATableWithoutRules) {
  EXPECT_FALSE(Broken());
  EXPECT_EQ(TakeStatements(), QStringList{u"Select * from SaveCollect Where TableName='Lwdj' And ControlType <> '3' "
                                          "And ControlType <> 0"_s});
}

TEST_P(FirstBrokenRuleTest, TellsWhoseTextBreaksIt) {
  AddRule(u"DocNo"_s, u"等于"_s, u"丙"_s);
  Show(u"甲"_s);
  const auto broken = Broken();
  ASSERT_TRUE(broken);
  EXPECT_EQ(broken->breach.title, u"校对提示"_s);
  EXPECT_EQ(broken->control, (ControlId{1, 1}));
  EXPECT_EQ(broken->field, u"Amaintitle"_s) << "what the control shows, whatever field the rule names";
}

TEST_P(FirstBrokenRuleTest, TestsTheRulesInTheOrderOfTheirLines) {
  AddRule(u"DocNo"_s, u"等于"_s, u"丙"_s);
  AddRule(u"DocNo"_s, u"等于"_s, u"丁"_s);
  Run(u"update SaveCollect set Relation = '不等于', CollectValue = '甲' where CenterControlIndex = 0"_s);
  Show(u"甲"_s);
  const auto broken = Broken();
  ASSERT_TRUE(broken);
  EXPECT_TRUE(broken->breach.text.contains(u"只能输入不等于甲"_s)) << broken->breach.text.toStdString();
}

TEST_P(FirstBrokenRuleTest, FindsADuplicateInTheTable) {
  AddRule(u"DocNo"_s, u"不能是"_s, u"重复值"_s);
  Show(u"乙"_s);
  const auto broken = Broken();
  EXPECT_EQ(TakeStatements().last(), u"Select 1 From Lwdj Where DocNo='乙' And ArchiveId <> '1'"_s);
  ASSERT_TRUE(broken);
  EXPECT_EQ(broken->breach.title, u"数据重复提示"_s);
}

TEST_P(FirstBrokenRuleTest, AllowsTheSameValueInAnotherFonds) {
  AddRule(u"DocNo"_s, u"不能是"_s, u"重复值"_s);
  Show(u"乙"_s);
  EXPECT_FALSE(Broken(u"F1"_s));
  EXPECT_EQ(TakeStatements().last(), u"Select FondsNo From Lwdj Where DocNo='乙' And ArchiveId <> '1'"_s);
  EXPECT_TRUE(Broken(u"F2"_s));
}

TEST_P(FirstBrokenRuleTest, FindsNoCollisionOfARecordWithItself) {
  AddRule(u"DocNo"_s, u"不能是"_s, u"重复值"_s);
  Show(u"甲"_s);
  EXPECT_FALSE(Broken());
  EXPECT_FALSE(Broken(u"F1"_s));
}

TEST_P(FirstBrokenRuleTest, SearchesATextWithAnApostrophe) {
  Run(u"update Lwdj set DocNo = 'it''s' where ArchiveID = '2'"_s);
  AddRule(u"DocNo"_s, u"不能是"_s, u"重复值"_s);
  Show(u"it's"_s);
  EXPECT_TRUE(Broken());
}

TEST_P(FirstBrokenRuleTest, PassesOverRulesThatCannotBeTested) {
  AddRule(u"Missing"_s, u"不能是"_s, u"重复值"_s);
  AddRule(u"Pages"_s, u"大于"_s, u"1"_s);
  AddRule(u"Pages"_s, u"包含"_s, u"[9"_s);
  AddRule(u"Pages"_s, u"小于"_s, u"ten"_s);
  Show(u"99999999999"_s);
  EXPECT_FALSE(Broken());
  AddRule(u"Pages"_s, u"不等于"_s, u"99999999999"_s);
  EXPECT_TRUE(Broken());
}

TEST_P(FirstBrokenRuleTest, PassesOverARuleWithoutItsControl) {
  AddRule(u"DocNo"_s, u"等于"_s, u"丙"_s, 1, 9);
  EXPECT_FALSE(Broken());
}

TEST_P(FirstBrokenRuleTest, PassesOverEmptyFields) {
  AddRule(u"DocNo"_s, u"只能是"_s, u"数字"_s);
  Show(QString());
  EXPECT_FALSE(Broken());
}

TEST_P(FirstBrokenRuleTest, PassesOverRulesOfNoControl) {
  AddRule(u"DocNo"_s, u"等于"_s, u"丙"_s, 0);
  AddRule(u"DocNo"_s, u"等于"_s, u"丙"_s, 3);
  shown_ = {{{0, 1}, {}, {}, {}, u"甲"_s}, {{3, 1}, {}, {}, {}, u"甲"_s}};
  EXPECT_FALSE(Broken());
}

TEST_P(FirstBrokenRuleTest, PassesWhenTheRulesCannotBeRead) {
  Run(u"drop table SaveCollect"_s);
  EXPECT_FALSE(Broken());
}

FOLVANE_ON_EACH_DATABASE(FirstBrokenRuleTest);

}  // namespace
}  // namespace folvane::test
