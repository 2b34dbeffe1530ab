#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "design/RandomDesign.h"
#include "design/Shape.h"
#include "design/SmallDesign.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

std::string RefusalOf(const QByteArray& text) {
  try {
    ParseDesign(text);
    return "it was read";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::File);
    return error.what();
  }
}

QByteArray File(const QByteArray& lines) { return "folvane-design: 1\n" + lines + "...\n"; }

TEST(DesignFile, ADesignComesBackAsItWasWritten) {
  for (quint64 round = 0; round < 100; ++round) {
    Dice dice(77, round);
    const Design design = RandomDesign(dice);
    const QByteArray text = DesignText(design);
    ASSERT_EQ(ParseDesign(text), design) << "round " << round;
    ASSERT_EQ(DesignText(ParseDesign(text)), text) << "round " << round;
  }
}

TEST(DesignFile, IsReadableAndHasALineForEachField) {
  const QByteArray text = DesignText(SmallDesign());
  EXPECT_THAT(text.toStdString(), HasSubstr("\n      - {name: Amaintitle, caption: 题名, type: 文本型, length: 160, "
                                            "required: true}\n"));
  EXPECT_THAT(text.toStdString(), HasSubstr("\n  - {number: \"0188\", name: 青岚市人民政府办公室}\n"));
  EXPECT_TRUE(text.startsWith("folvane-design: 1\n"));
  EXPECT_TRUE(text.endsWith("\n...\n"));
}

TEST(DesignFile, CutAnywhereIsRefusedAsAWhole) {
  const QByteArray text = DesignText(SmallDesign());
  for (qsizetype size = 0; size + 1 < text.size(); size += 7)
    EXPECT_NE(RefusalOf(text.left(size)), "it was read") << size;
  EXPECT_THAT(RefusalOf(text.left(text.size() / 2)), testing::AnyOf(HasSubstr("不完整"), HasSubstr("UTF-8")));
}

TEST(DesignFile, OfAnotherVersionIsRefusedByItsNumber) {
  EXPECT_THAT(RefusalOf("folvane-design: 2\nclasses: []\n...\n"), HasSubstr("第 2 版"));
  EXPECT_THAT(RefusalOf("classes: []\n...\n"), HasSubstr("不是设计文件"));
}

TEST(DesignFile, ErrorsNameTheLine) {
  EXPECT_THAT(RefusalOf(File("tables:\n  - name: Lwdj\n    titel: x\n")), HasSubstr("第 4 行有错误：不认识“titel”"));
  EXPECT_THAT(RefusalOf(File("tables:\n  - name: Lwdj\n    class: two\n")),
              HasSubstr("第 4 行有错误：“class”应是整数"));
  EXPECT_THAT(RefusalOf(File("tables:\n  - name: Lwdj\n    fields:\n      - {name: A, required: maybe}\n")),
              HasSubstr("第 5 行有错误：“required”应是 true 或 false"));
  EXPECT_THAT(RefusalOf(File("fonds:\n  - {number: 1, number: 2}\n")), HasSubstr("第 3 行有错误：“number”写了两次"));
  EXPECT_THAT(RefusalOf(File("fonds: {number: 1}\n")), HasSubstr("第 2 行有错误：“fonds”应是一个列表"));
  EXPECT_THAT(RefusalOf(File("fonds: [\n")), HasSubstr("不是正确的 YAML"));
  EXPECT_THAT(RefusalOf(File("...\nfonds: []\n")), HasSubstr("只有一个文档"));
  EXPECT_THAT(RefusalOf(File("fonds:\n  - {name: \"\xff\"}\n")), HasSubstr("UTF-8"));
}

TEST(DesignFile, TwoFieldsOfOneNameAreRefusedWhereTheSecondStands) {
  EXPECT_THAT(RefusalOf(File("tables:\n  - name: Lwdj\n    fields:\n      - {name: Note}\n      - {name: NOTE}\n")),
              HasSubstr("第 6 行有错误：字段“NOTE”写了两次"));
}

TEST(DesignFile, ExcerptHoldsWhatItsTablesNeedAndJoinsAnotherDesign) {
  const Design design = SmallDesign();
  const Design excerpt = ExcerptOf(design, {u"lwdj"_s});
  EXPECT_EQ(excerpt.tables.size(), 1u);
  EXPECT_EQ(excerpt.classes.size(), 1u);
  EXPECT_EQ(excerpt.dictionaries.size(), 1u);
  EXPECT_EQ(excerpt.reports.size(), 1u);
  EXPECT_EQ(excerpt.users.size(), 1u);
  EXPECT_TRUE(excerpt.transfers.empty());
  EXPECT_EQ(Joined(design, excerpt), design);
  EXPECT_EQ(Joined(Joined({}, excerpt), design), design);
  EXPECT_THROW(ExcerptOf(design, {u"Nirgends"_s}), DataError);
}

TEST(DesignFile, JoiningKeepsEntriesAndRightsThatTheOtherDoesNotHave) {
  Design other;
  other.dictionaries = {{u"密级"_s, u"2 - 字符型"_s, true, {{u"绝密"_s, u"U"_s, u"003"_s, true}}}};
  const Design joined = Joined(SmallDesign(), other);
  EXPECT_EQ(joined.dictionaries[0].entries.size(), 3u);
}

TEST(DesignFile, NumbersOfAnotherOfficeMeanSomethingElse) {
  const Design own = SmallDesign();
  Design other;
  other.classes = {{2, u"合同管理"_s, 1}, {3, u"采购合同"_s, 2}, {4, u"归档文件"_s, 1}};
  Design::Table table{u"Htdj"_s, u"合同登记"_s, u"F"_s, 3, {}, {}, {}, {}, {}, {}, {}, {}, {}};
  table.fields = {{u"Amaintitle"_s, u"题名"_s, u"文本型"_s, 160, {}}};
  other.tables = {table};
  other.reports = {{u"1001"_s, u"合同台账"_s, u"Htdj"_s, u"1"_s}};
  const Design::Rights rights{u"Htdj"_s, u"全部"_s, true, true, true, {}, {}};
  other.users = {{u"1"_s, u"系统管理员"_s, {rights}}, {u"12"_s, u"赵六"_s, {rights}}, {u"13"_s, u"钱七"_s, {rights}}};
  QStringList told;
  const Design joined = Joined(own, other, &told);
  EXPECT_EQ(joined.classes, (std::vector<Design::Class>{{2, u"收文管理"_s, 1},
                                                        {3, u"归档文件"_s, 1},
                                                        {4, u"归档文件"_s, 1},
                                                        {5, u"合同管理"_s, 1},
                                                        {6, u"采购合同"_s, 5}}));
  EXPECT_EQ(design::FindNamed(joined.tables, u"Htdj"_s)->classId, 6);
  EXPECT_EQ(joined.reports,
            (std::vector<Design::Report>{own.reports[0], {u"1002"_s, u"合同台账"_s, u"Htdj"_s, u"1"_s}}));
  ASSERT_EQ(joined.users.size(), 3u);
  EXPECT_EQ(joined.users[0].rights.size(), 1u);
  EXPECT_EQ(joined.users[1], own.users[1]) << "the rights of a stranger are not for the one with that number";
  EXPECT_EQ(joined.users[2].name, u"钱七");
  EXPECT_EQ(told, (QStringList{u"用户“赵六”没有加入：编号 12 在这里是“王小明”"_s, u"类别“合同管理”的编号改为 5"_s,
                               u"类别“采购合同”的编号改为 6"_s, u"报表“合同台账”的编号改为 1002，模板文件也要改名"_s}));
  EXPECT_EQ(Joined(joined, other), joined) << "a second time there is nothing new";
}

}  // namespace
}  // namespace folvane::test
