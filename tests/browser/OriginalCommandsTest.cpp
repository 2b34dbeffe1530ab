#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <gmock/gmock.h>

#include <folvane/HostServices.h>
#include <folvane/OriginalsRequest.h>

#include "browser/BrowserTest.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::ElementsAre;

namespace {

/// Twelve records; the component is one that remembers what it was asked and does what the case says.
class OriginalCommandsTest : public TwelveRecordsTest {
 protected:
  void SetUp() override {
    TwelveRecordsTest::SetUp();
    Services().handleOriginals = [this](const OriginalsRequest& request) {
      requests_.push_back(request);
      return work_ && work_();
    };
  }
  void AddOriginal(int record, const QString& id) {
    design_->AddOriginal(DesignedDatabase::Key(record), id, u"正文"_s + id, ++order_);
  }
  QStringList Told() const {
    QStringList told;
    for (const OriginalsRequest& request : requests_)
      told << u"%1 %2 %3"_s.arg(request.recordId.right(2), request.action, request.fileId);
    return told;
  }

  std::vector<OriginalsRequest> requests_;
  std::function<bool()> work_;
  int order_ = 0;
};

int IconOf(const Browser& browser, int row) {
  return browser.List().model()->index(row - 1, 0).data(Qt::UserRole + 1).toInt();
}

void ChooseRecord(const Browser& browser, int row) {
  ClickItem(browser.List(), browser.List().model()->index(row - 1, 0));
}

QTreeView& OriginalsOf(const Browser& browser) { return browser.View(u"LVFile"_s); }

void ChooseOriginal(const Browser& browser, int row) {
  ClickItem(OriginalsOf(browser), OriginalsOf(browser).model()->index(row - 1, 0));
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(OriginalCommandsTest);

TEST_P(OriginalCommandsTest, AddingHandsTheRecordOverAndShowsWhatCame) {
  Shared().DatabaseKind = u"ACCESS"_s;
  work_ = [this] {
    AddOriginal(11, u"91"_s);
    return true;
  };
  InBrowser([&](const Browser& browser) {
    ChooseRecord(browser, 2);
    const int icon = IconOf(browser, 2);
    browser.Entry(u"mnu_Pop1_AddFile"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVFile"_s), QStringList{u"正文91"_s});
    EXPECT_EQ(icon, 2);
    EXPECT_EQ(IconOf(browser, 2), 5);
    EXPECT_EQ(browser.Notice(), u"已加 1 件原文"_s);
    EXPECT_EQ(browser.Row(), 2);
  });
  ASSERT_EQ(Told(), QStringList{u"11 AddState "_s});
  EXPECT_EQ(requests_[0].storeRoot, Shared().OriginalRoot);
  EXPECT_EQ(requests_[0].databaseKind, u"ACCESS"_s);
  EXPECT_EQ(requests_[0].connection, Shared().Connection);
}

TEST_P(OriginalCommandsTest, TheListIsReadAgainThoughNothingWasAdded) {
  InBrowser([&](const Browser& browser) {
    log_->Take();
    browser.Entry(u"mnu_Pop1_AddFile"_s).trigger();
    EXPECT_THAT(log_->Take(), ElementsAre(u"Select * from Original_Text Where RecordId='"_s +
                                          DesignedDatabase::Key(12) + u"'  Order By FileOrder"_s));
    EXPECT_EQ(IconOf(browser, 1), 2);
    EXPECT_EQ(browser.Notice(), QString());
  });
}

TEST_P(OriginalCommandsTest, BrowsingNeedsAnOriginalThatIsChosen) {
  AddOriginal(12, u"91"_s);
  AddOriginal(12, u"92"_s);
  InBrowser([&](const Browser& browser) {
    browser.Entry(u"mnu_Pop2_Browse"_s).trigger();
    EXPECT_THAT(Told(), testing::IsEmpty());
    ChooseOriginal(browser, 2);
    browser.Entry(u"mnu_Pop2_Browse"_s).trigger();
    EXPECT_THAT(Told(), ElementsAre(u"12 BrowseState 92"_s));
    EXPECT_EQ(OriginalsOf(browser).currentIndex().row(), 1) << "it is still the chosen one";
  });
}

TEST_P(OriginalCommandsTest, DoubleClickAndEnterBrowse) {
  AddOriginal(12, u"91"_s);
  InBrowser([&](const Browser& browser) {
    DoubleClickItem(OriginalsOf(browser), OriginalsOf(browser).model()->index(0, 0));
    Press(OriginalsOf(browser), Qt::Key_Return);
    EXPECT_THAT(Told(), ElementsAre(u"12 BrowseState 91"_s, u"12 BrowseState 91"_s));
  });
}

TEST_P(OriginalCommandsTest, TheKeyLooksAtTheFirstOriginalWhereNoneIsChosen) {
  AddOriginal(12, u"91"_s);
  AddOriginal(12, u"92"_s);
  InBrowser([&](const Browser& browser) {
    browser.Key(u"LookFiles"_s).trigger();
    EXPECT_THAT(Told(), ElementsAre(u"12 BrowseState 91"_s));
    ChooseRecord(browser, 2);
    browser.Key(u"LookFiles"_s).trigger();
    EXPECT_EQ(browser.Notice(), u"选中的文件没有原文"_s);
    EXPECT_EQ(Told().size(), 1);
  });
}

TEST_P(OriginalCommandsTest, ScanningShowsTheOriginalsThatCame) {
  work_ = [this] {
    AddOriginal(12, u"91"_s);
    return false;
  };
  InBrowser([&](const Browser& browser) {
    browser.Entry(u"mnu_Pop3_Scan"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVFile"_s), QStringList{u"正文91"_s});
    EXPECT_EQ(IconOf(browser, 1), 5);
  });
  EXPECT_THAT(Told(), ElementsAre(u"12 ScanState "_s));
}

TEST_P(OriginalCommandsTest, WhatAnotherProgramDeletedMeanwhileTakesTheSignOffTheRow) {
  AddOriginal(12, u"91"_s);
  work_ = [this] {
    design_->Run(u"delete from Original_Text"_s);
    return true;
  };
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(IconOf(browser, 1), 5);
    ChooseOriginal(browser, 1);
    browser.Entry(u"mnu_Pop2_Browse"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVFile"_s), QStringList());
    EXPECT_EQ(IconOf(browser, 1), 2);
  });
}

TEST_P(OriginalCommandsTest, NothingHappensWithoutARecord) {
  design_->Run(u"delete from Lwdj"_s);
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    for (const QString& entry :
         {u"mnu_Pop1_AddFile"_s, u"mnu_Pop2_Browse"_s, u"mnu_Pop3_Scan"_s, u"mnu_Pop4_DelFile"_s})
      browser.Entry(entry).trigger();
    Q_EMIT OriginalsOf(browser).customContextMenuRequested({5, 5});
    EXPECT_FALSE(QApplication::activePopupWidget());
  });
  EXPECT_THAT(Told(), testing::IsEmpty());
  EXPECT_EQ(messages.Texts(), QStringList());
}

TEST_P(OriginalCommandsTest, DeletingTheLastOriginalTakesTheSignOffTheRow) {
  MessageBoxes messages;
  program_.Write(u"Data/91.tif"_s, "scan");
  AddOriginal(12, u"91"_s);
  AddOriginal(12, u"92"_s);
  InBrowser([&](const Browser& browser) {
    ChooseOriginal(browser, 1);
    messages.Answer(Answer::No).Answer(Answer::Yes).Answer(Answer::Yes);
    browser.Entry(u"mnu_Pop4_DelFile"_s).trigger();
    EXPECT_EQ(messages.Last().text, u"确定要删除当前原文吗?"_s);
    EXPECT_EQ(messages.Last().flags, 68);
    EXPECT_EQ(messages.Last().title, browser.Window().windowTitle());
    EXPECT_EQ(browser.Column(u"LVFile"_s).size(), 2) << "answered No";
    log_->Take();
    browser.Entry(u"mnu_Pop4_DelFile"_s).trigger();
    EXPECT_THAT(log_->Take(), Contains(u"Delete From Original_Text Where ID = '91' And RecordID = '"_s +
                                       DesignedDatabase::Key(12) + u"'"_s));
    EXPECT_EQ(browser.Column(u"LVFile"_s), QStringList{u"正文92"_s});
    EXPECT_EQ(IconOf(browser, 1), 5) << "one is left";
    ChooseOriginal(browser, 1);
    Press(OriginalsOf(browser), Qt::Key_Delete);
    EXPECT_EQ(browser.Column(u"LVFile"_s), QStringList());
    EXPECT_EQ(IconOf(browser, 1), 2);
  });
  EXPECT_FALSE(program_.Has(u"Data/91.tif"_s));
  EXPECT_EQ(design_->Value(u"select count(*) from Original_Text"_s), u"0"_s);
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj"_s), u"12"_s) << "the key deleted no record";
}

TEST_P(OriginalCommandsTest, AFileThatCannotBeDeletedIsTold) {
  MessageBoxes messages;
  program_.Write(u"Data/91.tif/in the way"_s, "x");  // a folder of that name
  AddOriginal(12, u"91"_s);
  InBrowser([&](const Browser& browser) {
    ChooseOriginal(browser, 1);
    messages.Answer(Answer::Yes);
    browser.Entry(u"mnu_Pop4_DelFile"_s).trigger();
    EXPECT_TRUE(browser.Notice().startsWith(u"1 个原文文件未能从存储中删除："_s)) << browser.Notice().toStdString();
    EXPECT_EQ(browser.Column(u"LVFile"_s), QStringList()) << "its row has gone";
  });
}

TEST_P(OriginalCommandsTest, AFilledSeventhColumnKeepsItsIcon) {
  design_->AddTable(u"Wide"_s, u"宽表"_s, 2,
                    {{u"A"_s, u"a"_s, u"文本型"_s},
                     {u"B"_s, u"b"_s, u"文本型"_s},
                     {u"C"_s, u"c"_s, u"文本型"_s},
                     {u"D"_s, u"d"_s, u"文本型"_s},
                     {u"E"_s, u"e"_s, u"文本型"_s},
                     {u"F"_s, u"f"_s, u"文本型"_s},
                     {u"G"_s, u"g"_s, u"文本型"_s}});
  design_->Insert(u"Wide"_s, u"ArchiveID,G"_s, {DesignedDatabase::Key(77), u"有"_s});
  work_ = [this] {
    AddOriginal(77, u"91"_s);
    return true;
  };
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"Wide"_s);
    EXPECT_EQ(IconOf(browser, 1), 1);
    browser.Entry(u"mnu_Pop1_AddFile"_s).trigger();
    EXPECT_EQ(IconOf(browser, 1), 4);
  });
}

TEST_P(OriginalCommandsTest, DroppedFilesAreAddedOnceTheDropIsOver) {
  InBrowser([&](const Browser& browser) {
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(u"/scans/a.pdf"_s), QUrl(u"https://example.org/b.pdf"_s)});
    QWidget& target = *OriginalsOf(browser).viewport();
    QDragEnterEvent enter({5, 5}, Qt::MoveAction | Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &enter);
    EXPECT_TRUE(enter.isAccepted());
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction) << "the file stays where it came from";
    QDropEvent drop({5, 5}, Qt::MoveAction | Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &drop);
    EXPECT_THAT(Told(), testing::IsEmpty());
    ASSERT_TRUE(WaitUntil([this] { return !requests_.empty(); }));
    EXPECT_EQ(requests_[0].files, QStringList{u"/scans/a.pdf"_s});
  });
}

TEST_P(OriginalCommandsTest, TextIsNotDropped) {
  InBrowser([&](const Browser& browser) {
    QMimeData text;
    text.setText(u"no file"_s);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(OriginalsOf(browser).viewport(), &enter);
    EXPECT_FALSE(enter.isAccepted());
  });
}

}  // namespace folvane::test
