#include "catalogue/DictionaryRows.h"

namespace folvane {

const RowColumns<DictionaryRow>& DictionaryRow::Columns() {
  static const RowColumns<DictionaryRow> columns{
      {"DicID", 20, &DictionaryRow::dicId},
      {"Name", 100, &DictionaryRow::name},
      {"ClassType", 20, &DictionaryRow::classType},
      {"IsSystem", 1, &DictionaryRow::isSystem},
  };
  return columns;
}

Table DictionaryRow::Description() { return TableOf("AssistantDictionary", Columns(), {"DicID"}, {{"Name"}}); }

const RowColumns<DictionaryEntryRow>& DictionaryEntryRow::Columns() {
  static const RowColumns<DictionaryEntryRow> columns{
      {"DicID", 20, &DictionaryEntryRow::dicId},     {"Name", 200, &DictionaryEntryRow::name},
      {"KeyCode", 20, &DictionaryEntryRow::keyCode}, {"IsSystem", 1, &DictionaryEntryRow::isSystem},
      {"Note", 50, &DictionaryEntryRow::note},
  };
  return columns;
}

Table DictionaryEntryRow::Description() { return TableOf("AssistantDicKey", Columns(), {}, {{"DicID"}}); }

const RowColumns<FondsRow>& FondsRow::Columns() {
  static const RowColumns<FondsRow> columns{
      {"FondsNo", 20, &FondsRow::fondsNo},
      {"FondsName", 100, &FondsRow::fondsName},
  };
  return columns;
}

Table FondsRow::Description() { return TableOf("FondsDefine", Columns(), {"FondsNo"}); }

const RowColumns<EntityClassRow>& EntityClassRow::Columns() {
  static const RowColumns<EntityClassRow> columns{
      {"ClassNo", 20, &EntityClassRow::classNo},
      {"FondsNo", 20, &EntityClassRow::fondsNo},
      {"ClassName", 100, &EntityClassRow::className},
  };
  return columns;
}

Table EntityClassRow::Description() { return TableOf("EntityClass", Columns(), {"FondsNo", "ClassNo"}); }

const RowColumns<RetentionRow>& RetentionRow::Columns() {
  static const RowColumns<RetentionRow> columns{
      {"Name", 50, &RetentionRow::name},
      {"Code", 20, &RetentionRow::code},
  };
  return columns;
}

Table RetentionRow::Description() { return TableOf("RetentionYear", Columns(), {"Name"}); }

}  // namespace folvane
