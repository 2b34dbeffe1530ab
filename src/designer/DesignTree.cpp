#include "designer/DesignTree.h"

#include <QSet>
#include <algorithm>

#include <folvane/Icons.h>

#include "design/Shape.h"
#include "shell/EventGuard.h"
#include "widgets/PlainTip.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kKindRole = Qt::UserRole + 1, kKeyRole = Qt::UserRole + 2;
constexpr int kDeepest = 50;    ///< classes that are their own parents end somewhere
const QString kLoose = u"0"_s;  ///< the node of tables that hang under no class of the design

DesignNode NodeOf(const QStandardItem* item) {
  if (!item) return {};
  return {DesignNode::Kind(item->data(kKindRole).toInt()), item->data(kKeyRole).toString()};
}

}  // namespace

DesignTree::DesignTree(DesignSession& session, std::vector<Page> pages)
    : session_(session), pages_(std::move(pages)), items_(new QStandardItemModel(this)) {
  setObjectName(u"TreDesign"_s);
  setAccessibleName(u"设计内容"_s);
  setHeaderHidden(true);
  setEditTriggers(NoEditTriggers);
  setUniformRowHeights(true);
  setModel(items_);
  connect(&session, &DesignSession::Changed, this, &DesignTree::Refresh);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &DesignTree::CurrentChanged);
  Refresh();
  setCurrentIndex(items_->index(0, 0));
}

DesignNode DesignTree::Current() const { return NodeOf(items_->itemFromIndex(currentIndex())); }

void DesignTree::GoTo(const DesignNode& node) {
  if (const QStandardItem* item = Find(node)) {
    setCurrentIndex(item->index());
    scrollTo(item->index());
  }
}

QStandardItem* DesignTree::NewItem(const QString& text, const QString& icon, const DesignNode& node) {
  auto* item = new QStandardItem(Icon(icon), text);
  item->setData(int(node.kind), kKindRole);
  item->setData(node.key, kKeyRole);
  item->setToolTip(PlainTip(node.kind == DesignNode::Kind::Table ? text + u' ' + node.key : text));
  return item;
}

QStandardItem* DesignTree::Find(const DesignNode& node, QStandardItem* under) const {
  if (!under) under = items_->invisibleRootItem();
  for (int row = 0; row < under->rowCount(); ++row) {
    QStandardItem* item = under->child(row);
    const DesignNode found = NodeOf(item);
    if (found.kind == node.kind && design::IsSame(found.key, node.key)) return item;
    if (QStandardItem* below = Find(node, item)) return below;
  }
  return nullptr;
}

QStringList DesignTree::Outline(const QStandardItem* under) const {
  QStringList lines;
  if (!under) under = items_->invisibleRootItem();
  for (int row = 0; row < under->rowCount(); ++row) {
    const QStandardItem* item = under->child(row);
    lines << item->text() + u'\n' + item->data(kKeyRole).toString();
    for (const QString& line : Outline(item)) lines << u' ' + line;
  }
  return lines;
}

void DesignTree::AddTables(QStandardItem& above, const Design::Class* in) {
  const Design& design = session_.Wanted();
  const auto isLoose = [&](const Design::Table& table) {
    return std::none_of(design.classes.begin(), design.classes.end(),
                        [&](const Design::Class& each) { return each.id == table.classId; });
  };
  const auto add = [&](QStandardItem& node, const Design::Table& table, const auto& self, int depth) -> void {
    auto* item = NewItem(table.caption.isEmpty() ? table.name : table.caption, u"table"_s,
                         {DesignNode::Kind::Table, table.name});
    node.appendRow(item);
    if (depth > kDeepest) return;
    for (const Design::Table& below : design.tables)
      if (design::IsSame(below.parent, table.name) && !design::IsSame(below.name, table.name))
        self(*item, below, self, depth + 1);
  };
  for (const Design::Table& table : design.tables) {
    if (in ? table.classId != in->id : !isLoose(table)) continue;
    const Design::Table* parent = design::FindNamed(design.tables, table.parent);
    if (!parent || design::IsSame(table.parent, table.name)) add(above, table, add, 0);
  }
}

void DesignTree::AddClasses(QStandardItem& above, int parent, int depth) {
  for (const Design::Class& each : session_.Wanted().classes) {
    if (each.parent != parent || depth > kDeepest) continue;
    auto* item = NewItem(each.name.isEmpty() ? u"(无名)"_s : each.name, u"close"_s,
                         {DesignNode::Kind::Class, QString::number(each.id)});
    above.appendRow(item);
    AddClasses(*item, each.id, depth + 1);
    AddTables(*item, &each);
  }
}

void DesignTree::Refresh() {
  const DesignNode current = Current();
  const QStringList before = Outline();
  QSet<QString> closed;
  for (int row = 0; row < items_->rowCount(); ++row) {
    const auto note = [&](QStandardItem* item, const auto& self) -> void {
      if (item->hasChildren() && !isExpanded(item->index())) closed << item->data(kKeyRole).toString();
      for (int child = 0; child < item->rowCount(); ++child) self(item->child(child), self);
    };
    note(items_->item(row), note);
  }
  auto* fresh = new QStandardItemModel(this);
  std::swap(items_, fresh);
  auto* root = NewItem(u"类别与表"_s, u"root"_s, {DesignNode::Kind::Root, {}});
  items_->appendRow(root);
  AddClasses(*root, 1, 0);
  auto* loose = NewItem(u"不在类别中的表"_s, u"close"_s, {DesignNode::Kind::Class, kLoose});
  AddTables(*loose, nullptr);
  loose->hasChildren() ? root->appendRow(loose) : delete loose;
  for (const Page& page : pages_)
    items_->appendRow(NewItem(page.title, page.icon, {DesignNode::Kind::Page, page.name}));
  if (Outline() == before) {
    std::swap(items_, fresh);
    delete fresh;
    return;
  }
  {
    const QSignalBlocker silent(this);
    setModel(items_);
    delete fresh;
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &DesignTree::CurrentChanged);
    expandAll();
    for (const QString& key : closed)
      for (const DesignNode::Kind kind : {DesignNode::Kind::Class, DesignNode::Kind::Table})
        if (const QStandardItem* item = Find({kind, key})) collapse(item->index());
    GoTo(current);
    if (!currentIndex().isValid()) setCurrentIndex(items_->index(0, 0));
  }
  Q_EMIT CurrentChanged();
}

}  // namespace folvane::designer
