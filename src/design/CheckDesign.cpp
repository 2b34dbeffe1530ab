#include <algorithm>

#include "data/DatabaseSession.h"
#include "design/Checks.h"

namespace folvane {
namespace design {

std::function<void(Design&)> InTable(const Design::Table& table, std::function<void(Design::Table&)> change) {
  return [name = table.name, change = std::move(change)](Design& design) {
    if (Design::Table* found = FindNamed(design.tables, name)) change(*found);
    PutInOrder(design);
  };
}

}  // namespace design

std::vector<DesignFinding> CheckDesign(const Design& design, Connection* connection, const QString& reportFolder) {
  if (connection) DatabaseSession::Of(*connection).RefreshSchema();
  design::Checked checked{design, connection};
  design::CheckTree(checked);
  design::CheckFields(checked);
  design::CheckForms(checked);
  design::CheckLists(checked);
  design::CheckTransfers(checked);
  design::CheckRights(checked);
  design::CheckReports(checked, reportFolder);
  design::CheckColumns(checked);
  design::CheckRows(checked);
  std::stable_sort(checked.findings.begin(), checked.findings.end(),
                   [](const DesignFinding& one, const DesignFinding& other) { return one.weight > other.weight; });
  return std::move(checked.findings);
}

}  // namespace folvane
