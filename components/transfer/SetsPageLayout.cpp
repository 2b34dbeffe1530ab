#include <QAction>
#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

#include "components/common/Notice.h"
#include "components/common/ToolKeys.h"
#include "components/transfer/SetsPage.h"
#include "components/transfer/SettingsList.h"

// How the page of the tables and fields looks, and which key does what.
namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kSourceKind = u"source"_s, kDestinationKind = u"destination"_s;  // of what is dragged

QVBoxLayout* TightColumn(QWidget* part) {
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  return column;
}

}  // namespace

void SetsPage::LayOut() {
  auto* parts = new QSplitter(Qt::Vertical, this);
  parts->setObjectName(u"SplSets"_s);
  parts->setChildrenCollapsible(false);
  parts->addWidget(NewSetsPart());
  parts->addWidget(NewFieldsPart());
  parts->setStretchFactor(0, 1);
  parts->setStretchFactor(1, 3);
  auto* column = new QVBoxLayout(this);
  column->addWidget(parts);
  ConnectLists();
}

QWidget* SetsPage::NewSetsPart() {
  auto* part = new QWidget(this);
  sets_ = new SettingsList(part, u"LvSets"_s, u"归档的来源表和目标表"_s,
                           {u"序号"_s, u"来源表"_s, u"目标表"_s, u"字段对应"_s, u"检查"_s});
  sets_->SetHint(u"还没有归档设置。按“添加”（Ins）选择来源表和目标表。"_s);
  sets_->SetWidths({7, 28, 28, 12});
  auto* column = TightColumn(part);
  column->addWidget(NewSetKeys());
  column->addWidget(sets_, 1);
  return part;
}

QWidget* SetsPage::NewFieldsPart() {
  auto* part = new QWidget(this);
  auto* sides = new QSplitter(part);
  sides->setObjectName(u"SplFields"_s);
  sides->setChildrenCollapsible(false);
  auto* middle = new QWidget(sides);
  links_ = new SettingsList(middle, u"LvLinks"_s, u"字段对应"_s,
                            {u"来源字段"_s, u"类型"_s, u"目标字段"_s, u"类型"_s, u"检查"_s});
  links_->SetWidths({20, 10, 20, 10});
  auto* label = new QLabel(u"字段对应(&M)"_s, middle);
  label->setBuddy(links_);
  auto* column = TightColumn(middle);
  column->addWidget(label);
  column->addWidget(links_, 1);
  column->addWidget(detail_ = new QLabel(middle));
  detail_->setObjectName(u"LblLink"_s);
  detail_->setTextFormat(Qt::PlainText);
  detail_->setWordWrap(true);
  detail_->setMargin(2);
  sides->addWidget(NewFieldList(source_, u"LvSource"_s, u"来源字段(&F)"_s));
  sides->addWidget(middle);
  sides->addWidget(NewFieldList(destination_, u"LvDestination"_s, u"目标字段(&D)"_s));
  const int unit = QFontMetrics(font()).averageCharWidth();
  sides->setSizes({unit * 38, unit * 94, unit * 38});
  sides->setStretchFactor(1, 1);
  source_->DragAs(kSourceKind);
  destination_->DragAs(kDestinationKind);
  auto* rows = TightColumn(part);
  rows->addWidget(NewLinkKeys());
  rows->addWidget(sides, 1);
  setTabOrder(sets_, source_);
  setTabOrder(source_, destination_);
  setTabOrder(destination_, links_);
  return part;
}

QWidget* SetsPage::NewFieldList(SettingsList*& list, const QString& name, const QString& caption) {
  auto* side = new QWidget(this);
  list = new SettingsList(side, name, caption.left(4), {u"字段"_s, u"类型"_s, u"对应"_s});
  list->SetWidths({20, 10, 6});
  auto* label = new QLabel(caption, side);
  label->setBuddy(list);
  auto* column = TightColumn(side);
  column->addWidget(label);
  column->addWidget(list, 1);
  return side;
}

QToolBar* SetsPage::NewSetKeys() {
  auto* bar = new QToolBar(this);
  bar->setObjectName(u"TlbSets"_s);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  NewKey(*bar, sets_, {u"CmdAddSet"_s, u"new"_s, u"添加"_s, u"添加来源表和目标表"_s, Qt::Key_Insert},
         &SetsPage::AddSet);
  edit_ = NewKey(*bar, sets_, {u"CmdEditSet"_s, u"mod"_s, u"修改"_s, u"修改来源表和目标表"_s, Qt::Key_F2},
                 &SetsPage::EditSet);
  delete_ =
      NewKey(*bar, sets_, {u"CmdDeleteSet"_s, u"del"_s, u"删除"_s, u"删除此项和它的字段对应"_s, QKeySequence::Delete},
             &SetsPage::DeleteSet);
  return bar;
}

QToolBar* SetsPage::NewLinkKeys() {
  auto* bar = new QToolBar(this);
  bar->setObjectName(u"TlbLinks"_s);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  link_ = NewKey(*bar, nullptr,
                 {u"CmdLink"_s, u"merge"_s, u"对应"_s, u"将选中的来源字段对应到选中的目标字段"_s,
                  QKeySequence(Qt::CTRL | Qt::Key_L)},
                 &SetsPage::LinkFields);
  editLink_ =
      NewKey(*bar, links_, {u"CmdEditLink"_s, u"mod"_s, u"修改"_s, u"另选来源字段"_s, Qt::Key_F2}, &SetsPage::EditLink);
  unlink_ =
      NewKey(*bar, links_, {u"CmdUnlink"_s, u"del"_s, u"取消对应"_s, u"取消选中的字段对应"_s, QKeySequence::Delete},
             &SetsPage::DeleteLink);
  bar->addSeparator();
  takeAll_ = NewKey(*bar, nullptr,
                    {u"CmdSuggest"_s, u"replace"_s, u"自动对应"_s, u"采用全部建议：字段名或标题相同的字段"_s,
                     QKeySequence(Qt::CTRL | Qt::Key_G)},
                    &SetsPage::TakeSuggestions);
  take_ = NewKey(*bar, links_, {u"CmdTake"_s, u"register"_s, u"采用建议"_s, u"采用选中的建议"_s, Qt::Key_Space},
                 &SetsPage::TakeSuggestion);
  return bar;
}

// A key of one list works where that has the focus: each list has its own Delete.
QAction* SetsPage::NewKey(QToolBar& bar, SettingsList* list, const ToolKey& key, Handler handler) {
  QAction* action = AddKey(bar, key, [this, handler] { (this->*handler)(); });
  if (!list) return action;
  action->setShortcutContext(Qt::WidgetShortcut);
  list->addAction(action);
  list->setContextMenuPolicy(Qt::ActionsContextMenu);
  return action;
}

void SetsPage::ConnectLists() {
  const auto guarded = [this](Handler handler) {
    return [this, handler] { notices::Guarded([&] { (this->*handler)(); }); };
  };
  connect(sets_, &QTreeView::activated, this, guarded(&SetsPage::EditSet));
  connect(sets_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, guarded(&SetsPage::FillFields));
  connect(source_, &QTreeView::activated, this, [this] {
    destination_->setFocus();
    onWord(u"再选择目标字段，按回车完成对应。"_s);
  });
  connect(destination_, &QTreeView::activated, this, guarded(&SetsPage::LinkNext));
  connect(links_, &QTreeView::activated, this, guarded(&SetsPage::ActivateLink));
  for (SettingsList* list : {source_, links_, destination_})
    connect(list->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &SetsPage::Enable);
  const auto keyAt = [](const SettingsList& list, int row) {
    return list.model()->index(row, 0).data(Qt::UserRole).toString();
  };
  destination_->TakeDrops({kSourceKind}, [this, keyAt](const QString&, const QString& field, int row) {
    if (row >= 0) Link(field, keyAt(*destination_, row));
  });
  source_->TakeDrops({kDestinationKind}, [this, keyAt](const QString&, const QString& field, int row) {
    if (row >= 0) Link(keyAt(*source_, row), field);
  });
  links_->TakeDrops({kSourceKind, kDestinationKind}, [this](const QString& kind, const QString& field, int row) {
    DropOnLink(kind == kSourceKind, field, row);
  });
}

}  // namespace folvane::transfer
