#pragma once

#include <QHash>
#include <vector>

#include <folvane/Design.h>

#include "catalogue/DictionaryRows.h"
#include "catalogue/FieldRows.h"
#include "catalogue/ReportRows.h"
#include "catalogue/RightsRows.h"
#include "catalogue/TransferRows.h"
#include "catalogue/TreeRows.h"

namespace folvane::design {

/// The rows of the design tables that a design is kept in.
struct StoredRows {
  std::vector<ClassRelationRow> classes;
  std::vector<TableRelationRow> relations;
  std::vector<DictionaryFieldRow> fields;
  std::vector<EntryControlRow> controls;
  std::vector<ListColumnFormatRow> columns;
  std::vector<SearchFieldRow> searchFields;
  std::vector<NumberPartRow> numberParts;
  std::vector<DictionaryRow> dictionaries;
  std::vector<DictionaryEntryRow> entries;
  std::vector<FondsRow> fonds;
  std::vector<EntityClassRow> entityClasses;
  std::vector<RetentionRow> retentions;
  std::vector<TransferPairRow> transfers;
  std::vector<TransferFieldRow> links;
  std::vector<ReportRow> reports;
  std::vector<UserRow> users;
  std::vector<TableRightsRow> rights;
  std::vector<RightsFieldRow> rightsFields;
};

/// Numbers and keys that rows are tied by and a design does without.
struct RowKeys {
  QHash<QString, int> transfers;         ///< by the key of the transfer
  QHash<QString, QString> dictionaries;  ///< by the key of the dictionary
};

/// Reads the rows, without blanks at the end of texts; of tables that are missing there are none. @throws DataError
StoredRows ReadStoredRows(Connection& connection);

/// What the rows say. Of rows with the same key the first counts.
Design DesignOf(const StoredRows& rows);

/// The keys that rows have, and new ones for what else is in the designs.
RowKeys KeysFor(const StoredRows& rows, const std::vector<const Design*>& designs);

/// The rows that a design is kept in; what its lists hold twice is there twice.
StoredRows RowsOf(const Design& design, const RowKeys& keys);

}  // namespace folvane::design
