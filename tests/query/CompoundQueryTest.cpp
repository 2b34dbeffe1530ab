#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "data/drivers/Driver.h"
#include "query/CompoundQuery.h"
#include "query/QueryFixture.h"

namespace folvane::test {
namespace {

class CompoundQueryTest : public QueryTest {
 protected:
  QStringList SavedRows() {
    return Rows(
        u"select OrderNo,TableName,CompField,CompRelation,CompValue,AndOrRelation,ChnAndOrRelation,ChnCompField,"
        "ChnCompRelation from FindCirSave order by TableName,OrderNo"_s);
  }
  static QStringList Shown(const CompoundQuery& query) {
    QStringList rows;
    for (const ShownCondition& each : query.Conditions())
      rows << QStringList{each.connector, each.field, each.relation, each.value, each.position}.join(u'|');
    return rows;
  }
};

FOLVANE_ON_EACH_DATABASE(CompoundQueryTest);

TEST_P(CompoundQueryTest, OpeningReadsTheFieldsInTheOrderOfTheirRows) {
  const CompoundQuery query(u"Lwdj"_s);
  EXPECT_EQ(query.Fields(), (QStringList{u"登记号"_s, u"题名"_s, u"文号"_s, u"密级"_s, u"成文日期"_s, u"办结日期"_s}));
  EXPECT_EQ(TakeStatements(), (QStringList{u"Select * From DynamicWindows Where TableName='Lwdj'"_s,
                                           u"Select * From FindCirSave Where TableName='Lwdj' Order By OrderNo"_s}));
}

TEST_P(CompoundQueryTest, AnAddedConditionIsSavedAtOnce) {
  CompoundQuery query(u"Lwdj"_s);
  TakeStatements();
  query.Add({QString(), u"登记号"_s, u"等于"_s, u" 5 "_s, {}});
  EXPECT_EQ(TakeStatements(),
            (QStringList{u"Select FieldName from DynamicWindows Where ChnFieldName='登记号' and TableName='Lwdj'"_s,
                         u"Insert Into FindCirSave(OrderNo,TableName,CompField,CompRelation,CompValue,AndOrRelation,"
                         "ChnAndOrRelation,ChnCompField,ChnCompRelation) Values('1','Lwdj','RegID','=','5','','',"
                         "'登记号','等于')"_s}));
  query.Add({u"或"_s, u"题名"_s, u"不包含"_s, u"x"_s, {}});
  EXPECT_EQ(SavedRows(),
            (QStringList{u"1|Lwdj|RegID|=|5|||登记号|等于"_s, u"2|Lwdj|Amaintitle|Not Like|x|or|或|题名|不包含"_s}));
  EXPECT_EQ(query.Text({}).sql, u"Lwdj.Amaintitle Not Like '%x%' or Lwdj.RegID = '5'  "_s);
}

TEST_P(CompoundQueryTest, ACaptionWithAQuoteStandsForItsOwnField) {
  Database().Native(u"update DynamicWindows set ChnFieldName='题名'' or ''1''=''1' where FieldName='Amaintitle'"_s);
  CompoundQuery query(u"Lwdj"_s);
  const QString caption = u"题名' or '1'='1"_s;
  EXPECT_EQ(query.ValuesFor(caption), QStringList());
  query.Add({QString(), caption, u"包含"_s, u"x"_s, {}});
  EXPECT_EQ(query.Text({}).sql, u"Lwdj.Amaintitle Like '%x%'"_s);
  EXPECT_EQ(Shown(CompoundQuery(u"Lwdj"_s)), QStringList{u"|"_s + caption + u"|包含|x|1"_s});
}

TEST_P(CompoundQueryTest, AConnectorIsIgnoredForTheFirstCondition) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({u"或"_s, u"登记号"_s, u"等于"_s, u"5"_s, {}});
  EXPECT_EQ(SavedRows(), (QStringList{u"1|Lwdj|RegID|=|5|||登记号|等于"_s}));
  EXPECT_EQ(Shown(query), (QStringList{u"|登记号|等于|5|2"_s}));
}

TEST_P(CompoundQueryTest, ANewRowShowsOneMoreThanIsSavedUntilTheNextOpening) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
  query.Add({u"与"_s, u"题名"_s, u"包含"_s, u"x"_s, {}});
  EXPECT_EQ(Shown(query), (QStringList{u"|登记号|等于|5|2"_s, u"与|题名|包含|x|3"_s}));
  EXPECT_EQ(Shown(CompoundQuery(u"Lwdj"_s)), (QStringList{u"|登记号|等于|5|1"_s, u"与|题名|包含|x|2"_s}));
}

TEST_P(CompoundQueryTest, TheTenthConditionStandsBehindTheNinth) {
  CompoundQuery query(u"Lwdj"_s);
  for (int value = 1; value <= 11; ++value) query.Add({u"与"_s, u"登记号"_s, u"不等于"_s, QString::number(value), {}});
  CompoundQuery again(u"Lwdj"_s);
  EXPECT_EQ(again.Conditions().at(9).value, u"10"_s);
  EXPECT_TRUE(again.Text({}).sql.startsWith(u"Lwdj.RegID <> '11' and Lwdj.RegID <> '10' and"_s));
}

TEST_P(CompoundQueryTest, WhatIsMissingIsTold) {
  CompoundQuery query(u"Lwdj"_s);
  const QString incomplete = u"未选择条件,或条件不完整,请正确选择后再添加!"_s;
  EXPECT_EQ(query.Missing({{}, {}, u"等于"_s, u"5"_s, {}}), incomplete);
  EXPECT_EQ(query.Missing({{}, u"登记号"_s, {}, u"5"_s, {}}), incomplete);
  EXPECT_EQ(query.Missing({{}, u"登记号"_s, u"等于"_s, {}, {}}), incomplete);
  EXPECT_EQ(query.Missing({{}, u"登记号"_s, u"等于"_s, u"5"_s, {}}), QString());
  query.Add({{}, u"登记号"_s, u"等于"_s, u"5"_s, {}});
  EXPECT_EQ(query.Missing({{}, {}, {}, {}, {}}), u"未选定连接符,请选择!"_s);
  EXPECT_EQ(query.Missing({u"与"_s, u"登记号"_s, u"等于"_s, {}, {}}), incomplete);
}

TEST_P(CompoundQueryTest, AQuoteInAValueLeavesTheRowInTheListAndNotInTheTable) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"题名"_s, u"等于"_s, u"O'Brien"_s, {}});
  EXPECT_EQ(Shown(query), (QStringList{u"|题名|等于|O'Brien|2"_s}));
  EXPECT_EQ(SavedRows(), QStringList());
  EXPECT_EQ(query.Text(u"1 = 1"_s), ConditionText());
  query.Add({u"与"_s, u"登记号"_s, u"等于"_s, u"5"_s, {}});
  EXPECT_EQ(SavedRows(), (QStringList{u"2|Lwdj|RegID|=|5|and|与|登记号|等于"_s}));
}

TEST_P(CompoundQueryTest, AConditionThatTheTableDidNotTakeIsMarkedWithTheReason) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
  query.Add({u"与"_s, u"题名"_s, u"等于"_s, u"O'Brien"_s, {}});
  EXPECT_EQ(query.Conditions()[0].flaw, QString());
  EXPECT_EQ(query.Conditions()[1].flaw, u"未能保存：其中有单引号"_s);
  EXPECT_EQ(query.Conditions()[1].number, 0);
  Refuse(u"Insert Into FindCirSave"_s);
  query.Add({u"与"_s, u"题名"_s, u"等于"_s, u"x"_s, {}});
  EXPECT_EQ(query.Flawed(),
            (QStringList{u"题名 等于 O'Brien（未能保存：其中有单引号）"_s, u"题名 等于 x（未能保存：记录被锁定）"_s}));
}

TEST_P(CompoundQueryTest, WhatIsInForceReadsAsTheListDoes) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"题名"_s, u"等于"_s, u"O'Brien"_s, {}});
  query.Add({u"与"_s, u"题名"_s, u"不包含"_s, u"x"_s, {}});
  query.Add({u"或"_s, u"登记号"_s, u"等于"_s, u"5"_s, {}});
  query.Text({});
  EXPECT_EQ(query.InForce(), u"题名 不包含 x 或 登记号 等于 5"_s);
}

TEST_P(CompoundQueryTest, WhatAnotherUserHasAddedOrRemovedIsTold) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"题名"_s, u"包含"_s, u"x"_s, {}});
  CompoundQuery(u"Lwdj"_s).Add({u"或"_s, u"登记号"_s, u"等于"_s, u"5"_s, {}});
  EXPECT_EQ(query.Text({}).sql, u"Lwdj.RegID = '5' or Lwdj.Amaintitle Like '%x%'  "_s);
  EXPECT_EQ(query.InForce(), u"题名 包含 x 或 登记号 等于 5"_s);
  CompoundQuery(u"Lwdj"_s).Remove(1);
  query.Text({});
  EXPECT_EQ(query.InForce(), u"登记号 等于 5"_s);
}

TEST_P(CompoundQueryTest, AConditionThatAnotherUserHasRemovedIsMarkedWhenTheQueryIsRead) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u" 5 "_s, {}});
  query.Add({u"与"_s, u"题名"_s, u"包含"_s, u"x"_s, {}});
  query.Text({});
  EXPECT_EQ(query.Flawed(), QStringList());
  CompoundQuery(u"Lwdj"_s).Remove(2);
  query.Text({});
  EXPECT_EQ(query.Flawed(), QStringList{u"题名 包含 x（已被其他用户删除）"_s});
}

TEST_P(CompoundQueryTest, AConditionOfAnotherUserThatDiffersInOnePartIsNotTakenForIt) {
  for (const QString& change : {u"ChnCompField = '题名'"_s, u"ChnCompRelation = '大于'"_s, u"CompValue = '6'"_s}) {
    Database().Native(u"delete from FindCirSave"_s);
    CompoundQuery query(u"Lwdj"_s);
    query.Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
    Database().Native(u"update FindCirSave set "_s + change);
    query.Text({});
    EXPECT_EQ(query.Flawed(), QStringList{u"登记号 等于 5（已被其他用户删除）"_s}) << change.toStdString();
  }
}

TEST_P(CompoundQueryTest, AConditionThatCannotBeComparedIsAddedAndMarkedAtOnceAndWhenItIsReadAgain) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u"abc"_s, {}});
  const QStringList flawed{u"登记号 等于 abc（“abc”不是数字）"_s};
  EXPECT_EQ(query.Flawed(), flawed);
  EXPECT_EQ(CompoundQuery(u"Lwdj"_s).Flawed(), flawed);
  EXPECT_EQ(query.Text({}).sql, u"Lwdj.RegID = 'abc'"_s);
}

TEST_P(CompoundQueryTest, ACaptionWithoutAFieldKeepsTheNameOfTheLastLookUp) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"没有这个字段"_s, u"等于"_s, u"1"_s, {}});
  query.Add({u"与"_s, u"文号"_s, u"等于"_s, u"2"_s, {}});
  query.Add({u"与"_s, u"没有这个字段"_s, u"等于"_s, u"3"_s, {}});
  EXPECT_EQ(SavedRows(), (QStringList{u"1|Lwdj||=|1|||没有这个字段|等于"_s, u"2|Lwdj|DocNo|=|2|and|与|文号|等于"_s,
                                      u"3|Lwdj|DocNo|=|3|and|与|没有这个字段|等于"_s}));
}

TEST_P(CompoundQueryTest, AfterTheFirstRowIsRemovedTheNextOneIsFirstWithoutAConnector) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
  query.Add({u"与"_s, u"题名"_s, u"包含"_s, u"x"_s, {}});
  query.Add({u"或"_s, u"文号"_s, u"包含"_s, u"y"_s, {}});
  TakeStatements();
  query.Remove(1);
  EXPECT_EQ(TakeStatements(), (QStringList{u"Delete From FindCirSave Where OrderNo='1'"_s,
                                           u"Update FindCirSave Set OrderNo=OrderNo-1 Where OrderNo>'1'"_s,
                                           u"Update FindCirSave Set AndOrRelation='' Where OrderNo='1'"_s,
                                           u"Update FindCirsave set ChnAndOrRelation='' Where OrderNo='1'"_s}));
  EXPECT_EQ(SavedRows(),
            (QStringList{u"1|Lwdj|Amaintitle|Like|x|||题名|包含"_s, u"2|Lwdj|DocNo|Like|y|or|或|文号|包含"_s}));
  EXPECT_EQ(Shown(query), (QStringList{u"|题名|包含|x|3"_s, u"或|文号|包含|y|4"_s})) << "the positions stay as shown";
}

TEST_P(CompoundQueryTest, RemovingALaterOrTheOnlyRowClearsNoConnectorInTheTable) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
  query.Add({u"与"_s, u"题名"_s, u"包含"_s, u"x"_s, {}});
  TakeStatements();
  query.Remove(2);
  query.Remove(1);
  EXPECT_EQ(TakeStatements().filter(u"RelationS"_s), QStringList());
  EXPECT_EQ(SavedRows(), QStringList());
  EXPECT_TRUE(query.Conditions().empty());
}

TEST_P(CompoundQueryTest, ARemovalThatFailsAtAnyOfItsStatementsLeavesTheTableAndTheListAsTheyWere) {
  CompoundQuery query(u"Lwdj"_s);
  for (const QString& value : {u"1"_s, u"2"_s, u"3"_s}) query.Add({u"与"_s, u"登记号"_s, u"等于"_s, value, {}});
  const QStringList before = SavedRows();
  for (const QString& statement : {u"Delete From FindCirSave"_s, u"Update FindCirSave Set OrderNo"_s,
                                   u"Update FindCirSave Set AndOr"_s, u"Update FindCirsave set ChnAndOr"_s}) {
    Refuse(statement);
    EXPECT_THROW(query.Remove(1), DataError);
    Refuse({});
    EXPECT_EQ(SavedRows(), before) << statement.toStdString();
    EXPECT_EQ(Shown(query), (QStringList{u"|登记号|等于|1|1"_s, u"与|登记号|等于|2|2"_s, u"与|登记号|等于|3|3"_s}));
  }
  query.Remove(2);
  EXPECT_EQ(Rows(u"select CompValue from FindCirSave order by OrderNo"_s), (QStringList{u"1"_s, u"3"_s}));
}

TEST_P(CompoundQueryTest, ARemovalTakesPartInTheTransactionThatIsGoingOn) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
  Connected()->BeginTrans();
  query.Remove(1);
  Connected()->RollbackTrans();
  EXPECT_EQ(Shown(CompoundQuery(u"Lwdj"_s)), QStringList{u"|登记号|等于|5|1"_s});
}

TEST_P(CompoundQueryTest, ARemovalTakesPartInATransactionThatTheHostHasBegunOnItsHandle) {
  if (!OnSqlite()) GTEST_SKIP() << "there a transaction is begun by a setting of the handle";
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
  DatabaseSession::Of(*Connected()).NativeDriver().Execute({"BEGIN", {}});
  query.Remove(1);
  DatabaseSession::Of(*Connected()).NativeDriver().Execute({"ROLLBACK", {}});
  EXPECT_EQ(Shown(CompoundQuery(u"Lwdj"_s)), QStringList{u"|登记号|等于|5|1"_s});
}

TEST_P(CompoundQueryTest, ARemovalThatMeetsAnotherRowInTheTableShowsWhatIsThere) {
  CompoundQuery(u"Lwdj"_s).Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
  Run(u"update FindCirSave set OrderNo = 3"_s);  // as after rows that could not be saved
  CompoundQuery query(u"Lwdj"_s);
  query.Remove(1);
  EXPECT_EQ(Shown(query), QStringList{u"|登记号|等于|5|2"_s}) << "it is still in the table";
}

TEST_P(CompoundQueryTest, RemovingTouchesTheRowsOfOtherTablesWithThatNumber) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
  Describe(u"DocNo"_s, u"发文字号"_s, u"文本型"_s, {}, u"Fwdj"_s);
  CompoundQuery other(u"Fwdj"_s);
  other.Add({QString(), u"发文字号"_s, u"等于"_s, u"1"_s, {}});
  other.Add({u"与"_s, u"发文字号"_s, u"等于"_s, u"2"_s, {}});
  query.Remove(1);
  EXPECT_EQ(SavedRows(), (QStringList{u"1|Fwdj|DocNo|=|2|and|与|发文字号|等于"_s}));
}

TEST_P(CompoundQueryTest, NumbersThatAreKeptAsTextAreCountedDownToo) {
  Run(u"drop table FindCirSave"_s);
  Run(u"create table FindCirSave (OrderNo varchar(4), TableName varchar(50), CompField varchar(50), CompRelation "
      "varchar(20), CompValue varchar(200), AndOrRelation varchar(10), ChnAndOrRelation varchar(10), ChnCompField "
      "varchar(50), ChnCompRelation varchar(20))"_s);
  CompoundQuery query(u"Lwdj"_s);
  for (const QString& value : {u"1"_s, u"2"_s, u"3"_s}) query.Add({u"与"_s, u"登记号"_s, u"等于"_s, value, {}});
  query.Remove(1);
  EXPECT_EQ(Rows(u"select OrderNo,CompValue,AndOrRelation from FindCirSave order by OrderNo"_s),
            (QStringList{u"1|2|"_s, u"2|3|and"_s}));
}

TEST_P(CompoundQueryTest, TheValuesOfADictionaryUnderTheCaptionAreOffered) {
  AddDictionary(u"1"_s, u"密级"_s, {u"秘密"_s, u"机密"_s, u"秘密"_s, u"  "_s});
  TakeStatements();
  QStringList values = CompoundQuery::ValuesFor(u" 密级 "_s);
  values.sort();
  EXPECT_EQ(values, (QStringList{u"机密"_s, u"秘密"_s}));
  EXPECT_EQ(TakeStatements(), (QStringList{u"select DISTINCT name from AssistantDicKey where DicID=(select Dicid from "
                                           "AssistantDictionary where name='密级')"_s}));
  EXPECT_EQ(CompoundQuery::ValuesFor(u"题名"_s), QStringList()) << "a field without a dictionary under its caption";
  EXPECT_EQ(CompoundQuery::ValuesFor(QString()), QStringList());
  EXPECT_EQ(TakeStatements().size(), 1);
}

TEST_P(CompoundQueryTest, AQueryThatCannotBeReadGivesNoText) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
  Run(u"drop table FindCirSave"_s);
  EXPECT_EQ(query.Text(u"1 = 1"_s), ConditionText());
}

TEST_P(CompoundQueryTest, ForgettingRemovesTheRowsOfTheTableAlone) {
  CompoundQuery query(u"Lwdj"_s);
  query.Add({QString(), u"登记号"_s, u"等于"_s, u"5"_s, {}});
  Describe(u"DocNo"_s, u"发文字号"_s, u"文本型"_s, {}, u"Fwdj"_s);
  CompoundQuery(u"Fwdj"_s).Add({QString(), u"发文字号"_s, u"等于"_s, u"1"_s, {}});
  query.Forget();
  EXPECT_EQ(Rows(u"select TableName from FindCirSave"_s), QStringList{u"Fwdj"_s});
}

TEST_P(CompoundQueryTest, ASavedConditionForAFieldThatIsGoneIsTextLikeAnyOther) {
  Run(u"insert into FindCirSave (OrderNo,TableName,CompField,CompRelation,CompValue,ChnCompField,ChnCompRelation) "
      "values (1,'Lwdj','OldField','=','1','旧字段','等于')"_s);
  CompoundQuery query(u"Lwdj"_s);
  EXPECT_EQ(Shown(query), QStringList{u"|旧字段|等于|1|1"_s});
  EXPECT_EQ(query.Text({}).sql, u"Lwdj.OldField = '1'"_s);
  EXPECT_THROW(Found(query.Text({}).sql), DataError);
}

}  // namespace
}  // namespace folvane::test
