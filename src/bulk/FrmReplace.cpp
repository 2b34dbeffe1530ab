#include "bulk/FrmReplace.h"

#include <QCheckBox>
#include <QHideEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimer>
#include <QWindow>

#include <folvane/Icons.h>

#include "bulk/FieldChoice.h"
#include "data/Recordset.h"
#include "entry/FrmInput.h"
#include "forms/EntryForm.h"
#include "forms/LineGuard.h"
#include "shell/DefaultInstance.h"
#include "shell/EventGuard.h"
#include "shell/OpenHelp.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"
#include "shell/WindowPlacement.h"
#include "widgets/EditCombo.h"
#include "widgets/LongWork.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// A pause in typing.
constexpr int kMillisecondsToCount = 250;

Recordset& Records() { return Shared().CurrentRecords; }

// The texts looked for and put in are offered again for as long as the window is open.
void Remember(EditCombo& combo) {
  const QString text = combo.currentText();
  if (text.isEmpty() || combo.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0) return;
  const QSignalBlocker silence(combo);
  combo.insertItem(0, text);
  combo.SetText(text);
}

void SetMark(QCheckBox& box, bool on, bool enabled) {
  const QSignalBlocker silence(box);
  box.setChecked(on);
  box.setEnabled(enabled);
}

}  // namespace

void OpenReplace(FrmInput& input) {
  using Instance = DefaultInstance<FrmReplace>;
  if (Instance::IsLoaded() && !Instance::Get().isVisible()) Instance::Unload();
  FrmReplace& window = Instance::Get();
  if (!window.isVisible()) {
    window.TableName = input.CurrTable;
    window.Open(input);
  }
  window.raise();
  window.activateWindow();
}

FrmReplace::FrmReplace() : counting_(new QTimer(this)) {
  setObjectName(u"FrmReplace"_s);
  setWindowTitle(u"替换"_s);
  setWindowIcon(Icon(u"replace"_s));
  MakeControls();
  MakeKeys();
  LayOut();
  Connect();
}

void FrmReplace::Connect() {
  find_->Box().installEventFilter(this);
  replace_->Box().installEventFilter(this);
  connect(find_, &EditCombo::Changed, this, &FrmReplace::EnableFinding);
  connect(replace_, &EditCombo::Changed, this, &FrmReplace::EnableReplacing);
  connect(oneField_, &QRadioButton::toggled, field_, &QWidget::setEnabled);
  connect(whole_, &QCheckBox::toggled, this, &FrmReplace::TakeWhole);
  connect(like_, &QCheckBox::toggled, this, &FrmReplace::TakeLike);
  for (QAbstractButton* choice : {static_cast<QAbstractButton*>(oneField_), static_cast<QAbstractButton*>(whole_),
                                  static_cast<QAbstractButton*>(like_)})
    connect(choice, &QAbstractButton::toggled, this, &FrmReplace::CountSoon);
  for (QComboBox* choice : {field_, way_}) connect(choice, &QComboBox::activated, this, &FrmReplace::CountSoon);
  counting_->setSingleShot(true);
  ConnectGuarded(counting_, &QTimer::timeout, this, &FrmReplace::CountOn);
  ConnectGuarded(findNext_, &QPushButton::clicked, this, &FrmReplace::FindNext);
  connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, findNext_, &QPushButton::click);
  ConnectGuarded(replaceOne_, &QPushButton::clicked, this, &FrmReplace::Replace);
  ConnectGuarded(replaceAll_, &QPushButton::clicked, this, &FrmReplace::ReplaceAll);
  connect(cancel_, &QPushButton::clicked, this, &FrmReplace::reject);
  ConnectGuarded(help_, &QPushButton::clicked, this, [this] { OpenHelp(this, u"数据操作.htm"_s); });
}

void FrmReplace::Open(FrmInput& input) {
  input_ = &input;
  search_ = std::make_unique<FindReplace>(SharedConnection(), TableName);
  Load();
  input.installEventFilter(this);
  setAttribute(Qt::WA_QuitOnClose, false);  // the application is the host's
  RestorePlacement(*this);
  winId();  // makes the native window
  windowHandle()->setTransientParent(input.windowHandle());
  show();
  find_->setFocus();
}

void FrmReplace::Load() {
  field_->addItems(
      FirstColumn(u"Select ChnFieldName From DynamicWindows Where TableName='"_s + EscapeSql(TableName) + u"'"_s));
  way_->addItems({u"所有"_s, u"向上"_s, u"向下"_s});
  allFields_->setChecked(true);
  field_->setEnabled(false);
  SetMark(*like_, true, true);
  EnableFinding();
  EnableReplacing();
}

// A key released in a text decides anew what can be done with it.
bool FrmReplace::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyRelease && watched == &find_->Box()) EnableFinding();
  if (event->type() == QEvent::KeyRelease && watched == &replace_->Box()) EnableReplacing();
  if (event->type() == QEvent::Hide && watched == input_ && !event->spontaneous()) hide();
  return QDialog::eventFilter(watched, event);
}

void FrmReplace::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (event->spontaneous()) return;
  RememberPlacement(*this);
  deleteLater();
}

// The entry window may have moved in between.
bool FrmReplace::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) CountSoon();
  return QDialog::event(event);
}

void FrmReplace::EnableFinding() {
  findNext_->setEnabled(!find_->currentText().isEmpty());
  CountSoon();
}

void FrmReplace::EnableReplacing() {
  const bool hasText = !replace_->currentText().isEmpty();
  replaceOne_->setEnabled(hasText);
  replaceAll_->setEnabled(hasText);
  CountSoon();
}

// One of the two is always in force. The one that the user has turned stays his to turn back.
void FrmReplace::TakeWhole(bool whole) { SetMark(*like_, !whole, !whole); }

void FrmReplace::TakeLike(bool like) { SetMark(*whole_, !like, like); }

SearchTerms FrmReplace::Terms() const {
  return {find_->currentText(), replace_->currentText(), allFields_->isChecked(), field_->currentText(),
          like_->isChecked()};
}

SearchWay FrmReplace::Way() const { return SearchWay(way_->currentIndex()); }

bool FrmReplace::IsSettled() {
  input_->StoreTyped();
  counting_->stop();  // it would walk over the records, too
  if (Records().EditMode() == EditModeKind::None && Records().PendingCount() == 0) return true;
  TellUnsettled();
  return false;
}

void FrmReplace::TellUnsettled() { status_->setText(u"正在编辑记录，请先保存或取消。"_s); }

void FrmReplace::FindNext() {
  if (!IsSettled()) return;
  Remember(*find_);
  search_->SetTerms(Terms());
  bool found = false;
  {
    LongWork work(*this, cancel_, ShowIn(*progress_));
    found = search_->FindNext(Records(), Way(), [&](qint64 done, qint64 count) { return work.GoOn(done, count); });
  }
  counting_->start(0);
  if (!found) return;
  input_->ShowCurrentRecord();
  SelectHit();
}

void FrmReplace::Replace() {
  if (!IsSettled()) return;
  Remember(*replace_);
  search_->SetTerms(Terms());
  bool found = false, replaced = false;
  search_->FindInRecord(Records(), false, found);
  if (found) {
    SelectHit();
    search_->FindInRecord(Records(), true, replaced);
  }
  ShowReplaced(replaced ? 1 : 0);
}

void FrmReplace::ReplaceAll() {
  if (!IsSettled()) return;
  Remember(*replace_);
  search_->SetTerms(Terms());
  LongWork work(*this, cancel_, ShowIn(*progress_));
  ShowReplaced(
      search_->ReplaceAll(Records(), Way(), [&](qint64 done, qint64 count) { return work.GoOn(done, count); }));
}

// The whole text is selected where the text looked for stands at its start, or where only the pattern finds it.
void FrmReplace::SelectHit() {
  const auto* form = input_->findChild<EntryForm*>();
  EntryField* field = form ? form->FieldOf(search_->HitControl()) : nullptr;
  QLineEdit* text = field ? LineOf(*field) : nullptr;
  if (!text) return;
  input_->activateWindow();
  field->Focus();
  const qsizetype start = text->text().indexOf(find_->currentText());
  if (whole_->isChecked() || start < 1)
    text->selectAll();
  else
    text->setSelection(int(start), int(find_->currentText().size()));
}

void FrmReplace::CountSoon() {
  if (!search_) return;
  countsAnew_ = true;
  status_->clear();
  counting_->start(kMillisecondsToCount);
}

// What a replacement would reach is seen before it is asked for.
void FrmReplace::CountOn() {
  if (find_->currentText().isEmpty() && replace_->currentText().isEmpty()) return;
  if (std::exchange(countsAnew_, false)) {
    search_->SetTerms(Terms());
    hits_.Begin(Records(), search_->Search(), Way());
  }
  if (hits_.GoOn(Records())) return counting_->start(0);
  if (Records().EditMode() != EditModeKind::None) return TellUnsettled();
  status_->setText(u"符合条件的记录：%1条"_s.arg(hits_.Count()));
}

void FrmReplace::ShowReplaced(qint64 count) {
  counting_->stop();
  const FindReplace::Refusals& refused = search_->Refused();
  QString text = u"已替换的记录：%1条"_s.arg(count);
  if (count > 0) text += u"，重新读取后显示新值"_s;
  if (refused.count > 0) text += u"\n未能写入的记录：%1条，%2"_s.arg(QString::number(refused.count), refused.reason);
  status_->setText(text);
}

}  // namespace folvane
