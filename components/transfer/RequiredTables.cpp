#include "components/transfer/RequiredTables.h"

#include <QStringList>

#include <folvane/Connection.h>
#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

struct RequiredTable {
  QString name;
  QStringList columns;
};

const std::vector<RequiredTable>& RequiredTables() {
  static const std::vector<RequiredTable> tables{
      {u"DataTransfer_Ini"_s, {u"RecId"_s, u"SourceTbl"_s, u"DesTbl"_s}},
      {u"DataTransfer_Details"_s, {u"IniRecId"_s, u"SourceField"_s, u"DesField"_s, u"SourceChn"_s}},
      {u"ArchiveNo_Format"_s,
       {u"TableName"_s, u"FieldName"_s, u"FieldChn"_s, u"ListSeparator"_s, u"ShowMode"_s, u"Lengh"_s, u"StoreField"_s,
        u"FolderNoField"_s}},
      {u"DynamicWindows"_s,
       {u"TableName"_s, u"ChnTableName"_s, u"TableType"_s, u"FieldName"_s, u"ChnFieldName"_s, u"FieldType"_s,
        u"FieldLong"_s, u"AuxiDictDetails"_s}},
      {u"Design_TableRelation"_s, {u"TableName"_s, u"ChnTableName"_s}},
      {u"SaveControls"_s, {u"DataSource"_s, u"DataField"_s, u"ControlType"_s}},
  };
  return tables;
}

}  // namespace

void RequireTables(Connection& connection) {
  QStringList missing, complaints;
  for (const RequiredTable& table : RequiredTables()) {
    try {
      const ResultSet none(connection, u"Select * From "_s + table.name + u" Where 1 = 2"_s);
      QStringList lacking;
      for (const QString& column : table.columns)
        if (none.Find(column) < 0) lacking << column;
      if (!lacking.isEmpty()) complaints << u"表 %1 缺少列：%2。"_s.arg(table.name, lacking.join(u'、'));
    } catch (const DataError& error) {
      if (error.Kind() != DataErrorKind::Statement) throw;
      missing << table.name;
    }
  }
  if (!missing.isEmpty()) complaints.prepend(u"缺少表：%1。"_s.arg(missing.join(u'、')));
  if (complaints.isEmpty()) return;
  throw DataError(DataErrorKind::Usage,
                  u"数据库中的设计表不全，不能进行归档设置。%1请与系统管理员联系。"_s.arg(complaints.join(QString())));
}

}  // namespace folvane::transfer
