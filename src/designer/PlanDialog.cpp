#include "designer/PlanDialog.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include <folvane/Icons.h>

#include "shell/EventGuard.h"
#include "widgets/DialogKeys.h"
#include "widgets/PlainTip.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

QTreeWidget* NewChanges(const DesignPlan& plan, int unit) {
  auto* list = new QTreeWidget;
  list->setObjectName(u"LstChanges"_s);
  list->setHeaderLabels({u"位置"_s, u"改动"_s});
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->header()->resizeSection(0, unit * 50);
  for (const DesignChange& change : plan.changes) {
    auto* row = new QTreeWidgetItem(list, {change.where, change.what});
    for (int column = 0; column < 2; ++column) row->setToolTip(column, PlainTip(row->text(column)));
  }
  return list;
}

QPlainTextEdit* NewStatements(const DesignPlan& plan) {
  auto* text = new QPlainTextEdit(plan.statements.join(u";\n"_s) + u";\n"_s);
  text->setObjectName(u"TxtStatements"_s);
  text->setReadOnly(true);
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  return text;
}

}  // namespace

PlanDialog::PlanDialog(const DesignPlan& plan, QWidget* parent) : QDialog(parent) {
  setObjectName(u"PlanDialog"_s);
  setWindowTitle(u"将要写入的改动"_s);
  setWindowIcon(Icon(u"save"_s));
  resize(780, 520);
  auto* pages = new QTabWidget;
  pages->setObjectName(u"TabPlan"_s);
  if (!plan.losses.empty()) pages->addTab(NewLosses(plan), u"将丢失的数据(&L) %1"_s.arg(plan.losses.size()));
  pages->addTab(NewChanges(plan, fontMetrics().averageCharWidth()), u"改动(&G) %1"_s.arg(plan.changes.size()));
  pages->addTab(NewStatements(plan), u"语句(&S) %1"_s.arg(plan.statements.size()));
  auto* down = new QVBoxLayout(this);
  down->addWidget(pages, 1);
  const DialogKeys keys(*this);
  ok_ = keys.ok;
  ok_->setText(u"应用(&A)"_s);
  keys.row->insertWidget(0, NewHint(u"全部写入，或者一项也不写入。"_s, this));
  down->addLayout(keys.row);
  ConnectGuarded(ok_, &QPushButton::clicked, this, [this] { accept(); });
  Enable();
}

QWidget* PlanDialog::NewLosses(const DesignPlan& plan) {
  auto* inside = new QWidget;
  auto* rows = new QGridLayout(inside);
  rows->addWidget(NewHint(u"下面的内容不在新的设计中。保留的表和列仍在数据库里，只是窗口中不再出现。"_s, this), 0, 0, 1,
                  2);
  int row = 0;
  for (const DesignLoss& loss : plan.losses) {
    auto* words = new QLabel(loss.words);
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    auto* answer = new QComboBox;
    answer->setObjectName(u"CboLoss(%1)"_s.arg(answers_.size()));
    answer->setAccessibleName(loss.words);
    answer->addItem(u"请选择"_s);
    answer->addItem(u"保留"_s, int(LossAnswer::Keep));
    answer->addItem(u"删除，数据不能恢复"_s, int(LossAnswer::Lose));
    ConnectGuarded(answer, &QComboBox::currentIndexChanged, this, &PlanDialog::Enable);
    answers_.push_back(answer);
    rows->addWidget(words, ++row, 0);
    rows->addWidget(answer, row, 1);
  }
  rows->setColumnStretch(0, 1);
  rows->setRowStretch(row + 1, 1);
  auto* scroll = new QScrollArea;
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidget(inside);
  return scroll;
}

std::vector<LossAnswer> PlanDialog::Answers() const {
  std::vector<LossAnswer> answers;
  for (const QComboBox* answer : answers_) answers.push_back(LossAnswer(answer->currentData().toInt()));
  return answers;
}

void PlanDialog::Enable() {
  const bool isAnswered =
      std::all_of(answers_.begin(), answers_.end(), [](const QComboBox* answer) { return answer->currentIndex() > 0; });
  ok_->setEnabled(isAnswered);
  ok_->setToolTip(isAnswered ? QString() : u"请先选择怎样处理将丢失的数据"_s);
}

}  // namespace folvane::designer
