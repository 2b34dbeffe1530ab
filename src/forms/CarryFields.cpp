#include "forms/CarryFields.h"

#include "data/Recordset.h"
#include "shell/TableFields.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

QString ValueInParent(const Recordset& parent, const QString& field, const QString& type) {
  if (parent.EOF_()) return {};
  const Field value = parent[field];
  if (!value.IsNull()) return value.Text();
  return IsNumberType(type) ? u"1"_s : QString();
}

void AddFixed(std::vector<CarryField>& fields, Recordset& design, const Recordset& parent) {
  design.SetFilter(u"ControlsType='1'"_s);
  for (; !design.EOF_(); design.MoveNext()) {
    const QString name = design[u"FieldName"_s].Text();
    const QString type = design[u"FieldType"_s].Text();
    if (FieldExists(parent, name)) fields.push_back({name, type, ValueInParent(parent, name, type), true});
  }
}

void AddCarried(std::vector<CarryField>& fields, Recordset& design) {
  design.SetFilter(u"ZJCFlags='是'"_s);
  for (; !design.EOF_(); design.MoveNext())
    fields.push_back({design[u"FieldName"_s].Text(), design[u"FieldType"_s].Text(), {}, false});
}

}  // namespace

bool IsNumberType(const QString& fieldType) {
  return fieldType == u"数值型" || fieldType == u"自动编号" || fieldType == u"数字型";
}

std::vector<CarryField> LoadCarryFields(const std::shared_ptr<Connection>& connection, const QString& table,
                                        const ParentRecord& parent) {
  std::vector<CarryField> fields{{u"<None>"_s, {}, {}, false}};
  Recordset design;
  design.Open(u"Select * From DynamicWindows Where TableName = '"_s + table + u"'"_s, connection);
  if (!parent.where.isEmpty()) {
    Recordset record;
    record.Open(u"Select * From "_s + parent.table.trimmed() + u" Where "_s + parent.where, connection);
    AddFixed(fields, design, record);
  }
  AddCarried(fields, design);
  return fields;
}

}  // namespace folvane
