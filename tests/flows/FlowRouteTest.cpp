#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "flows/FlowFixture.h"
#include "flows/FlowRoute.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

const QString kKey = u"10000000000000000001"_s;

/// A sheet of a flow on which the engine works; questions are answered in turn, then with yes.
class FlowRouteTest : public FlowTest {
 protected:
  void Open(const Flow& flow, const QStringList& nodes) {
    AddHead(flow, {kKey, u"1"_s, flow.idle});
    if (!nodes.isEmpty()) AddRoute(kKey, nodes);
    sheets_ = std::make_unique<FlowSheets>(flow);
    if (flow.isHandling) sheets_->SetHasten(u"0"_s);
    sheets_->LoadFiles({});
    log_->Take();
  }
  FlowRoute Route(const QString& user = u"A"_s) {
    return FlowRoute(*sheets_, user,
                     {[this](const QString& question) {
                        told_ << question;
                        return answers_.empty() || answers_.takeFirst();
                      },
                      [this](const QString& text) { told_ << text; }});
  }
  QString Text(const QString& column) { return HeadText(sheets_->Kind(), kKey, column); }
  QString FlowText(const QString& column) {
    return Database().Value(u"select "_s + column + u" from Curr_Flow where File_ID='"_s + kKey + u'\'');
  }

  std::unique_ptr<FlowSheets> sheets_;
  QStringList told_;
  QList<bool> answers_;
};

FOLVANE_ON_EACH_DATABASE(FlowRouteTest);

TEST_P(FlowRouteTest, AStartPutsTheHeadOnItsFirstNode) {
  Open(Circulation(), {u"1|A|单人审核|2"_s, u"2|B,C|多人顺序|0"_s});
  answers_ = {true, false};
  Route().StartRead();
  EXPECT_FALSE(sheets_->IsIdle());
  EXPECT_THAT(told_, ElementsAre(u"是否确定要开始公文的传阅流程？"_s,
                                 u"是否要生成相应处理人传阅单，\n\r这将为每一位传阅人生成一份传阅单？"_s));
  EXPECT_THAT(log_->Take(),
              ElementsAre(u"Select * From Curr_Flow where File_ID='"_s + kKey + u'\'',
                          u"select * from Curr_FlowNode where Flow_ID='"_s + kKey + u"' and Node_Number='1'"_s));
  EXPECT_EQ(FlowText(u"CurrNode"_s), u"1"_s);
  EXPECT_EQ(FlowText(u"IsCreateDetails"_s), u"0"_s);
  EXPECT_EQ(Text(u"PassRead_Status"_s), u"传阅中"_s);
  EXPECT_EQ(Text(u"UserID"_s), u"-A"_s);
  EXPECT_THAT(DetailsOf(Circulation(), kKey), IsEmpty());
}

TEST_P(FlowRouteTest, AStartMakesOneDetailForAllMembersOfTheNode) {
  Open(Circulation(), {u"1|A,B|单人审核|0"_s});
  FixClock(QDateTime(QDate(2002, 3, 4), QTime(9, 0)));
  Route().StartRead();
  EXPECT_FALSE(sheets_->IsIdle());
  EXPECT_THAT(log_->Take(),
              testing::Contains(u"Insert Into PassRead_Details (File_ID,Register_ID,Lead_Unit,PassRead_Date,Is_Back) "
                                "Values ('1','"_s +
                                kKey + u"','A,B','2002-3-4','否')"_s));
  EXPECT_THAT(DetailsOf(Circulation(), kKey), ElementsAre(u"1|A,B|否"_s));
  EXPECT_EQ(FlowText(u"IsCreateDetails"_s), u"1"_s);
  EXPECT_EQ(sheets_->Detail(u"PassRead_Date"_s), OnSqlite() ? u"2002-3-4"_s : u"2002-03-04"_s);
}

TEST_P(FlowRouteTest, ACancelledStartChangesNothing) {
  Open(Circulation(), {u"1|A|单人审核|0"_s});
  answers_ = {false};
  Route().StartRead();
  EXPECT_THAT(log_->Take(), IsEmpty());
  EXPECT_EQ(Text(u"PassRead_Status"_s), u"未传阅"_s);
}

struct BrokenRoute {
  QString scenario;
  QStringList nodes;
};

class BrokenRouteTest : public FlowRouteTest {};
FOLVANE_ON_EACH_DATABASE(BrokenRouteTest);

TEST_P(BrokenRouteTest, ARouteThatSaysTooLittleIsNotStarted) {
  const std::vector<BrokenRoute> cases{
      {u"no flow and no node"_s, {}},
      {u"no first node"_s, {u"2|A|单人审核|0"_s}},
      {u"null next node"_s, {u"1|A|x|<null>"_s}},
      {u"null members"_s, {u"1|<null>|x|0"_s}},
      {u"blank next node"_s, {u"1|A|x|  "_s}},
      {u"blank members"_s, {u"1|  |x|0"_s}},
  };
  for (const BrokenRoute& each : cases) {
    SCOPED_TRACE(each.scenario.toStdString());
    Database().Native(u"delete from PassRead_File"_s);
    Database().Native(u"delete from Curr_Flow"_s);
    Database().Native(u"delete from Curr_FlowNode"_s);
    told_.clear();
    Open(Circulation(), each.nodes);
    Route().StartRead();
    EXPECT_EQ(told_.last(), u"对不起，您没有指定正确的流程信息！"_s);
    EXPECT_EQ(Text(u"PassRead_Status"_s), u"未传阅"_s);
  }
}

TEST_P(FlowRouteTest, ANodeWithoutAFlowRowIsNoRouteEither) {
  Open(Circulation(), {u"1|A|单人审核|0"_s});
  Database().Native(u"delete from Curr_Flow"_s);
  Route().StartRead();
  EXPECT_EQ(told_.last(), u"对不起，您没有指定正确的流程信息！"_s);
}

TEST_P(FlowRouteTest, ANodeOfOneReviewerIsPassedAtOnce) {
  Open(Circulation(), {u"1|A|单人审核|2"_s, u"2|B,C|多人顺序|0"_s});
  Route().StartRead();
  log_->Take();
  told_.clear();
  Route().NextRead();
  EXPECT_THAT(told_, ElementsAre(u"是否确定要进入下一步流程？"_s));
  EXPECT_EQ(FlowText(u"CurrNode"_s), u"2"_s);
  EXPECT_EQ(Text(u"UserID"_s), u"-A-B,C"_s);
  EXPECT_EQ(Text(u"PassRead_Status"_s), u"传阅中"_s);
  EXPECT_THAT(DetailsOf(Circulation(), kKey), ElementsAre(u"1|A|否"_s, u"2|B,C|否"_s));
}

TEST_P(FlowRouteTest, ANodeThatIsNotPassedEndsWithTheUnknownFieldAndWritesNothing) {
  for (const QString& mode : {u"多人顺序"_s, u"会签"_s}) {
    SCOPED_TRACE(mode.toStdString());
    for (const QString& table : {u"PassRead_File"_s, u"PassRead_Details"_s, u"Curr_Flow"_s, u"Curr_FlowNode"_s})
      Database().Native(u"delete from "_s + table);
    Open(Circulation(), {u"1|B,C|"_s + mode + u"|0"_s});
    Route(u"B"_s).StartRead();
    try {
      Route(u"B"_s).NextRead();
      ADD_FAILURE() << "the node was passed";
    } catch (const DataError& error) {
      EXPECT_EQ(error.Kind(), DataErrorKind::Usage);
      EXPECT_TRUE(error.Message().contains(mode == u"多人顺序"_s ? u"“B”"_s : u"“”"_s)) << error.what();
    }
    EXPECT_EQ(Text(u"PassRead_Status"_s), u"传阅中"_s);
    EXPECT_EQ(FlowText(u"CurrNode"_s), u"1"_s);
    EXPECT_EQ(Database().Value(u"select Readed from Curr_FlowNode"_s), u"<null>"_s);
  }
}

TEST_P(FlowRouteTest, ANodeOfSeveralIsPassedWhenAsManyHaveActed) {
  Open(Circulation(), {u"1|B,C|多人顺序|2"_s, u"2|D|单人审核|0"_s});
  Route().StartRead();
  Database().Native(u"update Curr_FlowNode set Readed='B' where Node_Number='1'"_s);
  Route(u"whoever"_s).NextRead();
  EXPECT_EQ(FlowText(u"CurrNode"_s), u"2"_s);
}

TEST_P(FlowRouteTest, ANodeOfAnyOtherModePassesForItsMemberAlone) {
  Open(Circulation(), {u"1|A|会签|2"_s, u"2|D|会签|0"_s});
  Route().StartRead();
  EXPECT_THROW(Route(u"B"_s).NextRead(), DataError);
  Route(u"A"_s).NextRead();
  EXPECT_EQ(FlowText(u"CurrNode"_s), u"2"_s);
}

struct EndCase {
  QString scenario, next;
};

TEST_P(FlowRouteTest, ARouteEndsWhereNoNodeFollows) {
  const std::vector<EndCase> cases{{u"next is 0"_s, u"0"_s}, {u"next names no node"_s, u"7"_s}};
  for (const EndCase& each : cases) {
    SCOPED_TRACE(each.scenario.toStdString());
    for (const QString& table : {u"PassRead_File"_s, u"PassRead_Details"_s, u"Curr_Flow"_s, u"Curr_FlowNode"_s})
      Database().Native(u"delete from "_s + table);
    Open(Circulation(), {u"1|A|单人审核|"_s + each.next});
    Route().StartRead();
    Route().NextRead();
    EXPECT_TRUE(sheets_->IsIdle());
    EXPECT_EQ(told_.last(), u"已完成公文的传阅工作！"_s);
    EXPECT_EQ(Text(u"PassRead_Status"_s), u"已完成"_s);
    EXPECT_TRUE(sheets_->IsIdle());
  }
}

TEST_P(FlowRouteTest, AMissingCurrentNodeEndsTheRoute) {
  Open(Circulation(), {u"1|A|单人审核|0"_s});
  Route().StartRead();
  Database().Native(u"delete from Curr_FlowNode"_s);
  Route().NextRead();
  EXPECT_TRUE(sheets_->IsIdle());
  EXPECT_EQ(Text(u"PassRead_Status"_s), u"已完成"_s);
}

TEST_P(FlowRouteTest, WithoutAFlowRowTheNextStepIsTheRecordSetsErrorAndChangesNothing) {
  Open(Circulation(), {});
  EXPECT_THROW(Route().NextRead(), DataError);
  EXPECT_EQ(Text(u"PassRead_Status"_s), u"未传阅"_s);
}

TEST_P(FlowRouteTest, AnEmptyListOfHeadsHasNoNextStep) {
  Open(Circulation(), {});
  Database().Native(u"delete from PassRead_File"_s);
  sheets_->LoadFiles({});
  log_->Take();
  Route().NextRead();
  EXPECT_THAT(log_->Take(), IsEmpty());
}

TEST_P(FlowRouteTest, HandlingHasItsOwnWordsAndMarksItsDetails) {
  Open(Handling(), {u"1|办公室|单人审核|0"_s});
  Route().StartRead();
  EXPECT_FALSE(sheets_->IsIdle());
  EXPECT_THAT(told_, ElementsAre(u"是否确定要开始公文的处理流程？"_s,
                                 u"是否要生成相应处理人处理单，\n\r这将为每一位处理人生成一份处理单？"_s));
  EXPECT_EQ(Text(u"Transact_Status"_s), u"处理中"_s);
  EXPECT_EQ(Database().Value(u"select Is_Hasten from Transact_Details"_s), u"0"_s);
  Route().NextRead();
  EXPECT_EQ(told_.last(), u"已完成公文的处理工作！"_s);
  EXPECT_EQ(Text(u"Transact_Status"_s), u"已完成"_s);
}

TEST_P(FlowRouteTest, AFinishedRouteCanBeStartedAgain) {
  Open(Circulation(), {u"1|A|单人审核|0"_s});
  Route().StartRead();
  Route().NextRead();
  Route().StartRead();
  EXPECT_FALSE(sheets_->IsIdle());
  EXPECT_EQ(Text(u"UserID"_s), u"-A-A"_s);
}

TEST_P(FlowRouteTest, AHeadThatAnotherUserHasCarriedOnIsNotCarriedOnUnawares) {
  Open(Circulation(), {u"1|A|单人审核|2"_s, u"2|B|单人审核|3"_s, u"3|C|单人审核|0"_s});
  Route().StartRead();
  FlowSheets others(Circulation());
  others.LoadFiles({});
  FlowRoute(others, u"A"_s, {[](const QString&) { return true; }, [](const QString&) {}}).NextRead();
  EXPECT_THROW(Route().NextRead(), DataError);
  EXPECT_EQ(FlowText(u"CurrNode"_s), u"2"_s);
  EXPECT_EQ(Text(u"UserID"_s), u"-A-B"_s);
  Route().NextRead();  // now the user has seen it
  EXPECT_EQ(FlowText(u"CurrNode"_s), u"3"_s);
}

TEST_P(FlowRouteTest, AStepThatFailsHalfWayLeavesNothingBehind) {
  Open(Circulation(), {u"1|A|单人审核|2"_s, u"2|B|单人审核|0"_s});
  Route().StartRead();
  const QString tooLong = QString(1100, u'x');
  Database().Native(u"update PassRead_File set UserID='"_s + tooLong.left(999) + u'\'');
  sheets_->LoadFiles({});
  EXPECT_THROW(Route().NextRead(), DataError);  // the trail has no room for another member
  EXPECT_EQ(FlowText(u"CurrNode"_s), u"1"_s);
  EXPECT_EQ(DetailsOf(Circulation(), kKey).size(), 1);
  EXPECT_FALSE(Connected()->InTransaction());
  EXPECT_EQ(sheets_->Heads().PendingCount(), 0);
}

}  // namespace
}  // namespace folvane::test
