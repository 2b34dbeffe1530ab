#include "entry/RegFormulaFile.h"

#include "base/ProfileFile.h"
#include "base/Surroundings.h"
#include "base/TypedValues.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kFormulaBuffer = 5;
const QString kSection = u"RegFormula"_s;

QStringList Heading() {
  const QString line = u"#--------------------------------------------------------------"_s;
  const QString numeric = u"#      RegID字段的数据类型必须为数值型或自动编号类型"_s;
  const QString createdDate = u"#要求：必须有CreatedDate字段，且数据类型必须为文本型（长度小于15）或者档案日期型"_s;
  const QString fileDate = u"#要求：必须有FileDate字段，且数据类型必须为日期型"_s;
  return {line,
          u"# RegID Formula Rule1 自动编号"_s,
          u"#要求：RegID字段的数据类型必须为数值型或自动编号类型"_s,
          line,
          u"# RegID Formula Rule2 按文件时间累加"_s,
          createdDate,
          numeric,
          line,
          u"# RegID Formula Rule3 按文件编号计算"_s,
          u"#要求：必须有DocNo字段，且数据类型必须为文本型或者机关代字型"_s,
          numeric,
          line,
          u"# RegID Formula Rule4 按文件时间配合权限计算"_s,
          createdDate,
          numeric,
          line,
          u"# RegID Formula Rule5 按登记日期计算"_s,
          fileDate,
          numeric,
          line,
          u"# RegID Formula Rule6 按登记日期配合权限计算"_s,
          fileDate,
          numeric,
          line,
          u"# RegID Formula Rule7 按Main窗口的查询条件计算"_s,
          u"#要求：RegID字段的数据类型必须为数值型或自动编号类型"_s,
          QString()};
}

TableProfile Profile() { return {RegFormulaPath(), kSection, Heading(), kFormulaBuffer}; }

}  // namespace

QString RegFormulaPath() { return ProgramFile(u"RegIDFormula.Ini"_s); }

int LoadRegFormula(const QString& table, const Recordset& records) {
  if (!FieldExists(records, u"RegID"_s)) return 0;
  return ToInteger(Profile().Read(table));
}

std::optional<int> StoredRegFormula(const QString& table) {
  const QString text = ProfileFile(RegFormulaPath()).Read(kSection, table, {}, kFormulaBuffer);
  return text.isEmpty() ? std::nullopt : std::optional(ToInteger(text));
}

void StoreRegFormula(const QString& table, int formula) {
  Profile().Read(table);  // makes the file with its explanations
  ProfileFile(RegFormulaPath()).Write(kSection, table, QString::number(formula));
}

}  // namespace folvane
