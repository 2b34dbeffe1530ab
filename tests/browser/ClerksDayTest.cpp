#include <QComboBox>

#include "browser/BrowserTest.h"
#include "bulk/FrmReplace.h"
#include "shell/DefaultInstance.h"
#include "shell/Messages.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The browser with the real windows that it opens.
class ClerksDayTest : public TwelveRecordsTest {
 protected:
  QString TitleOf(int number) {
    return design_->Value(u"select Amaintitle from Lwdj where RegID = "_s + QString::number(number));
  }
};

// The key goes over to an edit half a second after its first change at the latest.
void Save(QWidget& window) {
  QAction& save = FindAction(window, u"TlbCool"_s, u"SaveRecord"_s);
  if (WaitUntil([&] { return save.isEnabled(); })) save.trigger();
}

QWidget& ReplaceWindow() {
  FrmReplace& window = DefaultInstance<FrmReplace>::Get();
  WaitUntil([&] { return window.isActiveWindow(); });
  return window;
}

void FillCondition(QWidget& window, const QStringList& texts) {
  for (int box = 0; box < texts.size(); ++box) {
    Find(window, u"Cmb(%1)"_s.arg(box)).setProperty("text", texts[box]);
  }
  FindAction(window, u"Toolbar1"_s, u"F_AddRecord"_s).trigger();
}

void QueryBy(const std::vector<QStringList>& conditions) {
  WithWindow(u"frmfhfind"_s, [conditions](QWidget& window) {
    for (const QStringList& condition : conditions) FillCondition(window, condition);
    FindAction(window, u"Toolbar1"_s, u"F_Query"_s).trigger();
  });
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(ClerksDayTest);

TEST_P(ClerksDayTest, ADocumentIsChangedAndTheListShowsIt) {
  InBrowser([&](const Browser& browser) {
    WithWindow(u"FrmInput"_s, [](QWidget& window) {
      Retype(Find(window, u"Txt(2)"_s), u"改过的题名"_s);
      Save(window);
    });
    DoubleClickItem(browser.List(), browser.List().model()->index(4, 0));
    EXPECT_EQ(browser.Cell(), u"8"_s);
    EXPECT_EQ(browser.List().currentIndex().siblingAtColumn(1).data().toString(), u"改过的题名"_s);
  });
  EXPECT_EQ(TitleOf(8), u"改过的题名"_s);
}

TEST_P(ClerksDayTest, ADocumentIsAddedAndTheListStandsOnIt) {
  InBrowser([&](const Browser& browser) {
    WithWindow(u"FrmInput"_s, [](QWidget& window) {
      Type(Find(window, u"Txt(2)"_s), u"新来的'文件'"_s);
      Save(window);
    });
    browser.Key(u"NEW"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共13条"_s) << "its key is the newest";
    EXPECT_EQ(browser.List().currentIndex().siblingAtColumn(1).data().toString(), u"新来的'文件'"_s);
  });
}

TEST_P(ClerksDayTest, ANewDocumentThatIsNotSavedLeavesNoTrace) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    ClickItem(browser.List(), browser.List().model()->index(4, 0));
    WithWindow(u"FrmInput"_s, [&](QWidget& window) {
      Type(Find(window, u"Txt(2)"_s), u"不要了"_s);
      messages.Answer(Answer::No);
      window.close();
    });
    browser.Key(u"NEW"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前记录：第5条/共12条"_s);
    EXPECT_EQ(browser.Cell(), u"8"_s);
  });
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj"_s), u"12"_s);
}

TEST_P(ClerksDayTest, ACompoundQueryOfTwoConditionsShowsWhatItFinds) {
  InBrowser([&](const Browser& browser) {
    QueryBy({{QString(), u"登记号"_s, u"小于"_s, u"3"_s}, {u"或"_s, u"题名"_s, u"包含"_s, u"题名11"_s}});
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"11"_s, u"2"_s, u"1"_s}));
  });
}

TEST_P(ClerksDayTest, ACaptionThatTwoFieldsShareStandsForTheFirst) {
  design_->AddTable(u"Twins"_s, u"同名"_s, 2,
                    {{u"Amaintitle"_s, u"题名"_s, u"文本型"_s}, {u"Subtitle"_s, u"题名"_s, u"文本型"_s}});
  Remember(u"Twins"_s);
  InBrowser([&](const Browser& browser) {
    QueryBy({{QString(), u"题名"_s, u"等于"_s, u"甲"_s}});
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(browser.Parameter(u"Twins"_s, 2), u"Twins.Amaintitle = '甲'"_s);
  });
}

TEST_P(ClerksDayTest, ATableWithoutListColumnsShowsOnlyTheHiddenOne) {
  design_->Run(u"delete from ListViewFormat"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.Captions(), QStringList{u"ID"_s});
    EXPECT_EQ(browser.List().columnWidth(0), 1);
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共12条"_s);
  });
}

TEST_P(ClerksDayTest, ABatchDeletionByAConditionTakesWhatItSays) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Ok);
    QueryBy({{QString(), u"登记号"_s, u"大于等于"_s, u"5"_s}});
    browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"4"_s, u"3"_s, u"2"_s, u"1"_s}));
  });
}

TEST_P(ClerksDayTest, AQuotedValueInACompoundQueryDoesNoHarm) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    QueryBy({{QString(), u"题名"_s, u"等于"_s, u"it's"_s}});
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共12条"_s);
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), QString());
  });
}

TEST_P(ClerksDayTest, ASimpleQueryFindsByPartOfATitle) {
  design_->Insert(u"SimSearch"_s, u"TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex"_s,
                  {u"Lwdj"_s, u"Amaintitle"_s, u"题名"_s, u"1"_s, u"1"_s, u"1"_s});
  InBrowser([&](const Browser& browser) {
    WithWindow(u"frmSimFind"_s, [](QWidget& window) {
      Type(Find(window, u"F_Sim(1)"_s), u"名1"_s);
      Click(Find(window, u"CmdOK"_s));
    });
    browser.Key(u"Search"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"12"_s, u"11"_s, u"10"_s, u"1"_s}));
  });
}

TEST_P(ClerksDayTest, AnOrderOfTwoFieldsIsStoredForTheUser) {
  InBrowser([&](const Browser& browser) {
    ClickItem(browser.List(), browser.List().model()->index(2, 0));
    WithWindow(u"FrmOrderBy"_s, [](QWidget& window) {
      Click(Find(window, u"CmdSort(3)"_s));
      Click(Find(window, u"CmdOK"_s));
    });
    browser.Entry(u"mnu_Tool3_Sort"_s).trigger();
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 3), u"RegID Asc,Amaintitle Asc"_s);
    EXPECT_EQ(browser.Cell(), u"10"_s) << "the selected record is found again";
  });
  EXPECT_EQ(design_->Value(u"select OrderStr from FindCirOrder"_s), u"RegID Asc,Amaintitle Asc"_s);
}

TEST_P(ClerksDayTest, ABatchUpdateReplacesPartsOfTitlesInWhatTheListShows) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Yes);
    QueryBy({{QString(), u"登记号"_s, u"小于"_s, u"3"_s}});
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    WithWindow(u"FrmBactchUpdate"_s, [](QWidget& window) {
      Find<QComboBox>(window, u"Cbo_Field"_s).setCurrentText(u"题名"_s);
      Q_EMIT Find<QComboBox>(window, u"Cbo_Field"_s).activated(1);
      Find(window, u"Cbo_Find"_s).setProperty("text", u"题名"_s);
      Find(window, u"TxtValue"_s).setProperty("text", u"标题"_s);
      Click(Find(window, u"CmdOK"_s));
    });
    browser.Entry(u"mnu_Tool1_BUpdate"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVData"_s, 1), (QStringList{u"标题2"_s, u"标题1"_s}));
  });
  EXPECT_EQ(TitleOf(3), u"题名3"_s) << "the list did not show it";
}

TEST_P(ClerksDayTest, WhatIsReplacedBesideTheEntryWindowShowsInTheList) {
  InBrowser([&](const Browser& browser) {
    WithWindow(u"FrmInput"_s, [](QWidget& window) {
      for (QAction* entry : window.findChildren<QAction*>(u"mnuReplace"_s)) entry->trigger();
      QWidget& replace = ReplaceWindow();
      Type(Find(replace, u"CboFindTxt"_s), u"题名7"_s);
      Type(Find(replace, u"CboRelaceTxt"_s), u"换了"_s);
      Click(Find(replace, u"CmdFindNext"_s));
      Click(Find(replace, u"CmdReplace"_s));
    });
    browser.Key(u"Mod"_s).trigger();
    EXPECT_EQ(browser.Cell(), u"7"_s);
    EXPECT_EQ(browser.List().currentIndex().siblingAtColumn(1).data().toString(), u"换了"_s);
  });
}

}  // namespace folvane::test
