#include "design/Shape.h"
#include "designer/DictionariesPage.h"
#include "designer/PageFixture.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kDictionaries = u"GrdDictionaries"_s, kEntries = u"GrdEntries"_s;

class DictionariesPageTest : public PageTest<designer::DictionariesPage> {
 protected:
  const std::vector<Design::DictionaryEntry>& Entries(const QString& dictionary) {
    return design::FindNamed(Wanted().dictionaries, dictionary)->entries;
  }
};
FOLVANE_ON_EACH_DATABASE(DictionariesPageTest);

TEST_P(DictionariesPageTest, ShowsTheDictionariesWithTheirUsesAndTheEntriesOfTheCurrentOne) {
  EXPECT_EQ(Rows(kDictionaries), QStringList{u"密级|2 - 字符型|归档文件.密级、收文登记.密级"_s});
  EXPECT_EQ(Rows(kEntries), QStringList({u"内部|N|001|是"_s, u"秘密|M|002|是"_s}));
  EXPECT_EQ(UnnamedControls(Shown()), QStringList());
}

TEST_P(DictionariesPageTest, ANameIsChangedWhereverItIsUsed) {
  Write(kDictionaries, 0, 0, u"保密级别"_s);
  for (const Design::Table& table : Wanted().tables)
    EXPECT_EQ(design::FindNamed(table.fields, u"SecurityClass"_s)->dictionary, u"保密级别");
  ExpectTakenBack();
}

TEST_P(DictionariesPageTest, AnEmptyNameOrOneInUseIsRefused) {
  Add(kDictionaries, u"载体"_s);
  EXPECT_EQ(Rows(kDictionaries).value(1), u"载体|2 - 字符型|");
  const Design before = Wanted();
  Write(kDictionaries, 1, 0, u" "_s);
  EXPECT_EQ(Told(), u"字典没有名称。");
  Write(kDictionaries, 1, 0, u"密级"_s);
  EXPECT_EQ(Told(), u"已有字典“密级”。");
  EXPECT_EQ(Wanted(), before);
  Write(kDictionaries, 1, 0, u"王'某 \"x\"; Drop Table Lwdj--"_s);
  EXPECT_EQ(Wanted().dictionaries[1].name, u"王'某 \"x\"; Drop Table Lwdj--");
  ExpectTakenBack();
}

TEST_P(DictionariesPageTest, NewDictionariesHaveNamesOfTheirOwn) {
  Add(kDictionaries);
  Add(kDictionaries);
  EXPECT_EQ(Rows(kDictionaries).mid(1), QStringList({u"新字典|2 - 字符型|"_s, u"新字典2|2 - 字符型|"_s}));
  Shown().ShowDictionary(u"新字典"_s);
  EXPECT_EQ(Grid(kDictionaries).currentIndex().row(), 1);
  EXPECT_EQ(Rows(kEntries), QStringList());
  ExpectTakenBack();
}

TEST_P(DictionariesPageTest, ADictionaryGoesWithItsMentionInFields) {
  Remove(kDictionaries, 0);
  EXPECT_TRUE(Wanted().dictionaries.empty());
  for (const Design::Table& table : Wanted().tables)
    EXPECT_EQ(design::FindNamed(table.fields, u"SecurityClass"_s)->dictionary, QString());
  const auto& controls = design::FindNamed(Wanted().tables, u"Lwdj"_s)->controls;
  EXPECT_TRUE(std::none_of(controls.begin(), controls.end(), [](const auto& each) { return each.type == 2; }));
  EXPECT_EQ(Told(), u"字典“密级”已删去，用它的 2 个字段不再有可选的词条。");
  EXPECT_EQ(Rows(kEntries), QStringList());
  ExpectTakenBack();
  EXPECT_EQ(Rows(kEntries).size(), 2);
}

TEST_P(DictionariesPageTest, NewEntriesAreSortedBehindTheOthersAndMovedOnesAreNumberedAnew) {
  Add(kEntries, u"机密"_s);
  EXPECT_EQ(Rows(kEntries).value(2), u"机密||003|否");
  Press(Grid(kEntries), Qt::Key_Up, Qt::AltModifier);
  Press(Grid(kEntries), Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(Rows(kEntries), QStringList({u"机密||001|否"_s, u"内部|N|002|是"_s, u"秘密|M|003|是"_s}));
  EXPECT_EQ(Grid(kEntries).currentIndex().row(), 0);
  ExpectTakenBack();
}

TEST_P(DictionariesPageTest, TheTickOfTheSystemsOwnEntriesStays) {
  Tick(kEntries, 0, 3);
  EXPECT_EQ(Rows(kEntries).value(0), u"内部|N|001|是");
  EXPECT_FALSE(session_->IsChanged());
}

TEST_P(DictionariesPageTest, EntriesOfASpreadsheetComeInAsOneStepWithSortKeys) {
  QString lines;
  for (int number = 1; number <= 500; ++number) lines += u"单位%1\tD%1\r\n"_s.arg(number);
  Add(kDictionaries, u"单位"_s);
  GoTo(kDictionaries, 1);
  Grid(kEntries).setFocus();
  Paste(kEntries, lines);
  ASSERT_EQ(Entries(u"单位"_s).size(), 500u);
  EXPECT_EQ(Entries(u"单位"_s)[499].text, u"单位500");
  EXPECT_EQ(Entries(u"单位"_s)[499].code, u"D500");
  EXPECT_EQ(Entries(u"单位"_s)[499].sortKey, u"500");
  EXPECT_EQ(Rows(kEntries).size(), 500);
  Undo();
  EXPECT_TRUE(Entries(u"单位"_s).empty());
  Redo();
  EXPECT_EQ(Entries(u"单位"_s).size(), 500u);
  ExpectTakenBack();
}

TEST_P(DictionariesPageTest, PastedLinesThatCannotBeAreLeftOutAndTold) {
  GoTo(kEntries, 1);
  Paste(kEntries, u"秘密\tS\n\n机密\tJ\n内部\tX\n\tZ\n绝密\t\n"_s);
  EXPECT_EQ(Rows(kEntries),
            QStringList({u"内部|N|001|是"_s, u"秘密|S|002|是"_s, u"机密|J|003|否"_s, u"绝密||004|否"_s}));
  EXPECT_EQ(Told(), u"2 处未能粘贴：词条没有内容。");
  Undo();
  EXPECT_EQ(Wanted(), session_->Stored());
}

TEST_P(DictionariesPageTest, WhatIsWantedIsAppliedAsItStands) {
  Add(kEntries, u"机'密"_s);
  Press(Grid(kEntries), Qt::Key_Up, Qt::AltModifier);
  session_->Apply(session_->Plan(), {});
  Design expected = Wanted();
  PutInOrder(expected);
  EXPECT_EQ(Read(), expected);
}

}  // namespace
}  // namespace folvane::test
