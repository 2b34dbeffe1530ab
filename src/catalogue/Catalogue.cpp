#include "catalogue/Catalogue.h"

#include <algorithm>

#include "catalogue/DictionaryRows.h"
#include "catalogue/FieldRows.h"
#include "catalogue/FlowRows.h"
#include "catalogue/OriginalRows.h"
#include "catalogue/QueryRows.h"
#include "catalogue/ReportRows.h"
#include "catalogue/RightsRows.h"
#include "catalogue/RouteRows.h"
#include "catalogue/TransferRows.h"
#include "catalogue/TreeRows.h"

namespace folvane {
namespace {

template <class... Rows>
void Append(std::vector<Table>& tables) {
  (tables.push_back(Rows::Description()), ...);
}

std::vector<Table> AllTables() {
  std::vector<Table> tables;
  Append<ClassRelationRow, TableRelationRow>(tables);
  Append<DictionaryFieldRow, EntryControlRow, ListColumnFormatRow, SearchFieldRow>(tables);
  Append<ProofingRuleRow, QueryConditionRow, BrowseOrderRow>(tables);
  Append<TransferPairRow, TransferFieldRow, NumberPartRow>(tables);
  Append<DictionaryRow, DictionaryEntryRow, FondsRow, EntityClassRow, RetentionRow>(tables);
  Append<ReportRow, SettingRow>(tables);
  Append<OriginalRow>(tables);
  for (const Table& table : {FlowHeadRow::Distribution(), FlowHeadRow::Circulation(), FlowHeadRow::Handling(),
                             FlowDetailRow::Distribution(), FlowDetailRow::Circulation(), FlowDetailRow::Handling()})
    tables.push_back(table);
  Append<RouteRow, RouteNodeRow>(tables);
  Append<UserRow, TableRightsRow, RightsFieldRow>(tables);
  return tables;
}

}  // namespace

const std::vector<Table>& CatalogueTables() {
  static const std::vector<Table> tables = AllTables();
  return tables;
}

const Table* FindCatalogueTable(const QString& name) {
  const std::vector<Table>& tables = CatalogueTables();
  const auto found = std::find_if(tables.begin(), tables.end(), [&](const Table& table) {
    return table.name.compare(name, Qt::CaseInsensitive) == 0;
  });
  return found == tables.end() ? nullptr : &*found;
}

}  // namespace folvane
