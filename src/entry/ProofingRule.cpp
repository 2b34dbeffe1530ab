#include "entry/ProofingRule.h"

#include <algorithm>
#include <vector>

#include "base/IgnoreErrors.h"
#include "base/TypedValues.h"
#include "base/WildcardPattern.h"
#include "catalogue/ReadRows.h"
#include "data/Recordset.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

using Breach = std::optional<RuleBreach>;

const QString kMustNotBe = u"不能是"_s;
const QString kMustBe = u"只能是"_s;
const QString kContains = u"包含"_s;
const QString kContainsNot = u"不包含"_s;
const QString kNumber = u"数字"_s;
const QString kDate = u"日期"_s;
const QString kDuplicate = u"重复值"_s;

enum Afterwards { Keep, Clear };

RuleBreach Told(const QString& reason, Afterwards afterwards, const QString& title = u"校对提示"_s) {
  return {title, u"当前数据保存失败，原因在于："_s + reason, afterwards == Clear};
}

// The value is what the rule forbids, or is not what it demands.
RuleBreach WrongValue(const ProofingRuleRow& rule, const QString& reason, Afterwards afterwards) {
  return Told(u"“"_s + rule.chnFieldName + u"”字段值"_s + reason + u"，请重新输入！"_s, afterwards);
}

RuleBreach WrongField(const ProofingRuleRow& rule, const QString& reason, Afterwards afterwards) {
  return Told(u"字段“"_s + rule.chnFieldName + u"”"_s + reason, afterwards);
}

Breach TestMustNotBe(const ProofingRuleRow& rule, const QString& text, const std::function<bool()>& isDuplicate) {
  if (rule.collectValue == kDuplicate && isDuplicate()) {
    return Told(u"“"_s + rule.chnFieldName + u"”字段中已经存在<<"_s + text.trimmed() + u">>的相同数据，请重新输入！"_s,
                Keep, u"数据重复提示"_s);
  }
  if (rule.collectValue == kNumber && IsNumeric(text)) return WrongValue(rule, u"不能是数字"_s, Clear);
  if (rule.collectValue == kDate && IsDate(text)) return WrongValue(rule, u"不能是日期"_s, Keep);
  return {};
}

Breach TestMustBe(const ProofingRuleRow& rule, const QString& text) {
  const QString& value = rule.collectValue;
  if (value == kNumber) {
    if (IsNumeric(text)) return {};
    return WrongValue(rule, u"只能输入数字"_s, Clear);
  }
  if (value == kDate) {
    if (IsDate(text)) return {};
    return WrongValue(rule, u"只能输入日期格式('2002-01-01')"_s, Keep);
  }
  if (value == kCustomFormat) {
    if (WildcardPattern(rule.customFormat).Matches(text)) return {};
    return WrongValue(rule, u"不是指定的输入格式"_s, Keep);
  }
  const std::optional<double> length = ReadNumber(value);
  if (!length || double(text.size()) == *length) return {};
  return WrongField(rule, u"只能输入"_s + value + u"位，请重新输入！"_s, Clear);
}

RuleBreach WrongData(const ProofingRuleRow& rule) {
  return WrongField(rule, u"只能输入"_s + rule.relation + rule.collectValue + u"的数据，请重新输入！"_s, Keep);
}

// The text counts as a whole number, the value it is compared with as it stands: 10.4 is not above 10. Only 大于 leaves
// a text that is no number in place.
struct NumberRelation {
  QString name;
  Afterwards onText;
  bool (*holds)(int text, double value);
};

const std::vector<NumberRelation>& NumberRelations() {
  static const std::vector<NumberRelation> relations{
      {u"大于"_s, Keep, [](int text, double value) { return text > value; }},
      {u"大于等于"_s, Clear, [](int text, double value) { return text >= value; }},
      {u"小于"_s, Clear, [](int text, double value) { return text < value; }},
      {u"小于等于"_s, Clear, [](int text, double value) { return text <= value; }},
  };
  return relations;
}

Breach TestNumber(const NumberRelation& relation, const ProofingRuleRow& rule, const QString& text) {
  if (!IsNumeric(text))
    return WrongField(rule, u"输入的不是数字,无法进行校对，请重新输入数字型数据！"_s, relation.onText);
  const std::optional<double> value = ReadNumber(rule.collectValue);
  if (!value || relation.holds(ToInteger(text), *value)) return {};
  return WrongData(rule);
}

Breach TestContains(const ProofingRuleRow& rule, const QString& text) {
  const bool contains = WildcardPattern(u'*' + rule.collectValue + u'*').Matches(text);
  if (contains == (rule.relation == kContains)) return {};
  const QString must = contains ? u"必须不包含"_s : u"必须包含"_s;
  return WrongField(rule, must + rule.collectValue + u"，请重新输入！"_s, Keep);
}

// In the order of the editor's lines, whatever the order that a database gives rows back in after they were changed.
std::vector<ProofingRuleRow> ReadRules(const QString& table) {
  std::vector<ProofingRuleRow> rules;
  IgnoreErrors([&] {
    rules = ReadRows<ProofingRuleRow>(SharedConnection(), u"Select * from SaveCollect Where TableName='"_s + table +
                                                              u"' And ControlType <> '3' And ControlType <> 0"_s);
  });
  std::stable_sort(rules.begin(), rules.end(), [](const ProofingRuleRow& one, const ProofingRuleRow& other) {
    return one.centerControlIndex < other.centerControlIndex;
  });
  return rules;
}

// Whether another record holds the text; with a fonds number, another record of that fonds.
bool IsDuplicate(const QString& table, const QString& fondsNo, const QString& field, const QString& text) {
  const QString column = fondsNo.isEmpty() ? u"1"_s : u"FondsNo"_s;
  Recordset records;
  records.Open(u"Select "_s + column + u" From "_s + table + u" Where "_s + field + u"='"_s + EscapeSql(text) +
                   u"' And ArchiveId <> '"_s + Shared().CurrentRecords[u"ArchiveId"_s].Text() + u"'"_s,
               SharedConnection());
  if (records.EOF_() || fondsNo.isEmpty()) return !records.EOF_();
  records.SetFilter(u"FondsNo = '"_s + EscapeSql(fondsNo) + u"'"_s);
  return !records.EOF_();
}

}  // namespace

QStringList ProofingRelations() {
  return {u"大于"_s,     u"大于等于"_s, u"等于"_s,    u"不等于"_s, u"小于"_s,
          u"小于等于"_s, kContains,     kContainsNot, kMustBe,     kMustNotBe};
}

QStringList ProofingKeywords(const QString& relation) {
  if (relation == kMustBe) return {kNumber, kDate, kCustomFormat};
  if (relation == kMustNotBe) return {kNumber, kDate, kDuplicate};
  return {};
}

std::optional<RuleBreach> TestRule(const ProofingRuleRow& rule, const QString& text,
                                   const std::function<bool()>& isDuplicate) {
  const QString& relation = rule.relation;
  if (text.isEmpty()) return {};
  if (relation == kMustNotBe) return TestMustNotBe(rule, text, isDuplicate);
  if (relation == kMustBe) return TestMustBe(rule, text);
  for (const NumberRelation& number : NumberRelations()) {
    if (relation == number.name) return TestNumber(number, rule, text);
  }
  if (relation == u"等于" && text != rule.collectValue) return WrongData(rule);
  if (relation == u"不等于" && text == rule.collectValue) return WrongData(rule);
  if (relation == kContains || relation == kContainsNot) return TestContains(rule, text);
  return {};
}

std::optional<BrokenRule> FirstBrokenRule(const QString& table, const QString& fondsNo, const ShownFields& fields) {
  for (const ProofingRuleRow& rule : ReadRules(table)) {
    const ControlId control{rule.controlType, rule.controlIndex};
    const auto shown =
        std::find_if(fields.begin(), fields.end(), [&](const ShownField& field) { return field.control == control; });
    if (shown == fields.end()) continue;
    Breach breach;
    IgnoreErrors([&] {
      breach = TestRule(rule, shown->text, [&] { return IsDuplicate(table, fondsNo, rule.fieldName, shown->text); });
    });
    if (breach) return BrokenRule{*breach, control, shown->dataField};
  }
  return {};
}

}  // namespace folvane
