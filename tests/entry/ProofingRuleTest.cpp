#include <gtest/gtest.h>

#include "base/TypedValues.h"
#include "base/WildcardPattern.h"
#include "entry/ProofingRule.h"
#include "support/QtPrinting.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kFailed = u"当前数据保存失败，原因在于："_s;

ProofingRuleRow Rule(const QString& relation, const QString& value, const QString& format = {}) {
  ProofingRuleRow rule;
  rule.chnFieldName = u"页数"_s;
  rule.relation = relation;
  rule.collectValue = value;
  rule.customFormat = format;
  return rule;
}

std::optional<RuleBreach> Broken(const QString& relation, const QString& value, const QString& text,
                                 const QString& format = {}) {
  return TestRule(Rule(relation, value, format), text, [] { return true; });
}

/// What a breach says behind the common words; "" when the rule holds.
QString Told(const std::optional<RuleBreach>& breach) {
  return breach ? breach->text.mid(kFailed.size()) + (breach->clears ? u" [cleared]"_s : QString()) : QString();
}

struct RuleCase {
  QString relation, value, text, told;
};

TEST(ProofingRules, HoldOrTellWhy) {
  const QString notNumber = u"字段“页数”输入的不是数字,无法进行校对，请重新输入数字型数据！"_s;
  const std::vector<RuleCase> cases{
      {u"不能是"_s, u"重复值"_s, u" 甲 "_s, u"“页数”字段中已经存在<<甲>>的相同数据，请重新输入！"_s},
      {u"不能是"_s, u"数字"_s, u"12"_s, u"“页数”字段值不能是数字，请重新输入！ [cleared]"_s},
      {u"不能是"_s, u"数字"_s, u"甲"_s, {}},
      {u"不能是"_s, u"日期"_s, u"2002-01-01"_s, u"“页数”字段值不能是日期，请重新输入！"_s},
      {u"不能是"_s, u"日期"_s, u"甲"_s, {}},
      {u"不能是"_s, u"甲"_s, u"甲"_s, {}},
      {u"只能是"_s, u"数字"_s, u"甲"_s, u"“页数”字段值只能输入数字，请重新输入！ [cleared]"_s},
      {u"只能是"_s, u"数字"_s, u"12"_s, {}},
      {u"只能是"_s, u"日期"_s, u"甲"_s, u"“页数”字段值只能输入日期格式('2002-01-01')，请重新输入！"_s},
      {u"只能是"_s, u"日期"_s, u"2002-01-01"_s, {}},
      {u"只能是"_s, u"3"_s, u"甲乙"_s, u"字段“页数”只能输入3位，请重新输入！ [cleared]"_s},
      {u"只能是"_s, u"3"_s, u"甲乙丙"_s, {}},
      {u"只能是"_s, u"甲"_s, u"乙"_s, {}},
      {u"大于"_s, u"10"_s, u"10"_s, u"字段“页数”只能输入大于10的数据，请重新输入！"_s},
      {u"大于"_s, u"10"_s, u"11"_s, {}},
      {u"大于"_s, u"10"_s, u"abc"_s, notNumber},
      {u"大于等于"_s, u"10"_s, u"9"_s, u"字段“页数”只能输入大于等于10的数据，请重新输入！"_s},
      {u"大于等于"_s, u"10"_s, u"10"_s, {}},
      {u"大于等于"_s, u"10"_s, u"abc"_s, notNumber + u" [cleared]"_s},
      {u"小于"_s, u"10"_s, u"10"_s, u"字段“页数”只能输入小于10的数据，请重新输入！"_s},
      {u"小于"_s, u"10"_s, u"9"_s, {}},
      {u"小于"_s, u"10"_s, u"abc"_s, notNumber + u" [cleared]"_s},
      {u"小于等于"_s, u"10"_s, u"11"_s, u"字段“页数”只能输入小于等于10的数据，请重新输入！"_s},
      {u"小于等于"_s, u"10"_s, u"10"_s, {}},
      {u"小于等于"_s, u"10"_s, u"abc"_s, notNumber + u" [cleared]"_s},
      {u"等于"_s, u"A"_s, u"a"_s, u"字段“页数”只能输入等于A的数据，请重新输入！"_s},
      {u"等于"_s, u"A"_s, u"A"_s, {}},
      {u"不等于"_s, u"A"_s, u"A"_s, u"字段“页数”只能输入不等于A的数据，请重新输入！"_s},
      {u"不等于"_s, u"A"_s, u"a"_s, {}},
      {u"包含"_s, u"乙"_s, u"甲丙"_s, u"字段“页数”必须包含乙，请重新输入！"_s},
      {u"包含"_s, u"乙"_s, u"甲乙丙"_s, {}},
      {u"包含"_s, u"#"_s, u"甲1"_s, {}},
      {u"不包含"_s, u"乙"_s, u"甲乙丙"_s, u"字段“页数”必须不包含乙，请重新输入！"_s},
      {u"不包含"_s, u"乙"_s, u"甲丙"_s, {}},
      {u"像"_s, u"乙"_s, u"甲"_s, {}},
  };
  for (const RuleCase& rule : cases)
    EXPECT_EQ(Told(Broken(rule.relation, rule.value, rule.text)), rule.told)
        << (rule.relation + rule.value + u' ' + rule.text).toStdString();
}

TEST(ProofingRules, HaveTheirTitles) {
  EXPECT_EQ(Broken(u"不能是"_s, u"重复值"_s, u"甲"_s)->title, u"数据重复提示"_s);
  EXPECT_EQ(Broken(u"等于"_s, u"A"_s, u"B"_s)->title, u"校对提示"_s);
  EXPECT_TRUE(Broken(u"等于"_s, u"A"_s, u"B"_s)->text.startsWith(kFailed));
}

TEST(ProofingRules, AreNotBrokenByAnEmptyField) {
  for (const QString& relation : ProofingRelations()) {
    EXPECT_FALSE(Broken(relation, u"数字"_s, QString())) << relation.toStdString();
    EXPECT_FALSE(Broken(relation, u"3"_s, QString())) << relation.toStdString();
  }
}

TEST(ProofingRules, RoundTheTextToTheEvenNeighbourButNotTheValue) {
  EXPECT_TRUE(Broken(u"大于"_s, u"10"_s, u"10.5"_s));
  EXPECT_TRUE(Broken(u"大于"_s, u"10"_s, u"10.4"_s));
  EXPECT_FALSE(Broken(u"大于"_s, u"10"_s, u"11.5"_s));
  EXPECT_FALSE(Broken(u"小于"_s, u"10.4"_s, u"10.4"_s));
}

TEST(ProofingRules, MatchACustomFormatAsAWhole) {
  struct FormatCase {
    QString format, text;
    bool holds;
  };
  const std::vector<FormatCase> cases{
      {u"AB###"_s, u"AB123"_s, true},
      {u"AB###"_s, u"ab123"_s, false},
      {u"AB###"_s, u"AB1234"_s, false},
      {u"AB###"_s, u"ab3934"_s, false},
      {u"ABC*XYZ"_s, u"ABCDEFGHI-VWXYZ"_s, true},
      {u"ABC*XYZ"_s, u"ABCXYZ"_s, true},
      {u"1???X"_s, u"1234X"_s, true},
      {u"1???X"_s, u"1uxcx"_s, false},
      {u"[a-c]#"_s, u"b1"_s, true},
      {u"[a-c]#"_s, u"d1"_s, false},
      {u"[!a-c]#"_s, u"d1"_s, true},
      {u"[!a-c]#"_s, u"b1"_s, false},
      {u"?发〔####〕*号"_s, u"国发〔2002〕17号"_s, true},
      {QString(), u"A"_s, false},
  };
  for (const FormatCase& format : cases) {
    const QString told = format.holds ? QString() : u"“页数”字段值不是指定的输入格式，请重新输入！"_s;
    EXPECT_EQ(Told(Broken(u"只能是"_s, kCustomFormat, format.text, format.format)), told)
        << (format.format + u' ' + format.text).toStdString();
  }
}

TEST(ProofingRules, JudgeNumbersAndDatesAsThePlatformDoes) {
  struct KindCase {
    QString text;
    bool isNumber, isDate;
  };
  const std::vector<KindCase> cases{
      {u"12"_s, true, false},       {u"-1,000.50"_s, true, false},    {u"1e5"_s, true, false},
      {u"&HFF"_s, true, false},     {u"１２"_s, true, false},         {u"2002-01-01"_s, false, true},
      {u"20020101"_s, true, false}, {u"2002年1月1日"_s, false, true}, {u"2002-02-30"_s, false, false},
      {u"12:30"_s, false, true},    {u"13.50"_s, true, true},         {u"一二"_s, false, false},
  };
  for (const KindCase& kind : cases) {
    EXPECT_EQ(!Broken(u"只能是"_s, u"数字"_s, kind.text), kind.isNumber) << kind.text.toStdString();
    EXPECT_EQ(!Broken(u"不能是"_s, u"数字"_s, kind.text), !kind.isNumber) << kind.text.toStdString();
    EXPECT_EQ(!Broken(u"只能是"_s, u"日期"_s, kind.text), kind.isDate) << kind.text.toStdString();
    EXPECT_EQ(!Broken(u"不能是"_s, u"日期"_s, kind.text), !kind.isDate) << kind.text.toStdString();
  }
}

TEST(ProofingRules, CompareWithNoValueThatIsNoNumber) {
  EXPECT_FALSE(Broken(u"大于"_s, u"ten"_s, u"1"_s));
  EXPECT_TRUE(Broken(u"大于"_s, u"ten"_s, u"abc"_s));
}

TEST(ProofingRules, CannotBeTestedBeyondTheirMeans) {
  EXPECT_THROW(Broken(u"大于"_s, u"1"_s, u"99999999999"_s), NumberError);
  EXPECT_THROW(Broken(u"包含"_s, u"[a"_s, u"a"_s), PatternError);
}

TEST(ProofingRules, AskForADuplicateOnlyWhereThatIsForbidden) {
  int asked = 0;
  const auto none = [&] { return ++asked == 0; };
  EXPECT_FALSE(TestRule(Rule(u"不能是"_s, u"数字"_s), u"甲"_s, none));
  EXPECT_EQ(asked, 0);
  EXPECT_FALSE(TestRule(Rule(u"不能是"_s, u"重复值"_s), u"甲"_s, none));
  EXPECT_EQ(asked, 1);
}

TEST(ProofingLists, OfferRelationsAndKeywords) {
  const QStringList relations{u"大于"_s,     u"大于等于"_s, u"等于"_s,   u"不等于"_s, u"小于"_s,
                              u"小于等于"_s, u"包含"_s,     u"不包含"_s, u"只能是"_s, u"不能是"_s};
  EXPECT_EQ(ProofingRelations(), relations);
  EXPECT_EQ(ProofingKeywords(u"只能是"_s), (QStringList{u"数字"_s, u"日期"_s, u"自定义格式"_s}));
  EXPECT_EQ(ProofingKeywords(u"不能是"_s), (QStringList{u"数字"_s, u"日期"_s, u"重复值"_s}));
  EXPECT_TRUE(ProofingKeywords(u"大于"_s).isEmpty());
}

}  // namespace
}  // namespace folvane::test
