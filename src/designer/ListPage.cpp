#include "designer/ListPage.h"

#include <QAction>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

#include <folvane/DataError.h>
#include <folvane/Icons.h>

#include "design/TableEdits.h"
#include "designer/DesignGrid.h"
#include "designer/Labels.h"
#include "designer/LiveList.h"
#include "designer/ThingModel.h"
#include "shell/EventGuard.h"
#include "widgets/KeptSizes.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

using ListColumn = Design::ListColumn;

const QString kHalvesKept = u"FrmDesigner.List"_s;

bool HasColumn(const Design::Table& table, const QString& field) {
  return design::FindNamed(table.columns, field) != nullptr;
}

std::vector<Design::Field> FieldsWithoutColumn(const Design::Table& table) {
  std::vector<Design::Field> fields;
  for (const Design::Field& field : table.fields)
    if (!HasColumn(table, field.name)) fields.push_back(field);
  return fields;
}

// Gives a column the field that was chosen, or named; a caption that was the field's follows.
void GiveField(const Design::Table& table, ListColumn& column, const QString& words) {
  const Design::Field& field = LabelledBy(table.fields, words);
  const Design::Field* before = design::FindNamed(table.fields, column.field);
  if (!before || column.caption == before->caption) column.caption = field.caption;
  column.field = field.name;
}

void NumberColumns(std::vector<ListColumn>& columns) {
  int order = 0;
  for (ListColumn& column : columns) column.order = ++order;
}

void KeepWidth(Design&, ListColumn& column, const QVariant& value) {
  if (value.toInt() < 0) throw DataError(DataErrorKind::Usage, u"列宽不能是负数。"_s);
  column.width = value.toInt();
}

}  // namespace

ListPage::ListPage(DesignSession& session) : DesignPage(session, u"ListPage"_s), live_(new LiveList(nullptr)) {
  grid_ = new DesignGrid(NewModel(), u"GrdColumns"_s, u"列表的列"_s, u"列表中还没有列，按 Ins 新增"_s, nullptr);
  addRest_ = new QAction(Icon(u"copyall"_s), u"加入其余字段"_s, this);
  addRest_->setObjectName(u"GrdColumnsAddRest"_s);
  addRest_->setShortcut(QKeySequence(u"Alt+Ins"_s));
  addRest_->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  addRest_->setToolTip(addRest_->text() + u" (Alt+Ins)"_s);
  ConnectGuarded(addRest_, &QAction::triggered, this, &ListPage::AddRest);
  addAction(addRest_);
  grid_->AddKey(addRest_);

  auto* lower = new QWidget;
  auto* title = new QLabel(u"列表的样子（拖动列的边线改变宽度，拖动标题改变次序）"_s);
  title->setBuddy(live_);
  auto* under = new QVBoxLayout(lower);
  under->setContentsMargins(0, 0, 0, 0);
  under->setSpacing(2);
  under->addWidget(title);
  under->addWidget(live_, 1);
  auto* halves = new QSplitter(Qt::Vertical);
  halves->setObjectName(u"ListHalves"_s);
  halves->addWidget(grid_);
  halves->addWidget(lower);
  RestoreSizes(*halves, kHalvesKept, {300, 300});
  auto* down = new QVBoxLayout(this);
  down->setContentsMargins(0, 0, 0, 0);
  down->addWidget(halves);
  ConnectGuarded(live_, &LiveList::Arranged, this, [this](std::vector<ListColumn> columns) {
    NumberColumns(columns);
    ChangeTable(u"安排列表的列"_s, [&](Design::Table& table) { table.columns = columns; });
    live_->Show(Table(), Session().Database());
  });
}

ListPage::~ListPage() { KeepSizes(*findChild<QSplitter*>(u"ListHalves"_s), kHalvesKept); }

GridModel* ListPage::NewModel() {
  const auto tableOf = [this](const Design& design) { return design::FindNamed(design.tables, TableName()); };
  ThingRules<ListColumn> rules;
  rules.locate = [tableOf](const Design& design) {
    const Design::Table* table = tableOf(design);
    return table ? &table->columns : nullptr;
  };
  rules.fresh = [tableOf](const Design& design) {
    const std::vector<Design::Field> fields = FieldsWithoutColumn(*tableOf(design));
    return fields.empty() ? ListColumn() : ListColumn{fields.front().name, fields.front().caption, 0, 0};
  };
  rules.add = [this](Design& design, const ListColumn& column) {
    Design::Table& table = *design::FindNamed(design.tables, TableName());
    const Design::Field* field = design::FindNamed(table.fields, column.field);
    if (!field) throw DataError(DataErrorKind::Usage, u"所有字段都已在列表中。"_s);
    design::AddToList(table, *field);
  };
  rules.number = NumberColumns;

  ThingColumn<ListColumn> field = ColumnOf(&ListColumn::field, 28);
  field.look.kind = GridColumn::Kind::Choice;
  field.look.choices = [this](int row) {
    QStringList choices;
    if (!Table()) return choices;
    for (const Design::Field& each : Table()->fields) {
      const bool isOwn = design::IsSame(Table()->columns[std::size_t(row)].field, each.name);
      if (isOwn || !HasColumn(*Table(), each.name)) choices << LabelOf(each);
    }
    return choices;
  };
  field.read = [this](const ListColumn& column) {
    return Table() ? LabelFor(Table()->fields, column.field) : column.field;
  };
  field.write = [tableOf](Design& design, ListColumn& column, const QVariant& value) {
    GiveField(*tableOf(design), column, value.toString());
  };
  ThingColumn<ListColumn> width = ColumnOf(&ListColumn::width, 10);
  width.write = KeepWidth;
  return new ThingModel<ListColumn>(Session(), rules, {field, ColumnOf(&ListColumn::caption, 24), width}, nullptr);
}

void ListPage::Refresh() {
  grid_->Refresh();
  live_->Show(Table(), Session().Database());
  addRest_->setEnabled(Table() && !FieldsWithoutColumn(*Table()).empty());
}

void ListPage::AddRest() {
  ChangeTable(addRest_->text(), [](Design::Table& table) {
    for (const Design::Field& field : FieldsWithoutColumn(table)) design::AddToList(table, field);
  });
}

}  // namespace folvane::designer
