#pragma once

#include <QString>
#include <functional>

#include "flows/FlowSheets.h"

namespace folvane {

/// What an operation of the route asks and tells on its way.
struct RouteDialogue {
  std::function<bool(const QString& question)> Confirm;
  std::function<void(const QString& text)> Warn;
};

/// The engine that carries a head along its route of nodes, from member to member, in Curr_Flow and Curr_FlowNode.
///
/// What an operation writes stands or falls together. @throws DataError
class FlowRoute {
 public:
  /// @param userId of the user who acts in a node
  FlowRoute(FlowSheets& sheets, const QString& userId, RouteDialogue dialogue)
      : sheets_(sheets), userId_(userId), dialogue_(std::move(dialogue)) {}

  /// Puts the current head on the first node of its route.
  void StartRead();
  /// Passes the current node of the current head and goes to the next, or ends the route.
  ///
  /// A node of "单人审核" is passed at once. One of "多人顺序" is passed when as many have acted as it has members. Any
  /// other is passed when those who have acted and the user make up the text of its members. The names of those who
  /// have acted in a node that is not yet passed are written to the field that bears their names: there is none, so
  /// that ends with the record set's error and changes nothing.
  void NextRead();

 private:
  void OpenFlow(Recordset& flow) const;
  void OpenNode(Recordset& node, const QString& number) const;
  void Reach(Recordset& flow, const QString& number, const QString& members, const QString& status);
  void Write(Recordset& records) const;
  void RequireUnchanged();
  void End(Recordset& flow);

  FlowSheets& sheets_;
  QString userId_;
  RouteDialogue dialogue_;
};

}  // namespace folvane
