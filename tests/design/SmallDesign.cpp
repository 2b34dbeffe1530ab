#include "design/SmallDesign.h"

#include <folvane/Catalogue.h>
#include <folvane/DataError.h>

#include "design/Shape.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

Design::Table Letters() {
  Design::Table table{u"Lwdj"_s, u"收文登记"_s, u"F"_s, 2, {}, {}, {}, {}, {}, {}, {}, {}, {}};
  table.fields = {{u"RegID"_s, u"登记号"_s, u"数值型"_s, 8, {}},
                  {u"CreatedDate"_s, u"收文日期"_s, u"文本型"_s, 10, {}, true},
                  {u"Amaintitle"_s, u"题名"_s, u"文本型"_s, 160, {}, true},
                  {u"SecurityClass"_s, u"密级"_s, u"文本型"_s, 10, u"密级"_s},
                  {u"FileDate"_s, u"成文日期"_s, u"日期型"_s, 10, {}}};
  table.controls = {
      {u"RegID"_s, 1, 1, 1, 1350, 0, 3600, 300},         {u"CreatedDate"_s, 4, 1, 2, 6300, 0, 3600, 300},
      {u"Amaintitle"_s, 10, 1, 3, 1350, 480, 8550, 780}, {u"SecurityClass"_s, 2, 1, 4, 1350, 1440, 3600, 300},
      {u"FileDate"_s, 4, 2, 5, 6300, 1440, 3600, 300},   {{}, 3, 1, 6, 0, 0, 10200, 1890}};
  table.columns = {{u"RegID"_s, u"登记号"_s, 900, 1}, {u"Amaintitle"_s, u"题名"_s, 5700, 2}};
  table.searchFields = {{u"Amaintitle"_s, u"题名"_s, 1, 1, 1}, {u"SecurityClass"_s, u"密级"_s, 4, 1, 2}};
  return table;
}

Design::Table Archive() {
  Design::Table table{u"Gdwj"_s, u"归档文件"_s, u"A"_s, 3, {}, {}, {}, {}, {}, {}, {}, {}, {}};
  table.fields = {{u"FondsNo"_s, u"全宗号"_s, u"文本型"_s, 20, {}, true},
                  {u"FileYear"_s, u"年度"_s, u"文本型"_s, 4, {}, true, true},
                  {u"DocOrder"_s, u"件号"_s, u"数值型"_s, 4, {}},
                  {u"ArchiveNo"_s, u"档号"_s, u"文本型"_s, 50, {}},
                  {u"Amaintitle"_s, u"题名"_s, u"文本型"_s, 160, {}, true},
                  {u"SecurityClass"_s, u"密级"_s, u"文本型"_s, 10, u"密级"_s}};
  int order = 0;
  for (const Design::Field& field : table.fields) {
    const int top = 480 * order++;
    table.controls.push_back({field.name, field.name == u"FondsNo" ? 6 : 1, order, order, 1350, top, 3600, 300});
    table.columns.push_back({field.name, field.caption, 1500, order});
  }
  table.searchFields = {{u"Amaintitle"_s, u"题名"_s, 1, 1, 1}};
  table.numberParts = {{u"FondsNo"_s, u"全宗号"_s, u"-"_s, true, 4},
                       {u"FileYear"_s, u"年度"_s, u"-"_s, false, 4},
                       {u"DocOrder"_s, u"件号"_s, u"-"_s, false, 4}};
  table.numberField = u"ArchiveNo"_s;
  table.folderNumberField = u"(无)"_s;
  return table;
}

}  // namespace

Design SmallDesign() {
  Design design;
  design.classes = {{2, u"收文管理"_s, 1}, {3, u"归档文件"_s, 1}};
  design.tables = {Letters(), Archive()};
  design.dictionaries = {
      {u"密级"_s, u"2 - 字符型"_s, true, {{u"内部"_s, u"N"_s, u"001"_s, true}, {u"秘密"_s, u"M"_s, u"002"_s, true}}}};
  design.fonds = {{u"0188"_s, u"青岚市人民政府办公室"_s}};
  design.entityClasses = {{u"0188"_s, u"DQ"_s, u"党群工作"_s}};
  design.retentions = {{u"永久"_s, u"YJ"_s}};
  design.transfers = {{u"Lwdj"_s, u"Gdwj"_s, {{u"Amaintitle"_s, u"Amaintitle"_s, u"题名"_s}}}};
  design.reports = {{u"1001"_s, u"收文登记簿"_s, u"Lwdj"_s, u"1"_s}};
  design.users = {
      {u"1"_s, u"系统管理员"_s, {}},
      {u"12"_s,
       u"王小明"_s,
       {{u"Lwdj"_s, u"没有密级的收文"_s, true, true, false, u"Lwdj.SecurityClass Is Null"_s, {u"SecurityClass"_s}}}}};
  PutInOrder(design);
  return design;
}

void WithSmallDesign::SetUp() {
  OnEachDatabase::SetUp();
  Database().Furnish(CreateTables);
  ApplyDesign(*Connected(), PlanDesign(*Connected(), {}, SmallDesign()));
}

void WithSmallDesign::Apply(const std::function<void(Design&)>& change, LossAnswer answer) {
  Design wanted = Read();
  change(wanted);
  const DesignPlan plan = PlanDesign(*Connected(), Read(), wanted);
  ApplyDesign(*Connected(), plan, std::vector<LossAnswer>(plan.losses.size(), answer));
}

QString WithSmallDesign::Refusal(const std::function<void(Design&)>& change) {
  const Design before = Read();
  try {
    Apply(change);
  } catch (const DataError& error) {
    EXPECT_EQ(Read(), before);
    EXPECT_FALSE(Connected()->InTransaction());
    return error.Message();
  }
  return {};
}

Design::Table& TableOf(Design& design, const QString& name) { return *design::FindNamed(design.tables, name); }

Design::Field& FieldOf(Design& design, const QString& table, const QString& field) {
  return *design::FindNamed(TableOf(design, table).fields, field);
}

}  // namespace folvane::test
