#pragma once

#include "catalogue/RowDescription.h"

// Users and their rights.
namespace folvane {

/// UserPopedom: a user.
struct UserRow {
  QString userId, userName;

  static const RowColumns<UserRow>& Columns();
  static Table Description();
};

/// UserPopedomScope: a user's rights on a table; popCondition limits the rows, "" for all of them. The four flags are
/// "1" for yes.
struct TableRightsRow {
  QString userId, popTableName, popStrChn, popEditData, popPrintData, popLookFile, popCondition;

  static const RowColumns<TableRightsRow>& Columns();
  static Table Description();
};

/// UserPopedomScopeDetails: a field that the condition of a user's rights depends on.
struct RightsFieldRow {
  QString userId, popTableName, fieldName;

  static const RowColumns<RightsFieldRow>& Columns();
  static Table Description();
};

}  // namespace folvane
