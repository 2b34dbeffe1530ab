#include <QComboBox>
#include <QPushButton>
#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "browser/QuickSearch.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;

TEST(QuickSearchTest, TheTypeOfAFieldGivesItsWords) {
  EXPECT_EQ(RelationWords(u"数值型"_s),
            (QStringList{u"等于"_s, u"不等于"_s, u"大于"_s, u"小于"_s, u"大于等于"_s, u"小于等于"_s}));
  EXPECT_EQ(RelationWords(u"档案日期型"_s), (QStringList{u"包含"_s, u"等于"_s, u"不包含"_s, u"不等于"_s}));
  EXPECT_EQ(RelationWords(u"日期型"_s), (QStringList{u"等于"_s, u"包含"_s, u"不等于"_s, u"不包含"_s}));
}

TEST(QuickSearchTest, WordsBecomeOperatorsAndEveryValueIsQuoted) {
  EXPECT_EQ(SearchCondition(u"RegID"_s, u"大于等于"_s, u"3"_s), u"RegID >= '3'"_s);
  EXPECT_EQ(SearchCondition(u"DocNo"_s, u"不等于"_s, u"a'b"_s), u"DocNo <> 'a''b'"_s);
  EXPECT_EQ(SearchCondition(u"DocNo"_s, u"等于"_s, u"[1]"_s), u"DocNo = '[1]'"_s);
  EXPECT_EQ(SearchCondition(u"DocNo"_s, u"包含"_s, u"[1]'"_s), u"DocNo Like '%[[]1]''%'"_s);
  EXPECT_EQ(SearchCondition(u"DocNo"_s, u"不包含"_s, u"x"_s), u"DocNo Not Like '%x%'"_s);
}

TEST(QuickSearchTest, AnEmptyValueAsksForNullsToo) {
  EXPECT_EQ(SearchCondition(u"DocNo"_s, u"等于"_s, QString()), u"(DocNo = '' Or DocNo Is Null)"_s);
  EXPECT_EQ(SearchCondition(u"DocNo"_s, u"不等于"_s, QString()), u"(DocNo <> '' Or DocNo Is Not Null)"_s);
}

TEST(QuickSearchTest, AHistoryIsOneText) {
  EXPECT_EQ(HistoryText({u"a"_s, u"b"_s}), u"@a@b@"_s);
  EXPECT_EQ(HistoryValues(u"@a@b@a@"_s), (QStringList{u"a"_s, u"b"_s}));
  EXPECT_EQ(HistoryValues(QString()), QStringList());
}

namespace {

class SearchBarTest : public TwelveRecordsTest {
 protected:
  void SetUp() override {
    TwelveRecordsTest::SetUp();
    const QString columns = u"TableName,DataField,ChnDataField,OrderNo,FieldValue"_s;
    design_->Insert(u"SimSearch"_s, columns, {u"Lwdj"_s, u"Amaintitle"_s, u"题名"_s, u"1"_s, u"@题名3@旧@"_s});
    design_->Insert(u"SimSearch"_s, columns, {u"Lwdj"_s, u"RegID"_s, u"登记号"_s, u"2"_s, u"<null>"_s});
  }
  QString History() { return design_->Value(u"select FieldValue from SimSearch where DataField = 'Amaintitle'"_s); }
};

QStringList EntriesOf(const Browser& browser, const QString& name) {
  const QComboBox& combo = Find<QComboBox>(browser.Window(), name);
  QStringList entries;
  for (int at = 0; at < combo.count(); ++at) entries << combo.itemText(at);
  return entries;
}

void SearchFor(const Browser& browser, const QString& value) {
  Find<QComboBox>(browser.Window(), u"CboValue"_s).setEditText(value);
  Click(Find<QPushButton>(browser.Window(), u"CmdSearch"_s));
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(SearchBarTest);

TEST_P(SearchBarTest, TheFieldsOfTheTableFillTheParallelLists) {
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(EntriesOf(browser, u"CboChnFields"_s), (QStringList{u"题名"_s, u"登记号"_s}));
    EXPECT_EQ(EntriesOf(browser, u"CboFields"_s), (QStringList{u"Amaintitle"_s, u"RegID"_s}));
    EXPECT_EQ(EntriesOf(browser, u"CboFieldType"_s), (QStringList{u"文本型"_s, u"数值型"_s}));
    EXPECT_EQ(EntriesOf(browser, u"CboFieldValues"_s), (QStringList{u"@题名3@旧@"_s, QString()}));
    EXPECT_EQ(TextIn(browser.Window(), u"CboRelation"_s), u"包含"_s);
    EXPECT_EQ(EntriesOf(browser, u"CboValue"_s), (QStringList{u"题名3"_s, u"旧"_s}));
    EXPECT_EQ(TextIn(browser.Window(), u"CboValue"_s), QString());
  });
}

TEST_P(SearchBarTest, AnotherFieldOffersItsWords) {
  InBrowser([&](const Browser& browser) {
    Find<QComboBox>(browser.Window(), u"CboChnFields"_s).setCurrentIndex(1);
    EXPECT_EQ(TextIn(browser.Window(), u"CboRelation"_s), u"等于"_s);
    EXPECT_EQ(EntriesOf(browser, u"CboRelation"_s).size(), 6);
    EXPECT_EQ(EntriesOf(browser, u"CboValue"_s), QStringList());
  });
}

TEST_P(SearchBarTest, ASearchReplacesTheFilterAndIsRemembered) {
  InBrowser([&](const Browser& browser) {
    log_->Take();
    SearchFor(browser, u"题名1"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"12"_s, u"11"_s, u"10"_s, u"1"_s}));
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), u"Amaintitle Like '%题名1%'"_s);
    const QStringList statements = log_->Take();
    EXPECT_EQ(statements.at(0),
              u"Update SimSearch Set FieldValue = '@题名1@题名3@旧@' Where TableName = 'Lwdj' And "
              "DataField = 'Amaintitle'"_s);
    EXPECT_EQ(statements.at(1), u"Select * From Lwdj Where Amaintitle Like '%题名1%' Order By ArchiveId Desc"_s);
    EXPECT_EQ(browser.Row(), 1);
  });
  EXPECT_EQ(History(), u"@题名1@题名3@旧@"_s);
}

TEST_P(SearchBarTest, ARepeatedValueMovesToTheTop) {
  InBrowser([&](const Browser& browser) {
    SearchFor(browser, u"旧"_s);
    EXPECT_EQ(EntriesOf(browser, u"CboValue"_s), (QStringList{u"旧"_s, u"题名3"_s}));
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
  });
  EXPECT_EQ(History(), u"@旧@题名3@"_s);
}

TEST_P(SearchBarTest, ALongHistoryIsCutForStorageAtWholeCharacters) {
  InBrowser([&](const Browser& browser) {
    SearchFor(browser, QString(300, u'档'));
    EXPECT_EQ(EntriesOf(browser, u"CboValue"_s).size(), 3) << "the list in memory keeps it all";
  });
  EXPECT_EQ(History(), u"@"_s + QString(249, u'档'));
}

TEST_P(SearchBarTest, AHistoryIsNeverCutInsideADoubledQuote) {
  InBrowser([&](const Browser& browser) {
    SearchFor(browser, u"a"_s + QString(300, u'\''));
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
  });
  EXPECT_TRUE(History().startsWith(u"@a'"_s));
}

TEST_P(SearchBarTest, WhatIsMissingIsAskedFor) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    SearchFor(browser, QString());
    EXPECT_EQ(messages.Last().text, u"请填入正确的查询条件"_s);
    EXPECT_EQ(messages.Last().flags, 0);
    Find<QComboBox>(browser.Window(), u"CboRelation"_s).setCurrentIndex(-1);
    SearchFor(browser, u"x"_s);
    EXPECT_EQ(messages.Last().text, u"请选择正确的连接关系"_s);
    Find<QComboBox>(browser.Window(), u"CboChnFields"_s).setCurrentIndex(-1);
    SearchFor(browser, u"x"_s);
    EXPECT_EQ(messages.Last().text, u"请选择需要查询的字段"_s);
  });
}

TEST_P(SearchBarTest, EqualToNothingFindsEmptyFieldsAndNulls) {
  design_->Run(u"update Lwdj set Amaintitle = null where RegID = 4"_s);
  design_->Run(u"update Lwdj set Amaintitle = '' where RegID = 5"_s);
  InBrowser([&](const Browser& browser) {
    Find<QComboBox>(browser.Window(), u"CboRelation"_s).setCurrentIndex(1);
    SearchFor(browser, QString());
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"5"_s, u"4"_s}));
  });
}

TEST_P(SearchBarTest, UnequalToNothingFindsNearlyAll) {
  design_->Run(u"update Lwdj set Amaintitle = null where RegID = 4"_s);
  design_->Run(u"update Lwdj set Amaintitle = '' where RegID = 5"_s);
  InBrowser([&](const Browser& browser) {
    Find<QComboBox>(browser.Window(), u"CboRelation"_s).setCurrentText(u"不等于"_s);
    SearchFor(browser, QString());
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), u"(Amaintitle <> '' Or Amaintitle Is Not Null)"_s);
    EXPECT_EQ(browser.List().model()->rowCount(), 11) << "all but the null";
  });
}

TEST_P(SearchBarTest, AQuoteIsFoundAsItStandsAndRemembered) {
  design_->Run(u"update Lwdj set Amaintitle = '关于''九五''规划' where RegID = 4"_s);
  InBrowser([&](const Browser& browser) {
    SearchFor(browser, u"'九五'"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList{u"4"_s});
  });
  EXPECT_EQ(History(), u"@'九五'@题名3@旧@"_s);
}

TEST_P(SearchBarTest, ABracketIsFoundAsItStands) {
  design_->Run(u"update Lwdj set Amaintitle = '国发[2002]1号' where RegID = 4"_s);
  InBrowser([&](const Browser& browser) {
    SearchFor(browser, u"[2002]"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList{u"4"_s});
  });
}

TEST_P(SearchBarTest, AConditionThatTheDatabaseRefusesIsToldAndTheWindowGoesOn) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    Find<QComboBox>(browser.Window(), u"CboChnFields"_s).setCurrentIndex(1);
    SearchFor(browser, u"不是数"_s);
    EXPECT_EQ(messages.Requests().size(), 1u);
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList());
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(browser.List().model()->rowCount(), 12);
  });
}

}  // namespace folvane::test
