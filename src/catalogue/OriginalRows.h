#pragma once

#include "catalogue/RowDescription.h"

// The originals of the records.
namespace folvane {

/// Original_Text: an original of a record. Rows are copied by position, so the columns are these seven in this order,
/// and rows of several records may share the id of one stored file.
struct OriginalRow {
  QString id, originalName, type, recordId, filePath;
  int size = 0, fileOrder = 0;

  static const RowColumns<OriginalRow>& Columns();
  static Table Description();
};

}  // namespace folvane
