#include "design/Checks.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Weight = DesignFinding::Weight;

template <class Part>
std::function<void(Design&)> WithCaption(const Design::Table& table, std::vector<Part> Design::Table::*list,
                                         const Part& part, const QString& caption) {
  return InTable(table, [list, key = Shape<Part>::KeyOf(part), caption](Design::Table& found) {
    if (Part* mended = FindByKey(found.*list, key)) mended->caption = caption;
  });
}

template <class Part>
void CheckParts(Checked& checked, const Design::Table& table, std::vector<Part> Design::Table::*list,
                const QString& kind, const QString& consequence) {
  for (const Part& part : table.*list) {
    const Design::Field* field = FindNamed(table.fields, part.field);
    if (!field && !IsSame(part.field, u"ArchiveID"_s))
      checked.findings.push_back({Weight::Error, kind + u"-field"_s, Where(table, part),
                                  u"表中没有字段“%1”"_s.arg(part.field), consequence, u"去掉这一项"_s,
                                  Without(table, list, part)});
    else if (field && !IsSame(part.caption, field->caption))
      checked.findings.push_back({Weight::Note, kind + u"-caption"_s, Where(table, part),
                                  u"标题“%1”与字段的标题“%2”不同"_s.arg(part.caption, field->caption),
                                  u"同一个字段在各窗口中名称不同"_s, u"改为字段的标题"_s,
                                  WithCaption(table, list, part, field->caption)});
  }
}

void CheckWidths(Checked& checked, const Design::Table& table) {
  for (const Design::ListColumn& column : table.columns)
    if (column.width <= 0)
      checked.findings.push_back({Weight::Warning, u"list-width"_s, Where(table, column), u"列没有宽度"_s,
                                  u"列表中看不到这一列"_s, u"宽度改为 1500"_s,
                                  InTable(table, [key = Folded(column.field)](Design::Table& found) {
                                    if (Design::ListColumn* mended = FindByKey(found.columns, key))
                                      mended->width = 1500;
                                  })});
}

// The first fields that are not empty by their nature make a list to begin with.
void FillList(Design::Table& table) {
  constexpr std::size_t kColumns = 6;
  for (const Design::Field& field : table.fields)
    if (table.columns.size() < kColumns && !IsSame(field.name, u"ArchiveID"_s))
      table.columns.push_back({field.name, field.caption, 1500, int(table.columns.size()) + 1});
}

void CheckKinds(Checked& checked, const Design::Table& table) {
  for (const Design::SearchField& field : table.searchFields)
    if (field.type < 1 || field.type > 4)
      checked.findings.push_back({Weight::Warning, u"search-type"_s, Where(table, field),
                                  u"没有第 %1 类输入框"_s.arg(field.type), u"简单查询中没有这个字段"_s,
                                  u"改为按内容查询"_s,
                                  InTable(table, [key = Folded(field.field)](Design::Table& found) {
                                    if (Design::SearchField* mended = FindByKey(found.searchFields, key))
                                      mended->type = 1;
                                  })});
}

}  // namespace

void CheckLists(Checked& checked) {
  for (const Design::Table& table : checked.design.tables) {
    if (table.columns.empty() && table.classId != 0)
      checked.findings.push_back({Weight::Error, u"list-empty"_s, Shape<Design::Table>::TitleOf(table),
                                  u"没有列表的列"_s, u"记录列表是空的"_s, u"用前几个字段作列"_s,
                                  InTable(table, FillList)});
    CheckParts(checked, table, &Design::Table::columns, u"list"_s, u"列表中这一列是空的"_s);
    CheckWidths(checked, table);
    CheckParts(checked, table, &Design::Table::searchFields, u"search"_s, u"按它查询时出错"_s);
    CheckKinds(checked, table);
  }
}

}  // namespace folvane::design
