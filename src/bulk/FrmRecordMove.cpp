#include "bulk/FrmRecordMove.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include <folvane/Icons.h>

#include "base/TypedValues.h"
#include "records/MovePlan.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "widgets/DialogKeys.h"
#include "widgets/DigitBox.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

int MoveNumberOf(const QString& number, bool isPage) {
  const int asked = ToInteger(number);
  if (!isPage || asked == 0) return asked;
  int before = 0;
  if (__builtin_mul_overflow(asked - 1, kPageSize, &before))
    throw NumberError(u"页码“%1”超出了整数的范围。"_s.arg(number));
  return before;
}

FrmRecordMove::FrmRecordMove()
    : question_(new QLabel(u"请键入您要移动到指定数据的"_s, this)), number_(new DigitBox(this)) {
  setObjectName(u"FrmRecordMove"_s);
  setWindowTitle(u"数据快速定位"_s);
  setWindowIcon(Icon(u"goto"_s));
  question_->setObjectName(u"LblCirName"_s);
  question_->setBuddy(number_);
  number_->setObjectName(u"TxtMoveNo"_s);
  LayOut();
}

void FrmRecordMove::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 16);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addWidget(question_);
  number_->setMinimumWidth(number_->fontMetrics().averageCharWidth() * 36);
  column->addWidget(number_);
  column->addSpacing(8);
  const DialogKeys keys(*this);
  column->addLayout(keys.row);
  ConnectGuarded(keys.ok, &QPushButton::clicked, this, &FrmRecordMove::TakeNumber);
}

QString FrmRecordMove::NumberWord() const { return MoveType ? u"页码"_s : u"记录号"_s; }

// Coming back from a message box or from another program is no activation.
bool FrmRecordMove::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate) NoteLeaving();
  if (event->type() == QEvent::WindowActivate) Activate();
  return QDialog::event(event);
}

void FrmRecordMove::NoteLeaving() {
  const QWidget* other = QApplication::activeWindow();
  wasElsewhere_ = isVisible() && (!other || qobject_cast<const QMessageBox*>(other));
}

void FrmRecordMove::Activate() {
  if (std::exchange(wasElsewhere_, false)) return;
  question_->setText(question_->text() + NumberWord());
  number_->setFocus();
}

void FrmRecordMove::TakeNumber() {
  if (number_->text().isEmpty()) {
    ShowMessage(u"请您输入要移动的"_s + NumberWord() + u"！"_s, 0, windowTitle());
    number_->setFocus();
    return;
  }
  MoveNumber = MoveNumberOf(number_->text(), MoveType);
  accept();
}

void FrmRecordMove::reject() {
  MoveNumber = 0;
  QDialog::reject();
}

}  // namespace folvane
