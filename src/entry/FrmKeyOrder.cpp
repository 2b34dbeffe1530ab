#include "entry/FrmKeyOrder.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "widgets/DialogKeys.h"
#include "widgets/NumberBox.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kIconSize = 24;

}  // namespace

FrmKeyOrder::FrmKeyOrder()
    : fields_(new QListWidget(this)),
      position_(new NumberBox(this)),
      up_(NewMoveKey(u"ImgUp"_s, u"上移一位 (Alt+↑)"_s, u"moveup"_s, Qt::Key_Up)),
      down_(NewMoveKey(u"ImgDown"_s, u"下移一位 (Alt+↓)"_s, u"movedown"_s, Qt::Key_Down)),
      byNumber_(new QCheckBox(u"设置"_s, this)) {
  setObjectName(u"FrmKeyOrder"_s);
  setWindowTitle(u"键盘顺序调整"_s);
  setWindowIcon(Icon(u"order"_s));
  fields_->setObjectName(u"LstFieldList"_s);
  position_->setObjectName(u"PVNumeric1"_s);
  position_->setToolTip(u"选中字段在回车顺序中的位置"_s);
  position_->setEnabled(false);
  position_->setAccessibleName(position_->toolTip());
  fields_->setAccessibleName(u"回车键经过各字段的顺序"_s);
  fields_->setSpacing(2);
  byNumber_->setObjectName(u"ChkOrder"_s);
  byNumber_->setToolTip(u"直接输入选中字段的位置"_s);
  LayOut();
  Connect();
}

QToolButton* FrmKeyOrder::NewMoveKey(const QString& name, const QString& tip, const QString& icon, Qt::Key key) {
  auto* button = new QToolButton(this);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setIcon(Icon(icon));
  button->setIconSize(QSize(kIconSize, kIconSize));
  button->setAutoRaise(true);  // raised only while the mouse is over it
  // A shortcut of the button itself would click at the pace of its animation.
  connect(new QShortcut(QKeySequence(Qt::AltModifier | key), this), &QShortcut::activated, button, &QToolButton::click);
  return button;
}

void FrmKeyOrder::LayOut() {
  resize(420, 460);
  auto* frame = new QGroupBox(u"调整"_s, this);
  frame->setObjectName(u"Frame1"_s);
  auto* tools = new QVBoxLayout(frame);
  tools->addWidget(up_, 0, Qt::AlignHCenter);
  tools->addWidget(down_, 0, Qt::AlignHCenter);
  tools->addSpacing(16);
  tools->addWidget(byNumber_);
  tools->addWidget(position_);
  tools->addStretch();

  auto* middle = new QHBoxLayout;
  middle->addWidget(fields_, 1);
  middle->addWidget(frame);
  auto* column = new QVBoxLayout(this);
  column->addLayout(middle, 1);
  const DialogKeys keys(*this);
  ok_ = keys.ok;
  column->addLayout(keys.row);
}

void FrmKeyOrder::Connect() {
  ConnectGuarded(fields_, &QListWidget::itemSelectionChanged, this, &FrmKeyOrder::ShowPosition);
  ConnectGuarded(up_, &QToolButton::clicked, this, [this] { Select(order_->MoveUp(Position())); });
  ConnectGuarded(down_, &QToolButton::clicked, this, [this] { Select(order_->MoveDown(Position())); });
  ConnectGuarded(byNumber_, &QCheckBox::toggled, position_, &QWidget::setEnabled);
  ConnectGuarded(position_, &QSpinBox::valueChanged, this, &FrmKeyOrder::TakePosition);
  ConnectGuarded(ok_, &QPushButton::clicked, this, &FrmKeyOrder::Save);
}

void FrmKeyOrder::Open() {
  Load();
  ShowModal(*this);
}

void FrmKeyOrder::Load() {
  order_.emplace(CurrTable);
  fields_->clear();
  fields_->addItems(order_->Names());
  position_->setRange(0, order_->Count());  // from 1 once a field is selected
  position_->SetText(u"0"_s);
  fields_->setFocus();
}

int FrmKeyOrder::Position() const {
  const auto selected = fields_->selectionModel()->selectedIndexes();
  return selected.isEmpty() ? 0 : selected.front().row() + 1;
}

void FrmKeyOrder::Select(int position) {
  if (position < 1) return;
  for (int row = 0; row < order_->Count(); ++row) fields_->item(row)->setText(order_->Names()[row]);
  fields_->setCurrentRow(position - 1);
}

void FrmKeyOrder::ShowPosition() {
  if (Position() < 1) return;
  const QSignalBlocker silence(position_);
  position_->setMinimum(1);
  position_->setValue(Position());
}

void FrmKeyOrder::TakePosition(int wanted) {
  if (Position() < 1) {
    ShowMessage(u"请选中需进行设置的字段!"_s, MessageFlag::Information);
    return;
  }
  if (wanted != Position()) Select(order_->Move(Position(), wanted));
}

void FrmKeyOrder::Save() {
  try {
    order_->Commit();
  } catch (const std::exception& error) {
    return ShowError(error, u"没有写入任何字段的顺序，所做的调整仍保留在窗口中。"_s);
  }
  accept();
}

}  // namespace folvane
