#include "browser/TableNavigation.h"

#include "data/Recordset.h"
#include "originals/OriginalStore.h"
#include "records/ListLimits.h"
#include "records/RecordList.h"
#include "records/TableParameters.h"
#include "records/YearFormula.h"
#include "shell/RegistryValues.h"
#include "shell/SharedState.h"
#include "shell/TableFields.h"
#include "widgets/BusyPointer.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

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
    : parameters_(parameters),
      list_(list),
      steps_(std::move(steps)),
      tree_(view, parameters, TableNodes::Grouped, [this](int node) { ChooseNode(node); }) {}

void TableNavigation::Start() {
  const BusyPointer busy;
  tree_.Build();
  InitOriginalStore();
  OpenLastTable();
}

void TableNavigation::End() {
  const int row = parameters_.SelectedRow();
  SaveValue(kLocalMachine, kMainFlags, kLastTable,
            row == 0 ? QString() : LastTable{parameters_.Table(row), list_.TakenFilter()}.ToText());
  tree_.Builder().Close();
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
  tree_.Select(node);
  if (last.filter.isEmpty() && HasCreatedDate(last.table)) last.filter = CurrentYearFilter();
  parameters_.Set(row, Parameter::Filter, last.filter);
  OpenNode(node);
}

int TableNavigation::BuildTablesFor(const QString& table) {
  Recordset relation;
  relation.Open(u"Select ClassID From Design_TableRelation Where TableName = '"_s + table + u"'"_s, SharedConnection(),
                CursorType::ForwardOnly, LockType::ReadOnly, CursorLocation::Server);
  if (!relation.EOF_()) tree_.AddTablesOfClass(relation[u"ClassID"_s].Text());
  return parameters_.Find(table);
}

void TableNavigation::ChooseNode(int node) {
  parameters_.SetTag(QString());
  if (tree_.Node(node).image == NodeImage::Table) {
    LimitToCurrentYear(node);
    tree_.Builder().GroupTable(node);
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
    ShowOpeningFailure(list_, error);
    return;
  }
  steps_.tell();
}

void TableNavigation::OpenClass(int node) {
  steps_.enter();
  tree_.OpenClass(node);
}

void TableNavigation::ShowTable(int node) {
  parameters_.Select(tree_.Node(node).tag.toInt());
  list_.ShowColumns(TableOfNode(tree_.Node(node)));
  steps_.enter();
  list_.ShowFromStart();
}

void TableNavigation::OpenTable(int parameterRow) {
  const int node = parameters_.Get(parameterRow, Parameter::Node).toInt();
  tree_.SelectShown(node);
  OpenNode(node);
}

void TableNavigation::FollowFilter() {
  const int node = tree_.Current();
  if (node == 0 || tree_.Node(node).image != NodeImage::Cent || list_.State() == ListRecords::NotOpened) return;
  if (list_.ShownFilter() != chosenFilter_) tree_.SelectShown(tree_.Node(node).parent);
}

int TableNavigation::NodeOfTable() const { return parameters_.Selected(Parameter::Node).toInt(); }

bool TableNavigation::HasParentTable() const {
  const int node = NodeOfTable();
  return node != 0 && tree_.Node(tree_.Node(node).parent).image != NodeImage::Close;
}

}  // namespace folvane
