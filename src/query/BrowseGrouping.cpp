#include "query/BrowseGrouping.h"

#include "catalogue/ReadRows.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

std::vector<DictionaryFieldRow> Read(const QString& statement) {
  return ReadRows<DictionaryFieldRow>(SharedConnection(), statement);
}

QString StatementOfKind(int kind) {
  if (kind == 1) return u"Select DISTINCT tablename,chntablename From DynamicWindows where tabletype='F'"_s;
  if (kind == 2)
    return u"Select DISTINCT TableName,ChnTableName from DynamicWindows where (TableType is null or TableType='' or "
           "TableType='A') Group By ChnTableName,TableName"_s;
  return {};
}

}  // namespace

std::vector<NamedTable> ReadTablesOfKind(int kind) {
  std::vector<NamedTable> tables;
  const QString statement = StatementOfKind(kind);
  if (statement.isEmpty()) return tables;
  for (const auto& row : Read(statement)) tables.push_back({row.chnTableName, row.tableName});
  return tables;
}

std::vector<NamedField> ReadFieldsByName(const QString& table) {
  std::vector<NamedField> fields;
  for (const auto& row : Read(u"select chnfieldname,fieldname from Dynamicwindows where tablename='"_s + table +
                              u"' order by fieldname "_s))
    fields.push_back({row.chnFieldName, row.fieldName});
  return fields;
}

}  // namespace folvane
