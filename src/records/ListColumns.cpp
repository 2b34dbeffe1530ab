#include "records/ListColumns.h"

#include "catalogue/FieldRows.h"
#include "catalogue/ReadRows.h"
#include "records/RecordListModel.h"
#include "shell/SharedState.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

void BuildColumns(RecordListModel& list, const QString& table) {
  std::vector<ListColumn> columns;
  for (const ListColumnFormatRow& format : ReadRows<ListColumnFormatRow>(
           SharedConnection(), u"Select FieldName,ChnFieldName,ColumnWidth from ListViewFormat where Tablename='"_s +
                                   table + u"' Order By OrderNo"_s)) {
    columns.push_back({format.fieldName, format.chnFieldName, format.columnWidth, QString()});
  }
  columns.push_back({u"ArchiveId"_s, u"ID"_s, 1, QString()});
  list.SetColumns(std::move(columns));
}

}  // namespace folvane
