#include <folvane/ClsSaveCollect.h>
#include <folvane/DataError.h>

#include "entry/EntryStatus.h"
#include "entry/FieldChecks.h"
#include "entry/FrmInput.h"
#include "entry/RowConflict.h"
#include "entry/SaveRefusal.h"
#include "forms/EntryForm.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "widgets/BusyPointer.h"
#include "widgets/EditCombo.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

bool FrmInput::SaveData() {
  bool saved = false;
  RunGuarded([&] {
    try {
      saved = SaveTyped();
    } catch (const DataError& error) {
      if (error.Column().isEmpty()) throw;
      TellRefusal(CurrTable, error, windowTitle());
      FocusColumn(error.Column());
    }
  });
  if (!saved) status_->ShowWork(u"准备就绪"_s);
  return saved;
}

bool FrmInput::SaveTyped() {
  StoreTyped();
  if (lifecycle_->IsEmpty()) {
    ShowMessage(u"请先按添加按钮！"_s, 0, u"提示"_s);
    Shared().CurrentRecords.UpdateBatch(AffectKind::AllChapters);
    return true;
  }
  if (lifecycle_->State() == RecordState::Browse) return true;
  form_->Binding().StoreShown();
  if (!PassesChecks()) return false;
  KeepComboTexts();
  return PassesRules() && WriteRecord();
}

bool FrmInput::PassesChecks() {
  std::optional<CheckFailure> failure;
  {
    const BusyPointer busy;
    if (MayEdit())
      failure = CheckPopedom({CurrTable, Selected(Parameter::RowLimit).trimmed(), Selected(Parameter::RightsText)},
                             [this](const QString& field) { return form_->ValueOfField(field); });
  }
  if (failure) return Refuse(*failure);
  status_->ShowWork(u"正在检查数据是否合法，请稍等..."_s);
  TrimMultiLines();
  const ShownFields fields = FieldsShown();
  failure = CheckData(fields, lifecycle_->Layout());
  if (failure) return Refuse(*failure);
  failure = CheckArchiveDates(fields);
  if (!failure) return true;
  Refuse(*failure);
  if (EntryField* field = form_->FieldOf(*failure->control)) field->SelectAll();
  return false;
}

bool FrmInput::Refuse(const CheckFailure& failure) {
  status_->ShowWork(u"准备就绪"_s);
  ShowMessage(failure.text, failure.flags, windowTitle());
  if (EntryField* field = failure.control ? form_->FieldOf(*failure.control) : nullptr) field->Focus();
  return false;
}

void FrmInput::FocusColumn(const QString& column) {
  for (const auto& field : form_->Fields()) {
    if (field->DataField().compare(column, Qt::CaseInsensitive) == 0) return field->Focus();
  }
}

bool FrmInput::PassesRules() {
  const EntryField* fonds = form_->FondsControl();
  bool failed = false;
  ClsSaveCollect().SaveCollect(CurrTable, fonds ? fonds->Text() : QString(), failed);
  return !failed;
}

bool FrmInput::WriteRecord() {
  const QStringList& contested = lifecycle_->Contested();
  if (!contested.isEmpty() &&
      !AskAboutConflicts(ConflictsIn(Shared().CurrentRecords, contested, lifecycle_->Layout()), windowTitle()))
    return false;
  status_->ShowWork(u"正在保存数据，请稍等..."_s);
  try {
    const BusyPointer busy;
    lifecycle_->Write();
  } catch (const DataError& error) {
    return MayWriteAgain(error) && WriteRecord();
  }
  form_->Binding().Refresh();  // the database may have given a number
  ShowSettled();
  return true;
}

// Called while the error is handled: one that nothing can be done about goes on.
bool FrmInput::MayWriteAgain(const DataError& error) {
  if (error.Kind() == DataErrorKind::Conflict) return TakeTheirs();
  const bool isNewKey = lifecycle_->State() == RecordState::Add && error.Column().toUpper() == u"ARCHIVEID";
  if (!error.IsDuplicate() || !isNewKey) throw;
  if (!AskForNewKey(CurrTable, error, windowTitle())) return false;
  lifecycle_->TakeNewKey();
  return true;
}

bool FrmInput::TakeTheirs() {
  const RecordLifecycle::Theirs theirs = lifecycle_->TakeTheirs();
  if (theirs == RecordLifecycle::Theirs::Same) throw;
  if (theirs == RecordLifecycle::Theirs::Deleted) TellOfDeletion(windowTitle());
  form_->Binding().Refresh();
  return theirs == RecordLifecycle::Theirs::Changed;
}

void FrmInput::TrimMultiLines() {
  QStringList trimmed;
  for (const auto& field : form_->Fields()) {
    if (field->ControlType() != ControlKind::Txt_MLine || field->DataField().isEmpty()) continue;
    const QString line = OneLine(field->Text());
    Field stored = Shared().CurrentRecords[field->DataField()];
    if (line == stored.Text()) continue;
    stored.SetValue(line);
    trimmed << u"“"_s + field->Caption() + u"”"_s;
  }
  form_->Binding().Refresh();
  status_->ShowNote(trimmed.isEmpty() ? QString() : u"已去掉"_s + trimmed.join(u'、') + u"中的换行和首尾空格"_s);
}

void FrmInput::KeepComboTexts() {
  for (const auto& field : form_->Fields()) {
    if (field->ControlType() != ControlKind::Cmb || field->Text().isEmpty()) continue;
    auto& list = static_cast<EditCombo&>(field->Widget());
    if (list.findText(field->Text(), Qt::MatchExactly | Qt::MatchCaseSensitive) < 0) list.addItem(field->Text());
  }
}

ShownFields FrmInput::FieldsShown() const {
  ShownFields fields;
  for (const auto& field : form_->Fields())
    fields.push_back({{field->ControlType(), field->Index()},
                      field->DataField(),
                      field->Caption(),
                      field->LimitText(),
                      field->Text()});
  return fields;
}

}  // namespace folvane
