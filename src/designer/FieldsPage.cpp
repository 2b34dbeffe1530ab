#include "designer/FieldsPage.h"

#include <QVBoxLayout>

#include "catalogue/Catalogue.h"
#include "design/FormArrangement.h"
#include "design/TableEdits.h"
#include "designer/DesignGrid.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

using Field = Design::Field;
using Kind = GridColumn::Kind;

Field NewFieldOf(const Design::Table& table) {
  const auto hasCaption = [&](const QString& caption) {
    return std::any_of(table.fields.begin(), table.fields.end(),
                       [&](const Field& field) { return design::IsSame(field.caption, caption); });
  };
  Field field;
  field.caption = u"新字段"_s;
  for (int number = 2; hasCaption(field.caption); ++number) field.caption = u"新字段%1"_s.arg(number);
  field.name = design::NameFor(field.caption,
                               [&](const QString& name) { return design::FindNamed(table.fields, name) != nullptr; });
  field.type = u"文本型"_s;
  field.length = 50;
  return field;
}

template <class Part>
bool IsIn(const std::vector<Part>& parts, const QString& field) {
  return std::any_of(parts.begin(), parts.end(), [&](const Part& part) { return design::IsSame(part.field, field); });
}

// A tick that says whether the field is in one of the table's lists, and puts it there.
template <class Part>
ThingColumn<Field> Membership(const QString& title, const QString& tip, std::function<const Design::Table*()> table,
                              std::vector<Part> Design::Table::*list,
                              void (*add)(Design::Table&, const Design::Field&)) {
  ThingColumn<Field> column;
  column.look = {title, Kind::Check, 5, {}, tip};
  column.read = [table, list](const Field& field) { return table() && IsIn(table()->*list, field.name); };
  column.write = [table, list, add](Design& wanted, Field& field, const QVariant& value) {
    Design::Table& changed = *design::FindNamed(wanted.tables, table()->name);
    if (value.toBool() == IsIn(changed.*list, field.name)) return;
    if (value.toBool()) return add(changed, field);
    std::erase_if(changed.*list, [&](const Part& part) { return design::IsSame(part.field, field.name); });
  };
  return column;
}

}  // namespace

FieldsPage::FieldsPage(DesignSession& session) : DesignPage(session, u"FieldsPage"_s) {
  grid_ = new DesignGrid(new ThingModel<Field>(session, Rules(), Columns(), this), u"GrdFields"_s, u"字段(&F)"_s,
                         u"表还没有字段。\n按 Ins 增加一个，或粘贴从电子表格复制的标题。"_s, this);
  auto* down = new QVBoxLayout(this);
  down->addWidget(grid_, 1);
  down->addWidget(
      NewHint(u"填写标题即可，名称由标题生成；已经写入数据库的字段不能改名。新字段自动放进录入界面和列表。"_s, this));
  setFocusProxy(grid_);
}

void FieldsPage::Refresh() { grid_->Refresh(); }

bool FieldsPage::IsStored(const Field& field) const {
  const Design::Table* table = design::FindNamed(Session().Stored().tables, TableName());
  return table && design::FindNamed(table->fields, field.name);
}

ThingRules<Field> FieldsPage::Rules() const {
  ThingRules<Field> rules;
  rules.locate = [this](const Design& design) -> const std::vector<Field>* {
    const Design::Table* table = design::FindNamed(design.tables, TableName());
    return table ? &table->fields : nullptr;
  };
  rules.fresh = [this](const Design& design) { return NewFieldOf(*design::FindNamed(design.tables, TableName())); };
  rules.add = [this](Design& wanted, const Field& field) {
    if (FindCatalogueTable(TableName()))
      throw DataError(DataErrorKind::Usage, u"“%1”是系统自己的表，不能增加字段。"_s.arg(TableName()));
    design::AddField(*design::FindNamed(wanted.tables, TableName()), field);
  };
  rules.remove = [this](Design& wanted, const Field& field) { design::RemoveField(wanted, TableName(), field.name); };
  return rules;
}

// A field that the database does not have yet is named after its caption, unless it was given a name.
ThingColumn<Field> FieldsPage::CaptionColumn() const {
  auto caption = ColumnOf(&Field::caption, 18);
  caption.write = [this](Design& wanted, Field& field, const QVariant& value) {
    const QString text = value.toString().trimmed(), name = field.name;
    Design::Table& changed = *design::FindNamed(wanted.tables, TableName());
    const auto isTaken = [&](const QString& other) {
      return !design::IsSame(other, name) && design::FindNamed(changed.fields, other);
    };
    const bool isNamedAfter = design::NameFor(field.caption, isTaken) == name;
    design::CaptionField(changed, name, text);
    if (isNamedAfter && !IsStored(field))
      design::RenameField(wanted, TableName(), name, design::NameFor(text, isTaken));
  };
  return caption;
}

std::vector<ThingColumn<Field>> FieldsPage::Columns() const {
  const auto table = [this] { return Table(); };
  auto name = ColumnOf(&Field::name, 18);
  name.look.tip = u"数据库中的列名。已经写入数据库的字段不能改名"_s;
  name.write = [this](Design& wanted, Field& field, const QVariant& value) {
    design::RenameField(wanted, TableName(), field.name, value.toString().trimmed());
  };
  name.isLocked = [this](const Field& field) { return IsStored(field); };

  // What a field is like decides on its control as well.
  const auto following = [this](ThingColumn<Field> column) {
    column.write = [this, plain = column.write](Design& wanted, Field& field, const QVariant& value) {
      design::ChangeField(*design::FindNamed(wanted.tables, TableName()), field.name,
                          [&](Field& changed) { plain(wanted, changed, value); });
    };
    return column;
  };
  auto type = ChoiceOf(&Field::type, 11, [](int) { return design::FieldTypeNames(); });
  auto length = ColumnOf(&Field::length, 6);
  length.look.tip = u"最多能输入的长度，一个汉字算两个；0 为不限"_s;
  auto dictionary = ChoiceOf(
      &Field::dictionary, 12,
      [this](int) {
        QStringList names{QString()};
        for (const Design::Dictionary& each : Session().Wanted().dictionaries) names << each.name;
        return names;
      },
      Kind::FreeChoice);
  dictionary.look.tip = u"录入时可选的词条；新的字典在“字典”中填写词条"_s;
  auto required = ColumnOf(&Field::isRequired, 5);
  auto fixed = ColumnOf(&Field::isFixedLength, 5);
  fixed.look.tip = u"填满长度，或者不填"_s;
  auto inherited = ColumnOf(&Field::isInherited, 5);
  inherited.look.title = u"继承"_s;
  inherited.look.tip = u"新记录取上级记录的值"_s;
  auto carried = ColumnOf(&Field::isCarried, 5);
  carried.look.title = u"沿用"_s;
  carried.look.tip = u"新记录取当前记录的值"_s;
  return {
      CaptionColumn(),
      name,
      following(type),
      following(length),
      following(dictionary),
      required,
      Membership<Design::Control>(u"录入"_s, u"在录入界面中"_s, table, &Design::Table::controls, design::AddToForm),
      Membership<Design::ListColumn>(u"列表"_s, u"在记录列表中"_s, table, &Design::Table::columns, design::AddToList),
      Membership<Design::SearchField>(u"查询"_s, u"在快速查询和简单查询中"_s, table, &Design::Table::searchFields,
                                      design::AddToSearch),
      fixed,
      inherited,
      carried};
}

}  // namespace folvane::designer
