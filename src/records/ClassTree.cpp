#include "records/ClassTree.h"

#include <QTreeView>

#include <folvane/Icons.h>

#include "widgets/ChoiceRelay.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kRoot = 1;

}  // namespace

ClassTree::ClassTree(QTreeView& view, TableParameters& parameters, TableNodes kind,
                     std::function<void(int node)> chosen)
    : view_(view), builder_(model_, parameters, kind) {
  model_.SetDecoration([](const QString& image) { return Icon(image); });
  view_.setModel(&model_);
  view_.setHeaderHidden(true);
  view_.setUniformRowHeights(true);
  view_.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_.setAccessibleName(u"类目树"_s);
  choice_ = new ChoiceRelay(
      &view_, [this, chosen = std::move(chosen)](const QModelIndex& index) { chosen(model_.NodeAt(index)); });
  hint_ = new ViewHint(view_, u"TreeHint"_s);
}

void ClassTree::Build() {
  builder_.BuildRoot();
  Expand(kRoot);
  if (Count() == kRoot) hint_->ShowHint(u"还没有类目：请在 Design_ClassRelation 中登记类目。"_s);
}

void ClassTree::OpenClass(int node) {
  if (builder_.OpenClass(node)) Expand(node);
}

void ClassTree::Expand(int node) { view_.expand(model_.IndexOf(node)); }

// The classes come before all tables.
void ClassTree::AddAllTables() {
  const int classes = Count();
  for (int node = kRoot + 1; node <= classes; ++node) builder_.OpenClass(node);
}

void ClassTree::AddTablesOfClass(const QString& classId) {
  const int node = model_.Find(u"C"_s + classId + u"\\"_s);
  if (node != 0) builder_.AddTableNodes(node, classId, QString());
}

void ClassTree::Select(int node) {
  for (int above = Node(node).parent; above != 0; above = Node(above).parent) {
    if (above == kRoot || Node(above).key.startsWith(u'C')) Expand(above);
  }
  SelectShown(node);
}

void ClassTree::SelectShown(int node) { choice_->SelectSilently(model_.IndexOf(node)); }

int ClassTree::Current() const { return model_.NodeAt(view_.currentIndex()); }

QString ClassTree::ChoiceHint() const {
  const QString choose = u"请在左边的类目树中选择一个表。"_s;
  const int node = Current();
  if (node == 0) return choose;
  const ClassTreeNode& chosen = Node(node);
  if (chosen.image != NodeImage::Close || builder_.LacksTables(node)) {
    return u"未能打开“"_s + chosen.text + u"”。请再次点击它以重试。"_s;
  }
  if (chosen.parent == 0 || !chosen.children.empty()) return choose;
  return u"类目“"_s + chosen.text + u"”下没有表：请在 Design_TableRelation 中为它登记表。"_s;
}

}  // namespace folvane
