#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "flows/FlowSheetsFixture.h"
namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

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

TEST_P(FlowSheetsTest, ColumnsOfTextsServeAsThoseOfNumbersDo) {
  Database().Native(u"drop table Distribute_Details"_s);
  Database().Native(
      u"create table Distribute_Details (Register_ID varchar(20), File_ID varchar(10), Lead_Unit varchar(50), "
      "Distribute_Date varchar(20), Quantity varchar(10), Is_Back varchar(4), Back_Date varchar(20), "
      "Real_BackDate varchar(20), Back_Quantity varchar(10), primary key (Register_ID, File_ID))"_s);
  Connected()->Execute(u"Delete From Distribute_Details"_s);
  AddHeads(Distribution());
  FlowSheets sheets(Distribution());
  sheets.LoadFiles({});
  for (int serial = 1; serial <= 11; ++serial) {
    EXPECT_EQ(sheets.NextDetailSerial(), QString::number(serial));
    sheets.InsertDetail({QString::number(serial), u"a"_s, u"2002-03-04"_s, u"2"_s, {}, u"否"_s, {}, {}, u"0"_s, {}});
  }
  sheets.RequeryDetails();
  EXPECT_EQ(sheets.Details().RecordCount(), 11);
  DetailValues shown = sheets.ReadDetail();
  DetailValues wanted = shown;
  wanted.quantity = u"5"_s;
  EXPECT_EQ(sheets.UpdateDetail(wanted, shown).kind, SaveOutcome::Written);
  sheets.RequeryDetails();
  EXPECT_EQ(sheets.ReadDetail(), wanted);
  EXPECT_TRUE(sheets.IsSerialTaken(u"11"_s));
  EXPECT_EQ(sheets.DeleteDetail(), QString());
}

TEST_P(FlowSheetsTest, ASerialThatIsNoNumberIsPassedOverUnlessItIsTheGreatest) {
  Database().Native(u"alter table PassRead_Details rename to Before"_s);
  Database().Native(u"create table PassRead_Details (Register_ID varchar(20), File_ID varchar(10))"_s);
  AddHeads(Circulation());
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  const auto add = [&](const QString& serial) {
    Database().Native(u"insert into PassRead_Details (Register_ID,File_ID) values ('%1','%2')"_s.arg(K(3), serial));
  };
  add(u"9"_s);
  add(u"(补)"_s);
  EXPECT_EQ(sheets.NextDetailSerial(), u"10"_s);
  add(u"补"_s);
  EXPECT_THROW(sheets.NextDetailSerial(), DataError);
}

TEST_P(FlowSheetsTest, ASheetThatIsGoneLeavesTheListAtItsPlace) {
  AddHeads(Circulation());
  FlowSheets sheets(Circulation());
  sheets.LoadFiles(u"12"_s);
  Database().Native(u"delete from PassRead_File where Register_ID='"_s + K(2) + u'\'');
  sheets.RequeryHeads();
  EXPECT_EQ(sheets.Key(), K(1)) << "which stands there now";
  Database().Native(u"delete from PassRead_File where Register_ID='"_s + K(1) + u'\'');
  sheets.RequeryHeads();
  EXPECT_EQ(sheets.Key(), K(3)) << "the last one";
  Database().Native(u"delete from PassRead_File"_s);
  sheets.RequeryHeads();
  EXPECT_FALSE(sheets.HasHeads());
  sheets.RequeryHeads();
  EXPECT_FALSE(sheets.HasHeads());
}

TEST_P(FlowSheetsTest, TheLinesShownAreThoseOfTheSheetThatIsCurrentAfterARequery) {
  AddHeads(Circulation());
  for (int number = 1; number <= 3; ++number) AddDetail(Circulation(), K(number), number, u"a"_s);
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  sheets.Narrow(u"PassRead_Status = '未传阅'"_s);
  while (sheets.HasHeads()) {
    ASSERT_EQ(sheets.Details().RecordCount(), 1);
    EXPECT_EQ(sheets.Detail(u"Register_ID"_s), sheets.Key());
    Database().Native(u"update PassRead_File set PassRead_Status='已传阅' where Register_ID='"_s + sheets.Key() +
                      u'\'');
    sheets.RequeryHeads();
  }
  EXPECT_FALSE(sheets.Details().IsOpen());
}

TEST_P(FlowSheetsTest, LinesThatCouldNotBeReadAreReadWithTheNextRequery) {
  AddHeads(Circulation());
  AddDetail(Circulation(), K(3), 1, u"a"_s);
  FlowSheets sheets(Circulation());
  Database().Native(u"alter table PassRead_Details rename to elsewhere"_s);
  EXPECT_THROW(sheets.LoadFiles({}), DataError);
  Database().Native(u"alter table elsewhere rename to PassRead_Details"_s);
  sheets.RequeryDetails();
  EXPECT_EQ(sheets.Details().RecordCount(), 1);
}

TEST_P(FlowSheetsTest, ALineIsFoundAgainWhereverItStands) {
  AddHeads(Circulation());
  for (int serial = 1; serial <= 3; ++serial) AddDetail(Circulation(), K(3), serial, u"a"_s);
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  Database().Native(u"delete from PassRead_Details where File_ID='1'"_s);
  sheets.RequeryDetails(u"2"_s);
  EXPECT_EQ(sheets.Detail(u"File_ID"_s), u"2"_s);
  Database().Native(u"delete from PassRead_Details where File_ID='2'"_s);
  sheets.RequeryDetails(u"2"_s);
  EXPECT_EQ(sheets.Detail(u"File_ID"_s), u"3"_s) << "what stands in its place";
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

TEST_P(FlowSheetsTest, ManyHeadsGoTogether) {
  AddHeads(Circulation());
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  sheets.DeleteHeads({K(3), K(1)});
  EXPECT_EQ(sheets.Key(), K(2));
  EXPECT_EQ(sheets.Heads().RecordCount(), 1);
}

TEST_P(FlowSheetsTest, WhereManyHeadsCannotBeDeletedTheListStandsWhereItStood) {
  AddHeads(Circulation());
  for (int number = 1; number <= 3; ++number) AddDetail(Circulation(), K(number), 1, u"a"_s);
  Database().Native(u"update PassRead_File set File_Table='nowhere' where Register_ID='"_s + K(1) + u'\'');
  FlowSheets sheets(Circulation());
  sheets.LoadFiles(u"12"_s);
  EXPECT_THROW(sheets.DeleteHeads({K(3), K(2), K(1)}), DataError);
  EXPECT_EQ(sheets.Key(), K(2));
  EXPECT_THROW(sheets.DeleteHeads({K(3), u"none"_s}), DataError);
  EXPECT_EQ(sheets.Key(), K(2));
  EXPECT_EQ(sheets.Detail(u"Register_ID"_s), K(2));
  for (const QString& table : {u"PassRead_File"_s, u"PassRead_Details"_s})
    EXPECT_EQ(Database().Value(u"select count(*) from "_s + table), u"3"_s);
  EXPECT_EQ(RecordState(u"13"_s, u"ReadState"_s), u"<null>"_s);
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

TEST_P(FlowSheetsTest, OneRecordThatCannotBeWrittenKeepsNoOtherFromIt) {
  AddHeads(Circulation());
  Database().Native(u"update PassRead_File set File_Table='nowhere' where File_ID='12'"_s);
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  EXPECT_TRUE(sheets.WriteBack().contains(u"nowhere"_s));
  EXPECT_EQ(RecordState(u"13"_s, u"ReadState"_s), u"未传阅"_s);
  EXPECT_EQ(RecordState(u"11"_s, u"ReadState"_s), u"未传阅"_s);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(FlowSheetsTest, AfterAQueryClosingWritesBackOnlyWhatIsListed) {
  AddHeads(Circulation());
  FlowSheets sheets(Circulation());
  sheets.LoadFiles({});
  sheets.Narrow(u"File_ID <> '12'"_s);
  sheets.GoToHead(2);
  log_->Take();
  EXPECT_EQ(sheets.WriteBack(), QString());
  EXPECT_THAT(log_->Take(), ElementsAre(u"Update Lwdj Set ReadState = '未传阅' Where ArchiveId = '11'"_s));
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
