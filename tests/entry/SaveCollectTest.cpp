#include <map>

#include <folvane/ClsSaveCollect.h>

#include "EntryFixture.h"
#include "entry/EntryControls.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {

/// Proofing rules against objects that stand in for the controls of an open entry form.
class SaveCollectTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    Run(u"insert into Lwdj (ArchiveID,DocNo,FondsNo,Pages) values ('1','甲','F1',5)"_s);
    Run(u"insert into Lwdj (ArchiveID,DocNo,FondsNo,Pages) values ('2','乙','F2',6)"_s);
    SetControlFinder([this](const ControlId& control) -> QObject* {
      return control.index == 1 ? &controls_[control.type] : nullptr;
    });
    OpenRecords();
  }
  void TearDown() override {
    SetControlFinder({});
    EntryTest::TearDown();
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
  void Show(const QString& text, int controlType = 1) { controls_[controlType].setProperty("text", text); }
  QString Shown(int controlType = 1) { return controls_[controlType].property("text").toString(); }
  static bool Fails(const QString& fondsNo = {}) {
    bool failed = true;
    ClsSaveCollect().SaveCollect(u"Lwdj"_s, fondsNo, failed);
    return failed;
  }

  MessageBoxes boxes_;

 private:
  std::map<int, QObject> controls_;
  int rules_ = 0;
};

TEST_P(SaveCollectTest, PassesATableWithoutRules) {
  EXPECT_FALSE(Fails());
  EXPECT_EQ(TakeStatements(), QStringList{u"Select * from SaveCollect Where TableName='Lwdj' And ControlType <> '3' "
                                          "And ControlType <> 0"_s});
}

TEST_P(SaveCollectTest, TellsOfTheFirstBrokenRuleOnly) {
  AddRule(u"DocNo"_s, u"等于"_s, u"丙"_s);
  AddRule(u"DocNo"_s, u"等于"_s, u"丁"_s);
  Show(u"甲"_s);
  EXPECT_TRUE(Fails());
  ASSERT_EQ(boxes_.Requests().size(), 1u);
  EXPECT_EQ(boxes_.Last().title, u"校对提示"_s);
  EXPECT_EQ(boxes_.Last().flags, MessageFlag::Information);
  EXPECT_EQ(Shown(), u"甲"_s);
}

TEST_P(SaveCollectTest, TestsTheRulesInTheOrderOfTheirLines) {
  AddRule(u"DocNo"_s, u"等于"_s, u"丙"_s);
  AddRule(u"DocNo"_s, u"等于"_s, u"丁"_s);
  Run(u"update SaveCollect set Relation = '不等于', CollectValue = '甲' where CenterControlIndex = 0"_s);
  Show(u"甲"_s);
  EXPECT_TRUE(Fails());
  EXPECT_TRUE(boxes_.Last().text.contains(u"只能输入不等于甲"_s)) << boxes_.Last().text.toStdString();
}

TEST_P(SaveCollectTest, ClearsTheTextInTheControlAndTheRecord) {
  AddRule(u"Pages"_s, u"小于"_s, u"10"_s);
  Show(u"abc"_s);
  EXPECT_TRUE(Fails());
  EXPECT_EQ(Shown(), QString());
  EXPECT_TRUE(Shared().CurrentRecords[u"Pages"_s].IsNull());
}

TEST_P(SaveCollectTest, LeavesATextThatIsNotAboveInPlace) {
  AddRule(u"Pages"_s, u"大于"_s, u"10"_s);
  Show(u"abc"_s);
  EXPECT_TRUE(Fails());
  EXPECT_EQ(Shown(), u"abc"_s);
  EXPECT_EQ(Shared().CurrentRecords[u"Pages"_s].Text(), u"5"_s);
}

TEST_P(SaveCollectTest, FindsADuplicateInTheTable) {
  AddRule(u"DocNo"_s, u"不能是"_s, u"重复值"_s);
  Show(u"乙"_s);
  EXPECT_TRUE(Fails());
  EXPECT_EQ(TakeStatements().last(), u"Select 1 From Lwdj Where DocNo='乙' And ArchiveId <> '1'"_s);
  EXPECT_EQ(boxes_.Last().title, u"数据重复提示"_s);
}

TEST_P(SaveCollectTest, AllowsTheSameValueInAnotherFonds) {
  AddRule(u"DocNo"_s, u"不能是"_s, u"重复值"_s);
  Show(u"乙"_s);
  EXPECT_FALSE(Fails(u"F1"_s));
  EXPECT_EQ(TakeStatements().last(), u"Select FondsNo From Lwdj Where DocNo='乙' And ArchiveId <> '1'"_s);
  EXPECT_TRUE(Fails(u"F2"_s));
}

TEST_P(SaveCollectTest, FindsNoCollisionOfARecordWithItself) {
  AddRule(u"DocNo"_s, u"不能是"_s, u"重复值"_s);
  Show(u"甲"_s);
  EXPECT_FALSE(Fails());
  EXPECT_FALSE(Fails(u"F1"_s));
}

TEST_P(SaveCollectTest, SearchesATextWithAnApostrophe) {
  Run(u"update Lwdj set DocNo = 'it''s' where ArchiveID = '2'"_s);
  AddRule(u"DocNo"_s, u"不能是"_s, u"重复值"_s);
  Show(u"it's"_s);
  EXPECT_TRUE(Fails());
}

TEST_P(SaveCollectTest, PassesOverRulesThatCannotBeTested) {
  AddRule(u"Missing"_s, u"不能是"_s, u"重复值"_s);
  AddRule(u"Pages"_s, u"大于"_s, u"1"_s);
  AddRule(u"Pages"_s, u"包含"_s, u"[9"_s);
  AddRule(u"Pages"_s, u"小于"_s, u"ten"_s);
  Show(u"99999999999"_s);
  EXPECT_FALSE(Fails());
  AddRule(u"Pages"_s, u"不等于"_s, u"99999999999"_s);
  EXPECT_TRUE(Fails());
}

TEST_P(SaveCollectTest, PassesOverARuleWithoutItsControl) {
  AddRule(u"DocNo"_s, u"等于"_s, u"丙"_s, 1, 9);
  EXPECT_FALSE(Fails());
}

TEST_P(SaveCollectTest, PassesOverEmptyFields) {
  AddRule(u"DocNo"_s, u"只能是"_s, u"数字"_s);
  Show(QString());
  EXPECT_FALSE(Fails());
}

TEST_P(SaveCollectTest, PassesOverRulesOfNoControl) {
  AddRule(u"DocNo"_s, u"等于"_s, u"丙"_s, 0);
  AddRule(u"DocNo"_s, u"等于"_s, u"丙"_s, 3);
  Show(u"甲"_s, 0);
  Show(u"甲"_s, 3);
  EXPECT_FALSE(Fails());
}

TEST_P(SaveCollectTest, PassesWhenTheRulesCannotBeRead) {
  Run(u"drop table SaveCollect"_s);
  EXPECT_FALSE(Fails());
}

TEST_P(SaveCollectTest, FindsTheControlsOfTheOpenForm) {
  EXPECT_NE(ClsSaveCollect().FindControl(1, 10), nullptr);
  EXPECT_EQ(ClsSaveCollect().FindControl(2, 10), nullptr);
  SetControlFinder({});
  EXPECT_EQ(ClsSaveCollect().FindControl(1, 10), nullptr);
}

FOLVANE_ON_EACH_DATABASE(SaveCollectTest);

}  // namespace
}  // namespace folvane::test
