#include "query/frmfhfind.h"

#include <QAction>
#include <QCheckBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QStandardItemModel>
#include <QStyle>
#include <QToolBar>
#include <array>
#include <utility>

#include <folvane/Icons.h>

#include "query/Comparison.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "widgets/PlainTip.h"
#include "widgets/RecordListView.h"
#include "widgets/SuppliedCombo.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

void Name(QWidget& box, int element, const QString& tip) {
  box.setObjectName(u"Cmb(%1)"_s.arg(element));
  box.setToolTip(tip);
}

// A condition that counts for nothing is struck out as well.
void Mark(const QList<QStandardItem*>& row, const ShownCondition& condition, const QWidget& window) {
  const bool counts = condition.number != 0;
  for (QStandardItem* cell : row) {
    const QString flaw = counts ? condition.flaw : u"不参与查询："_s + condition.flaw;
    cell->setToolTip(PlainTip(flaw));
    cell->setData(flaw, Qt::AccessibleDescriptionRole);
    if (counts) continue;
    QFont font = window.font();
    font.setStrikeOut(true);
    cell->setFont(font);
    cell->setForeground(window.palette().brush(QPalette::PlaceholderText));
  }
  row.front()->setIcon(window.style()->standardIcon(QStyle::SP_MessageBoxWarning));
}

QList<QStandardItem*> RowOf(const ShownCondition& condition, const QWidget& window) {
  QList<QStandardItem*> row;
  for (const QString& text :
       {condition.connector, condition.field, condition.relation, condition.value, condition.position})
    row << new QStandardItem(text);
  if (!condition.flaw.isEmpty()) Mark(row, condition, window);
  return row;
}

QLabel* NewNotice(const QString& name, QWidget* parent) {
  auto* notice = new QLabel(parent);
  notice->setObjectName(name);
  notice->setTextFormat(Qt::PlainText);
  notice->setWordWrap(true);
  return notice;
}

}  // namespace

frmfhfind::frmfhfind()
    : toolbar_(new QToolBar(u"工具栏"_s, this)),
      connector_(new TextCombo(this)),
      relation_(new TextCombo(this)),
      field_(new EditCombo(this)),
      value_(new SuppliedCombo([this] { return CompoundQuery::ValuesFor(field_->Text()); }, this)),
      conditions_(new QStandardItemModel(0, 5, this)),
      list_(new RecordListView(this)),
      forget_(new QCheckBox(u"不保存当前查询条件"_s, this)),
      notice_(NewNotice(u"LblIgnored"_s, this)),
      notAdded_(NewNotice(u"LblNotAdded"_s, this)) {
  setObjectName(u"frmfhfind"_s);
  setWindowTitle(u"组合查询窗体"_s);
  setWindowIcon(Icon(u"query"_s));
  forget_->setObjectName(u"Check1"_s);
  forget_->setToolTip(u"关闭窗口时删除列表中的全部条件；不打勾时下次打开仍然保留"_s);
  MakeKeys();
  MakeList();
  MakeBoxes();
  LayOut();
}

void frmfhfind::MakeBoxes() {
  Name(*connector_, 0, u"与上一个条件的连接关系，第一个条件不需要"_s);
  Name(*field_, 1, u"要比较的字段"_s);
  Name(*relation_, 2, u"比较关系"_s);
  Name(*value_, 3, u"要比较的值，可以直接输入 (回车添加条件)"_s);
  connector_->addItems(ConnectorWords());
  relation_->addItems(ComparisonWords());
  ConnectGuarded(relation_, &QComboBox::activated, this, &frmfhfind::ShowNotAdded);
  for (EditCombo* box : {field_, value_}) ConnectGuarded(box, &EditCombo::Changed, this, &frmfhfind::ShowNotAdded);
}

void frmfhfind::MakeKeys() {
  toolbar_->setObjectName(u"Toolbar1"_s);
  toolbar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  toolbar_->setContextMenuPolicy(Qt::PreventContextMenu);
  add_ = AddKey(u"F_AddRecord"_s, u"添加条件"_s, u"new"_s, u"Ctrl+N"_s, u"将下面的条件加入列表"_s);
  QAction* remove = AddKey(u"F_DelRecord"_s, u"删除条件"_s, u"del"_s, u"Ctrl+D"_s, u"从列表中删除选中的条件"_s);
  toolbar_->addSeparator();
  QAction* query = AddKey(u"F_Query"_s, u"开始查询"_s, u"search"_s, u"Ctrl+Return"_s, u"按列表中的条件查询"_s);
  toolbar_->addSeparator();
  QAction* exit = AddKey(u"F_Exit"_s, u"退出查询"_s, u"exit"_s, {}, u"不查询，关闭窗口 (Esc)"_s);
  ConnectGuarded(add_, &QAction::triggered, this, &frmfhfind::AddCondition);
  ConnectGuarded(remove, &QAction::triggered, this, &frmfhfind::RemoveCondition);
  ConnectGuarded(query, &QAction::triggered, this, &frmfhfind::Query);
  ConnectGuarded(exit, &QAction::triggered, this, &frmfhfind::reject);
}

QAction* frmfhfind::AddKey(const QString& name, const QString& caption, const QString& icon, const QString& shortcut,
                           const QString& tip) {
  auto* key = new QAction(Icon(icon), caption, toolbar_);
  key->setObjectName(name);
  key->setShortcut(QKeySequence(shortcut));
  key->setToolTip(shortcut.isEmpty() ? tip : u"%1 (%2)"_s.arg(tip, shortcut));
  toolbar_->addAction(key);
  return key;
}

void frmfhfind::MakeList() {
  conditions_->setHorizontalHeaderLabels({u"关系"_s, u"比较字段"_s, u"比较关系"_s, u"比较值"_s, u"顺序"_s});
  list_->setObjectName(u"ListView1"_s);
  list_->setModel(conditions_);
  list_->setAccessibleName(u"查询条件"_s);
  AddEmptyHint(*list_, u"尚无查询条件。\n请先在下面选择比较字段、比较关系和比较值，再按“添加条件”。"_s);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_->SetKeyHandler([this](int key) {
    if (key != Qt::Key_Delete) return false;
    RemoveCondition();
    return true;
  });
  list_->setColumnWidth(0, 60);
  list_->setColumnWidth(1, 160);
  list_->setColumnWidth(2, 90);
  list_->setColumnWidth(3, 220);
  list_->setColumnWidth(4, 50);
  list_->header()->setStretchLastSection(true);
}

void frmfhfind::LayOut() {
  resize(640, 420);
  auto* grid = new QGridLayout(this);
  grid->addWidget(toolbar_, 0, 0, 1, 4);
  grid->addWidget(list_, 1, 0, 1, 4);
  grid->setRowStretch(1, 1);
  grid->addWidget(notice_, 2, 0, 1, 4);
  const std::array<std::pair<QString, TextCombo*>, 4> boxes{
      {{u"连接关系"_s, connector_}, {u"比较字段"_s, field_}, {u"比较关系"_s, relation_}, {u"比较值"_s, value_}}};
  const std::array stretches{2, 5, 3, 6};
  for (int column = 0; column < 4; ++column) {
    const auto& [caption, box] = boxes[size_t(column)];
    auto* label = new QLabel(caption, this);
    label->setBuddy(box);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    grid->addWidget(label, 3, column);
    grid->addWidget(box, 4, column);
    grid->setColumnStretch(column, stretches[size_t(column)]);
  }
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(forget_);
  notAdded_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  bottom->addWidget(notAdded_, 1);
  grid->addLayout(bottom, 5, 0, 1, 4);
  // The Tab key goes the way of the eye.
  const std::array<QWidget*, 6> eye{list_, connector_, field_, relation_, value_, forget_};
  for (size_t at = 1; at < eye.size(); ++at) setTabOrder(eye[at - 1], eye[at]);
}

void frmfhfind::Open() {
  Load();
  ShowModal(*this);
}

void frmfhfind::Load() {
  ReturnSql.clear();
  Ignored.clear();
  query_.emplace(FormTag);
  field_->clear();
  field_->addItems(query_->Fields());
  for (TextCombo* box : std::initializer_list<TextCombo*>{connector_, field_, relation_, value_}) box->SetText({});
  added_ = {};
  forget_->setChecked(false);
  ShowConditions(0);
  ShowNotAdded();
  (query_->Conditions().empty() ? static_cast<QWidget*>(field_) : connector_)->setFocus();
}

void frmfhfind::ShowConditions(int selected) {
  conditions_->removeRows(0, conditions_->rowCount());
  for (const ShownCondition& condition : query_->Conditions()) conditions_->appendRow(RowOf(condition, *this));
  list_->setCurrentIndex(conditions_->index(qMin(selected, conditions_->rowCount() - 1), 0));
  notice_->setText(LeftOutNote(query_->Flawed()));
  notice_->setVisible(!notice_->text().isEmpty());
}

ShownCondition frmfhfind::Typed() const {
  return {connector_->currentText(), field_->Text(), relation_->currentText(), value_->Text(), {}};
}

// The boxes keep what they held when it was added.
QString frmfhfind::NotAdded() const {
  const ShownCondition typed = Typed();
  const bool isAdded = typed.field == added_.field && typed.relation == added_.relation && typed.value == added_.value;
  if (isAdded || (typed.field + typed.relation + typed.value).isEmpty()) return {};
  return LeftOutText({typed.field, typed.relation, typed.value}, u"尚未添加"_s);
}

void frmfhfind::ShowNotAdded() { notAdded_->setText(NotAdded().isEmpty() ? QString() : u"尚未添加的条件不参与查询"_s); }

void frmfhfind::AddCondition() {
  const ShownCondition typed = Typed();
  if (const QString missing = query_->Missing(typed); !missing.isEmpty()) {
    ShowMessage(missing, MessageFlag::Critical, u"警告"_s);
    return;
  }
  const int selected = qMax(list_->CurrentRow() - 1, 0);
  query_->Add(typed);
  added_ = typed;
  ShowConditions(selected);
  ShowNotAdded();
  list_->scrollToBottom();
  connector_->setFocus();
}

// After an error too the list shows what is there.
void frmfhfind::RemoveCondition() {
  const int position = list_->CurrentRow();
  if (position == 0) return;
  try {
    query_->Remove(position);
  } catch (const std::exception&) {
    ShowConditions(position - 1);
    throw;
  }
  ShowConditions(position - 1);
}

void frmfhfind::Query() {
  ReturnSql.clear();
  ChnReturnSql.clear();
  const ConditionText text = query_->Text(M_Condition);
  if (query_->Conditions().empty()) return;
  ReturnSql = text.sql;
  ChnReturnSql = text.words;
  InForce = query_->InForce();
  Ignored = query_->Flawed();
  if (const QString typed = NotAdded(); !typed.isEmpty()) Ignored << typed;
  accept();
}

void frmfhfind::reject() {
  ReturnSql.clear();
  Ignored.clear();
  QDialog::reject();
}

void frmfhfind::done(int result) {
  RunGuarded([this] {
    if (forget_->isChecked()) query_->Forget();
  });
  QDialog::done(result);
}

void frmfhfind::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && event->modifiers() == Qt::NoModifier) {
    if (qobject_cast<QComboBox*>(focusWidget())) return add_->trigger();
  }
  QDialog::keyPressEvent(event);
}

}  // namespace folvane
