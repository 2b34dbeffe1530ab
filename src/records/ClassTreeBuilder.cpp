#include "records/ClassTreeBuilder.h"

#include <algorithm>

#include "catalogue/ReadRows.h"
#include "records/ListOrder.h"
#include "records/TableRights.h"
#include "records/YearFormula.h"
#include "shell/SharedState.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kRootKey = u"*\\"_s;
constexpr int kRootClass = 1;

QString ClassKey(const QString& classId) { return u"C"_s + classId + u"\\"_s; }

QString TablesStatement(const QString& classId, const QString& parentTable) {
  return u"Select TableName,ChnTableName,RelationField From Design_TableRelation Where ClassId = "_s + classId +
         (parentTable.isEmpty() ? u" And (Table_Parent = '' Or Table_Parent is null)"_s
                                : u" And Table_Parent = '"_s + parentTable + u"'"_s);
}

}  // namespace

void ClassTreeBuilder::BuildRoot() {
  transfers_.Open(u"Select * From DataTransfer_Ini"_s, SharedConnection());
  tree_.Clear();
  parameters_.Clear();
  unfinished_.clear();
  AddClassNodes(tree_.AddNode(0, kRootKey, u"公文总库"_s, NodeImage::Close), QString::number(kRootClass));
}

void ClassTreeBuilder::AddClassNodes(int parent, const QString& classParent) {
  for (const ClassRelationRow& relation : ReadRows<ClassRelationRow>(
           SharedConnection(),
           u"Select ClassId,ClassName From Design_ClassRelation Where Class_Parent = "_s + classParent)) {
    const QString id = QString::number(relation.classId);
    if (tree_.StandsOnPath(parent, ClassKey(id))) continue;
    AddClassNodes(tree_.AddNode(parent, ClassKey(id), relation.className, NodeImage::Close, id), id);
  }
}

void ClassTreeBuilder::AddTableNodes(int parent, const QString& classId, const QString& parentTable) {
  const bool goesOn = unfinished_.contains(parent);
  unfinished_.insert(parent);
  for (const TableRelationRow& table :
       ReadRows<TableRelationRow>(SharedConnection(), TablesStatement(classId, parentTable))) {
    if (table.tableName.isEmpty() || tree_.StandsOnPath(parent, table.tableName)) continue;
    if (goesOn && HasChild(parent, table.tableName)) continue;
    AddTable(parent, classId, parentTable, table);
  }
  unfinished_.remove(parent);
}

bool ClassTreeBuilder::HasChild(int parent, const QString& key) const {
  const std::vector<int>& children = tree_.Node(parent).children;
  return std::any_of(children.begin(), children.end(), [&](int child) { return tree_.Node(child).key == key; });
}

// Without its rights and its order a table would be opened by an incomplete statement until the window is loaded anew.
// So it comes into the tree with everything that was to be read for it, or not at all.
void ClassTreeBuilder::AddTable(int parent, const QString& classId, const QString& parentTable,
                                const TableRelationRow& table) {
  const int node = tree_.Count() + 1;
  const int row = parameters_.Count() + 1;
  try {
    ReadTable(parent, classId, parentTable, table);
  } catch (...) {
    unfinished_.remove(node);
    tree_.RemoveFrom(node);
    parameters_.RemoveFrom(row);
    throw;
  }
}

void ClassTreeBuilder::ReadTable(int parent, const QString& classId, const QString& parentTable,
                                 const TableRelationRow& table) {
  const QString& key = table.tableName;
  const QString& relation = table.relationField;
  const int node = tree_.AddNode(parent, key, table.chnTableName, NodeImage::Table);
  const int row = parameters_.Add(key);
  ReadTableRights(parameters_, row, key);
  parameters_.Set(row, Parameter::Order, ReadDefaultOrder(key));
  parameters_.Set(row, Parameter::Parent, parentTable);
  parameters_.Set(row, Parameter::Relation, relation);
  parameters_.Set(row, Parameter::Node, QString::number(node));
  parameters_.Set(row, Parameter::Target, TargetOf(key));
  tree_.SetTag(node, row);
  if (kind_ == TableNodes::Grouped) GroupTable(node);
  if (const int above = parentTable.isEmpty() ? 0 : tree_.Node(parent).tag.toInt(); above != 0) {
    parameters_.Set(above, Parameter::Child, key);
    parameters_.Set(above, Parameter::ChildRelation, relation);
  }
  AddTableNodes(node, classId, key);
}

bool ClassTreeBuilder::OpenClass(int node) {
  const QString key = tree_.Node(node).key;
  const bool filled = !tree_.Node(node).children.empty() && !unfinished_.contains(node);
  if (key == kRootKey || filled) return false;
  AddTableNodes(node, key.mid(1, key.size() - 2), QString());
  return true;
}

void ClassTreeBuilder::GroupTable(int node) {
  const QString table = tree_.Node(node).key;
  const QString field = ReadYearFormula(table).trimmed();
  if (field == u"0"_s || !TableHasField(table, field)) return;
  AddSecondLevelNodes(node, table, field);
  tree_.SetImage(node, NodeImage::Cent1);
}

void ClassTreeBuilder::AddSecondLevelNodes(int parent, const QString& table, const QString& field) {
  Recordset values;
  values.Open(SecondLevelStatement(table, field), SharedConnection());
  const QVariant row = tree_.Node(parent).tag;
  for (; !values.EOF_(); values.MoveNext()) {
    const Field value = values.Fields().Item(0);
    if (value.IsNull()) continue;
    const QString text = value.Text().trimmed();
    tree_.AddNode(parent, table + u"-"_s + text, text, NodeImage::Cent, row);
  }
}

QString ClassTreeBuilder::TargetOf(const QString& table) {
  transfers_.SetFilter(u"SourceTbl='"_s + table + u"'"_s);
  return transfers_.EOF_() ? QString() : transfers_[u"DesTbl"_s].Text();
}

void ClassTreeBuilder::ReadTargets() {
  transfers_.Requery();
  for (int row = 1; row <= parameters_.Count(); ++row)
    parameters_.Set(row, Parameter::Target, TargetOf(parameters_.Table(row)));
}

QString TableOfNode(const ClassTreeNode& node) {
  return node.image == NodeImage::Cent ? node.key.section(u'-', 0, 0) : node.key;
}

}  // namespace folvane
