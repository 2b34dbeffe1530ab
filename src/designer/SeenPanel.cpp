#include "designer/SeenPanel.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QStandardItemModel>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include <folvane/Icons.h>

#include "designer/Labels.h"
#include "designer/SeenRows.h"
#include "shell/EventGuard.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
using namespace Qt::Literals::StringLiterals;

SeenPanel::SeenPanel(DesignSession& session)
    : session_(session),
      table_(new QComboBox),
      words_(new QLabel),
      rows_(new QStandardItemModel(this)),
      view_(new QTableView) {
  table_->setObjectName(u"CmbSeenTable"_s);
  table_->setToolTip(u"看哪个表"_s);
  words_->setObjectName(u"LblSeen"_s);
  words_->setTextFormat(Qt::PlainText);
  words_->setWordWrap(true);
  SetUpView();
  auto* title = new QLabel(u"该用户看到的(&V)"_s);
  title->setBuddy(table_);
  auto* head = new QHBoxLayout;
  head->addWidget(title);
  head->addWidget(table_);
  head->addWidget(words_, 1);
  head->addWidget(NewKey());
  auto* down = new QVBoxLayout(this);
  down->setContentsMargins(0, 0, 0, 0);
  down->setSpacing(2);
  down->addLayout(head);
  down->addWidget(view_, 1);
  ConnectGuarded(table_, &QComboBox::activated, this, [this](int) { Show(); });
}

void SeenPanel::SetUpView() {
  view_->setObjectName(u"GrdSeen"_s);
  view_->setAccessibleName(u"该用户看到的记录"_s);
  view_->setModel(rows_);
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  view_->setAlternatingRowColors(true);
  view_->setWordWrap(false);
  view_->setTabKeyNavigation(false);
  view_->verticalHeader()->setDefaultSectionSize(view_->fontMetrics().height() + 8);
  view_->horizontalHeader()->setStretchLastSection(true);
  view_->horizontalHeader()->setHighlightSections(false);
  view_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  AddEmptyHint(*view_, u"没有可以看到的记录。"_s);
}

QToolButton* SeenPanel::NewKey() {
  auto* key = new QToolButton;
  key->setObjectName(u"CmdSeeAgain"_s);
  key->setIcon(Icon(u"refresh"_s));
  key->setAutoRaise(true);
  key->setShortcut(QKeySequence(u"Shift+F5"_s));
  key->setToolTip(u"重新读取记录 (Shift+F5)"_s);
  key->setAccessibleName(u"重新读取记录"_s);
  ConnectGuarded(key, &QToolButton::clicked, this, &SeenPanel::SeeAgain);
  return key;
}

void SeenPanel::FillTables() {
  const QString chosen = table_->currentData().toString();
  table_->clear();
  for (const Design::Table& table : session_.Wanted().tables) table_->addItem(LabelOf(table), table.name);
  table_->setCurrentIndex(std::max(table_->findData(chosen), table_->count() > 0 ? 0 : -1));
}

void SeenPanel::ChooseTable(const QString& name) {
  const Design::Table* table = design::FindNamed(session_.Wanted().tables, name);
  if (table) table_->setCurrentIndex(table_->findData(table->name));
}

void SeenPanel::ShowUser(const QString& user) {
  user_ = user;
  Show();
}

void SeenPanel::SeeAgain() {
  shown_.reset();
  Show();
}

// The database is asked only where the answer may be another one.
void SeenPanel::Show() {
  const Design& wanted = session_.Wanted();
  const Design::User* user = design::FindNamed(wanted.users, user_);
  const Design::Table* table = design::FindNamed(wanted.tables, table_->currentData().toString());
  const Question question{user ? *user : Design::User(), table ? *table : Design::Table()};
  if (shown_ == question) return;
  shown_ = question;
  rows_->clear();
  words_->clear();
  if (!user || !table) return;
  const SeenRows seen = RowsSeenBy(user->id, table->name, wanted, *session_.Database());
  words_->setText(seen.words);
  rows_->setHorizontalHeaderLabels(seen.captions);
  for (const QStringList& cells : seen.rows) {
    QList<QStandardItem*> row;
    for (const QString& cell : cells) row << new QStandardItem(cell);
    rows_->appendRow(row);
  }
  view_->resizeColumnsToContents();
}

}  // namespace folvane::designer
