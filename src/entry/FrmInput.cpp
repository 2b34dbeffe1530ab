#include "entry/FrmInput.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QTimer>

#include <folvane/DataError.h>

#include "entry/EntryStatus.h"
#include "forms/EntryForm.h"
#include "originals/OriginalStore.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "shell/TypedKeys.h"
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
  if (ShowMessage(u"确实要删除当前的记录及相关原文吗？"_s, MessageFlag::YesNo + MessageFlag::Information,
                  windowTitle()) != Answer::Yes)
    return;
  DeleteOriginals(u" Where RecordID = '"_s + lifecycle_->CurrentKey() + u"'"_s);
  try {
    lifecycle_->Delete();
  } catch (const std::exception&) {
    ShowCurrentRecord();
    throw;
  }
  ShowCurrentRecord();
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

void FrmInput::StoreTyped() {
  QGuiApplication::inputMethod()->commit();
  form_->Binding().Store();
}

void FrmInput::ShowCurrentRecord() {
  status_->ShowNote({});
  lifecycle_->NoteMoved();
  form_->Binding().ShowRow();
  RefreshRecordView();
  commands_->SetMark(u"mnuCopyAll"_s, lifecycle_->CopiesAll());
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
  EntryField* field = form_->FieldOf(walk_.Current());
  if (!field) return;
  field->Focus();
  if (SelectsOnEntry(field->ControlType())) field->SelectAll();
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
  const EntryPlace place = lifecycle_->Place();
  enabling_.RefreshRecordView(place);
  ApplyEnabling();
  if (place.state != RecordState::Browse) return;
  place.count == 0 ? status_->ShowNoRecords() : status_->ShowPosition(place.position, place.count);
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
  status_->ShowCount(lifecycle_->Place().count);
}

void FrmInput::ShowSettled() {
  timer_->stop();
  showsEditing_ = false;
  SetToolbarState(true);
  RefreshRecordView();
  status_->ShowWork(u"准备就绪"_s);
}

// A shortcut that saves or cancels counts from the first change on, also before the toolbar has gone over to it.
bool FrmInput::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && lifecycle_ &&
      commands_->HasShortcut(QKeySequence(static_cast<QKeyEvent*>(event)->keyCombination())))
    RunGuarded([this] { SwitchToEditing(); });
  return QMainWindow::event(event);
}

}  // namespace folvane
