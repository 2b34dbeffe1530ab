#include <QApplication>
#include <QItemSelectionModel>
#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "entry/FrmInput.h"
#include "shell/DefaultInstance.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;

namespace {

class RecordCommandsTest : public TwelveRecordsTest {
 protected:
  QString Count(const QString& table) { return design_->Value(u"select count(*) from "_s + table); }
};

void Select(const Browser& browser, std::initializer_list<int> rows) {
  QItemSelectionModel& selection = *browser.List().selectionModel();
  ClickItem(browser.List(), browser.List().model()->index(*rows.begin() - 1, 0));
  for (const int row : rows) {
    selection.select(browser.List().model()->index(row - 1, 0),
                     QItemSelectionModel::Select | QItemSelectionModel::Rows);
  }
}

// The entry window is left on a record, "<NULL>" for none, without anything done in it.
void LeaveEntryOn(const QString& key, const std::function<void(FrmInput&)>& steps = {}) {
  WithWindow(u"FrmInput"_s, [=](QWidget& window) {
    auto& entry = static_cast<FrmInput&>(window);
    if (steps) steps(entry);
    entry.Context.LeaveTag(key);
    entry.hide();
  });
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(RecordCommandsTest);

TEST_P(RecordCommandsTest, DeletingSeveralRowsTakesOneQuestionAndOneStatement) {
  MessageBoxes messages;
  program_.Write(u"Data/91.tif"_s, "scan");
  design_->AddOriginal(DesignedDatabase::Key(11), u"91"_s, u"正文"_s, 1);
  design_->AddOriginal(DesignedDatabase::Key(3), u"92"_s, u"别的"_s, 1);
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Yes);
    Select(browser, {2, 4, 5});
    log_->Take();
    browser.Key(u"Del"_s).trigger();
    EXPECT_EQ(messages.Texts(), QStringList{u"确定要删除当前文件及相关原文吗?"_s});
    EXPECT_EQ(messages.Last().flags, 68);
    const QString keys = u" IN ('00000000000000000011','00000000000000000009','00000000000000000008')"_s;
    const QStringList statements = log_->Take();
    EXPECT_THAT(statements, Contains(u"Delete From Original_Text Where RecordID "_s + keys));
    EXPECT_THAT(statements, Contains(u"Delete from Lwdj Where ArchiveId "_s + keys));
    EXPECT_EQ(browser.Column(u"LVData"_s),
              (QStringList{u"12"_s, u"10"_s, u"7"_s, u"6"_s, u"5"_s, u"4"_s, u"3"_s, u"2"_s, u"1"_s}));
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共9条"_s);
    EXPECT_EQ(browser.Notice(), u"已删除 3 条记录"_s);
  });
  EXPECT_EQ(Count(u"Lwdj"_s), u"9"_s);
  EXPECT_EQ(design_->Value(u"select ID from Original_Text"_s), u"92"_s);
}

TEST_P(RecordCommandsTest, TheFilesOfDeletedRecordsGoWithThem) {
  MessageBoxes messages;
  program_.Write(u"Data/91.tif"_s, "scan");
  design_->AddOriginal(DesignedDatabase::Key(12), u"91"_s, u"正文"_s, 1);
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Yes);
    browser.Entry(u"mnu_File3_Del"_s).trigger();
  });
  EXPECT_FALSE(program_.Has(u"Data/91.tif"_s));
}

TEST_P(RecordCommandsTest, AFileThatStaysBehindIsToldBesideTheCount) {
  MessageBoxes messages;
  program_.Write(u"Data/91.tif/inside"_s, "a directory of the file's name");
  design_->AddOriginal(DesignedDatabase::Key(12), u"91"_s, u"正文"_s, 1);
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Yes);
    browser.Entry(u"mnu_File3_Del"_s).trigger();
    EXPECT_TRUE(browser.Notice().startsWith(u"已删除 1 条记录；1 个原文文件未能从存储中删除："_s))
        << browser.Notice().toStdString();
  });
}

TEST_P(RecordCommandsTest, ADeletionAnsweredNoChangesNothing) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::No);
    log_->Take();
    browser.Entry(u"mnu_File3_Del"_s).trigger();
    EXPECT_EQ(log_->Take(), QStringList());
    EXPECT_EQ(browser.Notice(), QString());
  });
  EXPECT_EQ(Count(u"Lwdj"_s), u"12"_s);
}

TEST_P(RecordCommandsTest, WithoutASelectedRowNothingIsDeletedAndNothingAsked) {
  InBrowser([&](const Browser& browser) {
    browser.List().clearSelection();
    browser.Key(u"Del"_s).trigger();
  });
  EXPECT_EQ(Count(u"Lwdj"_s), u"12"_s);
}

TEST_P(RecordCommandsTest, WithoutACurrentRowNoRecordIsOpenedAndNoneGoesIntoAFlow) {
  InBrowser([&](const Browser& browser) {
    browser.List().selectionModel()->clear();
    log_->Take();
    browser.Key(u"Mod"_s).trigger();
    browser.Entry(u"mnu_Manager1_Distribute"_s).trigger();
    EXPECT_EQ(log_->Take(), QStringList());
    EXPECT_EQ(QApplication::activeModalWidget(), &browser.Window());
  });
}

TEST_P(RecordCommandsTest, RecordsThatTheEntryWindowLeftClosedTakeNoNewOne) {
  InBrowser([&](const Browser& browser) {
    LeaveEntryOn(DesignedDatabase::Key(12), [](FrmInput&) { Shared().CurrentRecords.Close(); });
    browser.Key(u"Mod"_s).trigger();
    EXPECT_EQ(browser.List().model()->rowCount(), 0);
    browser.Key(u"NEW"_s).trigger();
    EXPECT_EQ(QApplication::activeModalWidget(), &browser.Window());
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共12条"_s);
  });
}

TEST_P(RecordCommandsTest, TheDeleteKeyIsMeantForTheListAlone) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    Press(browser.View(u"LVFile"_s), Qt::Key_Delete);
    Press(browser.View(u"TV_File"_s), Qt::Key_Delete);
    EXPECT_TRUE(messages.Requests().empty());
    browser.PressInList(Qt::Key_Delete);
    EXPECT_EQ(messages.Requests().size(), 1u);
  });
}

TEST_P(RecordCommandsTest, TheNoticeOfACommandGoesWithTheNextThingDone) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Yes);
    browser.Key(u"Del"_s).trigger();
    EXPECT_EQ(browser.Notice(), u"已删除 1 条记录"_s);
    browser.ClickColumn(0);
    EXPECT_EQ(browser.Notice(), QString());
  });
}

TEST_P(RecordCommandsTest, DeletingTheLastRecordLeavesAnEmptyList) {
  MessageBoxes messages;
  design_->Run(u"delete from Lwdj where RegID > 1"_s);
  design_->AddOriginal(DesignedDatabase::Key(1), u"91"_s, u"正文"_s, 1);
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Yes);
    browser.Key(u"Del"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
    EXPECT_EQ(browser.Column(u"LVFile"_s), QStringList());
    EXPECT_FALSE(browser.KeyOn(u"Del"_s));
  });
}

TEST_P(RecordCommandsTest, ARecordDeletedByAnotherUserMeanwhileIsNoHindrance) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Yes);
    Select(browser, {1, 2});
    design_->Run(u"delete from Lwdj where RegID = 12"_s);
    browser.Key(u"Del"_s).trigger();
    EXPECT_EQ(browser.Notice(), u"已删除 1 条记录"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共10条"_s);
  });
}

TEST_P(RecordCommandsTest, AKeyWithAQuoteIsFoundAndDeletedAlone) {
  MessageBoxes messages;
  design_->Run(u"update Lwdj set ArchiveID = '1'' or ''1''=''1' where RegID = 12"_s);
  design_->AddOriginal(u"1' or '1'='1"_s, u"91"_s, u"正文"_s, 1);
  design_->AddOriginal(DesignedDatabase::Key(3), u"92"_s, u"别的"_s, 1);
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Yes);
    ClickItem(browser.List(), browser.List().model()->index(1, 0));
    ClickItem(browser.List(), browser.List().model()->index(0, 0));
    ASSERT_EQ(browser.Cell(), u"12"_s);
    EXPECT_EQ(Shared().CurrentRecords.AbsolutePosition(), 1);
    EXPECT_EQ(browser.Column(u"LVFile"_s), QStringList{u"正文"_s});
    browser.Key(u"Del"_s).trigger();
  });
  EXPECT_EQ(Count(u"Lwdj"_s), u"11"_s);
  EXPECT_EQ(design_->Value(u"select ID from Original_Text"_s), u"92"_s);
}

TEST_P(RecordCommandsTest, ADeletionThatTheDatabaseRefusesEndsWithoutAMessageAndTheStatusLineTells) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Yes);
    design_->Run(u"alter table Original_Text rename to Away"_s);
    browser.Entry(u"mnu_File3_Del"_s).trigger();
    EXPECT_EQ(messages.Requests().size(), 1u) << "the question";
    EXPECT_TRUE(browser.Notice().startsWith(u"未能完成："_s));
    EXPECT_EQ(browser.List().model()->rowCount(), 12);
    design_->Run(u"alter table Away rename to Original_Text"_s);
  });
  EXPECT_EQ(Count(u"Lwdj"_s), u"12"_s);
}

TEST_P(RecordCommandsTest, ADeletionStartsTheListAtItsFirstRecord) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    messages.Answer(Answer::Yes);
    Select(browser, {7});
    browser.Key(u"Del"_s).trigger();
    EXPECT_EQ(browser.Row(), 1);
    EXPECT_EQ(browser.Cell(), u"12"_s);
    EXPECT_EQ(Shared().CurrentRecords.AbsolutePosition(), 1);
  });
}

TEST_P(RecordCommandsTest, TheEntryWindowIsToldTheTableAndWhereItStandsInTheTree) {
  InBrowser([&](const Browser& browser) {
    LeaveEntryOn(DesignedDatabase::Key(3), [](FrmInput& entry) {
      EXPECT_EQ(entry.CurrTable, u"Lwdj"_s);
      EXPECT_EQ(entry.Context.NodeText, u"来文登记"_s);
      EXPECT_EQ(entry.Context.Parameters->Selected(Parameter::Order), u"ArchiveId Desc"_s);
    });
    browser.Key(u"Mod"_s).trigger();
    EXPECT_FALSE(DefaultInstance<FrmInput>::IsLoaded());
  });
}

TEST_P(RecordCommandsTest, AfterTheEntryWindowTheListStandsOnTheRecordItWasLeftOn) {
  InBrowser([&](const Browser& browser) {
    LeaveEntryOn(DesignedDatabase::Key(3),
                 [&](FrmInput&) { design_->Run(u"update Lwdj set Amaintitle = '改过' where RegID = 3"_s); });
    browser.Entry(u"mnu_File4_Property"_s).trigger();
    EXPECT_EQ(browser.Cell(), u"3"_s);
    EXPECT_EQ(browser.List().currentIndex().siblingAtColumn(1).data().toString(), u"改过"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第10条/共12条"_s);
    EXPECT_EQ(browser.List().property("Tag").toString(), DesignedDatabase::Key(3));
    EXPECT_EQ(browser.List().model()->rowCount(), 12) << "the page is filled from before";
  });
}

TEST_P(RecordCommandsTest, LeftOnNoRecordTheListStartsAtItsFirst) {
  InBrowser([&](const Browser& browser) {
    ClickItem(browser.List(), browser.List().model()->index(5, 0));
    LeaveEntryOn(u"<NULL>"_s);
    browser.Key(u"Mod"_s).trigger();
    EXPECT_EQ(browser.Row(), 1);
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共12条"_s);
  });
}

TEST_P(RecordCommandsTest, ADoubleClickAndEnterChangeTheRecordWithTheListDisabled) {
  InBrowser([&](const Browser& browser) {
    const auto disabled = [&](FrmInput&) { EXPECT_FALSE(browser.List().isEnabled()); };
    LeaveEntryOn(DesignedDatabase::Key(11), disabled);
    DoubleClickItem(browser.List(), browser.List().model()->index(1, 0));
    EXPECT_TRUE(browser.List().isEnabled());
    EXPECT_EQ(browser.Cell(), u"11"_s);
    LeaveEntryOn(DesignedDatabase::Key(11), disabled);
    browser.PressInList(Qt::Key_Return);
    EXPECT_TRUE(browser.List().isEnabled());
  });
}

TEST_P(RecordCommandsTest, AddingBeginsANewRecordAndTheListShowsIt) {
  InBrowser([&](const Browser& browser) {
    LeaveEntryOn(DesignedDatabase::Key(13), [&](FrmInput& entry) {
      EXPECT_TRUE(entry.AddOnOpen == u"1"_s || Shared().CurrentRecords.EditMode() == EditModeKind::Add);
      design_->Insert(u"Lwdj"_s, u"ArchiveID,RegID,Amaintitle"_s, {DesignedDatabase::Key(13), u"13"_s, u"新来文"_s});
    });
    browser.Key(u"NEW"_s).trigger();
    EXPECT_EQ(browser.Cell(), u"13"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共13条"_s);
  });
}

TEST_P(RecordCommandsTest, AnEditThatNobodyEndedDoesNotHinderTheList) {
  InBrowser([&](const Browser& browser) {
    LeaveEntryOn(DesignedDatabase::Key(12), [](FrmInput&) {
      if (Shared().CurrentRecords.EditMode() == EditModeKind::None) {
        Shared().CurrentRecords[u"Amaintitle"_s].SetValue(u"没有保存"_s);
      }
    });
    browser.Key(u"Mod"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共12条"_s);
  });
  EXPECT_EQ(design_->Value(u"select Amaintitle from Lwdj where RegID = 12"_s), u"题名12"_s);
}

}  // namespace folvane::test
