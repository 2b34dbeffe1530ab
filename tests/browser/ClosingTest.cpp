#include <QPointer>
#include <QPushButton>

#include "browser/BrowserTest.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The browser is closed by a program while the entry window stands over it.
class BrowserClosingTest : public TwelveRecordsTest {
 protected:
  const QString question_ = u"是否保存当前操作?"_s;
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(BrowserClosingTest);

TEST_P(BrowserClosingTest, TheEntryWindowGoesFirst) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    WithWindow(u"FrmInput"_s, [&](QWidget& entry) {
      EXPECT_TRUE(browser.Window().close());
      EXPECT_FALSE(entry.isVisible());
    });
    browser.Key(u"Mod"_s).trigger();
    EXPECT_FALSE(browser.Window().isVisible());
  });
  EXPECT_TRUE(messages.Requests().empty());
  EXPECT_EQ(Remembered(), u"Lwdj,"_s);
  EXPECT_FALSE(Shared().CurrentRecords.IsOpen());
}

TEST_P(BrowserClosingTest, WhatIsNotSavedIsAskedForAndSaved) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    WithWindow(u"FrmInput"_s, [&](QWidget& entry) {
      Type(Find(entry, u"Txt(2)"_s), u"新来文"_s);
      messages.Answer(Answer::Yes);
      EXPECT_TRUE(browser.Window().close());
    });
    browser.Key(u"NEW"_s).trigger();
  });
  EXPECT_EQ(messages.Texts(), QStringList{question_});
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where Amaintitle = '新来文'"_s), u"1"_s);
}

TEST_P(BrowserClosingTest, WhoeverCancelsThereStaysInBothWindows) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    WithWindow(u"FrmInput"_s, [&](QWidget& entry) {
      Type(Find(entry, u"Txt(2)"_s), u"还在写"_s);
      messages.Answer(Answer::Cancel);
      EXPECT_FALSE(browser.Window().close());
      EXPECT_TRUE(entry.isVisible());
      EXPECT_TRUE(browser.Window().isVisible());
      EXPECT_TRUE(Shared().CurrentRecords.IsOpen());
      messages.Answer(Answer::No);
    });
    browser.Key(u"NEW"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共12条"_s);
  });
  EXPECT_EQ(messages.Texts(), (QStringList{question_, question_}));
}

TEST_P(BrowserClosingTest, HiddenItWaitsForTheEntryWindowAndEndsAsIfClosed) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    WithWindow(u"FrmInput"_s, [&](QWidget& entry) {
      browser.Window().hide();
      EXPECT_TRUE(Shared().CurrentRecords.IsOpen());
      entry.close();
    });
    browser.Key(u"Mod"_s).trigger();
  });
  EXPECT_TRUE(messages.Requests().empty());
  EXPECT_EQ(Remembered(), u"Lwdj,"_s);
  EXPECT_FALSE(Shared().CurrentRecords.IsOpen());
}

TEST_P(BrowserClosingTest, OneThatIsOpenedMeanwhileTakesItsPlace) {
  InBrowser([&](const Browser& browser) {
    const QPointer<QWidget> first(&browser.Window());
    InBrowser([&](const Browser& second) {
      EXPECT_FALSE(first);
      EXPECT_EQ(second.Status(), u"当前记录：第1条/共12条"_s);
    });
  });
  EXPECT_EQ(Remembered(), u"Lwdj,"_s);
  EXPECT_FALSE(Shared().CurrentRecords.IsOpen());
}

TEST_P(BrowserClosingTest, AQuestionThatWaitsForItsAnswerKeepsEverythingOpen) {
  InBrowser([&](const Browser& browser) {
    Services().messageBox = {};
    WithWindow(u"QMessageBox"_s, [&](QWidget& box) {
      EXPECT_FALSE(browser.Window().close());
      EXPECT_TRUE(box.isVisible());
      Click(*box.findChildren<QPushButton*>().last());
    });
    browser.Key(u"Del"_s).trigger();
    EXPECT_TRUE(browser.Window().isVisible());
  });
}

}  // namespace folvane::test
