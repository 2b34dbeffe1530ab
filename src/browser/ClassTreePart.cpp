#include "browser/ClassTreePart.h"

#include <QTreeView>

#include "browser/BrowserCommands.h"
#include "browser/BrowserState.h"
#include "browser/BrowserStatus.h"
#include "browser/ListLimits.h"
#include "browser/RecordListPart.h"
#include "browser/SearchBar.h"
#include "originals/OriginalStore.h"
#include "records/LastPlace.h"
#include "records/YearFormula.h"
#include "reports/ReportEntries.h"
#include "shell/CommonRoutines.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "widgets/BusyPointer.h"
#include "widgets/ChoiceRelay.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kRoot = 1;

}  // namespace

ClassTreePart::ClassTreePart(const BrowserParts& parts, RecordListPart& list) : parts_(parts), list_(list) {
  choice_ =
      new ChoiceRelay(&parts_.Tree, [this](const QModelIndex& index) { ChooseNode(parts_.State.Tree.NodeAt(index)); });
  hint_ = new ViewHint(parts_.Tree, u"TreeHint"_s);
  list_.OnShown([this] { FollowFilter(); });
}

void ClassTreePart::Start() {
  const BusyPointer busy;
  parts_.State.Builder.BuildRoot();
  parts_.Tree.expand(parts_.State.Tree.IndexOf(kRoot));
  if (parts_.State.Tree.Count() == kRoot) hint_->ShowHint(u"还没有类目：请在 Design_ClassRelation 中登记类目。"_s);
  InitOriginalStore();
  RestoreLastPlace();
}

// A condition that the database has refused from the start is no place to return to.
void ClassTreePart::End() {
  const BrowserState& state = parts_.State;
  const TableParameters& parameters = state.Parameters;
  const int row = parameters.SelectedRow();
  QString filter = parameters.Selected(Parameter::Filter);
  if (filter == state.Untaken.value(row)) filter.clear();
  WriteLastPlace(row == 0 ? QString() : LastPlace{parameters.Table(row), filter}.ToText());
  parts_.State.Builder.Close();
}

void ClassTreePart::RestoreLastPlace() {
  TableParameters& parameters = parts_.State.Parameters;
  LastPlace place = ReadLastPlace();
  const int row = BuildTablesFor(place.table);
  if (row == 0) {
    parts_.State.CurrTable.clear();
    list_.TellShown();
    return;
  }
  const ClassTreeModel& tree = parts_.State.Tree;
  const int node = parameters.Get(row, Parameter::Node).toInt();
  for (int above = tree.Node(node).parent; above != 0; above = tree.Node(above).parent) {
    if (above == kRoot || tree.Node(above).key.startsWith(u'C')) parts_.Tree.expand(tree.IndexOf(above));
  }
  choice_->SelectSilently(tree.IndexOf(node));
  if (place.filter.isEmpty() && HasCreatedDate(place.table)) place.filter = CurrentYearFilter();
  parameters.Set(row, Parameter::Filter, place.filter);
  OpenNode(node);
}

int ClassTreePart::BuildTablesFor(const QString& table) {
  Recordset relation;
  relation.Open(u"Select ClassID From Design_TableRelation Where TableName = '"_s + table + u"'"_s, SharedConnection(),
                CursorType::ForwardOnly, LockType::ReadOnly, CursorLocation::Server);
  if (!relation.EOF_()) {
    const QString classId = relation[u"ClassID"_s].Text();
    const int node = parts_.State.Tree.Find(u"C"_s + classId + u"\\"_s);
    if (node != 0) parts_.State.Builder.AddTableNodes(node, classId, QString());
  }
  return parts_.State.Parameters.Find(table);
}

bool ClassTreePart::HasCreatedDate(const QString& table) const {
  return !GetChnFieldName(table, u"CREATEDDATE"_s).isEmpty();
}

void ClassTreePart::ChooseNode(int node) {
  BrowserState& state = parts_.State;
  state.Parameters.SetTag(QString());
  if (state.Tree.Node(node).image == NodeImage::Table) {
    LimitToCurrentYear(node);
    state.Builder.GroupTable(node);
  }
  const ClassTreeNode chosen = state.Tree.Node(node);
  if (chosen.key == state.CurrTable) {
    TellUnchanged();
    return;
  }
  if (chosen.image == NodeImage::Cent && chosen.key.contains(u'-')) {
    const QString field = ReadYearFormula(TableOfNode(chosen)).trimmed();
    chosenFilter_ = SecondLevelFilter(field, chosen.text);
    state.Parameters.Set(chosen.tag.toInt(), Parameter::Filter, chosenFilter_);
  }
  OpenNode(node);
}

void ClassTreePart::LimitToCurrentYear(int node) {
  const ClassTreeNode& table = parts_.State.Tree.Node(node);
  if (HasCreatedDate(table.key)) {
    parts_.State.Parameters.Set(table.tag.toInt(), Parameter::Filter, CurrentYearFilter());
  }
}

void ClassTreePart::OpenNode(int node) {
  try {
    const BusyPointer busy;
    list_.DisableCommands();
    list_.Clear();
    if (parts_.State.Tree.Node(node).image == NodeImage::Close) {
      OpenClass(node);
    } else {
      ShowTable(node);
    }
  } catch (const std::exception& error) {
    ForgetUnopened();
    list_.TellShown();
    ShowFailure(error);
    return;
  }
  list_.TellShown();
}

void ClassTreePart::ShowFailure(const std::exception& error) const {
  const BrowserState& state = parts_.State;
  QString note;
  if (state.Records == ListRecords::Refused && !state.ShownFilter.isEmpty()) {
    note = u"未能按此条件打开列表："_s + state.ShownFilter + u"\n按“刷新”(F5) 可取消此条件，显示全部记录。"_s;
  }
  ShowMessage({u"程序出错，请将下列出错提示向程序供应商联系！"_s + ErrorText(error), MessageFlag::Critical,
               kSystemTitle, note, ErrorDetails(error)});
}

// The list stands as it was, whatever the node seems to promise.
void ClassTreePart::TellUnchanged() const {
  const QString filter = FilterText(parts_);
  parts_.Status.ShowNotice(filter.isEmpty() ? QString() : u"列表仍按“"_s + filter + u"”显示，按 F5 显示全部"_s);
}

// A table that did not come as far as its records can be chosen again; until then the records belong to another.
void ClassTreePart::ForgetUnopened() {
  if (parts_.State.Records != ListRecords::NotOpened) return;
  parts_.State.CurrTable.clear();
  parts_.Search.setEnabled(false);
}

// A second-level node stays selected only while its condition is in force.
void ClassTreePart::FollowFilter() {
  const ClassTreeModel& tree = parts_.State.Tree;
  const int node = tree.NodeAt(parts_.Tree.currentIndex());
  if (node == 0 || tree.Node(node).image != NodeImage::Cent || parts_.State.Records == ListRecords::NotOpened) return;
  if (parts_.State.ShownFilter != chosenFilter_) choice_->SelectSilently(tree.IndexOf(tree.Node(node).parent));
}

void ClassTreePart::OpenClass(int node) {
  BrowserState& state = parts_.State;
  state.CurrTable.clear();
  parts_.Status.ShowNothing();
  parts_.Commands.ShowReports({});
  parts_.Search.setEnabled(false);
  if (state.Builder.OpenClass(node)) parts_.Tree.expand(state.Tree.IndexOf(node));
}

void ClassTreePart::ShowTable(int node) {
  BrowserState& state = parts_.State;
  parts_.Search.setEnabled(true);
  state.CurrTable = TableOfNode(state.Tree.Node(node));
  state.Parameters.Select(state.Tree.Node(node).tag.toInt());
  list_.ShowColumns();
  parts_.Search.Fill(state.CurrTable);
  parts_.Commands.ShowReports(ReadReportEntries(state.CurrTable));
  list_.EnableCommands();
  list_.ShowFromStart();
}

void ClassTreePart::OpenTable(int parameterRow) {
  const TableParameters& parameters = parts_.State.Parameters;
  const int node = parameters.Get(parameterRow, Parameter::Node).toInt();
  choice_->SelectSilently(parts_.State.Tree.IndexOf(node));
  OpenNode(node);
}

}  // namespace folvane
