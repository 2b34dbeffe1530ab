#include "browser/TableNavigation.h"

#include <QTreeView>

#include <folvane/Icons.h>

#include "data/Recordset.h"
#include "originals/OriginalStore.h"
#include "records/RecordList.h"
#include "records/TableParameters.h"
#include "records/YearFormula.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/RegistryValues.h"
#include "shell/SharedState.h"
#include "shell/TableFields.h"
#include "widgets/BusyPointer.h"
#include "widgets/ChoiceRelay.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kRoot = 1;
const QString kLastTable = u"FolvaneDefault"_s;
const QString kFirstTable = u"Lwdj"_s;

bool HasCreatedDate(const QString& table) { return !GetChnFieldName(table, u"CREATEDDATE"_s).isEmpty(); }

}  // namespace

LastTable LastTable::FromText(const QString& text) {
  const QString last = text.trimmed();
  if (last.isEmpty()) return {kFirstTable, {}};
  const qsizetype comma = last.indexOf(u',');
  if (comma < 0) return {last, {}};
  return {last.left(comma), last.mid(comma + 1)};
}

TableNavigation::TableNavigation(QTreeView& view, TableParameters& parameters, RecordList& list, Steps steps)
    : view_(view), parameters_(parameters), list_(list), steps_(std::move(steps)), builder_(tree_, parameters) {
  tree_.SetDecoration([](const QString& image) { return Icon(image); });
  view_.setModel(&tree_);
  choice_ = new ChoiceRelay(&view_, [this](const QModelIndex& index) { ChooseNode(tree_.NodeAt(index)); });
  hint_ = new ViewHint(view_, u"TreeHint"_s);
}

void TableNavigation::Start() {
  const BusyPointer busy;
  builder_.BuildRoot();
  view_.expand(tree_.IndexOf(kRoot));
  if (tree_.Count() == kRoot) hint_->ShowHint(u"还没有类目：请在 Design_ClassRelation 中登记类目。"_s);
  InitOriginalStore();
  OpenLastTable();
}

void TableNavigation::End() {
  const int row = parameters_.SelectedRow();
  SaveValue(kLocalMachine, kMainFlags, kLastTable,
            row == 0 ? QString() : LastTable{parameters_.Table(row), list_.TakenFilter()}.ToText());
  builder_.Close();
}

void TableNavigation::OpenLastTable() {
  LastTable last = LastTable::FromText(QueryValue(kLocalMachine, kMainFlags, kLastTable));
  const int row = BuildTablesFor(last.table);
  if (row == 0) {
    list_.ForgetTable();
    steps_.tell();
    return;
  }
  const int node = parameters_.Get(row, Parameter::Node).toInt();
  for (int above = tree_.Node(node).parent; above != 0; above = tree_.Node(above).parent) {
    if (above == kRoot || tree_.Node(above).key.startsWith(u'C')) view_.expand(tree_.IndexOf(above));
  }
  choice_->SelectSilently(tree_.IndexOf(node));
  if (last.filter.isEmpty() && HasCreatedDate(last.table)) last.filter = CurrentYearFilter();
  parameters_.Set(row, Parameter::Filter, last.filter);
  OpenNode(node);
}

int TableNavigation::BuildTablesFor(const QString& table) {
  Recordset relation;
  relation.Open(u"Select ClassID From Design_TableRelation Where TableName = '"_s + table + u"'"_s, SharedConnection(),
                CursorType::ForwardOnly, LockType::ReadOnly, CursorLocation::Server);
  if (!relation.EOF_()) {
    const QString classId = relation[u"ClassID"_s].Text();
    const int node = tree_.Find(u"C"_s + classId + u"\\"_s);
    if (node != 0) builder_.AddTableNodes(node, classId, QString());
  }
  return parameters_.Find(table);
}

void TableNavigation::ChooseNode(int node) {
  parameters_.SetTag(QString());
  if (tree_.Node(node).image == NodeImage::Table) {
    LimitToCurrentYear(node);
    builder_.GroupTable(node);
  }
  const ClassTreeNode chosen = tree_.Node(node);
  if (chosen.key == list_.Table()) {
    steps_.stay();
    return;
  }
  if (chosen.image == NodeImage::Cent && chosen.key.contains(u'-')) {
    const QString field = ReadYearFormula(TableOfNode(chosen)).trimmed();
    chosenFilter_ = SecondLevelFilter(field, chosen.text);
    parameters_.Set(chosen.tag.toInt(), Parameter::Filter, chosenFilter_);
  }
  OpenNode(node);
}

void TableNavigation::LimitToCurrentYear(int node) {
  const ClassTreeNode& table = tree_.Node(node);
  if (HasCreatedDate(table.key)) parameters_.Set(table.tag.toInt(), Parameter::Filter, CurrentYearFilter());
}

// A table that did not come as far as its records can be chosen again; until then the records belong to another.
void TableNavigation::OpenNode(int node) {
  try {
    const BusyPointer busy;
    steps_.leave();
    list_.Clear();
    if (tree_.Node(node).image == NodeImage::Close) {
      OpenClass(node);
    } else {
      ShowTable(node);
    }
  } catch (const std::exception& error) {
    if (list_.State() == ListRecords::NotOpened) list_.ForgetTable();
    steps_.tell();
    ShowFailure(error);
    return;
  }
  steps_.tell();
}

void TableNavigation::OpenClass(int node) {
  steps_.enter();
  if (builder_.OpenClass(node)) view_.expand(tree_.IndexOf(node));
}

void TableNavigation::ShowTable(int node) {
  parameters_.Select(tree_.Node(node).tag.toInt());
  list_.ShowColumns(TableOfNode(tree_.Node(node)));
  steps_.enter();
  list_.ShowFromStart();
}

void TableNavigation::ShowFailure(const std::exception& error) const {
  QString note;
  if (list_.State() == ListRecords::Refused && !list_.ShownFilter().isEmpty()) {
    note = u"未能按此条件打开列表："_s + list_.ShownFilter() + u"\n按“刷新”(F5) 可取消此条件，显示全部记录。"_s;
  }
  ShowMessage({u"程序出错，请将下列出错提示向程序供应商联系！"_s + ErrorText(error), MessageFlag::Critical,
               kSystemTitle, note, ErrorDetails(error)});
}

void TableNavigation::OpenTable(int parameterRow) {
  const int node = parameters_.Get(parameterRow, Parameter::Node).toInt();
  choice_->SelectSilently(tree_.IndexOf(node));
  OpenNode(node);
}

void TableNavigation::FollowFilter() {
  const int node = tree_.NodeAt(view_.currentIndex());
  if (node == 0 || tree_.Node(node).image != NodeImage::Cent || list_.State() == ListRecords::NotOpened) return;
  if (list_.ShownFilter() != chosenFilter_) choice_->SelectSilently(tree_.IndexOf(tree_.Node(node).parent));
}

int TableNavigation::NodeOfTable() const { return parameters_.Selected(Parameter::Node).toInt(); }

bool TableNavigation::HasParentTable() const {
  const int node = NodeOfTable();
  return node != 0 && tree_.Node(tree_.Node(node).parent).image != NodeImage::Close;
}

QString TableNavigation::TableCaption() const {
  const int node = NodeOfTable();
  return node == 0 ? list_.Table() : tree_.Node(node).text;
}

QString TableNavigation::ChoiceHint() const {
  const QString choose = u"请在左边的类目树中选择一个表。"_s;
  const int node = tree_.NodeAt(view_.currentIndex());
  if (node == 0) return choose;
  const ClassTreeNode& chosen = tree_.Node(node);
  if (chosen.image != NodeImage::Close || builder_.LacksTables(node)) {
    return u"未能打开“"_s + chosen.text + u"”。请再次点击它以重试。"_s;
  }
  if (chosen.parent == 0 || !chosen.children.empty()) return choose;
  return u"类目“"_s + chosen.text + u"”下没有表：请在 Design_TableRelation 中为它登记表。"_s;
}

}  // namespace folvane
