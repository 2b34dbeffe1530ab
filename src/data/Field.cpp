// The fields of a record set.
#include <folvane/DataError.h>

#include "data/Recordset.h"
#include "data/RecordsetState.h"
#include "data/ValueText.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

const QString& Field::Name() const { return state_->rows.Columns()[size_t(column_)].name; }
int Field::Type() const { return state_->rows.Columns()[size_t(column_)].type; }
int Field::DefinedSize() const { return state_->rows.Columns()[size_t(column_)].definedSize; }
QVariant Field::Value() const { return state_->rows.Value(state_->SeenRow(column_), column_); }
QString Field::Text() const { return ValueText(Value()); }
QVariant Field::OriginalValue() const { return state_->rows.Original(state_->SeenRow(column_), column_); }

void Field::SetValue(const QVariant& value) {
  const QVariant fitted = FitToColumn(value, state_->rows.Columns()[size_t(column_)]);
  state_->BeginEdit();
  state_->rows.SetValue(state_->CurrentRow(), column_, fitted);
}

int FieldList::Count() const { return int(state_->rows.Columns().size()); }
int FieldList::IndexOf(const QString& name) const { return state_->rows.IndexOf(name); }

Field FieldList::Item(int index) const {
  if (index < 0 || index >= Count()) throw DataError(DataErrorKind::Usage, u"记录集中没有第 %1 个字段。"_s.arg(index));
  return Field(state_, index);
}

Field FieldList::Item(const QString& name) const {
  const int index = IndexOf(name);
  if (index < 0) throw DataError(DataErrorKind::Usage, u"记录集中没有字段“%1”。"_s.arg(name), state_->source);
  return Field(state_, index);
}

}  // namespace folvane
