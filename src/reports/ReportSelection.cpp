#include "reports/ReportSelection.h"

#include "records/RecordStatement.h"
#include "shell/SqlText.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QString GetSelectionClause(const QString& table, const QStringList& keys) {
  return table + u".ArchiveID"_s + InKeys(keys);
}

QString RecordSelection(const QString& table, const QString& archiveId) {
  return table + u".Archiveid = '"_s + EscapeSql(archiveId) + u"'"_s;
}

SheetReport ReportOfSheet(const SheetTables& tables, bool detailsInUse, const SheetValues& values) {
  if (!detailsInUse) return {tables.head, tables.head, tables.headColumn + u" ='"_s + values.head + u"'"_s, {}};
  if (!values.serial) return {tables.details, tables.head, {}, u"没有数据，不能生成报表！"_s};
  return {tables.details,
          tables.head,
          tables.lineColumn + u" ='"_s + values.line + u"' And File_ID = '"_s + *values.serial + u"'"_s,
          {}};
}

}  // namespace folvane
