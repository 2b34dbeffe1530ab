#pragma once

#include <QString>

namespace folvane {

struct Flow;
class FlowSheets;

/// Has the user choose the route of another sheet, shown in words, and makes it the route of a head.
/// @return whether a route was taken over @throws DataError
bool TakeOverRoute(const Flow& flow, const QString& headKey);

/// Shows how far the current head has come on its route, who has acted and, in handling, with what result.
/// @param ofUser only the nodes and details of that user, "" for all @throws DataError
void ShowRouteProgress(const FlowSheets& sheets, const QString& ofUser);

/// Opens the editor of a head's route. @return whether the route was written @throws DataError
bool EditRoute(const Flow& flow, const QString& headKey);

}  // namespace folvane
