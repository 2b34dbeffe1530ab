#include <gtest/gtest.h>

#include "design/ConditionNames.h"
#include "design/DesignedTransfers.h"
#include "design/Shape.h"
#include "design/SmallDesign.h"
#include "designer/RowCondition.h"

// Conditions put together line by line, and taken apart again.
namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using designer::ConditionLine;
using designer::RowCondition;

const QString kIs = u"等于"_s;

class RowConditionTest : public testing::Test {
 protected:
  const Design design_ = SmallDesign();
  const Design::Table& table_ = *design::FindNamed(design_.tables, u"Lwdj"_s);

  QString Words(const QString& sql) { return designer::ConditionShown(sql, table_); }
  QString Flaw(const RowCondition& lines) {
    return designer::FlawOf(lines, design::TablesOf(design_, nullptr).Get(u"Lwdj"_s));
  }
};

TEST_F(RowConditionTest, LinesBecomeTextAndWords) {
  const RowCondition lines{{false, 1, 0, u"SecurityClass"_s, kIs, u"秘密"_s},
                           {true, 0, 1, u"SecurityClass"_s, u"为空"_s, {}},
                           {false, 0, 0, u"RegID"_s, u"大于等于"_s, u"5"_s},
                           {false, 0, 0, u"Amaintitle"_s, u"不包含"_s, u"O'Neil [1]"_s}};
  const QString sql = designer::SqlOf(lines, table_);
  EXPECT_EQ(sql,
            u"(Lwdj.SecurityClass = '秘密' Or (Lwdj.SecurityClass Is Null Or Lwdj.SecurityClass = '')) And "
            "Lwdj.RegID >= '5' And Lwdj.Amaintitle Not Like '%O''Neil [[]1]%'");
  EXPECT_EQ(designer::WordsOf(lines, table_),
            u"(密级 等于 秘密 或 密级 为空) 与 登记号 大于等于 5 与 题名 不包含 O'Neil [1]");
  EXPECT_EQ(designer::LinesOf(sql, table_), lines);
  EXPECT_EQ(design::FieldsIn(sql, table_), QStringList({u"SecurityClass"_s, u"RegID"_s, u"Amaintitle"_s}));
}

TEST_F(RowConditionTest, EveryRelationComesBackAsItWasPutTogether) {
  for (const QString& field : {u"SecurityClass"_s, u"RegID"_s, u"FileDate"_s}) {
    for (const QString& relation : designer::RelationWords()) {
      const RowCondition lines{{false, 2, 2, field, relation, designer::TakesValue(relation) ? u"1"_s : QString()}};
      const QString sql = designer::SqlOf(lines, table_);
      EXPECT_EQ(designer::LinesOf(sql, table_), lines) << sql.toStdString();
    }
  }
}

TEST_F(RowConditionTest, ConditionsOfOtherHandsAreReadWhereTheyHaveThatForm) {
  EXPECT_EQ(Words(u"Lwdj.SecurityClass Is Null"_s), u"密级 为空");
  EXPECT_EQ(Words(u"regid > 5 and amaintitle like '关于%'"_s), u"登记号 大于 5 与 题名 开头为 关于");
  EXPECT_EQ(Words(QString()), QString());
  for (const QString& other :
       {u"Left(CreatedDate,4) = '2026'"_s, u"Other.RegID = '1'"_s, u"NoSuch = '1'"_s, u"RegID = '1"_s,
        u"(RegID = '1'"_s, u"RegID = '1')"_s, u"RegID = '1' And"_s, u"RegID In ('1','2')"_s, u"Amaintitle Like '%'"_s,
        u"RegID = '1'; Delete From Lwdj"_s, u"RegID = CreatedDate"_s, u"Amaintitle Like '[A-C]%'"_s,
        u"Amaintitle Not Like '%[0-9]%'"_s}) {
    EXPECT_EQ(designer::LinesOf(other, table_), std::nullopt) << other.toStdString();
    EXPECT_EQ(Words(other), other);
  }
}

TEST_F(RowConditionTest, WhatIsMissingOrCannotBeComparedIsTold) {
  EXPECT_EQ(Flaw({}), QString());
  EXPECT_EQ(Flaw({{false, 0, 0, {}, kIs, u"1"_s}}), u"第 1 行：没有选择字段");
  EXPECT_EQ(Flaw({{false, 0, 0, u"Gone"_s, kIs, u"1"_s}}), u"第 1 行：表中没有字段“Gone”");
  EXPECT_EQ(Flaw({{false, 0, 0, u"RegID"_s, kIs, {}}}), u"第 1 行：“登记号”没有填写比较值");
  EXPECT_EQ(Flaw({{false, 0, 0, u"RegID"_s, {}, u"1"_s}}), u"第 1 行：没有选择比较关系");
  EXPECT_EQ(Flaw({{false, 0, 0, u"RegID"_s, kIs, u"五"_s}}), u"第 1 行：“五”不是数字");
  EXPECT_EQ(Flaw({{false, 0, 0, u"FileDate"_s, kIs, u"昨天"_s}}), u"第 1 行：“昨天”不是日期");
  EXPECT_EQ(Flaw({{false, 0, 1, u"RegID"_s, kIs, u"1"_s}}), u"第 1 行：右括号多了");
  EXPECT_EQ(Flaw({{false, 2, 1, u"RegID"_s, kIs, u"1"_s}}), u"少了 1 个右括号");
  EXPECT_EQ(Flaw({{false, 1, 1, u"RegID"_s, kIs, u"1"_s}}), QString());
}

}  // namespace
}  // namespace folvane::test
