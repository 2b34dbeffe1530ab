#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "flows/FlowSheetsFixture.h"

namespace folvane::test {
namespace {
using testing::ElementsAre;

/// What the dialogs of a flow write.
class SheetStatementsTest : public FlowSheetsTest {};

FOLVANE_ON_EACH_DATABASE(SheetStatementsTest);

const DetailValues kFull{u"4"_s,  u"办公室"_s,     u"2002-03-04"_s, u"2"_s, u"阅办"_s,
                         u"是"_s, u"2002-03-05"_s, u"2002-03-06"_s, u"1"_s, u"已办"_s};
const DetailValues kBare{u"4"_s, u"办公室"_s, {}, u"0"_s, {}, u"否"_s, {}, {}, u"0"_s, {}};

TEST_P(SheetStatementsTest, ADetailIsInsertedInTheFlowsOwnWords) {
  const QString tail = u"('4','"_s + K(3) + u"','办公室',"_s;
  const std::vector<QStringList> statements{
      {u"Insert Into Distribute_Details (File_ID,Register_ID,Lead_Unit,Distribute_Date,Quantity,Is_Back,Back_Date,"
       "Real_BackDate,Back_Quantity) Values "_s +
           tail + u"'2002-03-04',2,'是','2002-03-05','2002-03-06',1)"_s,
       tail + u"null,0,'否',null,null,0)"_s},
      {u"Insert Into PassRead_Details (File_ID,Register_ID,Lead_Unit,PassRead_Date,Is_Back,Back_Date,Real_BackDate)"
       " Values "_s +
           tail + u"'2002-03-04','是','2002-03-05','2002-03-06')"_s,
       tail + u"null,'否',null,null)"_s},
      {u"Insert Into TranSact_Details (File_ID,Register_ID,Lead_Unit,Send_Date,Quantity,Transact_Mode,Is_Back,"
       "Back_Date,Real_BackDate,Back_Quantity,Transact_Result,Is_Hasten) Values "_s +
           tail + u"'2002-03-04',2,'阅办','是','2002-03-05','2002-03-06',1,'已办','0')"_s,
       tail + u"null,0,'','否',null,null,0,'','0')"_s}};
  for (size_t at = 0; at < Flows().size(); ++at) {
    Database().Native(u"delete from Lwdj"_s);
    AddHeads(Flows()[at].flow);
    FlowSheets sheets(Flows()[at].flow);
    sheets.SetHasten(Flows()[at].hasten);
    sheets.LoadFiles({});
    log_->Take();
    sheets.InsertDetail(kFull);
    EXPECT_THAT(log_->Take(), ElementsAre(statements[at][0]));
    sheets.RequeryDetails();
    DetailValues expected = kFull;
    if (!Flows()[at].flow.hasQuantities) expected.quantity = expected.backQuantity = QString();
    if (!Flows()[at].flow.isHandling) expected.mode = expected.result = QString();
    EXPECT_EQ(sheets.ReadDetail(), expected);
    Database().Native(u"delete from "_s + Flows()[at].flow.detailTable);
    log_->Take();
    sheets.InsertDetail(kBare);
    EXPECT_TRUE(log_->Take().front().endsWith(statements[at][1]));
  }
}

TEST_P(SheetStatementsTest, ADetailIsUpdatedInTheFlowsOwnWords) {
  const QString where = u" where Register_ID='"_s + K(3) + u"' and File_ID='3'"_s;
  const std::vector<QStringList> statements{
      {u"Update Distribute_Details set File_ID='4',Lead_Unit='办公室',Distribute_Date= '2002-03-04',Quantity=2,"
       "Is_Back='是',Back_Date='2002-03-05',Real_BackDate='2002-03-06',Back_Quantity=1"_s +
           where,
       u"Distribute_Date=Null,Quantity=0,Is_Back='否',Back_Date=null,Real_BackDate=null,Back_Quantity=0"_s},
      {u"Update PassRead_Details set File_ID='4',Lead_Unit='办公室',PassRead_Date= '2002-03-04',Is_Back='是',"
       "Back_Date='2002-03-05',Real_BackDate='2002-03-06'"_s +
           where,
       u"PassRead_Date=Null,Is_Back='否',Back_Date=null,Real_BackDate=null"_s},
      {u"Update TranSact_Details set File_ID='4',Lead_Unit='办公室',Send_Date= '2002-03-04',Quantity=2,"
       "Transact_Mode='阅办',Is_Back='是',Back_Date='2002-03-05',Real_BackDate='2002-03-06',Back_Quantity=1,"
       "Transact_Result='已办'"_s +
           where + u" and Is_Hasten='0'"_s,
       u"Send_Date=Null,Quantity=0,Transact_Mode='',Is_Back='否',Back_Date=null,Real_BackDate=null,Back_Quantity=0,"
       "Transact_Result=''"_s}};
  for (size_t at = 0; at < Flows().size(); ++at) {
    Database().Native(u"delete from Lwdj"_s);
    AddHeads(Flows()[at].flow);
    AddDetail(Flows()[at].flow, K(3), 3, u"a"_s, Flows()[at].hasten);
    FlowSheets sheets(Flows()[at].flow);
    sheets.SetHasten(Flows()[at].hasten);
    sheets.LoadFiles({});
    DetailValues shown = sheets.ReadDetail();
    log_->Take();
    EXPECT_EQ(sheets.UpdateDetail(kFull, shown).kind, SaveOutcome::Written);
    EXPECT_THAT(log_->Take(), ElementsAre(statements[at][0]));
    sheets.RequeryDetails();
    shown = sheets.ReadDetail();
    log_->Take();
    EXPECT_EQ(sheets.UpdateDetail(kBare, shown).kind, SaveOutcome::Written);
    EXPECT_TRUE(log_->Take().front().contains(statements[at][1]));
  }
}

TEST_P(SheetStatementsTest, AHeadIsUpdatedInTheFlowsOwnOrder) {
  const QString where = u" where Register_ID='"_s + K(3) + u'\'';
  const QStringList statements{
      u"Update Distribute_File set Distribute_ID='7',Distribute_Status='已分发',Distribute_Range='全局',"
      "File_Unit='局办',Note = '急'"_s +
          where,
      u"Update PassRead_File set PassRead_ID='7',PassRead_Range='全局',PassRead_Status='已分发',File_Unit='局办',"
      "Note='急'"_s +
          where,
      u"Update Transact_File set Transact_ID='7',Transact_Status='已分发',File_Unit='局办',Note = '急'"_s + where};
  for (int at = 0; at < 3; ++at) {
    const Flow& flow = Flows()[size_t(at)].flow;
    Database().Native(u"delete from Lwdj"_s);
    AddHeads(flow);
    FlowSheets sheets(flow);
    sheets.SetHasten(Flows()[size_t(at)].hasten);
    sheets.LoadFiles({});
    HeadValues shown = sheets.ReadHead();
    EXPECT_EQ(shown.id, u"ID-"_s + K(3));
    log_->Take();
    HeadValues values{u"7"_s, u"已分发"_s, u"全局"_s, u"局办"_s, u"急"_s};
    EXPECT_EQ(sheets.UpdateHead(values, shown).kind, SaveOutcome::Written);
    EXPECT_THAT(log_->Take(), ElementsAre(statements[at]));
    sheets.RequeryHeads();
    if (!flow.HasRange()) values.range.clear();
    EXPECT_EQ(sheets.ReadHead(), values);
  }
}

TEST_P(SheetStatementsTest, WhatAnotherUserChangedIsToldBeforeItIsOverwritten) {
  AddHeads(Circulation());
  AddDetail(Circulation(), K(3), 1, u"a"_s);
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  HeadValues head = sheets.ReadHead();
  DetailValues detail = sheets.ReadDetail();
  Database().Native(u"update PassRead_File set PassRead_Status='传阅中', Note='等'"_s);
  Database().Native(u"update PassRead_Details set Lead_Unit='b'"_s);
  HeadValues wanted = head;
  wanted.unit = u"局办"_s;
  SaveOutcome outcome = sheets.UpdateHead(wanted, head);
  EXPECT_EQ(outcome.kind, SaveOutcome::Changed);
  EXPECT_EQ(outcome.what, u"传阅状态由“未传阅”改为“传阅中”，备注由“”改为“等”"_s);
  EXPECT_EQ(HeadText(Circulation(), K(3), u"Note"_s), u"等"_s);
  EXPECT_EQ(sheets.UpdateHead(wanted, head).kind, SaveOutcome::Written);  // the user has been told
  outcome = sheets.UpdateDetail(kBare, detail);
  EXPECT_EQ(outcome.kind, SaveOutcome::Changed);
  EXPECT_EQ(outcome.what, u"审阅单位/领导由“a”改为“b”"_s);
}

TEST_P(SheetStatementsTest, WhatAnotherUserDeletedIsNotWritten) {
  AddHeads(Circulation());
  AddDetail(Circulation(), K(3), 1, u"a"_s);
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  HeadValues head = sheets.ReadHead();
  DetailValues detail = sheets.ReadDetail();
  EXPECT_EQ(sheets.TakeHeadChanges() + sheets.TakeDetailChanges(), QString());
  Database().Native(u"delete from PassRead_File"_s);
  Database().Native(u"delete from PassRead_Details"_s);
  EXPECT_EQ(sheets.UpdateHead(head, head).kind, SaveOutcome::Gone);
  EXPECT_EQ(sheets.UpdateDetail(detail, detail).kind, SaveOutcome::Gone);
  EXPECT_NE(sheets.TakeHeadChanges(), QString());
  EXPECT_EQ(sheets.TakeHeadChanges(), sheets.TakeDetailChanges());
}

TEST_P(SheetStatementsTest, WhatTheDatabaseDoesNotWriteIsNotToldAsWritten) {
  AddHeads(Circulation());
  AddDetail(Circulation(), K(3), 1, u"a"_s);
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  HeadValues head = sheets.ReadHead();
  DetailValues detail = sheets.ReadDetail();
  for (const QString& table : {u"PassRead_File"_s, u"PassRead_Details"_s}) {
    if (OnSqlite()) {
      Database().Native(u"create trigger Ignore_%1 before update on %1 begin select raise(ignore); end"_s.arg(table));
      continue;
    }
    Database().Native(
        u"create or replace function Ignore() returns trigger language plpgsql as 'begin return null; end'"_s);
    Database().Native(u"create trigger Ignore before update on %1 for each row execute function Ignore()"_s.arg(table));
  }
  EXPECT_EQ(sheets.UpdateHead(head, head).kind, SaveOutcome::Gone);
  EXPECT_EQ(sheets.UpdateDetail(detail, detail).kind, SaveOutcome::Gone);
}

TEST_P(SheetStatementsTest, AQuoteBreaksTheStatement) {
  AddHeads(Circulation());
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  HeadValues shown = sheets.ReadHead();
  HeadValues quoted = shown;
  quoted.note = u"a'b"_s;
  EXPECT_THROW(sheets.UpdateHead(quoted, shown), DataError);
  EXPECT_THROW(sheets.InsertDetail({u"1"_s, u"O'Neil"_s, {}, {}, {}, u"否"_s, {}, {}, {}, {}}), DataError);
}

}  // namespace
}  // namespace folvane::test
