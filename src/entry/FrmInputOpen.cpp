#include <QLabel>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include <folvane/Icons.h>

#include "archiving/ArchiveRecords.h"
#include "data/Recordset.h"
#include "entry/EntryCommandDesign.h"
#include "entry/EntryReports.h"
#include "entry/EntryStatus.h"
#include "entry/FrmInput.h"
#include "entry/FrmKeyOrder.h"
#include "entry/FrmSaveCollect.h"
#include "entry/RegFormulaFile.h"
#include "entry/TypingAids.h"
#include "flows/TransferIntoFlow.h"
#include "forms/EntryForm.h"
#include "originals/OriginalFileAction.h"
#include "shell/EventGuard.h"
#include "shell/LoadedWindow.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "shell/OpenHelp.h"
#include "shell/SharedState.h"
#include "shell/TableFields.h"
#include "shell/WindowPlacement.h"
#include "widgets/AgencyCodePicker.h"
#include "widgets/FrmAbout.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kCaption = u"著录界面"_s;
constexpr int kLookInterval = 500;
constexpr int kHintMargin = 24;
constexpr int kEmptyHeight = 300;  // of a form without fields

bool HasKey(const Recordset& records) { return FieldExists(records, u"ArchiveID"_s); }

// What the design of the table lacks, in words; "" for nothing.
QString MissingIn(const QString& table, const EntryLayout& layout, const Recordset& records) {
  QStringList missing;
  if (layout.rows.empty()) missing << u"表“%1”还没有录入界面：请在 SaveControls 中为其字段安排位置。"_s.arg(table);
  if (!HasKey(records))
    missing << u"表“%1”没有关键字段 ArchiveID，其中的记录只能查看：请在数据库中为该表增加此字段。"_s.arg(table);
  return missing.join(u'\n');
}

}  // namespace

FrmInput::FrmInput()
    : form_(new EntryForm(this)),
      commands_(new WindowCommands(*this, EntryCommandDesign())),
      status_(new EntryStatus(this)),
      hint_(new QLabel(this)),
      timer_(new QTimer(this)) {
  setObjectName(u"FrmInput"_s);
  setWindowTitle(kCaption);
  setWindowIcon(Icon(u"register"_s));
  LayOut();
  setStatusBar(status_);
  timer_->setObjectName(u"Timer1"_s);
  timer_->setSingleShot(true);
  timer_->setInterval(kLookInterval);
  Connect();
}

void FrmInput::LayOut() {
  hint_->setObjectName(u"LblHint"_s);
  hint_->setTextFormat(Qt::PlainText);
  hint_->setAlignment(Qt::AlignCenter);
  hint_->setWordWrap(true);
  hint_->setMargin(kHintMargin);
  auto* middle = new QWidget(this);
  auto* column = new QVBoxLayout(middle);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(hint_);
  column->addWidget(form_, 1);
  setCentralWidget(middle);
}

void FrmInput::ShowHint(const QString& text) {
  hint_->setText(text);
  hint_->setVisible(!text.isEmpty());
  const bool hasForm = !form_->Layout().rows.empty();
  form_->setVisible(hasForm);
  hint_->setMinimumHeight(hasForm ? 0 : kEmptyHeight);
}

void FrmInput::Connect() {
  commands_->OnEntry(u"AddNewRecord"_s, [this] { AddNewRecord(); });
  commands_->OnEntry(u"SaveRecord"_s, [this] { SaveData(); });
  commands_->OnEntry(u"CancelRecord"_s, [this] { CancelEdit(); });
  commands_->OnEntry(u"DelRecord"_s, [this] { DelRecord(); });
  commands_->OnEntry(u"mnuCopyAll"_s, [this] { CopyAll(); });
  commands_->OnEntry(u"Close"_s, [this] { close(); });
  ConnectGuarded(timer_, &QTimer::timeout, this, [this] { SwitchToEditing(); });
  ConnectMoves();
  ConnectTools();
  ConnectOriginals();
}

void FrmInput::ConnectMoves() {
  using Step = RecordLifecycle::Step;
  commands_->OnEntry(u"First_R"_s, [this] { MoveTo(Step::First); });
  commands_->OnEntry(u"Previous_R"_s, [this] { MoveTo(Step::Previous); });
  commands_->OnEntry(u"Next_R"_s, [this] { MoveTo(Step::Next); });
  commands_->OnEntry(u"Last_R"_s, [this] { MoveTo(Step::Last); });
}

void FrmInput::ConnectTools() {
  commands_->OnEntry(u"mnuReplace"_s, [this] { Context.OpenReplace(*this); });
  for (const KeptMark& mark : KeptMarks()) {
    commands_->OnEntry(mark.entry, [this, mark] {
      KeepMark(mark, commands_->IsMarked(mark.entry));
      UseYearSign();
    });
  }
  commands_->OnEntry(u"Collect_R"_s, [this] {
    const LoadedWindow<FrmSaveCollect> window;
    window->CurrTable = CurrTable;
    window->Open();
  });
  commands_->OnEntry(u"KeyOrder"_s, [this] {
    const LoadedWindow<FrmKeyOrder> window;
    window->CurrTable = CurrTable;
    window->Open();
    walk_.SetKeys(ReadKeyList(CurrTable));
  });
  commands_->OnEntry(u"mnuDistibute"_s, [this] { HandToFlow(u"Distribute_File"_s); });
  commands_->OnEntry(u"mnuPassRead"_s, [this] { HandToFlow(u"PassRead_File"_s); });
  commands_->OnEntry(u"mnuTransact"_s, [this] { HandToFlow(u"Transact_File"_s); });
  commands_->OnEntry(u"mnuArchive"_s, [this] { Archive(); });
  commands_->OnEntry(u"FindDir"_s, [this] { OpenHelp(this, u"数据操作.htm"_s); });
  commands_->OnEntry(u"About"_s, [] {
    FrmAbout about;
    ShowModal(about);
  });
}

void FrmInput::ConnectOriginals() {
  commands_->OnEntry(u"AddFile"_s, [this] { AddOriginals(); });
  commands_->OnEntry(u"BorrowFile"_s, [this] { ManageOriginals(); });
  commands_->KeyMenu(u"FileArea"_s).addActions(commands_->Menu(u"File_Or"_s).actions());
}

bool FrmInput::IsSaved() {
  StoreTyped();
  if (!SwitchToEditing()) return true;
  ShowMessage(u"请先保存当前数据！"_s, MessageFlag::Information, windowTitle());
  return false;
}

void FrmInput::AddOriginals() {
  if (HasRecord() && OriginalFileAction(lifecycle_->CurrentKey(), kAddOriginals))
    ShowMessage(u"加载完毕！"_s, MessageFlag::Information, u"提示"_s);
}

void FrmInput::ManageOriginals() {
  if (!IsSaved() || !HasRecord()) return;
  if (const QString key = lifecycle_->CurrentKey(); !key.isEmpty()) OriginalFileAction(key, {});
}

// The flow may have changed the record's state: it is read again and shown anew.
void FrmInput::HandToFlow(const QString& flowTable) {
  if (!IsSaved() || !HasRecord() || !TransferRecord(CurrTable, lifecycle_->CurrentKey(), flowTable)) return;
  if (!lifecycle_) return;  // closed by a program, with the flow's window
  Recordset& records = lifecycle_->Records();
  records.Resync();
  records.MoveNext();
  records.MovePrevious();
  ShowCurrentRecord();
}

void FrmInput::Archive() {
  if (!IsSaved() || lifecycle_->CurrentKey().isEmpty()) return;
  status_->ShowNote({});
  ArchiveOrder order;
  order.source = CurrTable;
  order.destination = Selected(Parameter::Target);
  order.statement = lifecycle_->Records().Source();
  bool isMarked = false;
  order.mark = [&] {
    isMarked = true;
    lifecycle_->MarkArchived();
  };
  const QScopedValueRollback archiving(isArchiving_, true);
  ArchiveOutcome outcome;
  try {
    outcome = ArchiveRecords(order, nullptr);
  } catch (const std::exception&) {
    if (isMarked) {  // and taken back with all the rest
      lifecycle_->ReadAgain();
      ShowCurrentRecord();
    }
    throw;
  }
  if (outcome.isRun) {
    lifecycle_->EndCopyAll();
    ShowCurrentRecord();
  }
  const bool hasFailed = outcome.isRun && outcome.count == 0;
  status_->ShowNote(hasFailed ? u"没有归档：当前记录不符合需要归档的条件"_s : outcome.note);
}

void FrmInput::Open() {
  Load();
  ShowModal(*this, [this] { Activate(); });
}

QString FrmInput::Selected(Parameter parameter) const {
  return Context.Parameters ? Context.Parameters->Selected(parameter) : QString();
}

RegIdRule FrmInput::ReadRule(const Recordset& records) const {
  return {CurrTable, LoadRegFormula(CurrTable, records), Selected(Parameter::RowLimit).trimmed(),
          Selected(Parameter::Filter), false};
}

ParentRecord FrmInput::ReadParent() const {
  const QString tag = Context.Parameters ? Context.Parameters->Tag() : QString();
  return {Selected(Parameter::Parent).trimmed(), tag};
}

void FrmInput::Load() {
  Recordset& records = Shared().CurrentRecords;
  lifecycle_.reset();
  SetPlacementOf(*this, CurrTable);
  setWindowTitle(Context.NodeText + u"  -  "_s + kCaption);
  const qint64 openPosition = records.AbsolutePosition();
  const RegIdRule rule = ReadRule(records);
  const auto carried = LoadCarryFields(SharedConnection(), CurrTable, ReadParent());
  form_->BuildEntryControls(CurrTable, records);
  ShowHint(MissingIn(CurrTable, form_->Layout(), records));
  LoadReportMenu(*commands_, CurrTable, [this] { return lifecycle_->CurrentKey(); });
  grants_ = Context.Parameters ? Context.Parameters->Grants() : TableGrants{};
  grants_.edit = grants_.edit && HasKey(records);
  lifecycle_ = std::make_unique<RecordLifecycle>(records, LifecycleStart{form_->Layout(), carried, rule}, openPosition);
  ReadMarks();
  ConnectFields(RegCbcIni(CurrTable));
  ShowOpened(openPosition);
}

void FrmInput::ShowOpened(qint64 openPosition) {
  enabling_ = EntryEnabling(grants_);
  enabling_.ApplyRights();
  commands_->EnableEntry(u"mnuReplace"_s, bool(Context.OpenReplace));
  status_->ShowUser(Shared().UserName);
  status_->ShowOpened(openPosition, lifecycle_->Position().count);
  walk_.SetKeys(form_->Layout().KeyList);
  walk_.Restart();
  form_->Binding().ShowRow();
  ShowSettled();
  // The bar moves the fields up and down only: no part of them may be cut off at the side.
  const QSize room = screen()->availableGeometry().size();
  form_->setMinimumWidth(std::min(form_->sizeHint().width(), room.width()));
  resize(sizeHint().boundedTo(room));
}

void FrmInput::Activate() {
  if (AddOnOpen == u"1"_s) {
    AddOnOpen = u"0"_s;
    RunGuarded([this] { AddNewRecord(); });
  } else {
    FocusCurrentKey();
  }
}

void FrmInput::ConnectFields(const QStringList& wideFields) {
  form_->Binding().SetReadOnly(!MayEdit());
  for (const auto& made : form_->Fields()) {
    EntryField& field = *made;
    new TypingAids(field, IsNumericField(Shared().CurrentRecords, field.DataField()), wideFields,
                   {[this] { return HasRecord(); }, [this] { return commands_->IsMarked(u"UseSign"_s); },
                    [this](EntryField& from) { NextKey(from); }});
    ConnectGuarded(&field, &EntryField::Changed, this, [this, &field] { NoteChange(field); });
    ConnectGuarded(&field, &EntryField::Typing, this, [this] { BeginEdit(); });
    ConnectGuarded(&field, &EntryField::Left, this, [this, &field] { NoteLeft(field); });
  }
  UseYearSign();
}

void FrmInput::ReadMarks() {
  for (const KeptMark& mark : KeptMarks()) commands_->SetMark(mark.entry, ReadMark(mark));
}

void FrmInput::UseYearSign() {
  const bool useSign = commands_->IsMarked(u"UseSign"_s);
  lifecycle_->SetUseSign(useSign);
  for (AgencyCodePicker* picker : form_->findChildren<AgencyCodePicker*>())
    picker->SetYearBracket(useSign ? YearBracket::Tortoise : YearBracket::Square);
}

}  // namespace folvane
