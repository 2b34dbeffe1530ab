#pragma once

#include "catalogue/RowDescription.h"

// How records pass from table to table and how they are numbered on arrival.
namespace folvane {

/// DataTransfer_Ini: a source table and the table that takes its records.
struct TransferPairRow {
  QString sourceTbl, desTbl;
  int recId = 0;

  static const RowColumns<TransferPairRow>& Columns();
  static Table Description();
};

/// DataTransfer_Details: a field of a pair's field map.
struct TransferFieldRow {
  QString sourceField, desField, sourceChn;
  int iniRecId = 0;

  static const RowColumns<TransferFieldRow>& Columns();
  static Table Description();
};

/// ArchiveNo_Format: a part of the archive number of a table. The order of the rows is the order of the parts, so
/// nothing but the order of entry may sort them.
struct NumberPartRow {
  QString tableName, fieldName, fieldChn, listSeparator, showMode, storeField, folderNoField;
  int lengh = 0;

  static const RowColumns<NumberPartRow>& Columns();
  static Table Description();
};

}  // namespace folvane
