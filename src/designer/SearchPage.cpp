#include "designer/SearchPage.h"

#include <QVBoxLayout>

#include "design/TableEdits.h"
#include "designer/DesignGrid.h"
#include "designer/ThingModel.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

using SearchField = Design::SearchField;

// The kinds of input by their numbers from 1.
const QStringList& InputNames() {
  static const QStringList names{u"内容"_s, u"数字范围"_s, u"日期范围"_s, u"选择词条"_s};
  return names;
}

void NumberInOrder(std::vector<SearchField>& fields) {
  for (std::size_t at = 0; at < fields.size(); ++at) fields[at].order = int(at) + 1;
}

// The first field that is not offered yet.
SearchField NextOf(const Design::Table& table) {
  Design::Table filled = table;
  for (const Design::Field& field : table.fields) {
    if (design::FindNamed(table.searchFields, field.name)) continue;
    design::AddToSearch(filled, field);
    return filled.searchFields.back();
  }
  return {};
}

}  // namespace

SearchPage::SearchPage(DesignSession& session) : DesignPage(session, u"SearchPage"_s) {
  ThingRules<SearchField> rules;
  rules.locate = [this](const Design& design) -> const std::vector<SearchField>* {
    const Design::Table* table = design::FindNamed(design.tables, TableName());
    return table ? &table->searchFields : nullptr;
  };
  rules.fresh = [this](const Design& design) { return NextOf(*design::FindNamed(design.tables, TableName())); };
  rules.number = NumberInOrder;

  auto field = ChoiceOf(&SearchField::field, 20, [this](int) {
    QStringList names;
    if (Table())
      for (const Design::Field& each : Table()->fields) names << each.name;
    return names;
  });
  field.write = [this](Design& wanted, SearchField& item, const QVariant& value) {
    Design::Table& table = *design::FindNamed(wanted.tables, TableName());
    const Design::Field* chosen = design::FindNamed(table.fields, value.toString());
    if (!chosen) throw DataError(DataErrorKind::Usage, u"表中没有字段“%1”。"_s.arg(value.toString()));
    item.field = chosen->name;
    item.caption = chosen->caption;
    design::SetSearchType(table, item, design::SearchTypeFor(*chosen));
  };
  auto kind = ThingColumn<SearchField>();
  kind.look = {u"简单查询的输入"_s, GridColumn::Kind::Choice, 16, [](int) { return InputNames(); }};
  kind.read = [](const SearchField& item) { return InputNames().value(item.type - 1, u"第 %1 类"_s.arg(item.type)); };
  kind.write = [this](Design& wanted, SearchField& item, const QVariant& value) {
    const int type = int(InputNames().indexOf(value.toString())) + 1;
    if (type > 0) design::SetSearchType(*design::FindNamed(wanted.tables, TableName()), item, type);
  };
  auto* model = new ThingModel<SearchField>(session, rules, {field, ColumnOf(&SearchField::caption, 20), kind}, this);
  grid_ = new DesignGrid(model, u"GrdSearch"_s, u"查询字段(&Q)"_s,
                         u"还没有查询字段，快速查询和简单查询都是空的。\n按 Ins 增加一个。"_s, this);
  auto* down = new QVBoxLayout(this);
  down->addWidget(grid_, 1);
  down->addWidget(NewHint(u"快速查询和简单查询按这里的先后列出字段；简单查询中每个用户还可以再选。"_s, this));
  setFocusProxy(grid_);
}

void SearchPage::Refresh() { grid_->Refresh(); }

}  // namespace folvane::designer
