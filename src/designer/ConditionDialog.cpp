#include "designer/ConditionDialog.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "design/DesignedTransfers.h"
#include "designer/ConditionRow.h"
#include "designer/Labels.h"
#include "designer/SeenRows.h"
#include "designer/TroubleText.h"
#include "shell/EventGuard.h"
#include "widgets/DialogKeys.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kPause = 300;  ///< milliseconds after the last key

QLabel* NewWords(const QString& name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

QPushButton* NewButton(const QString& name, const QString& caption, const QString& tip) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  return button;
}

}  // namespace

ConditionDialog::ConditionDialog(const Design& design, const Design::Table& table, Connection& connection,
                                 QWidget* parent)
    : QDialog(parent),
      design_(design),
      table_(table),
      columns_(design::TablesOf(design, &connection).Get(table.name)),
      connection_(connection),
      list_(new QVBoxLayout),
      add_(NewButton(u"CmdAdd"_s, u"增加条件(&N)"_s, u"在后面加一行 (Alt+N)"_s)),
      clear_(NewButton(u"CmdClear"_s, u"清空(&E)"_s, u"去掉全部条件，可以看到所有的记录 (Alt+E)"_s)),
      words_(NewWords(u"LblWords"_s)),
      result_(NewWords(u"LblResult"_s)),
      text_(new QLineEdit),
      pause_(new QTimer(this)) {
  setObjectName(u"ConditionDialog"_s);
  setWindowTitle(u"可以看到的记录 - "_s + LabelOf(table));
  setWindowIcon(Icon(u"query"_s));
  text_->setObjectName(u"TxtCondition"_s);
  pause_->setSingleShot(true);
  pause_->setInterval(kPause);
  LayOut();
  ConnectGuarded(add_, &QPushButton::clicked, this, &ConditionDialog::AddLine);
  ConnectGuarded(clear_, &QPushButton::clicked, this, &ConditionDialog::Clear);
  ConnectGuarded(text_, &QLineEdit::textEdited, this, [this] { pause_->start(); });
  ConnectGuarded(pause_, &QTimer::timeout, this, [this] { Try(); });
}

void ConditionDialog::LayOut() {
  resize(760, 440);
  auto* lines = new QWidget;
  auto* above = new QVBoxLayout(lines);
  above->addLayout(list_);
  above->addStretch();
  auto* area = new QScrollArea;
  area->setObjectName(u"ScrLines"_s);
  area->setWidgetResizable(true);
  area->setWidget(lines);
  area->setFocusPolicy(Qt::NoFocus);
  auto* keys = new QHBoxLayout;
  keys->addWidget(add_);
  keys->addWidget(clear_);
  keys->addStretch();
  keys->addWidget(NewHint(u"“与”先于“或”，需要时加括号。"_s, this));
  auto* told = new QFormLayout;
  told->addRow(u"读作"_s, words_);
  told->addRow(u"条件原文(&S)"_s, text_);
  told->addRow(u"试用"_s, result_);
  auto* down = new QVBoxLayout(this);
  down->addLayout(keys);
  down->addWidget(area, 1);
  down->addLayout(told);
  const DialogKeys ends(*this);
  down->addLayout(ends.row);
  ConnectGuarded(ends.ok, &QPushButton::clicked, this, &ConditionDialog::accept);
}

void ConditionDialog::Show(const QString& condition) {
  const std::optional<RowCondition> lines = LinesOf(condition, table_);
  isFree_ = !lines.has_value();
  if (lines)
    for (const ConditionLine& line : *lines) AddRow(line);
  given_ = condition.trimmed();
  if (lines) linesGiven_ = Lines();
  text_->setText(condition);
  Follow();
  Try();
}

QString ConditionDialog::Condition() const {
  if (isFree_) return text_->text().trimmed();
  const RowCondition lines = Lines();
  return lines == linesGiven_ ? given_ : SqlOf(lines, table_);
}

ConditionRow* ConditionDialog::AddRow(const ConditionLine& line) {
  auto* row = new ConditionRow(design_, table_, this);
  row->Show(line);
  list_->addWidget(row);
  rows_ << row;
  NumberRows();
  ConnectGuarded(row, &ConditionRow::Changed, this, &ConditionDialog::Follow);
  ConnectGuarded(row, &ConditionRow::RemovalAsked, this, [this, row] { RemoveRow(row); });
  return row;
}

void ConditionDialog::AddLine() {
  ConditionLine line;
  if (!table_.fields.empty()) line.field = table_.fields.front().name;
  line.relation = RelationWords().front();
  AddRow(line)->setFocus();
  Follow();
}

void ConditionDialog::RemoveRow(ConditionRow* row) {
  rows_.removeOne(row);
  row->hide();
  row->deleteLater();
  NumberRows();
  add_->setFocus();
  Follow();
}

void ConditionDialog::Clear() {
  isFree_ = false;
  while (!rows_.isEmpty()) RemoveRow(rows_.last());
  Follow();
}

void ConditionDialog::NumberRows() {
  for (int at = 0; at < rows_.size(); ++at) rows_[at]->SetNumber(at + 1);
}

RowCondition ConditionDialog::Lines() const {
  RowCondition lines;
  for (const ConditionRow* row : rows_) lines.push_back(row->Line());
  return lines;
}

void ConditionDialog::Follow() {
  text_->setReadOnly(!isFree_);
  add_->setEnabled(!isFree_);
  if (!isFree_) text_->setText(Condition());
  const QString words = WordsOf(Lines(), table_);
  words_->setText(isFree_ ? u"（这个条件不能逐行显示，可以在下面改正，或清空后重新组合）"_s
                  : words.isEmpty() ? u"（没有条件，可以看到所有的记录）"_s
                                    : words);
  pause_->start();
}

bool ConditionDialog::Try() {
  pause_->stop();
  if (const QString flaw = isFree_ ? QString() : FlawOf(Lines(), columns_); !flaw.isEmpty()) {
    ShowTrouble(*result_, flaw + u'。', true);
    return false;
  }
  const TriedCondition tried = TryCondition(Condition(), table_, connection_);
  ShowTrouble(*result_, tried.words, tried.isRefused);
  return !tried.isRefused;
}

void ConditionDialog::accept() {
  if (Try()) QDialog::accept();
}

}  // namespace folvane::designer
