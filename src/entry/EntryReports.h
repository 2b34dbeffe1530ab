#pragma once

#include <QString>
#include <functional>

namespace folvane {

class WindowCommands;

/// Fills the report menu and the menu under the report key with the reports of a table; each runs for one record.
/// @param currentKey answers the key of that record when a report is run
void LoadReportMenu(WindowCommands& commands, const QString& table, const std::function<QString()>& currentKey);

}  // namespace folvane
