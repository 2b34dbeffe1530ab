#include "components/originals/WorkDialog.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>

#include <folvane/Icons.h>

#include "components/common/Placement.h"
#include "components/common/ToolKeys.h"

namespace folvane::originals {

using namespace Qt::Literals::StringLiterals;

WorkDialog::WorkDialog(QWidget* parent, const Names& names)
    : QDialog(parent), state_(new QLabel(this)), progress_(new QProgressBar(this)), work_(names.work) {
  setObjectName(names.window);
  setWindowTitle(names.caption);
  setWindowIcon(Icon(names.icon));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  state_->setObjectName(u"LblState"_s);
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  progress_->setObjectName(names.progress);
  progress_->setAccessibleName(work_ + u"进度"_s);
}

void WorkDialog::LayOut(QTreeView& list, QSize size, const std::vector<int>& widths,
                        const std::vector<QPushButton*>& left, const std::vector<QPushButton*>& right) {
  stop_ = NewPushButton(this, {u"CmdStop"_s, u"cancel"_s, u"停止(&S)"_s, u"停止"_s + work_, {}}, [this] { reject(); });
  close_ = NewPushButton(this, {u"CmdClose"_s, u"exit"_s, u"关闭(&C)"_s, u"关闭窗口"_s, {}}, [this] { reject(); });
  auto* keys = new QHBoxLayout;
  for (QPushButton* key : left) keys->addWidget(key);
  keys->addStretch();
  for (QPushButton* key : right) keys->addWidget(key);
  keys->addWidget(stop_);
  keys->addWidget(close_);
  auto* column = new QVBoxLayout(this);
  column->addWidget(&list, 1);
  column->addWidget(state_);
  column->addWidget(progress_);
  column->addLayout(keys);
  const QFontMetrics metrics(font());
  const int unit = metrics.averageCharWidth();
  resize(unit * size.width(), metrics.lineSpacing() * size.height());
  for (std::size_t at = 0; at < widths.size(); ++at) list.setColumnWidth(int(at), unit * widths[at]);
  Enable();
  KeepPlacement(*this);
  KeepWidths(*list.header());
}

void WorkDialog::Begin() {
  isStopped_ = false;
  isWorking_ = true;
  Enable();
  stop_->setFocus();
}

void WorkDialog::End() {
  isWorking_ = false;
  Enable();
}

bool WorkDialog::LetThrough() {
  QCoreApplication::processEvents();
  return GoesOn();
}

void WorkDialog::Enable() {
  stop_->setVisible(isWorking_);
  close_->setVisible(!isWorking_);
  progress_->setVisible(isWorking_);
}

void WorkDialog::reject() {
  if (!isWorking_) return QDialog::reject();
  isStopped_ = true;
}

}  // namespace folvane::originals
