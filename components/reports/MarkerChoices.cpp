#include "components/reports/MarkerChoices.h"

#include "components/reports/ReportData.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

MarkerChoice Value(const QString& caption, const QString& name) { return {caption, u"{{"_s + name + u"}}"_s}; }

MarkerChoice Part(const QString& caption, const QString& name) { return {caption, u"{{#%1}}\n{{/%1}}\n"_s.arg(name)}; }

MarkerGroup FieldsOf(const ReportTable& table, const QString& caption, const QString& prefix) {
  MarkerGroup group{caption, {}};
  for (const ReportField& field : table.Fields())
    group.choices.push_back(Value(field.caption.isEmpty() ? field.marker : field.caption, prefix + field.marker));
  return group;
}

MarkerGroup SumsOf(const ReportTable& table, const QString& caption, const QString& prefix) {
  MarkerGroup group{caption, {}};
  for (const ReportField& field : table.Fields())
    if (field.isNumber && !field.caption.isEmpty())
      group.choices.push_back(Value(field.caption, prefix + field.marker));
  return group;
}

MarkerGroup GroupsBy(const ReportTable& table) {
  MarkerGroup group{u"分组"_s, {}};
  for (const ReportField& field : table.CaptionedFields()) {
    group.choices.push_back(Part(u"按“%1”分组"_s.arg(field.caption), u"BY_"_s + field.marker));
    if (!field.marker.contains(u"DATE"_s)) continue;
    group.choices.push_back(Part(u"按“%1”的年度分组"_s.arg(field.caption), u"YEARS_OF_"_s + field.marker));
    group.choices.push_back(Part(u"按“%1”的月份分组"_s.arg(field.caption), u"MONTHS_OF_"_s + field.marker));
  }
  return group;
}

}  // namespace

std::vector<MarkerGroup> MarkerChoices(const ReportData& data) {
  std::vector<MarkerGroup> groups{
      {u"报表"_s,
       {Value(u"报表名称"_s, u"REPORT_TITLE"_s), Value(u"表的名称"_s, u"TABLE_CAPTION"_s),
        Value(u"记录数"_s, u"COUNT"_s), Value(u"打印日期"_s, u"TODAY"_s),
        Value(u"打印日期（年月日）"_s, u"TODAY_CHN"_s), Value(u"打印时间"_s, u"TIME"_s), Value(u"年度"_s, u"YEAR"_s),
        Value(u"打印人"_s, u"USER"_s)}},
      {u"循环"_s,
       {Part(u"每条记录"_s, u"ROWS"_s), Part(u"第二条记录起，在每条之前"_s, u"NEXT"_s), Value(u"序号"_s, u"NO"_s),
        Value(u"分组的内容"_s, u"GROUP"_s)}},
      FieldsOf(data.Main(), u"字段"_s, {}),
      SumsOf(data.Main(), u"合计"_s, u"SUM_"_s),
      GroupsBy(data.Main()),
  };
  if (const ReportTable* lines = data.Lines()) {
    groups[1].choices.push_back(Part(u"单据的每条明细"_s, u"LINES"_s));
    groups[1].choices.push_back(Value(u"明细数"_s, u"LINES_COUNT"_s));
    groups.push_back(FieldsOf(*lines, u"明细字段（在 LINES 之内）"_s, {}));
    groups.push_back(SumsOf(*lines, u"明细合计"_s, u"LINES_SUM_"_s));
  }
  if (const ReportTable* heads = data.Heads()) groups.push_back(FieldsOf(*heads, u"单据字段"_s, u"HEAD_"_s));
  return groups;
}

}  // namespace folvane::reports
