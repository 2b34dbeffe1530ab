#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "query/frmfhfind.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace {

/// What the database refuses while the browser opens its records, and what comes of it.
class RefusedTest : public TwelveRecordsTest {
 protected:
  /// A class "科技" (3) with the table Kj, which no one has opened yet.
  void AddSecondClass() {
    design_->AddClass(3, u"科技"_s);
    design_->AddPlainTable(u"Kj"_s, u"科技文件"_s, 3);
    design_->AddRecords(u"Kj"_s, 2);
  }
};

const QString kProgramError = u"程序出错，请将下列出错提示向程序供应商联系！"_s;

void Query(const Browser& browser, const QString& condition) {
  WithWindow(u"frmfhfind"_s, [condition](QWidget& window) {
    static_cast<frmfhfind&>(window).ReturnSql = condition;
    window.hide();
  });
  browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
}

QString ListHint(const Browser& browser) { return Find<QLabel>(browser.Window(), u"ListHint"_s).text(); }

}  // namespace

FOLVANE_ON_EACH_DATABASE(RefusedTest);

TEST_P(RefusedTest, ARefusedQueryIsNotWhatIsRemembered) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    Query(browser, u"Lwdj.RegID < '4'"_s);
    Query(browser, u"Lwdj.NoSuchField = '1'"_s);
    EXPECT_FALSE(Shared().CurrentRecords.IsOpen());
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), u"Lwdj.RegID < '4'"_s) << "the one before is in force again";
  });
  EXPECT_EQ(Remembered(), u"Lwdj,Lwdj.RegID < '4'"_s);
}

TEST_P(RefusedTest, AConditionKeptFromBeforeThatFailsIsNamedOnceAndForgotten) {
  MessageBoxes messages;
  Remember(u"Lwdj,NoSuchField = 1"_s);
  InBrowser([&](const Browser& browser) {
    ASSERT_EQ(messages.Requests().size(), 1u);
    const MessageRequest request = messages.Last();
    EXPECT_TRUE(request.text.startsWith(kProgramError));
    EXPECT_THAT(request.note.toStdString(), HasSubstr("NoSuchField = 1"));
    EXPECT_THAT(request.note.toStdString(), HasSubstr("刷新"));
    EXPECT_THAT(request.details.toStdString(), HasSubstr("Select * From Lwdj Where NoSuchField = 1"));
    EXPECT_TRUE(Find<QToolButton>(browser.Window(), u"LiftFilter"_s).isVisible());
  });
  EXPECT_EQ(Remembered(), u"Lwdj,"_s);
  InBrowser([&](const Browser&) { EXPECT_EQ(messages.Requests().size(), 1u) << "no second greeting"; });
}

TEST_P(RefusedTest, RefreshLiftsAConditionThatFailedAtTheStart) {
  MessageBoxes messages;
  Remember(u"Lwdj,NoSuchField = 1"_s);
  InBrowser([&](const Browser& browser) {
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(browser.List().model()->rowCount(), 12);
    EXPECT_EQ(ListHint(browser), QString());
  });
}

TEST_P(RefusedTest, CommandsThatNeedRecordsAreOffUntilTheyAreOpenAgain) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    Query(browser, u"Lwdj.NoSuchField = '1'"_s);
    messages.Clear();
    EXPECT_EQ(ListHint(browser), u"未能打开表“来文登记”的记录。按 F5 刷新以取消上面的条件，显示全部。"_s);
    for (const QString& entry :
         {u"mnu_File1_Add"_s, u"mnu_File4_Property"_s, u"mnu_File3_Del"_s, u"mnu_Tool1_BUpdate"_s}) {
      EXPECT_FALSE(browser.On(entry)) << entry.toStdString();
    }
    EXPECT_FALSE(browser.KeyOn(u"NEW"_s));
    EXPECT_TRUE(browser.On(u"mnu_Tool4_HSearch"_s));
    Query(browser, u"Lwdj.RegID < '4'"_s);
    EXPECT_TRUE(browser.On(u"mnu_File1_Add"_s));
    EXPECT_TRUE(browser.On(u"mnu_Tool1_BUpdate"_s));
    EXPECT_TRUE(browser.KeyOn(u"NEW"_s));
    EXPECT_FALSE(browser.KeyOn(u"PrePage"_s));
  });
  EXPECT_TRUE(messages.Requests().empty());
}

TEST_P(RefusedTest, AnOrderByAFieldThatIsGoneIsReplacedByAnother) {
  MessageBoxes messages;
  Database().Native(u"insert into FindCirOrder(TableName, OrderStr, UserID) values('Lwdj', 'NoSuchField Asc', 1)"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(ListHint(browser), u"未能打开表“来文登记”的记录。按 F5 刷新以重试，或按 Ctrl+T 按其他字段排序。"_s);
    WithWindow(u"FrmOrderBy"_s, [](QWidget& window) {
      EXPECT_EQ(Find<QAbstractItemView>(window, u"LV2"_s).model()->rowCount(), 0);
      Click(Find<QAbstractButton>(window, u"CmdSort(3)"_s));
      Click(Find<QAbstractButton>(window, u"CmdOK"_s));
    });
    browser.Entry(u"mnu_Tool3_Sort"_s).trigger();
    EXPECT_EQ(browser.List().model()->rowCount(), 12);
    EXPECT_EQ(ListHint(browser), QString());
    EXPECT_TRUE(browser.On(u"mnu_File1_Add"_s));
  });
  EXPECT_EQ(messages.Requests().size(), 1u) << "that of the opening";
}

TEST_P(RefusedTest, AWordThatTheDatabaseRefusesStaysInTheSearchBox) {
  MessageBoxes messages;
  design_->Insert(u"SimSearch"_s, u"TableName,DataField,ChnDataField,OrderNo,FieldValue"_s,
                  {u"Lwdj"_s, u"RegID"_s, u"登记号"_s, u"1"_s, u"<null>"_s});
  InBrowser([&](const Browser& browser) {
    Find<QComboBox>(browser.Window(), u"CboValue"_s).setEditText(u"不是数"_s);
    Click(Find<QPushButton>(browser.Window(), u"CmdSearch"_s));
    EXPECT_EQ(messages.Requests().size(), 1u);
    EXPECT_EQ(TextIn(browser.Window(), u"CboValue"_s), u"不是数"_s);
  });
}

TEST_P(RefusedTest, AClassThatCouldNotBeReadIsReadWithTheNextClick) {
  AddSecondClass();
  for (int number = 1; number <= 4; ++number) {
    MessageBoxes messages;
    InBrowser([&](const Browser& browser) {
      log_.reset();
      {
        const LockedStatement locked(*Connected(), number);
        browser.Choose(u"C3\\"_s);
        if (!locked.WasRun()) return;
      }
      ASSERT_EQ(messages.Requests().size(), 1u) << number;
      EXPECT_TRUE(messages.Last().text.startsWith(kProgramError));
      EXPECT_FALSE(messages.Last().details.isEmpty());
      EXPECT_EQ(browser.KeysBelow(u"C3\\"_s), QStringList()) << number;
      EXPECT_EQ(ListHint(browser), u"未能打开“科技”。请再次点击它以重试。"_s);
      browser.Choose(u"C3\\"_s);
      browser.Choose(u"Kj"_s);
      EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"2"_s, u"1"_s})) << number;
    });
  }
}

TEST_P(RefusedTest, ATableThatCouldNotBeOpenedIsOpenedWithTheNextClick) {
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2);
  design_->AddRecords(u"Fwdj"_s, 2);
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    log_.reset();
    {
      const LockedStatement locked(*Connected(), 2);  // the first asks whether it has a date, this one for its columns
      browser.Choose(u"Fwdj"_s);
    }
    EXPECT_EQ(messages.Requests().size(), 1u);
    EXPECT_FALSE(Find(browser.Window(), u"FraSearch"_s).isEnabled());
    EXPECT_EQ(ListHint(browser), u"未能打开“发文登记”。请再次点击它以重试。"_s);
    browser.Choose(u"Fwdj"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"2"_s, u"1"_s}));
  });
}

}  // namespace folvane::test
