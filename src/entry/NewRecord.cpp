#include "entry/NewRecord.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/DocumentNumber.h"
#include "base/KeyMaker.h"
#include "base/Surroundings.h"
#include "base/TypedValues.h"
#include "data/ValueText.h"
#include "shell/Lookups.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kAutoNumber = u"自动编号"_s;
const QString kDocumentNumber = u"文件编号型"_s;

QString OneMore(const QString& number) {
  bool isWhole = false;
  const qlonglong whole = number.toLongLong(&isWhole);
  if (isWhole) return QString::number(whole + 1);
  const std::optional<double> value = ReadNumber(number);
  if (!value) throw NumberError(u"类型不匹配：“"_s + number + u"”不是数字"_s);
  return ValueText(*value + 1);
}

QString Prepared(const CarryField& field) {
  if (field.FieldType == kDocumentNumber) return NextDocumentNumber(field.Value);
  if (field.FieldType == kAutoNumber) return OneMore(field.Value);
  return field.Value;
}

// The size of a column that is not text counts bytes of the database and says nothing about its text.
bool IsCut(const CarryField& carry, const Field& field) {
  static const QStringList uncut{u"数值型"_s, u"时间型"_s, kAutoNumber};
  return !uncut.contains(carry.FieldType) && GroupOfType(field.Type()) == TypeGroup::Text;
}

void Write(Recordset& records, const CarryField& carry, const QString& value) {
  Field field = records[carry.FieldName];
  field.SetValue(IsCut(carry, field) ? LimitByteLength(value, field.DefinedSize()) : value);
}

void SetStatus(Recordset& records, const EntryLayout& layout) {
  const auto status = std::find_if(layout.rows.begin(), layout.rows.end(), [](const LayoutRow& row) {
    return row.control.type == ControlKind::Cmb && row.dataField.toUpper() == u"FILESTATUS";
  });
  if (status != layout.rows.end()) records[status->dataField].SetValue(u"需归档"_s);
}

QString CarriedValue(const CarryField& carry, const Recordset& records, const QString& table) {
  const Field field = records[carry.FieldName];
  if (field.IsNull()) return IsNumberType(carry.FieldType) ? u"1"_s : QString();
  if (carry.FieldType == kDocumentNumber) return NextDocumentNumber(field.Text());
  if (carry.FieldType == kAutoNumber) return OneMore(ValueText(GetMaxValue(carry.FieldName, table)));
  return field.Text();
}

QString GatheredValue(const CarryField& carry, const Recordset& records, const QString& table) {
  const Field field = records[carry.FieldName];
  const bool counts = carry.FieldType == kAutoNumber && !field.IsNull();
  return counts ? ValueText(GetMaxValue(carry.FieldName, table)) : field.Text();
}

bool HasRow(const Recordset& records) { return !records.BOF() && !records.EOF_(); }

}  // namespace

void AddRecord(Recordset& records, const EntryLayout& layout) {
  records.AddNew();
  records[u"ArchiveID"_s].SetValue(CreateName());
  for (const LayoutRow& row : layout.rows) {
    if (row.control.type == ControlKind::DTP) records[row.dataField].SetValue(Today().toString(u"yyyy-MM-dd"_s));
  }
}

void FillNewRecord(Recordset& records, const EntryLayout& layout, const NewRecordFill& fill) {
  for (size_t i = 1; i < fill.values.size(); ++i) {
    const CarryField& carry = fill.values[i];
    if (carry.Value.isEmpty() || (carry.FieldName.toUpper() == u"REGID" && fill.rule.Computes())) continue;
    Write(records, carry, fill.copyAll ? Prepared(carry) : carry.Value);
  }
  ComputeRegId(records, fill.rule);
  if (fill.autoStatus) SetStatus(records, layout);
}

void RefreshCarried(std::vector<CarryField>& carried, const Recordset& records, const QString& table) {
  if (!HasRow(records)) return;
  for (size_t i = 1; i < carried.size(); ++i) {
    if (!carried[i].Fixed) carried[i].Value = CarriedValue(carried[i], records, table);
  }
}

void GatherAll(std::vector<CarryField>& fields, const Recordset& records, const QString& table) {
  if (!HasRow(records)) return;
  for (size_t i = 1; i < fields.size(); ++i) fields[i].Value = GatheredValue(fields[i], records, table);
}

void GatherNumbers(std::vector<CarryField>& fields, const Recordset& records, const QString& table) {
  if (!HasRow(records)) return;
  for (size_t i = 1; i < fields.size(); ++i) {
    const bool counts = fields[i].FieldType == kAutoNumber || fields[i].FieldType == kDocumentNumber;
    if (counts && !fields[i].Value.isEmpty()) fields[i].Value = GatheredValue(fields[i], records, table);
  }
}

}  // namespace folvane
