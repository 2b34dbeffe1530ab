#include "catalogue/TransferRows.h"

namespace folvane {

const RowColumns<TransferPairRow>& TransferPairRow::Columns() {
  static const RowColumns<TransferPairRow> columns{
      {"RecId", &TransferPairRow::recId},
      {"SourceTbl", 50, &TransferPairRow::sourceTbl},
      {"DesTbl", 50, &TransferPairRow::desTbl},
  };
  return columns;
}

Table TransferPairRow::Description() { return TableOf("DataTransfer_Ini", Columns(), {"RecId"}); }

const RowColumns<TransferFieldRow>& TransferFieldRow::Columns() {
  static const RowColumns<TransferFieldRow> columns{
      {"IniRecId", &TransferFieldRow::iniRecId},
      {"SourceField", 50, &TransferFieldRow::sourceField},
      {"DesField", 50, &TransferFieldRow::desField},
      {"SourceChn", 100, &TransferFieldRow::sourceChn},
  };
  return columns;
}

Table TransferFieldRow::Description() { return TableOf("DataTransfer_Details", Columns(), {}, {{"IniRecId"}}); }

const RowColumns<NumberPartRow>& NumberPartRow::Columns() {
  static const RowColumns<NumberPartRow> columns{
      {"TableName", 50, &NumberPartRow::tableName},   {"FieldName", 50, &NumberPartRow::fieldName},
      {"FieldChn", 100, &NumberPartRow::fieldChn},    {"ListSeparator", 10, &NumberPartRow::listSeparator},
      {"ShowMode", 20, &NumberPartRow::showMode},     {"Lengh", &NumberPartRow::lengh},
      {"StoreField", 50, &NumberPartRow::storeField}, {"FolderNoField", 50, &NumberPartRow::folderNoField},
  };
  return columns;
}

Table NumberPartRow::Description() { return TableOf("ArchiveNo_Format", Columns(), {}, {{"TableName"}}); }

}  // namespace folvane
