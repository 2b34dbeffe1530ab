#include "entry/FrmInput.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QTimer>

#include <folvane/DataError.h>

#include "base/IgnoreErrors.h"
#include "entry/DictionaryWriteBack.h"
#include "entry/EntryStatus.h"
#include "forms/EntryForm.h"
#include "originals/OriginalStore.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "shell/SharedState.h"
#include "shell/TypedKeys.h"
#include "widgets/BusyPointer.h"
#include "widgets/WindowCommands.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

bool SelectsOnEntry(int controlType) {
  return controlType != ControlKind::Txt && controlType != ControlKind::Cmb && controlType != ControlKind::Txt_MLine;
}

}  // namespace

// Records.

void FrmInput::AddNewRecord() {
  if (!MayEdit()) return;
  StoreTyped();
  if (lifecycle_->State() != RecordState::Browse && !SaveData()) return;
  lifecycle_->CarryForward();
  try {
    lifecycle_->StartNewRecord(commands_->IsMarked(u"AutoStatus"_s));
  } catch (const std::exception&) {
    if (lifecycle_->State() == RecordState::Add) ShowEditing();
    throw;
  }
  ShowEditing();
  walk_.Restart();
  FocusCurrentKey();
}

void FrmInput::CancelEdit() {
  QGuiApplication::inputMethod()->reset();
  if (lifecycle_->State() == RecordState::Browse && !lifecycle_->IsPending()) return;
  status_->ShowWork(u"正在取消上一次的操作，请稍等..."_s);
  lifecycle_->Cancel();
  form_->Binding().ShowRow();
  ShowSettled();
}

void FrmInput::DelRecord() {
  StoreTyped();
  if (SwitchToEditing() || !HasRecord()) return;
  const QStringList changed = lifecycle_->TakeChanges();
  if (!changed.isEmpty()) form_->Binding().ShowRow();
  if (ShowMessage(DeleteQuestion(changed, lifecycle_->Layout(), windowTitle())) != Answer::Yes) return;
  const QString left = DeleteOriginalsOf(lifecycle_->CurrentKey());
  try {
    lifecycle_->Delete();
  } catch (const std::exception&) {
    ShowCurrentRecord();
    throw;
  }
  ShowCurrentRecord();
  status_->ShowNote(left);
}

void FrmInput::MoveTo(RecordLifecycle::Step step) {
  StoreTyped();
  if (SwitchToEditing()) return;
  if (!lifecycle_->Move(step)) Beep();
  ShowCurrentRecord();
}

void FrmInput::CopyAll() {
  const QString entry = u"mnuCopyAll"_s;
  commands_->SetMark(entry, lifecycle_->CopiesAll());  // the click has turned the mark by itself
  lifecycle_->ToggleCopyAll();
  commands_->SetMark(entry, lifecycle_->CopiesAll());
}

void FrmInput::ShowCurrentRecord() {
  status_->ShowNote({});
  lifecycle_->NoteMoved();
  form_->Binding().ShowRow();
  RefreshRecordView();
  commands_->SetMark(u"mnuCopyAll"_s, lifecycle_->CopiesAll());
}

// Saving.

bool FrmInput::SaveData() {
  bool saved = false;
  RunGuarded([&] {
    const EntryRights rights{CurrTable, Selected(Parameter::RowLimit).trimmed(), Selected(Parameter::RightsText)};
    saved = RecordSave(*this, *lifecycle_, {rights, MayEdit(), windowTitle()}).Run();
  });
  if (!saved) status_->ShowWork(kReady);
  return saved;
}

ShownFields FrmInput::Shown() const { return lifecycle_ ? form_->Shown() : ShownFields(); }

QWidget* FrmInput::ControlOf(const ControlId& control) const {
  const EntryField* field = lifecycle_ ? form_->FieldOf(control) : nullptr;
  return field ? &field->Widget() : nullptr;
}

void FrmInput::StoreTyped() {
  QGuiApplication::inputMethod()->commit();
  form_->Binding().Store();
}

void FrmInput::StoreShown() { form_->Binding().StoreShown(); }

void FrmInput::Refresh() { form_->Binding().Refresh(); }

void FrmInput::ClearText(const ControlId& control) {
  if (EntryField* field = form_->FieldOf(control)) field->SetText({});
}

void FrmInput::KeepComboTexts() { form_->KeepComboTexts(); }

void FrmInput::FocusOn(const ControlId& control, bool marked) {
  EntryField* field = form_->FieldOf(control);
  if (!field) return;
  field->Focus();
  if (marked) field->SelectAll();
}

int FrmInput::Say(const MessageRequest& message) { return ShowMessage(message); }

void FrmInput::ShowWork(const QString& text) { status_->ShowWork(text); }

void FrmInput::ShowNote(const QString& text) { status_->ShowNote(text); }

void FrmInput::WhileBusy(const std::function<void()>& work) {
  const BusyPointer busy;
  work();
}

void FrmInput::ShowSaved() {
  form_->Binding().Refresh();  // the database may have given a number
  ShowSettled();
}

// Closing.

FrmInput::~FrmInput() {
  lifecycle_.reset();
  form_->ClearEntryControls();  // controls that go tell of lost focus: while there is still a window to be told
}

void FrmInput::closeEvent(QCloseEvent* event) {
  bool closes = !isArchiving_;
  if (isArchiving_)
    CloseWindowsOver(*this);
  else if (lifecycle_)
    RunGuarded([&] { closes = MayClose(); });
  event->setAccepted(closes);
}

bool FrmInput::MayClose() {
  const auto leave = [this](const QString& key) {
    if (Context.LeaveTag) Context.LeaveTag(key);
  };
  leave(u"<NULL>"_s);
  if (!SettleEdit()) return false;
  if (const QString key = lifecycle_->CurrentKey(); !key.isEmpty()) leave(key);
  RunGuarded([this] { WriteBackDictionaries(CurrTable, form_->ComboLists()); });
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

void FrmInput::End() {
  timer_->stop();
  form_->Binding().SetSource(nullptr);
  lifecycle_.reset();
}

// Fields.

void FrmInput::BeginEdit() {
  if (MayEdit() && lifecycle_->NoteChange()) timer_->start();
}

void FrmInput::NoteChange(EntryField& field) {
  BeginEdit();
  if (MayEdit()) Follow(field);
}

void FrmInput::NoteLeft(EntryField& field) {
  const bool mayFollow = field.ControlType() == ControlKind::DTP_Arch || field.DataField().toUpper() == u"DOCNO";
  if (MayEdit() && mayFollow) Follow(field);
}

void FrmInput::Follow(const EntryField& field) {
  try {
    if (lifecycle_->Follow({field.ControlType(), field.DataField(), field.Text()})) form_->Binding().Refresh();
  } catch (const DataError& error) {
    // A number that is too great while it is still being typed.
    if (error.Kind() != DataErrorKind::Conversion) throw;
  }
}

void FrmInput::NextKey(const EntryField& field) {
  if (walk_.Next({field.ControlType(), field.Index()}, MayEdit()) == EnterWalk::Step::AddRecord) {
    AddNewRecord();
  } else {
    FocusCurrentKey();
  }
}

void FrmInput::FocusCurrentKey() {
  const ControlId control = walk_.Current();
  FocusOn(control, SelectsOnEntry(control.type));
}

// State.

bool FrmInput::SwitchToEditing() {
  if (lifecycle_->State() == RecordState::Modify && !showsEditing_) {
    timer_->stop();
    showsEditing_ = true;
    status_->ShowWork(u"当前状态：修改记录"_s);
    SetToolbarState(false);
    RefreshRecordView();
  }
  return lifecycle_->State() != RecordState::Browse;
}

void FrmInput::SetToolbarState(bool browsing) {
  enabling_.SetToolbarState(browsing, commands_->IsMarked(u"AutoSave"_s));
  commands_->SetMark(u"mnuCopyAll"_s, lifecycle_->CopiesAll());
  ApplyEnabling();
}

void FrmInput::RefreshRecordView() {
  const EntryPosition at = lifecycle_->Position();
  enabling_.RefreshRecordView(at);
  ApplyEnabling();
  if (at.state != RecordState::Browse) return;
  at.count == 0 ? status_->ShowNoRecords() : status_->ShowPosition(at.position, at.count);
}

void FrmInput::ApplyEnabling() {
  for (auto key = enabling_.Keys().begin(); key != enabling_.Keys().end(); ++key)
    commands_->EnableKey(key.key(), key.value());
  for (auto entry = enabling_.Entries().begin(); entry != enabling_.Entries().end(); ++entry)
    commands_->EnableEntry(entry.key(), entry.value());
}

void FrmInput::ShowEditing() {
  timer_->stop();
  showsEditing_ = true;
  form_->Binding().ShowRow();
  SetToolbarState(false);
  status_->ShowWork(u"当前状态：新增一条记录"_s);
  status_->ShowCount(lifecycle_->Position().count);
}

void FrmInput::ShowSettled() {
  timer_->stop();
  showsEditing_ = false;
  SetToolbarState(true);
  RefreshRecordView();
  status_->ShowWork(kReady);
}

// A shortcut that saves or cancels counts from the first change on, also before the toolbar has gone over to it.
bool FrmInput::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && lifecycle_ &&
      commands_->HasShortcut(QKeySequence(static_cast<QKeyEvent*>(event)->keyCombination())))
    RunGuarded([this] { SwitchToEditing(); });
  return QMainWindow::event(event);
}

}  // namespace folvane
