#include "forms/RecordBinding.h"

#include "forms/LengthGuard.h"
#include "shell/EventGuard.h"

namespace folvane {

void RecordBinding::SetSource(Recordset* records) {
  records_ = records;
  ShowRow();
}

void RecordBinding::Add(EntryField& field) {
  if (records_) records_->Fields().Item(field.DataField());
  fields_.push_back(&field);
  connect(&field, &EntryField::Changed, this, [this, &field] { typed_.insert(&field); });
  ConnectGuarded(&field, &EntryField::Left, this, [this, &field] { Store(field); });
  ShowIn(field);
}

void RecordBinding::Clear() {
  for (EntryField* field : fields_) disconnect(field, nullptr, this, nullptr);
  fields_.clear();
  typed_.clear();
}

bool RecordBinding::HasRow() const { return records_ && records_->IsOpen() && records_->AbsolutePosition() > 0; }

void RecordBinding::ShowIn(EntryField& field) {
  field.Show(HasRow() ? (*records_)[field.DataField()].Text() : QString());
}

void RecordBinding::ShowRow() {
  typed_.clear();
  for (EntryField* field : fields_) ShowIn(*field);
}

void RecordBinding::Refresh() {
  for (EntryField* field : fields_) {
    if (!typed_.count(field)) ShowIn(*field);
  }
}

void RecordBinding::Store() {
  for (EntryField* field : fields_) {
    try {
      Store(*field);
    } catch (const std::exception&) {
      field->Focus();
      throw;
    }
  }
}

void RecordBinding::StoreShown() {
  for (EntryField* field : fields_) {
    if (!field->IsAsShown()) typed_.insert(field);
  }
  Store();
}

void RecordBinding::Store(EntryField& field) {
  field.Commit();
  if (!typed_.count(&field)) return;
  CutToLimit(field);
  if (HasRow() && !readOnly_ && !field.IsAsShown()) (*records_)[field.DataField()].SetValue(field.Value());
  typed_.erase(&field);
  for (EntryField* each : fields_) {
    if (each->DataField().compare(field.DataField(), Qt::CaseInsensitive) == 0 && !typed_.count(each)) ShowIn(*each);
  }
}

}  // namespace folvane
