#include "design/transfer/FormatCheck.h"

#include <limits>

#include "design/transfer/GivenFields.h"
#include "design/transfer/NumberLength.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

void Report(Findings& findings, Severity severity, const QString& text) { findings.push_back({severity, text}); }

void CheckLength(const NumberPart& part, Findings& findings) {
  bool isNumber = false;
  const int length = part.length.toInt(&isNumber);
  if (!isNumber || length > std::numeric_limits<qint16>::max() || length < 0) {
    Report(findings, Severity::Error,
           part.length.isEmpty() ? u"没有填写宽度"_s : u"宽度“%1”不是可用的数字，归档会失败"_s.arg(part.length));
  } else if (length == 0) {
    Report(findings, Severity::Warning, u"宽度为 0，档号中没有这一段"_s);
  }
}

// A transfer drops the first character of the number, whatever it is.
void CheckFirstSeparator(const NumberPart& part, Findings& findings) {
  if (part.separator.isEmpty())
    Report(findings, Severity::Warning, u"首段没有分隔符，档号会少第一个字符"_s);
  else if (part.separator.size() > 1)
    Report(findings, Severity::Note, u"首段的分隔符只去掉第一个字符"_s);
}

// What the parameters of a transfer ask for.
void CheckAsked(const TableField& field, Findings& findings) {
  if (!field.isDesigned)
    Report(findings, Severity::Warning, u"设计表中没有登记此字段，归档时不能填写"_s);
  else if (!field.isAsked)
    Report(findings, Severity::Warning, u"录入界面中没有此字段，归档时不能填写"_s);
}

void CheckShownCode(const NumberPart& part, const TableField& field, Findings& findings) {
  if (IsSame(part.field, u"AecNo"_s) && !part.showsCode)
    Report(findings, Severity::Warning, u"分类号的名称按全宗号查找，多半为空，宜显示代号"_s);
  const bool isCode = IsSame(part.field, u"AecNo"_s) || IsSame(part.field, u"FondsNo"_s);
  if (part.showsCode && !isCode && field.dictionary.isEmpty())
    Report(findings, Severity::Note, u"字段没有字典，显示代号不起作用"_s);
}

void CheckStored(const QString& name, const QString& what, int length, const BusinessTable& table, Findings& findings) {
  const TableField* field = table.Find(name);
  if (!field || !field->isThere)
    return Report(findings, Severity::Error, u"表中没有%1字段“%2”，归档会失败"_s.arg(what, name));
  if (length > field->size)
    Report(findings, Severity::Error,
           u"%1最长 %2 字节，字段“%3”只有 %4 字节，放不下的归档会失败"_s.arg(what)
               .arg(length)
               .arg(field->Word())
               .arg(field->size));
}

}  // namespace

Findings CheckPart(const NumberFormat& format, std::size_t at, BusinessTables& tables) {
  const NumberPart& part = format.parts[at];
  const BusinessTable& table = tables.Get(format.table);
  const TableField* field = table.Find(part.field);
  Findings findings;
  if (part.field.isEmpty()) {
    Report(findings, Severity::Error, u"没有选择字段"_s);
  } else if (!field || !field->isThere) {
    if (table.isThere) Report(findings, Severity::Error, u"表中没有字段“%1”，归档会失败"_s.arg(part.field));
  } else {
    CheckShownCode(part, *field, findings);
    if (at + 1 < format.parts.size())
      CheckAsked(*field, findings);
    else if (!IsCounted(format, table))
      Report(findings, Severity::Note, u"末段不是数字字段，不自动编号，值由字段对应给出"_s);
  }
  if (at == 0) CheckFirstSeparator(part, findings);
  CheckLength(part, findings);
  for (std::size_t other = 0; other < at; ++other)
    if (!part.field.isEmpty() && IsSame(format.parts[other].field, part.field))
      Report(findings, Severity::Error, u"与第 %1 段的字段重复"_s.arg(other + 1));
  return findings;
}

Findings CheckFormat(const NumberFormat& format, BusinessTables& tables) {
  Findings findings;
  const BusinessTable& table = tables.Get(format.table);
  if (!table.isThere) return {{Severity::Error, u"数据库中没有表“%1”"_s.arg(format.table)}};
  if (!table.isDesigned) Report(findings, Severity::Warning, u"设计表中没有登记表“%1”"_s.arg(format.table));
  if (format.parts.empty()) return findings;
  if (format.rowsDiffer) Report(findings, Severity::Warning, u"各段记录的档号字段或案卷号字段不一致，归档以末段为准"_s);
  if (format.storeField.isEmpty()) {
    Report(findings, Severity::Note, u"没有选择档号字段，归档时不组成档号"_s);
    return findings;
  }
  CheckStored(format.storeField, u"档号"_s, LengthOf(format, format.parts.size()), table, findings);
  if (format.folderField.isEmpty()) {
    Report(findings, Severity::Error, u"没有选择案卷号字段，归档会失败；不需要时请选“(无)”"_s);
  } else if (format.HasFolder()) {
    CheckStored(format.folderField, u"案卷号"_s, LengthOf(format, format.parts.size() - 1), table, findings);
  }
  return findings;
}

Severity WorstOfFormat(const NumberFormat& format, BusinessTables& tables) {
  Severity worst = WorstOf(CheckFormat(format, tables));
  for (std::size_t part = 0; part < format.parts.size(); ++part)
    worst = std::max(worst, WorstOf(CheckPart(format, part, tables)));
  return worst;
}

}  // namespace folvane::transfer
