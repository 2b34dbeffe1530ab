#include "bulk/FrmBactchUpdate.h"

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <folvane/Icons.h>

#include "base/IgnoreErrors.h"
#include "bulk/ControlRows.h"
#include "bulk/FieldChoice.h"
#include "query/ConditionText.h"
#include "records/TableParameters.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "shell/SharedState.h"
#include "shell/TableFields.h"
#include "widgets/BusyPointer.h"
#include "widgets/DialogKeys.h"
#include "widgets/EditCombo.h"
#include "widgets/LongWork.h"
#include "widgets/TextBox.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kCharactersAcross = 30;

}  // namespace

FrmBactchUpdate::FrmBactchUpdate() {
  setObjectName(u"FrmBactchUpdate"_s);
  setWindowTitle(u"批量修改"_s);
  setWindowIcon(Icon(u"batchupdate"_s));
  field_ = Named(new TextCombo(this), u"Cbo_Field"_s, u"要修改的字段"_s);
  find_ = Named(new EditCombo(this), u"Cbo_Find"_s, u"要被替换的内容，可选用该字段已有的值；留空则查找空值"_s);
  value_ = Named(new TextBox(this), u"TxtValue"_s, u"替换成的内容"_s);
  direction_ = Named(new TextCombo(this), u"Cbo_Direct"_s, u"向下、向上均从当前记录开始，包括当前记录"_s);
  whole_ = Named(new QCheckBox(u"全字匹配"_s, this), u"Chk_All"_s, u"只替换与查找内容完全相同的值"_s);
  case_ = Named(new QCheckBox(u"区分大小写"_s, this), u"Chk_Case"_s, u"查找值的一部分时区分大小写"_s);
  count_ = Named(new QLabel(this), u"LblCount"_s, {});
  progress_ = Named(new QProgressBar(this), u"ProReplace"_s, {});
  direction_->addItems({u"所有"_s, u"向下"_s, u"向上"_s});
  LayOut();
  ConnectGuarded(field_, &QComboBox::activated, this, &FrmBactchUpdate::ShowValues);
  for (QComboBox* combo : {static_cast<QComboBox*>(field_), static_cast<QComboBox*>(direction_)})
    connect(combo, &QComboBox::activated, this, &FrmBactchUpdate::ClearCount);
  connect(find_, &EditCombo::Changed, this, &FrmBactchUpdate::ClearCount);
  connect(value_, &TextBox::Changed, this, &FrmBactchUpdate::ClearCount);
  for (QCheckBox* box : {whole_, case_}) connect(box, &QCheckBox::toggled, this, &FrmBactchUpdate::ClearCount);
}

void FrmBactchUpdate::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 16);
  auto* grid = new QGridLayout;
  grid->setColumnStretch(1, 1);
  AddRow(*grid, u"字段列表："_s, field_);
  AddRow(*grid, u"查找内容："_s, find_);
  AddRow(*grid, u"替换内容："_s, value_);
  AddRow(*grid, u"搜索范围："_s, direction_);
  value_->setMinimumWidth(fontMetrics().averageCharWidth() * kCharactersAcross * 2);
  auto* marks = new QHBoxLayout;
  marks->addWidget(whole_);
  marks->addWidget(case_);
  marks->addStretch();
  grid->addLayout(marks, grid->rowCount(), 1);
  column->addLayout(grid);
  column->addWidget(count_);
  progress_->setTextVisible(false);
  progress_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  progress_->hide();
  DialogKeys keys(*this);
  keys.row->insertWidget(0, progress_, 1);
  column->addStretch();
  column->addLayout(keys.row);
  stop_ = keys.cancel;
  ConnectGuarded(keys.ok, &QPushButton::clicked, this, &FrmBactchUpdate::ReplaceIfConfirmed);
}

void FrmBactchUpdate::Open() {
  Load();
  field_->setFocus();
  ShowModal(*this);
}

void FrmBactchUpdate::Load() {
  field_->clear();
  field_->addItems(ReplaceableCaptions(TableName, Shared().UserId));
  field_->setCurrentIndex(-1);
  chosenField_.clear();
  find_->clear();
  value_->clear();
  ClearCount();
  direction_->setCurrentIndex(0);
  direction_->setEnabled(vsPos != -1);
}

void FrmBactchUpdate::ShowValues() {
  if (field_->currentText().isEmpty()) return;
  const BusyPointer busy;
  chosenField_.clear();
  find_->clear();
  chosenField_ = FieldOfCaption(TableName, field_->currentText());
  find_->addItems(ValuesOfField(TableName, chosenField_));
  find_->SetText({});
}

void FrmBactchUpdate::ClearCount() { count_->clear(); }

// What the question leaves open. The lists name the field before the question is asked, so this asks for nothing anew.
void FrmBactchUpdate::ShowCount() {
  ClearCount();
  if (chosenField_.isEmpty()) return;
  const BusyPointer busy;
  IgnoreErrors([this] {
    const qint64 count = FillsEmpty() ? Fill(chosenField_).Count(SharedConnection()) : Walk(chosenField_).Count();
    // The statement for empty texts finds the zeros of a column of numbers.
    const bool findsZero =
        FillsEmpty() && GroupOfType(Shared().CurrentRecords[chosenField_].Type()) == TypeGroup::Number;
    count_->setText(u"符合条件、将被修改的记录：%1条"_s.arg(count) +
                    (findsZero ? u"（值为 0 的也算空）"_s : QString()));
  });
}

bool FrmBactchUpdate::FillsEmpty() const { return direction_->currentIndex() == 0 && find_->currentText().isEmpty(); }

FillOfEmpty FrmBactchUpdate::Fill(const QString& field) const {
  const QString filter =
      BrowserFilter(Parameters->Selected(Parameter::RowLimit), Parameters->Selected(Parameter::Filter));
  return {TableName, field, value_->text(), filter};
}

BatchWalk FrmBactchUpdate::Walk(const QString& field) const {
  const Replacement replacement{find_->currentText(), value_->text(), whole_->isChecked(), case_->isChecked()};
  const auto direction = BatchWalk::Direction(direction_->currentIndex());
  return BatchWalk(Shared().CurrentRecords, field, replacement, direction, vsPos);
}

void FrmBactchUpdate::ReplaceIfConfirmed() {
  if (find_->currentText() == value_->text()) {
    ShowMessage(u"替换条件无效，替换前与替换后的值不能相同！"_s, MessageFlag::Information);
    return;
  }
  ShowCount();
  const QString question = u"是否确定将字段（"_s + field_->currentText() + u"）值为 "_s + find_->currentText() +
                           u" 的记录全部替换为 "_s + value_->text() + u" ？"_s;
  if (ShowMessage(Asked(question)) != Answer::Yes) return;
  try {
    Replace(FieldOfCaption(TableName, field_->currentText()));
  } catch (const std::exception& error) {
    ShowMessage({ErrorTextFor(TableName, error), MessageFlag::Critical, kSystemTitle, {}, ErrorDetails(error)});
  }
}

// The records are those of the browser's filter. Where that was put together with conditions that do not count, there
// may be more of them than the user has in mind.
MessageRequest FrmBactchUpdate::Asked(const QString& question) const {
  const QString leftOut = LeftOutNote(Parameters->LeftOut());
  QStringList notes{count_->text(), leftOut};
  notes.removeAll(QString());
  const int flags = MessageFlag::YesNo + MessageFlag::Question;
  return {question, leftOut.isEmpty() ? flags : flags + MessageFlag::SecondIsDefault, {}, notes.join(u'\n'), {}};
}

void FrmBactchUpdate::Replace(const QString& field) {
  IsSucceed = true;  // one that fails on its way has changed records too, and the list has to show them
  if (!FillsEmpty()) {
    if (WalkThrough(field)) accept();
    return;
  }
  const BusyPointer busy;
  Fill(field).Run(*SharedConnection());
  accept();
}

bool FrmBactchUpdate::WalkThrough(const QString& field) {
  BatchWalk walk = Walk(field);
  const auto showChanged = [&] { count_->setText(u"已中止，已修改的记录：%1条"_s.arg(walk.Written())); };
  LongWork work(*this, stop_, ShowIn(*progress_));
  try {
    const bool ended = walk.Run([&](qint64 done, qint64 maximum) { return work.GoOn(done, maximum); });
    if (!ended) showChanged();
    return ended;
  } catch (const std::exception&) {
    showChanged();
    throw;
  }
}

}  // namespace folvane
