#include "catalogue/OriginalRows.h"

namespace folvane {

const RowColumns<OriginalRow>& OriginalRow::Columns() {
  static const RowColumns<OriginalRow> columns{
      {"ID", 20, &OriginalRow::id},
      {"Original_Name", 255, &OriginalRow::originalName},
      {"Type", 20, &OriginalRow::type},
      {"RecordID", 20, &OriginalRow::recordId},
      {"Size", &OriginalRow::size},
      {"FileOrder", &OriginalRow::fileOrder},
      {"FilePath", 255, &OriginalRow::filePath},
  };
  return columns;
}

Table OriginalRow::Description() { return TableOf("Original_Text", Columns(), {}, {{"RecordID"}, {"ID"}}); }

}  // namespace folvane
