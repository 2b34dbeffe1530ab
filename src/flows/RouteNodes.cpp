#include "flows/RouteNodes.h"

#include <QSet>
#include <algorithm>

#include "data/OneTransaction.h"
#include "data/Recordset.h"
#include "flows/Flow.h"
#include "flows/Undisturbed.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kFirst = u"1"_s;

QString Literal(const QString& text) { return u'\'' + EscapeSql(text) + u'\''; }

const RouteNode* NodeOf(const std::vector<RouteNode>& nodes, const QString& number) {
  const auto found =
      std::find_if(nodes.begin(), nodes.end(), [&](const RouteNode& node) { return node.number == number; });
  return found == nodes.end() ? nullptr : &*found;
}

bool ComesBefore(const RouteNode& left, const RouteNode& right) { return left.number.toInt() < right.number.toInt(); }

RouteNode NodeIn(const Recordset& rows) {
  return {rows[u"Node_Number"_s].Text().trimmed(), rows[u"Node_Member"_s].Text(), rows[u"Node_Mode"_s].Text(),
          rows[u"Next_Node"_s].Text().trimmed(), rows[u"Readed"_s].Text()};
}

bool HasBlankMember(const QString& members) {
  const QStringList parts = members.split(u',');
  return std::any_of(parts.begin(), parts.end(), [](const QString& part) { return part.trimmed().isEmpty(); });
}

}  // namespace

std::vector<RouteNode> ReadRoute(const QString& headKey) {
  Recordset rows;
  rows.Open(u"Select * From Curr_FlowNode Where Flow_ID="_s + Literal(headKey), SharedConnection());
  std::vector<RouteNode> nodes;
  for (; !rows.EOF_(); rows.MoveNext()) nodes.push_back(NodeIn(rows));
  std::stable_sort(nodes.begin(), nodes.end(), ComesBefore);
  return nodes;
}

QString ReadCurrentNode(const QString& headKey) {
  Recordset rows;
  rows.Open(u"Select CurrNode From Curr_Flow Where File_ID="_s + Literal(headKey), SharedConnection());
  return rows.EOF_() ? QString() : rows[u"CurrNode"_s].Text().trimmed();
}

void WriteRoute(const QString& headKey, const std::vector<RouteNode>& nodes) {
  Connection& connection = *SharedConnection();
  const QString key = Literal(headKey);
  InOneTransaction(connection, [&] {
    connection.Execute(u"Delete From Curr_FlowNode Where Flow_ID="_s + key);
    for (const RouteNode& node : nodes) {
      const QStringList values{key, Literal(node.number), Literal(node.members), Literal(node.mode),
                               Literal(node.next)};
      connection.Execute(u"Insert Into Curr_FlowNode (Flow_ID,Node_Number,Node_Member,Node_Mode,Next_Node) Values ("_s +
                         values.join(u',') + u')');
    }
    if (connection.Execute(u"Update Curr_Flow Set CurrNode=Null,IsCreateDetails='0' Where File_ID="_s + key) == 0)
      connection.Execute(u"Insert Into Curr_Flow (File_ID,IsCreateDetails) Values ("_s + key + u",'0')"_s);
  });
}

StoredRoute ReadStoredRoute(const QString& headKey) { return {ReadRoute(headKey), ReadCurrentNode(headKey)}; }

void ReplaceRoute(const Flow& flow, const QString& headKey, const StoredRoute& read,
                  const std::vector<RouteNode>& nodes) {
  Undisturbed([&] {
    Recordset head;
    head.Open(
        u"Select "_s + flow.statusColumn + u" From "_s + flow.headTable + u" Where Register_ID="_s + Literal(headKey),
        SharedConnection());
    if (head.EOF_()) throw DataError(DataErrorKind::Conflict, u"该处理单已被其他用户删除。"_s);
    const QString status = head[flow.statusColumn].Text();
    if (status == flow.running) throw DataError(DataErrorKind::Conflict, u"其他用户已经启动了该流程，不能再更改。"_s);
    if (ReadStoredRoute(headKey) != read)
      throw DataError(DataErrorKind::Conflict, u"其他用户刚刚更改了该流程，请重新打开后再改。"_s);
    WriteRoute(headKey, nodes);
    return true;
  });
}

std::vector<RouteNode> RouteFromStart(const std::vector<RouteNode>& nodes) {
  std::vector<RouteNode> way;
  QSet<QString> seen;
  const RouteNode* node = NodeOf(nodes, kFirst);
  while (node && !seen.contains(node->number)) {
    seen.insert(node->number);
    way.push_back(*node);
    node = node->next == kRouteEnd ? nullptr : NodeOf(nodes, node->next);
  }
  return way;
}

QString RouteInWords(const std::vector<RouteNode>& nodes) {
  QStringList words;
  for (const RouteNode& node : RouteFromStart(nodes)) words << node.members.simplified();
  if (words.isEmpty()) return {};
  return (words << u"结束"_s).join(u" → "_s);
}

QStringList RouteFaults(const std::vector<RouteNode>& nodes) {
  QStringList faults;
  if (!NodeOf(nodes, kFirst)) faults << u"没有第 1 号节点，流程无从开始。"_s;
  QSet<QString> numbers;
  for (const RouteNode& node : nodes) {
    if (node.number.isEmpty() || node.number == kRouteEnd) faults << u"节点的序号不能为空或 0。"_s;
    if (numbers.contains(node.number)) faults << u"序号 %1 出现了两次。"_s.arg(node.number);
    numbers.insert(node.number);
    if (HasBlankMember(node.members)) faults << u"节点 %1 没有成员，或者成员中有空白。"_s.arg(node.number);
    if (node.next.isEmpty()) {
      faults << u"节点 %1 没有下一节点；结束请用 0。"_s.arg(node.number);
    } else if (node.next != kRouteEnd && !NodeOf(nodes, node.next)) {
      faults << u"节点 %1 的下一节点 %2 不存在。"_s.arg(node.number, node.next);
    }
  }
  const std::vector<RouteNode> way = RouteFromStart(nodes);
  if (!way.empty() && way.back().next != kRouteEnd && NodeOf(nodes, way.back().next))
    faults << u"节点 %1 又回到了节点 %2，流程不会结束。"_s.arg(way.back().number, way.back().next);
  for (const RouteNode& node : nodes) {
    if (!way.empty() && !NodeOf(way, node.number)) faults << u"流程走不到节点 %1。"_s.arg(node.number);
  }
  faults.removeDuplicates();
  return faults;
}

QStringList RouteCautions(const std::vector<RouteNode>& nodes) {
  QStringList cautions;
  for (const RouteNode& node : nodes) {
    if (node.mode == kOneReviewer || !node.members.contains(u',')) continue;
    cautions << u"节点 %1 有多个成员，按“%2”流程会停在这里，请用“%3”。"_s.arg(node.number, node.mode, kOneReviewer);
  }
  return cautions;
}

NodeState StateOfNode(const std::vector<RouteNode>& nodes, const QString& number, const QString& current, bool ended) {
  if (!ended && number == current) return NodeState::Current;
  const std::vector<RouteNode> way = RouteFromStart(nodes);
  if (!NodeOf(way, number)) return NodeState::Ahead;
  if (ended) return NodeState::Passed;
  for (const RouteNode& node : way) {
    if (node.number == current) return NodeState::Ahead;  // the head stands before that node
    if (node.number == number) return NodeOf(way, current) ? NodeState::Passed : NodeState::Ahead;
  }
  return NodeState::Ahead;
}

std::vector<OtherRoute> ReadOtherRoutes(const QString& headTable, const QString& headKey) {
  Recordset rows;
  rows.Open(u"Select Curr_FlowNode.*,"_s + headTable + u".MainTitle From Curr_FlowNode,"_s + headTable +
                u" Where Curr_FlowNode.Flow_ID="_s + headTable + u".Register_ID And Curr_FlowNode.Flow_ID<>"_s +
                Literal(headKey) + u" Order By Curr_FlowNode.Flow_ID Desc"_s,
            SharedConnection());
  std::vector<OtherRoute> routes;
  std::vector<RouteNode> nodes;
  for (; !rows.EOF_(); rows.MoveNext()) {
    const QString key = rows[u"Flow_ID"_s].Text();
    if (routes.empty() || routes.back().headKey != key) {
      nodes.clear();
      routes.push_back({key, rows[u"MainTitle"_s].Text(), {}});
    }
    nodes.push_back(NodeIn(rows));
    routes.back().words = RouteInWords(nodes);
  }
  return routes;
}

}  // namespace folvane
