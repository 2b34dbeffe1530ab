#include "entry/FrmSaveCollect.h"

#include <QApplication>
#include <QCheckBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QStandardItemModel>
#include <functional>

#include <folvane/Icons.h>

#include "entry/FrmCustomFormat.h"
#include "entry/ProofingRule.h"
#include "shell/EventGuard.h"
#include "shell/LoadedWindow.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "widgets/ChoiceRelay.h"
#include "widgets/DialogKeys.h"
#include "widgets/RecordListView.h"
#include "widgets/SuppliedCombo.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kCurrentTable = u"当前表"_s;
constexpr int kKeyRole = Qt::UserRole;

}  // namespace

FrmSaveCollect::FrmSaveCollect()
    : tableList_(new RecordListView(this)),
      tables_(new QStandardItemModel(0, 3, this)),
      tableName_(new QLabel(kCurrentTable, this)),
      current_(new QCheckBox(kCurrentTable, this)),
      removeAll_(new QCheckBox(u"删除全部校对条件(&D)"_s, this)) {
  setObjectName(u"FrmSaveCollect"_s);
  setWindowTitle(u"校对条件设置"_s);
  setWindowIcon(Icon(u"collect"_s));
  tableName_->setObjectName(u"LblTableName"_s);
  current_->setObjectName(u"ChkCustom"_s);
  current_->setToolTip(u"去掉对勾后可在下面的列表中选择其他的表"_s);
  removeAll_->setObjectName(u"Check1"_s);
  AddLines();
  AddTables();
  LayOut();
  Connect();
}

void FrmSaveCollect::AddLines() {
  for (int line = 0; line < RuleEditor::kLineCount; ++line) {
    Line& boxes = lines_[size_t(line)];
    boxes.field = NewBox(u"CmbField"_s, line, u"要校对的字段"_s, [this] { return editor_->FillFieldValue(); });
    boxes.relation = NewBox(u"CmbCondition"_s, line, u"比较关系"_s, [] { return ProofingRelations(); });
    boxes.value = NewBox(u"CmbValue"_s, line, u"比较的值，“只能是”后面的数字表示长度"_s,
                         [relation = boxes.relation] { return ProofingKeywords(relation->Text()); });
    boxes.value->installEventFilter(this);
    ConnectGuarded(boxes.value, &QComboBox::activated, this, [this, line] { ChooseValue(line); });
  }
  EnableLine(0);
}

EditCombo* FrmSaveCollect::NewBox(const QString& array, int line, const QString& tip,
                                  std::function<QStringList()> read) {
  auto* box = new SuppliedCombo(std::move(read), this);
  box->setObjectName(u"%1(%2)"_s.arg(array).arg(line));
  box->setToolTip(tip);
  box->setAccessibleName(u"第%1个条件，%2"_s.arg(line + 1).arg(tip));
  box->setEnabled(false);
  box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  return box;
}

void FrmSaveCollect::AddTables() {
  tables_->setHorizontalHeaderLabels({u"中文表名"_s, u"英文表名"_s, u"所属类别"_s});
  tableList_->setObjectName(u"LVData"_s);
  tableList_->setAccessibleName(u"可选择的表"_s);
  tableList_->setModel(tables_);
  tableList_->setSelectionMode(QAbstractItemView::SingleSelection);
  tableList_->setEnabled(false);
  tableList_->header()->setStretchLastSection(true);
  tableList_->setColumnWidth(0, 200);
  tableList_->setColumnWidth(1, 180);
  tableChoice_ = new ChoiceRelay(tableList_, [this](const QModelIndex& row) {
    ShowTable(row.data(kKeyRole).toString(), row.siblingAtColumn(0).data().toString());
  });
}

void FrmSaveCollect::LayOut() {
  resize(640, 480);
  auto* grid = new QGridLayout(this);
  auto* heading = new QHBoxLayout;
  QFont bold = font();
  bold.setBold(true);
  tableName_->setFont(bold);
  heading->addWidget(tableName_, 1);
  heading->addWidget(current_);
  grid->addLayout(heading, 0, 0, 1, 3);
  const QStringList captions{u"字段名"_s, u"比较关系"_s, u"比较值"_s};
  for (int column = 0; column < captions.size(); ++column) {
    grid->addWidget(new QLabel(captions[column], this), 1, column);
    grid->setColumnStretch(column, column == 1 ? 2 : 3);
  }
  for (int line = 0; line < RuleEditor::kLineCount; ++line) {
    const Line& boxes = lines_[size_t(line)];
    grid->addWidget(boxes.field, line + 2, 0);
    grid->addWidget(boxes.relation, line + 2, 1);
    grid->addWidget(boxes.value, line + 2, 2);
  }
  const int below = RuleEditor::kLineCount + 2;
  grid->addWidget(tableList_, below, 0, 1, 3);
  grid->setRowStretch(below, 1);
  const DialogKeys keys(*this);
  ok_ = keys.ok;
  cancel_ = keys.cancel;
  keys.row->insertWidget(0, removeAll_);
  grid->addLayout(keys.row, below + 1, 0, 1, 3);
}

void FrmSaveCollect::Connect() {
  current_->setChecked(true);
  ConnectGuarded(current_, &QCheckBox::toggled, this, &FrmSaveCollect::UseCurrentTable);
  ConnectGuarded(removeAll_, &QCheckBox::toggled, this, [this](bool ticked) {
    if (ticked) DeleteAll();
  });
  ConnectGuarded(ok_, &QPushButton::clicked, this, &FrmSaveCollect::Save);
}

void FrmSaveCollect::Open() {
  Load();
  ShowModal(*this);
}

void FrmSaveCollect::Load() {
  editor_.emplace(CurrTable);
  ShowRules();
  FillTables();
  lines_[0].field->setFocus();
}

void FrmSaveCollect::FillTables() {
  tables_->removeRows(0, tables_->rowCount());
  for (const RuleTable& table : ReadRuleTables()) {
    QList<QStandardItem*> row;
    for (const QString& text : {table.caption, table.table, table.className}) {
      row << new QStandardItem(text);
      row.back()->setData(table.table, kKeyRole);
    }
    tables_->appendRow(row);
    if (table.table == CurrTable) tableChoice_->SelectSilently(row.front()->index());
  }
}

void FrmSaveCollect::ShowTable(const QString& table, const QString& name) {
  SaveTempOfLeft();
  ClearCboTxt();
  editor_->SetTable(table);
  tableName_->setText(name);
  ShowRules();
}

void FrmSaveCollect::ShowRules() {
  const RuleEditor::Lines rules = editor_->ReadRules();
  for (int line = 0; line < RuleEditor::kLineCount; ++line) {
    const RuleLine& rule = rules[size_t(line)];
    if (rule == RuleLine()) continue;
    const Line& boxes = lines_[size_t(line)];
    boxes.field->SetText(rule.field);
    boxes.relation->SetText(rule.relation);
    boxes.value->SetText(rule.value);
    EnableLine(line);
  }
}

void FrmSaveCollect::ClearCboTxt() {
  for (const Line& boxes : lines_) {
    for (EditCombo* box : {boxes.field, boxes.relation, boxes.value}) box->SetText({});
  }
}

void FrmSaveCollect::EnableLine(int line) {
  const Line& boxes = lines_[size_t(line)];
  for (EditCombo* box : {boxes.field, boxes.relation, boxes.value}) box->setEnabled(true);
}

RuleLine FrmSaveCollect::Said(int line) const {
  const Line& boxes = lines_[size_t(line)];
  return {boxes.field->Text(), boxes.relation->Text(), boxes.value->Text()};
}

bool FrmSaveCollect::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut)
    return QDialog::eventFilter(watched, event);
  for (int line = 0; line < RuleEditor::kLineCount; ++line) {
    if (watched != lines_[size_t(line)].value) continue;
    if (event->type() == QEvent::FocusIn) {
      EnterValue(line);
    } else {
      LeaveValue(line, static_cast<QFocusEvent*>(event)->reason());
    }
  }
  return QDialog::eventFilter(watched, event);
}

void FrmSaveCollect::EnterValue(int line) {
  if (line + 1 < RuleEditor::kLineCount) EnableLine(line + 1);
}

// The list that drops down and another window take the focus only for a time, and what is cancelled need not be noted.
// A click that takes the focus has first to be finished, so that a message does not swallow it.
void FrmSaveCollect::LeaveValue(int line, Qt::FocusReason reason) {
  if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
  if (!isVisible() || QApplication::focusWidget() == cancel_) return;
  left_ = line;
  if (reason == Qt::MouseFocusReason) {
    QMetaObject::invokeMethod(
        this, [this] { RunGuarded([this] { SaveTempOfLeft(); }); }, Qt::QueuedConnection);
  } else {
    RunGuarded([this] { SaveTempOfLeft(); });
  }
}

void FrmSaveCollect::SaveTempOfLeft() {
  const int line = std::exchange(left_, -1);
  if (line >= 0 && !editor_->SaveTemp(line, Said(line)))
    ShowMessage(u"对不起!必须输入字段名或是比较关系!"_s, MessageFlag::Critical);
}

void FrmSaveCollect::ChooseValue(int line) {
  if (lines_[size_t(line)].value->Text() != kCustomFormat) return;
  const LoadedWindow<FrmCustomFormat> window;
  window->Open(editor_->ReadFormat(line));
  editor_->WriteFormat(line, window->ReturnStr);
}

void FrmSaveCollect::UseCurrentTable(bool current) {
  tableList_->setEnabled(!current);
  if (current) ShowTable(CurrTable, kCurrentTable);
}

void FrmSaveCollect::DeleteAll() {
  const auto reset = qScopeGuard([this] { removeAll_->setChecked(false); });
  SaveTempOfLeft();
  if (lines_[0].field->Text().isEmpty()) return;
  const int flags = MessageFlag::YesNo + MessageFlag::Information;
  if (ShowMessage(u"确定将当前的所有校对条件都删除?"_s, flags) != Answer::Yes) return;
  editor_->DeleteAll();
  ClearCboTxt();
}

// Enter takes the key without taking the focus from the line.
void FrmSaveCollect::Save() {
  ok_->setFocus();
  SaveTempOfLeft();
  try {
    editor_->Commit();
  } catch (const std::exception& error) {
    return ShowError(error, u"没有写入任何校对条件，所做的设置仍保留在窗口中。"_s);
  }
  accept();
}

}  // namespace folvane
