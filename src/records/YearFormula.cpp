#include "records/YearFormula.h"

#include <folvane/HostServices.h>

#include "base/ProfileFile.h"
#include "base/Surroundings.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kSection = u"YearFormula"_s;

bool Is(const QString& field, const char* name) { return field.compare(QLatin1String(name), Qt::CaseInsensitive) == 0; }

}  // namespace

QString YearFormulaPath() { return ProgramFile(u"YearFormula.Ini"_s); }

QString ReadYearFormula(const QString& table) {
  const TableProfile profile{YearFormulaPath(),
                             kSection,
                             {u"#--------------------------------------------------------------"_s,
                              u"# 自定义字段显示数据"_s, u"#要求：表中含有该字段,字段名用英文名！"_s, QString()},
                             20};
  return profile.Read(table);
}

void WriteYearFormula(const QString& table, const QString& field) {
  ProfileFile(YearFormulaPath()).Write(kSection, table, field);
}

QString SecondLevelFilter(const QString& field, const QString& value) {
  if (Is(field, "CREATEDDATE")) return u"Left(CreatedDate,4) = '"_s + value + u"'"_s;
  if (Is(field, "DOCNO")) return u"DOCNO like '"_s + value + u"%'"_s;
  return field + u" ='"_s + value + u"'"_s;
}

QString SecondLevelStatement(const QString& table, const QString& field) {
  if (Is(field, "CREATEDDATE")) return u"select DISTINCT left(Createddate,4)  from "_s + table + u" order by 1 desc"_s;
  if (Is(field, "DOCNO")) {
    return u"select DISTINCT name from AssistantDicKey where DicID=(select Dicid from AssistantDictionary where "
           "name='机关代字')"_s;
  }
  return u"select DISTINCT "_s + field + u"  from "_s + table + u" order by 1 desc"_s;
}

QString CurrentYearFilter() { return SecondLevelFilter(u"CreatedDate"_s, Services().now().toString(u"yyyy"_s)); }

}  // namespace folvane
