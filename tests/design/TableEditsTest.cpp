#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "design/FormArrangement.h"
#include "design/RebaseDesign.h"
#include "design/SmallDesign.h"
#include "design/TableEdits.h"
#include "support/QtPrinting.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

QStringList Mentions(const Design& design, const QString& word) {
  QStringList lines;
  for (const QString& line : QString::fromUtf8(DesignText(design)).split(u'\n'))
    if (line.contains(word)) lines << line;
  return lines;
}

const Design::Control* ControlOf(const Design::Table& table, const QString& field) {
  for (const Design::Control& control : table.controls)
    if (control.field == field) return &control;
  return nullptr;
}

bool HasOverlap(const Design::Table& table) {
  for (const Design::Control& one : table.controls)
    for (const Design::Control& other : table.controls)
      if (&one < &other && design::MakesControl(one) && design::MakesControl(other) && design::Overlap(one, other))
        return true;
  return false;
}

TEST(TableEditsTest, AFieldThatIsNamedAnewIsNamedSoEverywhere) {
  Design small = SmallDesign();
  design::RenameField(small, u"gdwj"_s, u"AMAINTITLE"_s, u"题目"_s);
  const Design::Table& archive = TableOf(small, u"Gdwj"_s);
  EXPECT_EQ(archive.fields[4].name, u"题目");
  EXPECT_NE(ControlOf(archive, u"题目"_s), nullptr);
  EXPECT_EQ(archive.columns[4].field, u"题目");
  EXPECT_EQ(archive.searchFields[0].field, u"题目");
  EXPECT_EQ(small.transfers[0].links[0].destination, u"题目");
  EXPECT_EQ(small.transfers[0].links[0].source, u"Amaintitle") << "the other table keeps its own";
  design::RenameField(small, u"Gdwj"_s, u"ArchiveNo"_s, u"档号"_s);
  EXPECT_EQ(TableOf(small, u"Gdwj"_s).numberField, u"档号");
  EXPECT_THROW(design::RenameField(small, u"Gdwj"_s, u"题目"_s, u"select"_s), DataError);
  EXPECT_THROW(design::RenameField(small, u"Gdwj"_s, u"题目"_s, u"fondsno"_s), DataError);
  EXPECT_NO_THROW(design::RenameField(small, u"Gdwj"_s, u"FondsNo"_s, u"fondsno"_s)) << "the same name in other case";
}

TEST(TableEditsTest, ConditionsOfUsersFollowNames) {
  Design small = SmallDesign();
  Design::Rights& rights = small.users[1].rights[0];
  rights.condition = u"Lwdj.SecurityClass Is Null Or [securityclass] = 'SecurityClass' Or Gdwj.SecurityClass = ''"_s;
  design::RenameField(small, u"lwdj"_s, u"SecurityClass"_s, u"密级"_s);
  EXPECT_EQ(rights.condition, u"Lwdj.密级 Is Null Or [密级] = 'SecurityClass' Or Gdwj.SecurityClass = ''");
  EXPECT_EQ(rights.conditionFields, QStringList{u"密级"_s});
  design::RenameTable(small, u"Lwdj"_s, u"来文"_s);
  EXPECT_EQ(rights.condition, u"来文.密级 Is Null Or [密级] = 'SecurityClass' Or Gdwj.SecurityClass = ''");
  EXPECT_EQ(rights.table, u"来文");
  rights.condition = u"密级 = 'not closed"_s;
  design::RenameField(small, u"来文"_s, u"密级"_s, u"SecurityClass"_s);
  EXPECT_EQ(rights.condition, u"密级 = 'not closed");
}

TEST(TableEditsTest, AFieldThatIsTakenOutIsNamedNowhere) {
  Design small = SmallDesign();
  design::RemoveField(small, u"Gdwj"_s, u"FileYear"_s);
  design::RemoveField(small, u"Gdwj"_s, u"ArchiveNo"_s);
  EXPECT_THAT(Mentions(small, u"FileYear"_s), IsEmpty());
  EXPECT_THAT(Mentions(small, u"ArchiveNo"_s), IsEmpty());
  design::RemoveField(small, u"Lwdj"_s, u"Amaintitle"_s);
  EXPECT_THAT(small.transfers[0].links, IsEmpty());
}

TEST(TableEditsTest, ATableIsNamedAnewAndTakenOutEverywhere) {
  Design small = SmallDesign();
  TableOf(small, u"Gdwj"_s).parent = u"Lwdj"_s;
  design::RenameTable(small, u"lwdj"_s, u"来文"_s);
  EXPECT_THAT(Mentions(small, u"Lwdj,"_s), IsEmpty());
  EXPECT_EQ(TableOf(small, u"Gdwj"_s).parent, u"来文");
  EXPECT_EQ(small.transfers[0].source, u"来文");
  EXPECT_EQ(small.reports[0].group, u"来文");
  EXPECT_EQ(small.users[1].rights[0].table, u"来文");
  EXPECT_THROW(design::RenameTable(small, u"来文"_s, u"GDWJ"_s), DataError);
  design::RemoveTable(small, u"来文"_s);
  EXPECT_THAT(Mentions(small, u"来文"_s), IsEmpty());
  EXPECT_EQ(small.tables.size(), 1u);
}

TEST(TableEditsTest, AClassWithTablesGoesOnlyWhereTheyHaveAnotherPlace) {
  Design small = SmallDesign();
  EXPECT_THROW(design::RemoveClass(small, 2), DataError);
  const int below = design::AddClass(small, u"急件"_s, 2);
  TableOf(small, u"Lwdj"_s).classId = below;
  design::RemoveClass(small, below);
  EXPECT_EQ(TableOf(small, u"Lwdj"_s).classId, 2);
  EXPECT_EQ(small.classes.size(), 2u);
}

TEST(TableEditsTest, ADictionaryThatIsNamedAnewIsTheFieldsDictionaryStill) {
  Design small = SmallDesign();
  design::RenameDictionary(small, u"密级"_s, u"保密等级"_s);
  EXPECT_EQ(FieldOf(small, u"Lwdj"_s, u"SecurityClass"_s).dictionary, u"保密等级");
  EXPECT_EQ(small.dictionaries[0].name, u"保密等级");
  EXPECT_THROW(design::RenameDictionary(small, u"保密等级"_s, u""_s), DataError);
}

TEST(TableEditsTest, NamesAreMadeOfCaptions) {
  const auto none = [](const QString&) { return false; };
  EXPECT_EQ(design::NameFor(u"合同金额(万元)"_s, none), u"合同金额万元");
  EXPECT_EQ(design::NameFor(u"2026年"_s, none), u"年");
  EXPECT_EQ(design::NameFor(u"order"_s, none), u"Forder");
  EXPECT_EQ(design::NameFor(u"'--;"_s, none), u"字段");
  EXPECT_EQ(design::NameFor(QString(100, u'长'), none), QString(21, u'长'));
  EXPECT_EQ(design::NameFor(u"备注"_s, [](const QString& name) { return name == u"备注"; }), u"备注2");
  EXPECT_EQ(design::NameFor(QString(100, u'长'), [](const QString& name) { return name == QString(21, u'长'); }),
            QString(20, u'长') + u'2');
}

TEST(TableEditsTest, NewFieldsStandOnTheFormWithoutHidingEachOther) {
  Design::Table table = design::NewTable(u"T"_s, u"表"_s, 2, nullptr);
  const QStringList types = design::FieldTypeNames();
  for (int number = 0; number < 30; ++number) {
    const int length = number % 3 == 0 ? 200 : 20;
    design::AddField(table, {u"F%1"_s.arg(number), u"字段%1"_s.arg(number), types[number % types.size()], length, {}});
  }
  EXPECT_EQ(table.columns.size(), 33u);
  EXPECT_FALSE(HasOverlap(table));
  Design whole;
  whole.classes = {{2, u"类"_s, 1}};
  whole.tables = {table};
  EXPECT_THAT(CheckDesign(whole), IsEmpty());
}

TEST(TableEditsTest, ColumnsWithAMeaningOfTheirOwnGetTheirControls) {
  const Design::Table table = design::NewTable(u"T"_s, u"表"_s, 2, nullptr);
  EXPECT_EQ(ControlOf(table, u"CreatedDate"_s)->type, 4) << "a new record has today there";
  EXPECT_EQ(design::ControlTypeFor({u"fondsno"_s, u"全宗"_s, u"文本型"_s, 4, {}}), 6);
  EXPECT_EQ(design::ControlTypeFor({u"AecNo"_s, u"类别"_s, u"文本型"_s, 4, {}}), 7);
}

TEST(TableEditsTest, AControlFollowsItsFieldUnlessItWasChosen) {
  Design::Table table = design::NewTable(u"T"_s, u"表"_s, 2, nullptr);
  for (const QString& name : {u"A"_s, u"B"_s, u"C"_s}) {
    design::AddField(table, {name, name, u"文本型"_s, 20, {}});
    design::AddToSearch(table, table.fields.back());
  }
  design::ChangeField(table, u"B"_s, [](Design::Field& field) { field.type = u"日期型"_s; });
  EXPECT_EQ(ControlOf(table, u"B"_s)->type, 4);
  EXPECT_EQ(table.searchFields[2].type, 3);
  design::ChangeField(table, u"A"_s, [](Design::Field& field) { field.length = 300; });
  EXPECT_EQ(ControlOf(table, u"A"_s)->type, design::kLinesControl);
  EXPECT_FALSE(HasOverlap(table));
  for (Design::Control& control : table.controls)
    if (control.field == u"C") control.type = 6;
  design::ChangeField(table, u"C"_s, [](Design::Field& field) { field.dictionary = u"密级"_s; });
  EXPECT_EQ(ControlOf(table, u"C"_s)->type, 6);
  EXPECT_EQ(table.searchFields[3].type, 4);
}

TEST(TableEditsTest, AColumnIsAsWideAsItsFieldNeedsUntilSomebodyChooses) {
  Design::Table table = design::NewTable(u"T"_s, u"表"_s, 2, nullptr);
  design::AddField(table, {u"A"_s, u"甲"_s, u"文本型"_s, 60, {}});
  EXPECT_EQ(table.columns.back().width, 2700);
  design::ChangeField(table, u"A"_s, [](Design::Field& field) { field.length = 20; });
  EXPECT_EQ(table.columns.back().width, 900);
  design::CaptionField(table, u"A"_s, u"一个很长的标题"_s);
  EXPECT_EQ(table.columns.back().width, 14 * 110 + 200);
  table.columns.back().width = 1234;
  design::ChangeField(table, u"A"_s, [](Design::Field& field) { field.length = 100; });
  EXPECT_EQ(table.columns.back().width, 1234);
}

TEST(TableEditsTest, AnArrangedFormHasTwoColumnsInTheOrderOfTheEnterKey) {
  Design small = SmallDesign();
  Design::Table& letters = TableOf(small, u"Lwdj"_s);
  for (Design::Control& control : letters.controls) control.left = control.top = 0;
  design::ArrangeForm(letters);
  EXPECT_FALSE(HasOverlap(letters));
  std::vector<std::pair<int, int>> places;
  for (const Design::Control& control : letters.controls)
    if (design::MakesControl(control)) places.emplace_back(control.top, control.left);
  EXPECT_THAT(places, ElementsAre(std::pair(0, 1350), std::pair(0, 6300), std::pair(480, 1350), std::pair(1440, 1350),
                                  std::pair(1440, 6300)));
}

TEST(CompareDesignsTest, WhatIsNewIsToldWithItsSize) {
  QStringList changes;
  for (const DesignChange& change : CompareDesigns({}, SmallDesign())) changes << change.where + u' ' + change.what;
  EXPECT_TRUE(changes.contains(u"表“收文登记”(Lwdj) 新增，5 个字段"_s)) << changes.join(u'\n').toStdString();
  EXPECT_TRUE(changes.contains(u"字典“密级” 新增，2 个词条"_s));
  EXPECT_TRUE(changes.contains(u"类别“收文管理”(2) 新增"_s));
}

TEST(RebaseDesignTest, BothSidesChangesComeTogetherAndTheOthersWinWhereTheyMeet) {
  const Design base = SmallDesign();
  Design mine = base, theirs = base;
  FieldOf(mine, u"Lwdj"_s, u"RegID"_s).caption = u"编号"_s;
  FieldOf(mine, u"Lwdj"_s, u"Amaintitle"_s).caption = u"标题"_s;
  FieldOf(mine, u"Lwdj"_s, u"Amaintitle"_s).length = 300;
  TableOf(mine, u"Lwdj"_s).fields.push_back({u"Note"_s, u"备注"_s, u"文本型"_s, 200, {}});
  std::erase_if(mine.dictionaries[0].entries, [](const auto& entry) { return entry.text == u"内部"; });
  mine.fonds.clear();
  std::swap(TableOf(mine, u"Gdwj"_s).numberParts[0], TableOf(mine, u"Gdwj"_s).numberParts[1]);
  FieldOf(theirs, u"Lwdj"_s, u"Amaintitle"_s).caption = u"文件题名"_s;
  FieldOf(theirs, u"Lwdj"_s, u"FileDate"_s).caption = u"成文日"_s;
  theirs.fonds[0].name = u"别的全宗"_s;
  theirs.classes.push_back({4, u"照片"_s, 1});

  QStringList given;
  Design both = design::Rebased(base, mine, theirs, given);
  EXPECT_EQ(FieldOf(both, u"Lwdj"_s, u"RegID"_s).caption, u"编号");
  EXPECT_EQ(FieldOf(both, u"Lwdj"_s, u"Amaintitle"_s).caption, u"文件题名");
  EXPECT_EQ(FieldOf(both, u"Lwdj"_s, u"Amaintitle"_s).length, 300);
  EXPECT_EQ(FieldOf(both, u"Lwdj"_s, u"FileDate"_s).caption, u"成文日");
  EXPECT_EQ(FieldOf(both, u"Lwdj"_s, u"Note"_s).caption, u"备注");
  EXPECT_EQ(both.dictionaries[0].entries.size(), 1u);
  EXPECT_EQ(both.classes.size(), 3u);
  EXPECT_EQ(both.fonds, theirs.fonds);
  EXPECT_EQ(TableOf(both, u"Gdwj"_s).numberParts, TableOf(mine, u"Gdwj"_s).numberParts);
  EXPECT_EQ(given.size(), 2);
  EXPECT_TRUE(given.join(u' ').contains(u"Amaintitle")) << given.join(u' ').toStdString();
}

TEST(RebaseDesignTest, ATableThatOthersChangedComesBackWithAllThatWentWithIt) {
  Design base = SmallDesign();
  TableOf(base, u"Gdwj"_s).parent = u"Lwdj"_s;
  TableOf(base, u"Gdwj"_s).relationField = u"Amaintitle"_s;
  Design mine = base, theirs = base;
  design::RemoveTable(mine, u"Lwdj"_s);
  design::RemoveClass(mine, 2);
  FieldOf(theirs, u"Lwdj"_s, u"RegID"_s).caption = u"编号"_s;
  QStringList given;
  Design both = design::Rebased(base, mine, theirs, given);
  PutInOrder(both);
  EXPECT_EQ(both, theirs);
  EXPECT_EQ(given, QStringList{u"表“收文登记”(Lwdj)"_s});
}

TEST(RebaseDesignTest, AFieldThatOthersChangedComesBackWithAllThatWentWithIt) {
  const Design base = SmallDesign();
  for (const QString& name : {u"Amaintitle"_s, u"FileYear"_s, u"ArchiveNo"_s}) {
    Design mine = base, theirs = base;
    design::RemoveField(mine, u"Gdwj"_s, name);
    FieldOf(theirs, u"Gdwj"_s, name).length = 60;
    QStringList given;
    Design both = design::Rebased(base, mine, theirs, given);
    PutInOrder(both);
    EXPECT_EQ(CompareDesigns(both, theirs).size(), 0u) << name.toStdString();
    EXPECT_EQ(given.size(), 1) << name.toStdString();
  }
}

TEST(RebaseDesignTest, WithoutOwnChangesItIsAsTheOthersHaveIt) {
  const Design base = SmallDesign();
  Design theirs = base;
  theirs.tables.pop_back();
  QStringList given;
  EXPECT_EQ(design::Rebased(base, base, theirs, given), theirs);
  EXPECT_EQ(design::Rebased(base, theirs, base, given), theirs);
  EXPECT_EQ(given, QStringList());
}

}  // namespace
}  // namespace folvane::test
