#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "flows/FlowFixture.h"
#include "flows/FlowSheets.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// The key of a head by a short number.
QString K(int number) { return DesignedDatabase::Key(number); }

/// What the same steps say and do in each flow.
struct FlowCase {
  const Flow& flow;
  QString hasten;
};

const std::vector<FlowCase>& Flows() {
  static const std::vector<FlowCase> flows{{Distribution(), {}}, {Circulation(), {}}, {Handling(), u"0"_s}};
  return flows;
}

class FlowSheetsTest : public FlowTest {
 protected:
  /// Three heads 1 to 3, the greatest key first in the list, over the records 11 to 13.
  void AddHeads(const Flow& flow) {
    for (int number = 1; number <= 3; ++number) {
      AddRecord(QString::number(10 + number), u"题名%1"_s.arg(number));
      AddHead(flow, {K(number), QString::number(10 + number), flow.idle});
    }
    log_->Take();
  }
};

FOLVANE_ON_EACH_DATABASE(FlowSheetsTest);

TEST_P(FlowSheetsTest, TheHeadsComeNewestFirstWithTheDetailsOfTheFirst) {
  const std::vector<QStringList> statements{
      {u"select * from Distribute_File"_s, u"select * from Distribute_Details where Register_ID='"_s + K(3) + u'\''},
      {u"select * from PassRead_File"_s, u"select * from PassRead_Details where Register_ID='"_s + K(3) + u'\''},
      {u"select * from TranSact_File"_s,
       u"select * from TranSact_Details where Register_ID='"_s + K(3) + u"' and Is_Hasten='0'"_s}};
  for (size_t at = 0; at < Flows().size(); ++at) {
    Database().Native(u"delete from Lwdj"_s);
    AddHeads(Flows()[at].flow);
    FlowSheets sheets(Flows()[at].flow);
    sheets.SetHasten(Flows()[at].hasten);
    sheets.LoadFiles({});
    EXPECT_EQ(log_->Take(), statements[at]);
    EXPECT_EQ(sheets.Key(), K(3));
  }
}

TEST_P(FlowSheetsTest, OpeningStandsOnTheSheetOfARecordOrOnTheFirst) {
  AddHeads(Circulation());
  FlowSheets sheets(Circulation());
  sheets.LoadFiles(u"12"_s);
  EXPECT_EQ(sheets.Key(), K(2));
  sheets.LoadFiles(u"none"_s);
  EXPECT_EQ(sheets.Key(), K(3));
}

TEST_P(FlowSheetsTest, WithoutHeadsThereAreNoDetails) {
  FlowSheets sheets(Circulation());
  sheets.LoadFiles(u"11"_s);
  EXPECT_FALSE(sheets.HasHeads());
  EXPECT_FALSE(sheets.Details().IsOpen());
  EXPECT_THAT(log_->Take(), ElementsAre(u"select * from PassRead_File"_s));
}

TEST_P(FlowSheetsTest, AQueryNarrowsTheHeads) {
  AddHeads(Handling());
  FlowSheets sheets(Handling());
  sheets.SetHasten(u"0"_s);
  sheets.LoadFiles({});
  log_->Take();
  sheets.Narrow(u"File_ID = '12'"_s);
  EXPECT_EQ(log_->Take().front(), u"Select * from Transact_File Where File_ID = '12'"_s);
  EXPECT_EQ(sheets.Heads().RecordCount(), 1);
  EXPECT_EQ(sheets.Key(), K(2));
}

TEST_P(FlowSheetsTest, SerialsCountOnFromTheGreatestAcrossRemindersToo) {
  AddHeads(Handling());
  FlowSheets sheets(Handling());
  sheets.SetHasten(u"0"_s);
  sheets.LoadFiles({});
  log_->Take();
  EXPECT_EQ(sheets.NextDetailSerial(), u"1"_s);
  EXPECT_THAT(log_->Take(), ElementsAre(u"Select File_ID From Transact_Details where Register_ID='"_s + K(3) +
                                        u"' Order By File_ID DESC"_s));
  AddDetail(Handling(), K(3), 9, u"a"_s, u"1"_s);
  EXPECT_EQ(sheets.NextDetailSerial(), u"10"_s);
  AddDetail(Handling(), K(3), 10, u"b"_s, u"0"_s);
  EXPECT_EQ(sheets.NextDetailSerial(), u"11"_s);
  EXPECT_TRUE(sheets.IsSerialTaken(u"9"_s));  // of a reminder that the window does not show
  AddDetail(Handling(), K(2), 12, u"c"_s, u"0"_s);
  EXPECT_FALSE(sheets.IsSerialTaken(u"12"_s));  // of another head
}

TEST_P(FlowSheetsTest, ASerialBeyondSixteenBitsIsAnError) {
  AddHeads(Circulation());
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  AddDetail(Circulation(), K(3), 32766, u"a"_s);
  EXPECT_EQ(sheets.NextDetailSerial(), u"32767"_s);
  AddDetail(Circulation(), K(3), 32767, u"b"_s);
  EXPECT_THROW(sheets.NextDetailSerial(), DataError);
  AddDetail(Circulation(), K(3), 40000, u"c"_s);
  EXPECT_THROW(sheets.NextDetailSerial(), DataError);
}

const DetailValues kFull{u"4"_s,  u"办公室"_s,     u"2002-03-04"_s, u"2"_s, u"阅办"_s,
                         u"是"_s, u"2002-03-05"_s, u"2002-03-06"_s, u"1"_s, u"已办"_s};
const DetailValues kBare{u"4"_s, u"办公室"_s, {}, u"0"_s, {}, u"否"_s, {}, {}, u"0"_s, {}};

TEST_P(FlowSheetsTest, ADetailIsInsertedInTheFlowsOwnWords) {
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

TEST_P(FlowSheetsTest, ADetailIsUpdatedInTheFlowsOwnWords) {
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

TEST_P(FlowSheetsTest, AHeadIsUpdatedInTheFlowsOwnOrder) {
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

TEST_P(FlowSheetsTest, WhatAnotherUserChangedIsToldBeforeItIsOverwritten) {
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

TEST_P(FlowSheetsTest, WhatAnotherUserDeletedIsNotWritten) {
  AddHeads(Circulation());
  AddDetail(Circulation(), K(3), 1, u"a"_s);
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  HeadValues head = sheets.ReadHead();
  DetailValues detail = sheets.ReadDetail();
  Database().Native(u"delete from PassRead_File"_s);
  Database().Native(u"delete from PassRead_Details"_s);
  EXPECT_EQ(sheets.UpdateHead(head, head).kind, SaveOutcome::Gone);
  EXPECT_EQ(sheets.UpdateDetail(detail, detail).kind, SaveOutcome::Gone);
}

TEST_P(FlowSheetsTest, AQuoteBreaksTheStatement) {
  AddHeads(Circulation());
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  HeadValues shown = sheets.ReadHead();
  HeadValues quoted = shown;
  quoted.note = u"a'b"_s;
  EXPECT_THROW(sheets.UpdateHead(quoted, shown), DataError);
  EXPECT_THROW(sheets.InsertDetail({u"1"_s, u"O'Neil"_s, {}, {}, {}, u"否"_s, {}, {}, {}, {}}), DataError);
}

TEST_P(FlowSheetsTest, AnAddedDetailMakesTheHeadDone) {
  for (const FlowCase& each : Flows()) {
    Database().Native(u"delete from Lwdj"_s);
    AddHeads(each.flow);
    FlowSheets sheets(each.flow);
    sheets.SetHasten(each.hasten);
    sheets.LoadFiles({});
    sheets.TakeAddedDetail();  // the dialog was cancelled
    EXPECT_EQ(HeadText(each.flow, K(3), each.flow.statusColumn), each.flow.idle);
    AddDetail(each.flow, K(3), 1, u"a"_s, u"0"_s);
    sheets.TakeAddedDetail();
    EXPECT_EQ(HeadText(each.flow, K(3), each.flow.statusColumn), each.flow.done);
  }
}

TEST_P(FlowSheetsTest, AnAddedDetailTakesAFinishedHeadBackToDone) {
  AddHead(Circulation(), {K(1), u"11"_s, u"已完成"_s});
  AddDetail(Circulation(), K(1), 1, u"a"_s);
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  EXPECT_TRUE(sheets.IsIdle());
  sheets.TakeAddedDetail();
  EXPECT_EQ(sheets.Head(u"PassRead_Status"_s), u"已传阅"_s);
  EXPECT_FALSE(sheets.IsIdle());
}

TEST_P(FlowSheetsTest, AReminderNeverChangesTheStatusButTheLastOneDeletedDoes) {
  AddHeads(Handling());
  AddDetail(Handling(), K(3), 1, u"a"_s, u"0"_s);
  FlowSheets handling(Handling());
  handling.SetHasten(u"0"_s);
  handling.LoadFiles({});
  handling.TakeAddedDetail();
  AddDetail(Handling(), K(3), 2, u"b"_s, u"1"_s);
  FlowSheets hastening(Handling());
  hastening.SetHasten(u"1"_s);
  hastening.LoadFiles({});
  EXPECT_EQ(hastening.Details().RecordCount(), 1);
  hastening.TakeAddedDetail();
  EXPECT_EQ(HeadText(Handling(), K(3), u"Transact_Status"_s), u"已处理"_s);
  EXPECT_EQ(hastening.DeleteDetail(), QString());
  EXPECT_EQ(HeadText(Handling(), K(3), u"Transact_Status"_s), u"未处理"_s);
  EXPECT_THAT(DetailsOf(Handling(), K(3)), ElementsAre(u"1|a|<null>"_s));
  hastening.WriteBack();
  EXPECT_EQ(RecordState(u"13"_s, u"HandleState"_s), u"未处理"_s);
}

TEST_P(FlowSheetsTest, TheLastDetailDeletedSendsTheHeadBack) {
  AddHeads(Distribution());
  AddDetail(Distribution(), K(3), 1, u"a"_s);
  AddDetail(Distribution(), K(3), 2, u"b"_s);
  FlowSheets sheets(Distribution());
  sheets.LoadFiles({});
  sheets.TakeAddedDetail();
  log_->Take();
  EXPECT_EQ(sheets.DeleteDetail(), QString());
  EXPECT_EQ(log_->Take().front(),
            u"Delete From Distribute_Details where Register_ID='"_s + K(3) + u"' and File_ID='1'"_s);
  EXPECT_EQ(sheets.Head(u"Distribute_Status"_s), u"已分发"_s);
  EXPECT_TRUE(sheets.IsOnDetail());
  EXPECT_EQ(sheets.DeleteDetail(), QString());
  EXPECT_EQ(HeadText(Distribution(), K(3), u"Distribute_Status"_s), u"未分发"_s);
  EXPECT_EQ(sheets.Key(), K(3));
}

TEST_P(FlowSheetsTest, ADeletedHeadTakesItsDetailsAndTheStateOfItsRecord) {
  const std::vector<QStringList> words{
      {u"DisPenseState"_s, u"未分发"_s}, {u"ReadState"_s, u"未传阅"_s}, {u"HandleState"_s, u"未处理"_s}};
  for (size_t at = 0; at < Flows().size(); ++at) {
    const Flow& flow = Flows()[at].flow;
    Database().Native(u"delete from Lwdj"_s);
    AddHeads(flow);
    AddDetail(flow, K(2), 1, u"a"_s, u"1"_s);
    FlowSheets sheets(flow);
    sheets.SetHasten(Flows()[at].hasten);
    sheets.LoadFiles(u"12"_s);
    log_->Take();
    EXPECT_EQ(sheets.DeleteHead(), QString());
    EXPECT_EQ(
        log_->Take().mid(0, 3),
        (QStringList{u"Delete From "_s + flow.detailTable + u" Where Register_ID = '"_s + K(2) + u'\'',
                     u"Update Lwdj Set "_s + words[at][0] + u" = '"_s + words[at][1] + u"' Where ArchiveID = '12'"_s,
                     u"Delete From "_s + flow.headTable + u" where Register_ID='"_s + K(2) + u'\''}));
    EXPECT_EQ(RecordState(u"12"_s, words[at][0]), words[at][1]);
    EXPECT_THAT(DetailsOf(flow, K(2)), IsEmpty());
    EXPECT_EQ(sheets.Key(), K(3));  // the one before it
    EXPECT_EQ(sheets.DeleteHead(), QString());
    EXPECT_EQ(sheets.Key(), K(1));  // after the first, the first
  }
}

TEST_P(FlowSheetsTest, ASheetOfATableThatIsGoneCanBeDeletedAndTheFailureIsTold) {
  AddHeads(Circulation());
  Database().Native(u"drop table Lwdj"_s);
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  EXPECT_TRUE(sheets.DeleteHead().contains(u"Lwdj"_s, Qt::CaseInsensitive));
  EXPECT_EQ(HeadText(Circulation(), K(3), u"File_ID"_s), u"<no row>"_s);
}

TEST_P(FlowSheetsTest, ManyHeadsGoTogetherOrNotAtAll) {
  AddHeads(Circulation());
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  sheets.DeleteHeads({K(3), K(1)});
  EXPECT_EQ(sheets.Key(), K(2));
  EXPECT_EQ(sheets.Heads().RecordCount(), 1);
  AddHead(Circulation(), {K(5), u"11"_s, u"未传阅"_s});
  Database().Native(u"update PassRead_File set File_Table='nowhere' where Register_ID='"_s + K(2) + u'\'');
  sheets.LoadFiles({});
  EXPECT_THROW(sheets.DeleteHeads({K(5), K(2)}), DataError);
  EXPECT_EQ(Database().Value(u"select count(*) from PassRead_File"_s), u"2"_s);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(FlowSheetsTest, ClosingWritesTheStatesBackFromTheCurrentHeadOn) {
  AddHeads(Circulation());
  Database().Native(u"update PassRead_File set PassRead_Status='已传阅' where Register_ID in ('"_s + K(3) + u"','"_s +
                    K(2) + u"')"_s);
  FlowSheets sheets(Circulation());
  sheets.LoadFiles(u"12"_s);
  log_->Take();
  EXPECT_EQ(sheets.WriteBack(), QString());
  EXPECT_THAT(log_->Take(), ElementsAre(u"Update Lwdj Set ReadState = '已传阅' Where ArchiveId = '12'"_s,
                                        u"Update Lwdj Set ReadState = '未传阅' Where ArchiveId = '11'"_s));
  EXPECT_EQ(RecordState(u"13"_s, u"ReadState"_s), u"<null>"_s);
}

TEST_P(FlowSheetsTest, OtherStatusesAreNotWrittenBack) {
  AddHeads(Circulation());
  for (const QString& status : {u"传阅中"_s, u"已完成"_s, u"暂缓"_s}) {
    Database().Native(u"update PassRead_File set PassRead_Status='"_s + status + u'\'');
    FlowSheets sheets(Circulation());
    sheets.LoadFiles({});
    log_->Take();
    EXPECT_EQ(sheets.WriteBack(), QString());
    EXPECT_THAT(log_->Take(), IsEmpty());
  }
}

TEST_P(FlowSheetsTest, AStatusThatCannotBeWrittenIsNotPending) {
  AddHeads(Circulation());
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  Database().Native(u"update PassRead_File set PassRead_Status='传阅中'"_s);
  EXPECT_THROW(sheets.WriteHead({{u"PassRead_Status"_s, u"已传阅"_s}}), DataError);
  EXPECT_EQ(sheets.Heads().PendingCount(), 0);
}

}  // namespace
}  // namespace folvane::test
