#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace folvane {

struct Flow;

/// A node of a head's route in Curr_FlowNode.
struct RouteNode {
  QString number, members, mode, next;
  QString acted{};  ///< those who have acted in it, joined by ","; read only

  bool operator==(const RouteNode&) const = default;
};

/// The modes of a node that the route engine knows by their words.
inline const QString kOneReviewer = QStringLiteral("单人审核");
inline const QString kSeveralInTurn = QStringLiteral("多人顺序");
/// The number of the node behind the last one.
inline const QString kRouteEnd = QStringLiteral("0");

/// The nodes of a head's route by their numbers. @throws DataError
std::vector<RouteNode> ReadRoute(const QString& headKey);
/// The number of the node that a head stands on, "" before the start. @throws DataError
QString ReadCurrentNode(const QString& headKey);
/// Writes the route of a head, which has not been started then, in place of the one before, whole or not at all.
/// @throws DataError
void WriteRoute(const QString& headKey, const std::vector<RouteNode>& nodes);

/// A head's route as it is stored.
struct StoredRoute {
  std::vector<RouteNode> nodes;
  QString current;  ///< the number of the node that the head stands on

  bool operator==(const StoredRoute&) const = default;
};
/// @throws DataError
StoredRoute ReadStoredRoute(const QString& headKey);
/// Writes a route in place of the one that was read, as long as nobody has started or changed that one meanwhile.
/// @throws DataError, Conflict where somebody has
void ReplaceRoute(const Flow& flow, const QString& headKey, const StoredRoute& read,
                  const std::vector<RouteNode>& nodes);

/// The nodes in the order in which the route goes through them from node 1; ends before a node that it comes to again.
std::vector<RouteNode> RouteFromStart(const std::vector<RouteNode>& nodes);
/// Such as "甲 → 乙,丙 → 结束".
QString RouteInWords(const std::vector<RouteNode>& nodes);
/// What is wrong with a route, in sentences for the user: no first node, a blank member, a number that stands twice, a
/// next node that is missing, a circle, a node that is never reached. Empty when it can be started.
QStringList RouteFaults(const std::vector<RouteNode>& nodes);
/// Where a route will stop, in sentences: nobody's acting is noted, so that a node passes whose mode asks for one
/// alone.
QStringList RouteCautions(const std::vector<RouteNode>& nodes);

/// How far a route has come in a node.
enum class NodeState { Ahead, Current, Passed };
NodeState StateOfNode(const std::vector<RouteNode>& nodes, const QString& number, const QString& current, bool ended);

/// Routes of other sheets that a head can take over.
struct OtherRoute {
  QString headKey, title, words;
};
/// The routes of the other heads of a table, newest first. @throws DataError
std::vector<OtherRoute> ReadOtherRoutes(const QString& headTable, const QString& headKey);

}  // namespace folvane
