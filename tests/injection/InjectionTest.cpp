// Hostile texts through the browser and the windows that it opens: they stay values. No second statement runs, no row
// outside the user's rights is seen or changed, no file outside the store is touched.
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <gmock/gmock.h>

#include <folvane/HostServices.h>

#include "browser/BrowserTest.h"
#include "entry/FrmInput.h"
#include "injection/Watched.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::IsEmpty;

/// Twelve records of which the user may see ten, and what a hostile text would like to reach.
class InjectionTest : public TwelveRecordsTest {
 protected:
  void SetUp() override {
    TwelveRecordsTest::SetUp();
    design_->Run(u"create table Canary (Name varchar(50) primary key)"_s);
    design_->Insert(u"Canary"_s, u"Name"_s, {u"alive"_s});
    for (const auto& [field, caption, order] :
         {std::tuple(u"Amaintitle"_s, u"题名"_s, u"1"_s), std::tuple(u"RegID"_s, u"登记号"_s, u"2"_s)})
      design_->Insert(u"SimSearch"_s, u"TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex,FieldValue"_s,
                      {u"Lwdj"_s, field, caption, order, u"1"_s, order, u"<null>"_s});
    Shared().UserId = u"5"_s;
    design_->Insert(u"UserPopedomScope"_s,
                    u"UserID,PopTableName,PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                    {u"5"_s, u"Lwdj"_s, u"部分"_s, u"1"_s, u"1"_s, u"1"_s, u"RegID > 2"_s});
    program_.Write(u"canary.txt"_s, "alive");
  }
  void TearDown() override {
    EXPECT_EQ(design_->Value(u"select Name from Canary"_s), u"alive"_s);
    EXPECT_EQ(design_->Value(u"select count(*) from Canary"_s), u"1"_s);
    EXPECT_EQ(design_->Value(u"select count(*) from Lwdj"_s), u"12"_s);
    EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where RegID<3 and Amaintitle like '题名%'"_s), u"2"_s);
    EXPECT_EQ(program_.Read(u"canary.txt"_s), QByteArray("alive"));
    TwelveRecordsTest::TearDown();
  }

  /// No row is shown that the rights hide, whatever was asked.
  static void ExpectNothingHidden(const Browser& browser, const QString& text) {
    for (const QString& number : browser.Column(u"LVData"_s)) EXPECT_GT(number.toInt(), 2) << text.toStdString();
  }

  /// Puts a text into everything of a window that takes one.
  static void FillAll(QWidget& window, const QString& text) {
    for (QComboBox* box : window.findChildren<QComboBox*>())
      if (box->isEditable() && box->isEnabled()) box->setEditText(text);
    for (QLineEdit* edit : window.findChildren<QLineEdit*>())
      if (edit->isEnabled() && !edit->isReadOnly()) edit->setText(text);
    for (QTextEdit* edit : window.findChildren<QTextEdit*>())
      if (edit->isEnabled() && !edit->isReadOnly()) edit->setPlainText(text);
  }

  /// Presses every button of a window once, as long as it is there.
  static void PressAll(QWidget& window) {
    QStringList names;
    for (const QPushButton* button : window.findChildren<QPushButton*>())
      if (button->isVisible() && button->isEnabled() && !button->objectName().isEmpty()) names << button->objectName();
    for (const QString& name : names) {
      auto* button = window.findChild<QPushButton*>(name);
      if (window.isVisible() && button && button->isVisible() && button->isEnabled()) button->click();
    }
  }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(InjectionTest);

TEST_P(InjectionTest, TheSearchBoxTakesTextsAsTheyAre) {
  MessageBoxes messages;
  for (int time = 1; time <= 2; ++time) {  // the second time they come as the history of the box
    InBrowser([&](const Browser& browser) {
      for (const QString& text : HostileTexts()) {
        for (const int field : {1, 0}) {  // a number, which most of them are not, and a text
          messages.Clear();
          Find<QComboBox>(browser.Window(), u"CboChnFields"_s).setCurrentIndex(field);
          Find<QComboBox>(browser.Window(), u"CboValue"_s).setEditText(text);
          Click(Find<QPushButton>(browser.Window(), u"CmdSearch"_s));
          ExpectNothingHidden(browser, text);
        }
        // A text of PostgreSQL holds no null character.
        const bool isRefused = text.contains(QChar(0)) && !OnSqlite();
        EXPECT_EQ(messages.Texts(), isRefused ? QStringList{u"文字中不能含有空字符。"_s} : QStringList())
            << text.toStdString();
      }
      browser.Key(u"Refresh"_s).trigger();
      EXPECT_EQ(browser.List().model()->rowCount(), 10);
    });
  }
}

TEST_P(InjectionTest, AFieldOfARecordKeepsTheTextAndNothingElseChanges) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    for (const QString& text : HostileTexts()) {
      if (text.size() > 100 || text.contains(QChar(0))) continue;  // longer than the column, or see below
      QString typed;
      WithWindow(u"FrmInput"_s, [&](QWidget& window) {
        auto& title = Find<QLineEdit>(window, u"Txt(2)"_s);
        Retype(title, QString());
        title.insert(text);
        typed = title.text();
        EXPECT_TRUE(static_cast<FrmInput&>(window).SaveData()) << text.toStdString();
        window.close();
      });
      browser.Entry(u"mnu_File4_Property"_s).trigger();
      const QString stored = design_->Value(u"select Amaintitle from Lwdj where RegID=12"_s);
      EXPECT_TRUE(stored == typed || !typed.isValidUtf16()) << stored.toStdString();
      EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where Amaintitle like '题名%'"_s), u"11"_s);
    }
  });
  EXPECT_THAT(messages.Texts(), IsEmpty());
}

TEST_P(InjectionTest, ANullCharacterIsStoredOrItIsTold) {
  MessageBoxes messages;
  const QString text = u"a"_s + QChar(0) + u'b';
  InBrowser([&](const Browser& browser) {
    bool isSaved = false;
    WithWindow(u"FrmInput"_s, [&](QWidget& window) {
      PasteInto(window, u"Txt(2)"_s, text);
      isSaved = static_cast<FrmInput&>(window).SaveData();
      static_cast<FrmInput&>(window).CancelEdit();
    });
    browser.Entry(u"mnu_File4_Property"_s).trigger();
    EXPECT_EQ(isSaved, messages.Texts().isEmpty());
    EXPECT_EQ(design_->Value(u"select Amaintitle from Lwdj where RegID=12"_s), isSaved ? text : u"题名12"_s);
  });
}

TEST_P(InjectionTest, TheWindowsOfQueriesTakeTextsAsTheyAre) {
  MessageBoxes messages;
  for (const auto& [entry, name] :
       {std::pair(u"mnu_Tool5_LSearch"_s, u"frmSimFind"_s), std::pair(u"mnu_Tool4_HSearch"_s, u"frmfhfind"_s)}) {
    InBrowser([&](const Browser& browser) {
      for (const QString& text : HostileTexts()) {
        WithWindow(name, [&](QWidget& window) {
          FillAll(window, text);
          if (QAction* add = window.findChild<QAction*>(u"F_AddRecord"_s)) add->trigger();
          PressAll(window);
          window.close();
        });
        browser.Entry(entry).trigger();
        ExpectNothingHidden(browser, text);
      }
    });
  }
}

TEST_P(InjectionTest, CaptionsAndNodesOfTheDesignAreOnlyShown) {
  MessageBoxes messages;
  for (const QString& text : HostileLines(40)) {
    const QString quoted = QString(text).replace(u"'"_s, u"''"_s);
    design_->Run(u"update DynamicWindows set ChnFieldName='"_s + quoted + u"' where FieldName='Amaintitle'"_s);
    design_->Run(u"update ListViewFormat set ChnFieldName='"_s + quoted + u"' where FieldName='Amaintitle'"_s);
    design_->Run(u"update SimSearch set ChnDataField='"_s + quoted + u"' where DataField='Amaintitle'"_s);
    design_->Run(u"update Design_ClassRelation set ClassName='"_s + quoted + u"'"_s);
    InBrowser([&](const Browser& browser) {
      EXPECT_TRUE(browser.Captions().contains(text)) << text.toStdString();
      ExpectNothingHidden(browser, text);
      WithWindow(u"FrmInput"_s, [&](QWidget& window) { window.close(); });
      browser.Entry(u"mnu_File4_Property"_s).trigger();
    });
  }
}

TEST_P(InjectionTest, AnOriginalWhoseRowLeadsOutOfTheStoreTakesNoFileWithIt) {
  MessageBoxes messages;
  design_->AddOriginal(DesignedDatabase::Key(12), u"canary"_s, u"正文"_s, 1);
  for (const auto& [path, id, type] :
       {std::tuple(u".."_s, u"canary"_s, u".txt"_s), std::tuple(QString(), u"../canary"_s, u".txt"_s),
        std::tuple(program_.Path(), u"canary"_s, u".txt"_s), std::tuple(u"2002/../.."_s, u"canary"_s, u".txt"_s),
        std::tuple(u"..\\"_s, u"canary"_s, u".txt"_s), std::tuple(QString(), u"x"_s, u"/../../canary.txt"_s)}) {
    design_->Run(u"update Original_Text set FilePath='%1',ID='%2',Type='%3'"_s.arg(path, id, type));
    InBrowser([&](const Browser& browser) {
      ClickItem(browser.View(u"LVFile"_s), browser.View(u"LVFile"_s).model()->index(0, 0));
      messages.Answer(6);
      browser.Entry(u"mnu_Pop4_DelFile"_s).trigger();
    });
    EXPECT_TRUE(program_.Has(u"canary.txt"_s)) << path.toStdString() << " " << id.toStdString();
    design_->Run(u"delete from Original_Text"_s);
    design_->AddOriginal(DesignedDatabase::Key(12), u"canary"_s, u"正文"_s, 1);
  }
}

}  // namespace folvane::test
