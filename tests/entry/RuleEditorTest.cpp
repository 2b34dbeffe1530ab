#include <folvane/DataError.h>

#include "EntryFixture.h"
#include "entry/RuleEditor.h"

namespace folvane::test {
namespace {

class RuleEditorTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    Run(u"insert into DynamicWindows (TableName,ChnTableName,ClassName,FieldName,ChnFieldName) values "
        "('Lwdj','收文登记','文书','DocNo','文号')"_s);
    Run(u"insert into SaveControls (DataSource,DataField,ControlType,ControlIndex) values ('Lwdj','DocNo',8,2)"_s);
  }
  void AddRule(int line = 0) {
    Run(u"insert into SaveCollect (TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,"
        "Relation,CollectValue,CustomFormat) values ('Lwdj',%1,'DocNo',2,8,'文号','只能是','自定义格式','A#')"_s.arg(
            line));
  }
  QString RuleCount() { return Value(u"select count(*) from SaveCollect"_s); }

  RuleEditor editor_{u"Lwdj"_s};
};

TEST_P(RuleEditorTest, ReadsRulesIntoTheirLines) {
  AddRule(4);
  RuleEditor::Lines lines;
  lines[4] = {u"文号"_s, u"只能是"_s, u"自定义格式"_s};
  EXPECT_EQ(editor_.ReadRules(), lines);
  EXPECT_EQ(TakeStatements().last(), u"Select * From SaveCollect Where TableName='Lwdj' And ControlType <> 0 "_s);
}

TEST_P(RuleEditorTest, PassesOverRulesThatBelongToNoLine) {
  for (const int line : {-1, 0, 99}) AddRule(line);
  RuleEditor::Lines lines;
  lines[0] = {u"文号"_s, u"只能是"_s, u"自定义格式"_s};
  EXPECT_EQ(editor_.ReadRules(), lines);
}

TEST_P(RuleEditorTest, OffersTheFieldsOfItsTable) {
  EXPECT_EQ(editor_.FillFieldValue(), QStringList{u"文号"_s});
  EXPECT_EQ(TakeStatements().last(), u"Select ChnFieldName from DynamicWindows Where TableName='Lwdj'"_s);
  editor_.SetTable(u"Fwdj"_s);
  EXPECT_TRUE(editor_.FillFieldValue().isEmpty());
}

TEST_P(RuleEditorTest, InsertsANewRuleOnCommit) {
  editor_.SaveTemp(1, {u"文号"_s, u"不能是"_s, u"重复值"_s});
  EXPECT_EQ(editor_.Pending(1),
            u"Insert into SaveCollect(TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,"
            "Relation,CollectValue) Values('Lwdj','1','DocNo','2','8','文号','不能是','重复值')"_s);
  EXPECT_EQ(RuleCount(), u"0"_s);
  editor_.Commit();
  EXPECT_EQ(editor_.ReadRules()[1], (RuleLine{u"文号"_s, u"不能是"_s, u"重复值"_s}));
}

TEST_P(RuleEditorTest, WritesAllThatWaitsOrNothing) {
  Refuse(u"SaveCollect"_s, u"insert"_s, u"new.CenterControlIndex = 1"_s);
  editor_.SaveTemp(0, {u"文号"_s, u"等于"_s, u"1"_s});
  editor_.SaveTemp(1, {u"文号"_s, u"等于"_s, u"2"_s});
  EXPECT_THROW(editor_.Commit(), DataError);
  EXPECT_EQ(RuleCount(), u"0"_s);
  EXPECT_FALSE(Connected()->InTransaction());
  EXPECT_FALSE(editor_.Pending(0).isEmpty()) << "what was said waits for another try";
}

TEST_P(RuleEditorTest, LooksUpFieldAndControlByTheName) {
  editor_.SaveTemp(0, {u"文号"_s, u"等于"_s, u"1"_s});
  EXPECT_EQ(TakeStatements(),
            (QStringList{
                u"Select FieldName from DynamicWindows Where TableName='Lwdj' And ChnFieldName='文号'"_s,
                u"Select Controlindex,ControlType From SaveControls Where DataSource='Lwdj' And DataField='DocNo' And "
                "ControlType <> '3'"_s,
                u"Select CenterControlIndex From SaveCollect Where TableName='Lwdj' And CenterControlIndex=0"_s}));
}

TEST_P(RuleEditorTest, KnowsNoControlOfAFieldThatIsNotOnTheForm) {
  Run(u"delete from SaveControls"_s);
  editor_.SaveTemp(0, {u"文号"_s, u"等于"_s, u"1"_s});
  EXPECT_TRUE(editor_.Pending(0).contains(u"'DocNo','0','0','文号'"_s));
}

TEST_P(RuleEditorTest, KnowsNoColumnOfAFieldThatIsNotInTheDesign) {
  EXPECT_TRUE(editor_.SaveTemp(0, {u"年度"_s, u"等于"_s, u"1"_s}));
  EXPECT_TRUE(editor_.Pending(0).contains(u"'','0','0','年度'"_s)) << qPrintable(editor_.Pending(0));
}

TEST_P(RuleEditorTest, UpdatesARuleThatIsThere) {
  AddRule();
  editor_.SaveTemp(0, {u"文号"_s, u"等于"_s, u"it's"_s});
  EXPECT_EQ(editor_.Pending(0),
            u"Update SaveCollect Set FieldName='DocNo',ChnFieldName='文号',Relation='等于',CollectValue='it''s' "
            "Where TableName='Lwdj' And CenterControlIndex=0"_s);
  editor_.Commit();
  EXPECT_EQ(editor_.ReadRules()[0].value, u"it's"_s);
  EXPECT_EQ(editor_.Pending(0), QString());
}

TEST_P(RuleEditorTest, LeavesARuleAloneWhoseValueIsEmptied) {
  AddRule();
  editor_.SaveTemp(0, {u"文号"_s, u"等于"_s, QString()});
  EXPECT_EQ(editor_.Pending(0), QString());
}

TEST_P(RuleEditorTest, WantsAFieldAndARelation) {
  EXPECT_FALSE(editor_.SaveTemp(0, {QString(), u"等于"_s, u"1"_s}));
  EXPECT_FALSE(editor_.SaveTemp(0, {u"文号"_s, QString(), u"1"_s}));
  EXPECT_EQ(editor_.Pending(0), QString());
  EXPECT_TRUE(editor_.SaveTemp(0, {u"文号"_s, u"等于"_s, u"1"_s}));
}

TEST_P(RuleEditorTest, WritesAPatternAtOnce) {
  AddRule();
  EXPECT_EQ(editor_.ReadFormat(0), u"A#"_s);
  editor_.WriteFormat(0, u"AB###"_s);
  EXPECT_EQ(TakeStatements(),
            (QStringList{u"Select CustomFormat From SaveCollect Where TableName='Lwdj' And CenterControlIndex=0"_s,
                         u"Update SaveCollect Set CustomFormat='AB###' Where TableName='Lwdj' And "
                         "CenterControlIndex='0'"_s}));
  EXPECT_EQ(editor_.ReadFormat(0), u"AB###"_s);
}

TEST_P(RuleEditorTest, KeepsThePatternWhenItsWindowIsCancelled) {
  AddRule();
  editor_.WriteFormat(0, QString());
  EXPECT_EQ(editor_.ReadFormat(0), u"A#"_s);
}

TEST_P(RuleEditorTest, InsertsTheLinesOwnPattern) {
  editor_.WriteFormat(2, u"AB###"_s);
  editor_.WriteFormat(3, u"C*"_s);
  editor_.SaveTemp(2, {u"文号"_s, u"只能是"_s, u"自定义格式"_s});
  EXPECT_TRUE(editor_.Pending(2).contains(u"Relation,CollectValue,CustomFormat) Values("_s));
  editor_.Commit();
  EXPECT_EQ(editor_.ReadFormat(2), u"AB###"_s);
}

TEST_P(RuleEditorTest, RemovesAllRulesAtOnce) {
  AddRule();
  editor_.DeleteAll();
  EXPECT_EQ(TakeStatements().last(), u"Delete From SaveCollect Where TableName='Lwdj'"_s);
  EXPECT_EQ(RuleCount(), u"0"_s);
}

TEST_P(RuleEditorTest, ListsEachTableOnce) {
  Run(u"insert into DynamicWindows (TableName,ChnTableName,ClassName,FieldName) values "
      "('Lwdj','收文登记','文书','RegID')"_s);
  const auto tables = ReadRuleTables();
  ASSERT_EQ(tables.size(), 1u);
  EXPECT_EQ(tables[0].caption, u"收文登记"_s);
  EXPECT_EQ(tables[0].table, u"Lwdj"_s);
  EXPECT_EQ(tables[0].className, u"文书"_s);
}

FOLVANE_ON_EACH_DATABASE(RuleEditorTest);

}  // namespace
}  // namespace folvane::test
