#include "records/ListColumns.h"

#include "data/Recordset.h"
#include "records/RecordListModel.h"
#include "shell/SharedState.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

void BuildColumns(RecordListModel& list, const QString& table) {
  Recordset design;
  design.Open(u"Select FieldName,ChnFieldName,ColumnWidth from ListViewFormat where Tablename='"_s + table +
                  u"' Order By OrderNo"_s,
              SharedConnection());
  std::vector<ListColumn> columns;
  for (; !design.EOF_(); design.MoveNext()) {
    columns.push_back({design[u"FieldName"_s].Text(), design[u"ChnFieldName"_s].Text(),
                       design[u"ColumnWidth"_s].Value().toInt(), QString()});
  }
  columns.push_back({u"ArchiveId"_s, u"ID"_s, 1, QString()});
  list.SetColumns(std::move(columns));
}

}  // namespace folvane
