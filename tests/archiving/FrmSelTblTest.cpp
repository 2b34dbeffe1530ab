#include <QComboBox>

#include "archiving/FrmSearchResultFixture.h"
#include "archiving/FrmSelTbl.h"
#include "support/Accessibility.h"

namespace folvane::test {

namespace {

class FrmSelTblTest : public FrmSearchResultTest {
 protected:
  /// Opens the choice of the table and runs the steps in it.
  QString InChoice(const WindowSteps& steps) {
    const LoadedWindow<FrmSelTbl> window;
    window->TargetID = Key(1);
    WithWindow(u"FrmSelTbl"_s, steps);
    window->Open();
    return window->Outcome;
  }
  static QComboBox& Tables(QWidget& window) { return Find<QComboBox>(window, u"CboChnTable"_s); }
};

QStringList EntriesOf(const QComboBox& box) {
  QStringList entries;
  for (int at = 0; at < box.count(); ++at) entries << box.itemText(at);
  return entries;
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(FrmSelTblTest);

TEST_P(FrmSelTblTest, OffersTheFileTablesWithAStatus) {
  design_->AddPlainTable(u"Nbwj"_s, u"内部文件"_s, 2);
  design_->Insert(u"DynamicWindows"_s, u"TableName,ChnTableName,TableType,FieldName"_s,
                  {u"Wsda"_s, u"文书档案"_s, u"A"_s, u"FileStatus"_s});
  log_->Take();
  InChoice([&](QWidget& window) {
    EXPECT_TRUE(log_->Take().contains(
        u"Select TableName,ChnTableName From DynamicWindows Where TableType = 'F' And FieldName = 'FileStatus'"_s));
    QStringList captions = EntriesOf(Tables(window)), tables = EntriesOf(Find<QComboBox>(window, u"CboTable"_s));
    EXPECT_EQ(captions.first(), u"<请选择>"_s);
    EXPECT_EQ(captions.last(), u"<退出>"_s);
    EXPECT_EQ(tables.first(), u"<请选择>"_s);
    ASSERT_EQ(captions.size(), 4);
    ASSERT_EQ(tables.size(), 3) << "the way out has no table";
    EXPECT_EQ(captions[tables.indexOf(u"Lwdj"_s)], u"来文登记"_s);
    EXPECT_EQ(captions[tables.indexOf(u"Fwdj"_s)], u"发文登记"_s);
    EXPECT_EQ(Tables(window).currentIndex(), 0);
    EXPECT_EQ(UnnamedControls(window), QStringList());
  });
}

TEST_P(FrmSelTblTest, ChoosingATableGoesOnWithItsRecordsAndCloses) {
  QString shown;
  const QString outcome = InChoice([&](QWidget& window) {
    WithWindow(u"FrmSearchResult"_s, [&](QWidget& result) {
      shown = static_cast<FrmSearchResult&>(result).CurrTable + static_cast<FrmSearchResult&>(result).TargetID;
      SearchAll(result);
      Tick(result, 1);
      Ok(result);
    });
    Tables(window).setCurrentIndex(Tables(window).findText(u"来文登记"_s));
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shown, u"Lwdj"_s + Key(1));
  EXPECT_EQ(outcome, u"已将 1 份记录合并一件"_s);
}

TEST_P(FrmSelTblTest, TheFirstEntryDoesNothing) {
  InChoice([&](QWidget& window) {
    {
      const QSignalBlocker silence(Tables(window));
      Tables(window).setCurrentIndex(1);
    }
    Tables(window).setCurrentIndex(0);
    EXPECT_TRUE(window.isVisible());
  });
}

TEST_P(FrmSelTblTest, TheWayOutClosesIt) {
  InChoice([&](QWidget& window) {
    Tables(window).setCurrentIndex(Tables(window).count() - 1);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(FrmSelTblTest, WithoutATableItClosesAtOnceWithoutAMessage) {
  design_->Run(u"delete from DynamicWindows where FieldName='FileStatus'"_s);
  const LoadedWindow<FrmSelTbl> window;
  window->Open();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(window->Outcome, u"没有可以合并的记录：没有一个登记表带归档状态"_s);
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

}  // namespace folvane::test
