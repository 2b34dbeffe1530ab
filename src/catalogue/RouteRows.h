#pragma once

#include "catalogue/RowDescription.h"

// The routes of circulation and handling.
namespace folvane {

/// Curr_Flow: where a head of a flow stands on its route; fileId is the head's registerId.
struct RouteRow {
  QString fileId, currNode, isCreateDetails;

  static const RowColumns<RouteRow>& Columns();
  static Table Description();
};

/// Curr_FlowNode: a node of a route; flowId is the head's registerId, nextNode "0" ends the route.
struct RouteNodeRow {
  QString flowId, nodeNumber, nextNode, nodeMember, nodeMode, readed;

  static const RowColumns<RouteNodeRow>& Columns();
  static Table Description();
};

}  // namespace folvane
