#include <QCloseEvent>
#include <QTimer>

#include "base/IgnoreErrors.h"
#include "entry/DictionaryWriteBack.h"
#include "entry/EntryControls.h"
#include "entry/FrmInput.h"
#include "forms/EntryForm.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "widgets/EditCombo.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

FrmInput::~FrmInput() {
  if (lifecycle_) SetControlFinder({});
  lifecycle_.reset();
  form_->ClearEntryControls();  // controls that go tell of lost focus: while there is still a window to be told
}

void FrmInput::closeEvent(QCloseEvent* event) {
  bool closes = true;
  if (lifecycle_) RunGuarded([&] { closes = MayClose(); });
  event->setAccepted(closes);
}

bool FrmInput::MayClose() {
  const auto leave = [this](const QString& key) {
    if (Context.LeaveTag) Context.LeaveTag(key);
  };
  leave(u"<NULL>"_s);
  if (!SettleEdit()) return false;
  if (const QString key = lifecycle_->CurrentKey(); !key.isEmpty()) leave(key);
  RunGuarded([this] { WriteBack(); });
  End();
  return true;
}

bool FrmInput::SettleEdit() {
  IgnoreErrors([this] { StoreTyped(); });  // told again by whatever is answered now
  if (MayEdit() && !lifecycle_->IsEmpty() && lifecycle_->State() != RecordState::Browse) {
    const int answer =
        ShowMessage(u"是否保存当前操作?"_s, MessageFlag::YesNoCancel + MessageFlag::Information, windowTitle());
    if (answer == Answer::Yes) return SaveData();
    if (answer == Answer::Cancel) return false;
  }
  RunGuarded([this] { CancelEdit(); });
  return true;
}

void FrmInput::WriteBack() {
  std::vector<ComboEntries> combos;
  for (const auto& field : form_->Fields()) {
    if (field->ControlType() != ControlKind::Cmb) continue;
    ComboEntries& combo = combos.emplace_back(ComboEntries{field->DataField(), {}});
    const auto& list = static_cast<const EditCombo&>(field->Widget());
    for (int i = 0; i < list.count(); ++i) combo.entries << list.itemText(i);
  }
  WriteBackDictionaries(CurrTable, combos);
}

void FrmInput::End() {
  timer_->stop();
  SetControlFinder({});
  form_->Binding().SetSource(nullptr);
  lifecycle_.reset();
}

}  // namespace folvane
