#include "flows/FlowRoute.h"

#include <folvane/DataError.h>

#include "data/Recordset.h"
#include "flows/RouteNodes.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

bool HasText(const Recordset& node, const QString& field) { return !node[field].Text().trimmed().isEmpty(); }

struct Passing {
  bool passed = false;
  QString acted;  ///< who has acted in the node by now, where that is kept
};

Passing PassNode(const Recordset& node, const QString& userId) {
  const QString mode = node[u"Node_Mode"_s].Text();
  const QString members = node[u"Node_member"_s].Text();
  const QString acted = node[u"Readed"_s].Text();
  if (mode == kOneReviewer) return {true, {}};
  if (mode != kSeveralInTurn) return {members == acted + userId, {}};
  const QString now = node[u"Readed"_s].IsNull() ? userId : acted + u',' + userId;
  QStringList actedParts, memberParts;
  SplitText(actedParts, now, {});
  SplitText(memberParts, members, {});
  return {actedParts.size() == memberParts.size(), now};
}

}  // namespace

void FlowRoute::OpenFlow(Recordset& flow) const {
  flow.Open(u"Select * From Curr_Flow where File_ID='"_s + sheets_.Key() + u'\'', SharedConnection(),
            CursorType::Static, LockType::Pessimistic);
}

void FlowRoute::OpenNode(Recordset& node, const QString& number) const {
  if (node.IsOpen()) node.Close();
  node.Open(
      u"select * from Curr_FlowNode where Flow_ID='"_s + sheets_.Key() + u"' and Node_Number='"_s + number + u'\'',
      SharedConnection(), CursorType::Static, LockType::Pessimistic);
}

void FlowRoute::Write(Recordset& records) const {
  records.UpdateBatch(AffectKind::Current);
  records.UpdateBatch(AffectKind::AllChapters);
}

// Whoever saw the head stand elsewhere on its route must not carry it on unawares.
void FlowRoute::RequireUnchanged() {
  const QString status = sheets_.Head(sheets_.Kind().statusColumn);
  const QString trail = sheets_.Head(u"UserID"_s);
  sheets_.ResyncHead();
  if (status == sheets_.Head(sheets_.Kind().statusColumn) && trail == sheets_.Head(u"UserID"_s)) return;
  throw DataError(DataErrorKind::Conflict,
                  u"其他用户已推进或更改了该处理单，现在的状态是“%1”，没有写入任何内容。请查看后再操作。"_s.arg(
                      sheets_.Head(sheets_.Kind().statusColumn)));
}

// The members of a node are added to the trail of those whom the head has reached.
void FlowRoute::Reach(Recordset& flow, const QString& number, const QString& members, const QString& status) {
  flow[u"CurrNode"_s].SetValue(number);
  Write(flow);
  std::vector<std::pair<QString, QString>> values{{u"UserID"_s, sheets_.Head(u"UserId"_s) + u'-' + members}};
  if (!status.isEmpty()) values.insert(values.begin(), {sheets_.Kind().statusColumn, status});
  sheets_.WriteHead(values);
}

void FlowRoute::StartRead() {
  const RouteWords& words = sheets_.Kind().route;
  if (!dialogue_.Confirm(words.startQuestion)) return;
  RequireUnchanged();
  Recordset flow, node;
  OpenFlow(flow);
  OpenNode(node, u"1"_s);
  if (flow.EOF_() || node.EOF_() || !HasText(node, u"Next_Node"_s) || !HasText(node, u"Node_Member"_s)) {
    dialogue_.Warn(u"对不起，您没有指定正确的流程信息！"_s);
    return;
  }
  const QString members = node[u"Node_Member"_s].Text();
  const bool createsDetails = dialogue_.Confirm(words.detailQuestion);
  sheets_.WriteTogether([&] {
    flow[u"IsCreateDetails"_s].SetValue(createsDetails ? u"1"_s : u"0"_s);
    if (createsDetails) sheets_.InsertRouteDetail(members);
    Reach(flow, u"1"_s, members, sheets_.Kind().running);
  });
  if (createsDetails) sheets_.RequeryDetails();
}

void FlowRoute::NextRead() {
  if (!dialogue_.Confirm(sheets_.Kind().route.nextQuestion) || !sheets_.HasHeads()) return;
  RequireUnchanged();
  Recordset flow, node;
  OpenFlow(flow);
  const QString current = flow[u"CurrNode"_s].Text();
  OpenNode(node, current);
  if (node.EOF_()) return End(flow);
  const Passing passing = PassNode(node, userId_);
  if (!passing.passed) {
    node[passing.acted].SetValue(passing.acted);
    Write(node);
    sheets_.WriteHead({});
    return;
  }
  const QString next = node[u"Next_Node"_s].Text();
  if (next == kRouteEnd) return End(flow);
  OpenNode(node, next);
  if (node.EOF_()) return End(flow);
  const QString members = node[u"Node_member"_s].Text();
  const bool createsDetails = flow[u"IsCreateDetails"_s].Text() == u"1"_s;
  sheets_.WriteTogether([&] {
    if (createsDetails) sheets_.InsertRouteDetail(members);
    Reach(flow, next, members, {});
  });
  if (createsDetails) sheets_.RequeryDetails();
}

void FlowRoute::End(Recordset& flow) {
  dialogue_.Warn(sheets_.Kind().route.end);
  sheets_.WriteTogether([&] {
    if (!flow.EOF_()) Write(flow);
    sheets_.WriteHead({{sheets_.Kind().statusColumn, sheets_.Kind().ended}});
  });
}

}  // namespace folvane
