#include <QHeaderView>
#include <QScopedValueRollback>

#include "archiving/FrmSearchResultFixture.h"
#include "data/RowReading.h"
#include "shell/Messages.h"
#include "support/Accessibility.h"

namespace folvane::test {

FOLVANE_ON_EACH_DATABASE(FrmSearchResultTest);

TEST_P(FrmSearchResultTest, TheListHasTheColumnsOfTheTableAndSaysWhyItIsEmpty) {
  InWindow([&](QWidget& window) {
    const QAbstractItemModel& model = *List(window).model();
    QStringList captions;
    for (int column = 0; column < model.columnCount(); ++column)
      captions << model.headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(captions, (QStringList{u"登记号"_s, u"题名"_s, u"归档状态"_s, u"附注"_s, u"ID"_s}));
    EXPECT_EQ(TextIn(window, u"ListHint"_s), u"按“查询”查出要合并的记录，再勾选它们。"_s);
    EXPECT_EQ(TextIn(window, u"LblTarget"_s), u"并入：“题名1”"_s);
    EXPECT_EQ(PageText(window), QString());
    EXPECT_EQ(UnnamedControls(window), QStringList());
    for (int link = 0; link < 4; ++link) Follow(window, link);
    EXPECT_EQ(Loaded(window), 0);
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(FrmSearchResultTest, SearchingShowsTheFirstPageWithoutTheSurvivor) {
  AddOriginal(3, 1);
  InWindow([&](QWidget& window) {
    log_->Take();
    SearchAll(window);
    EXPECT_EQ(static_cast<FrmSearchResult&>(window).Where.isEmpty(), false);
    EXPECT_TRUE(log_->Take().contains(u"Select * From Lwdj Where ArchiveID <> '"_s + Key(1) + u"' And "_s +
                                      static_cast<FrmSearchResult&>(window).Where));
    EXPECT_EQ(Loaded(window), 30);
    EXPECT_EQ(Row(window), 1);
    EXPECT_EQ(Cell(window, 1).siblingAtColumn(4).data(), Key(2)) << "the last column is the key";
    EXPECT_EQ(Cell(window, 1).siblingAtColumn(3).data(), QString()) << "a null is empty";
    EXPECT_EQ(Cell(window, 1).data(Qt::UserRole + 1), 2);
    EXPECT_EQ(Cell(window, 2).data(Qt::UserRole + 1), 5) << "it has an original";
    EXPECT_EQ(PageText(window), u"当前记录位置在：第 1 页, 共 3 页"_s);
  });
}

TEST_P(FrmSearchResultTest, AConditionWithAnOrDoesNotFindTheSurvivorEither) {
  InWindow([&](QWidget& window) {
    SearchByCondition(window, u"RegID = 1 Or RegID = 2"_s);
    EXPECT_EQ(Loaded(window), 1);
    EXPECT_EQ(Cell(window, 1).siblingAtColumn(4).data(), Key(2));
    EXPECT_EQ(PageText(window), u"当前记录位置在：第 1 页, 共 1 页"_s);
  });
}

TEST_P(FrmSearchResultTest, SearchingAgainPutsOtherRowsInPlaceAndForgetsTheTicks) {
  InWindow([&](QWidget& window) {
    SearchAll(window);
    Tick(window, 1);
    Search(window, u"题名70"_s);
    EXPECT_EQ(Loaded(window), 1);
    EXPECT_FALSE(IsTicked(window, 1));
    EXPECT_EQ(PageText(window), u"当前记录位置在：第 1 页, 共 1 页"_s);
    Ok(window);
  });
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where FileStatus='不归档'"_s), u"0"_s);
}

TEST_P(FrmSearchResultTest, AQueryLeftWithoutAConditionEndsThere) {
  InWindow([&](QWidget& window) {
    Search(window, {});
    EXPECT_EQ(Loaded(window), 0);
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(FrmSearchResultTest, FindingNothingIsToldAndClosesTheWindow) {
  InWindow([&](QWidget& window) {
    Search(window, u"没有的题名"_s);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(boxes_.Last().text, u"对不起，没有符合条件的数据"_s);
  EXPECT_EQ(boxes_.Last().title, u"数据查询"_s);
  EXPECT_EQ(boxes_.Last().flags, 64);
}

TEST_P(FrmSearchResultTest, WithoutATableTheSearchDoesNothing) {
  InWindow([&](QWidget& window) {
    static_cast<FrmSearchResult&>(window).CurrTable.clear();
    Click(Find<QWidget>(window, u"CmdSearch"_s));
    EXPECT_TRUE(window.isVisible());
  });
}

TEST_P(FrmSearchResultTest, TheKeysMoveByThirtyAndByOneAndLoadWhatIsMissing) {
  InWindow([&](QWidget& window) {
    SearchAll(window);
    Press(List(window), Qt::Key_PageDown);
    EXPECT_EQ(Row(window), 31);
    EXPECT_EQ(Loaded(window), 31);
    EXPECT_EQ(PageText(window), u"当前记录位置在：第 2 页, 共 3 页"_s);
    Press(List(window), Qt::Key_Down);
    EXPECT_EQ(Row(window), 32);
    EXPECT_EQ(Loaded(window), 32);
    Press(List(window), Qt::Key_PageDown);
    Press(List(window), Qt::Key_PageDown);
    EXPECT_EQ(Row(window), 69) << "the last one";
    EXPECT_EQ(PageText(window), u"当前记录位置在：第 3 页, 共 3 页"_s);
    Press(List(window), Qt::Key_Down);
    EXPECT_EQ(Row(window), 69);
    Press(List(window), Qt::Key_PageUp);
    EXPECT_EQ(Row(window), 39);
    Press(List(window), Qt::Key_Up);
    EXPECT_EQ(Row(window), 38);
    EXPECT_EQ(Cell(window, 69).siblingAtColumn(4).data(), Key(70)) << "the rows stand in their order";
  });
}

TEST_P(FrmSearchResultTest, TheLinksGoToTheFirstAPageOnAPageBackAndToTheLast) {
  InWindow([&](QWidget& window) {
    SearchAll(window);
    Follow(window, 3);
    EXPECT_EQ(Row(window), 69);
    EXPECT_EQ(Loaded(window), 69);
    Follow(window, 1);
    EXPECT_EQ(Row(window), 39);
    EXPECT_TRUE(List(window).hasFocus());
    Follow(window, 2);
    EXPECT_EQ(Row(window), 69);
    Follow(window, 0);
    EXPECT_EQ(Row(window), 1);
    auto& link = Find<QWidget>(window, u"LblPage(2)"_s);
    link.setFocus();
    EXPECT_TRUE(link.font().underline());
    Press(link, Qt::Key_Return);
    EXPECT_EQ(Row(window), 31);
  });
}

TEST_P(FrmSearchResultTest, SpaceTicksTheSelectedRows) {
  InWindow([&](QWidget& window) {
    SearchAll(window);
    EXPECT_EQ(TextIn(window, u"LblTicked"_s), u"空格键勾选选中的行，Ctrl+A 全选"_s);
    ClickItem(List(window), Cell(window, 2).siblingAtColumn(1));
    Press(List(window), Qt::Key_Space);
    EXPECT_TRUE(IsTicked(window, 2));
    EXPECT_EQ(TextIn(window, u"LblTicked"_s), u"已勾选 1 份，共 69 份"_s);
    ClickItem(List(window), Cell(window, 4).siblingAtColumn(1), Qt::LeftButton, Qt::ShiftModifier);
    Press(List(window), Qt::Key_Space);
    EXPECT_TRUE(IsTicked(window, 2) && IsTicked(window, 3) && IsTicked(window, 4));
    Press(List(window), Qt::Key_Space);
    EXPECT_FALSE(IsTicked(window, 2) || IsTicked(window, 3) || IsTicked(window, 4));
    Press(List(window), Qt::Key_A, Qt::ControlModifier);
    Press(List(window), Qt::Key_Space);
    EXPECT_EQ(TextIn(window, u"LblTicked"_s), u"已勾选 30 份，共 69 份"_s) << "only loaded rows take part";
  });
}

TEST_P(FrmSearchResultTest, ConfirmingMergesTheTickedRecordsInListOrderAndCloses) {
  AddOriginal(5, 1);
  AddOriginal(3, 1);
  const QString outcome = InWindow([&](QWidget& window) {
    SearchAll(window);
    Tick(window, 4);
    Tick(window, 2);
    Follow(window, 3);
    Tick(window, 69);
    log_->Take();
    Ok(window);
    EXPECT_EQ(boxes_.Last().text, u"是否确定要将选中的记录合并一件？"_s);
    EXPECT_EQ(boxes_.Last().title, u"提示"_s);
    EXPECT_EQ(boxes_.Last().flags, 1);
    EXPECT_FALSE(window.isVisible());
    const QStringList updates = log_->Take().filter(u"FileStatus"_s);
    ASSERT_EQ(updates.size(), 3);
    EXPECT_TRUE(updates[0].contains(Key(3)));
    EXPECT_TRUE(updates[1].contains(Key(5)));
    EXPECT_TRUE(updates[2].contains(Key(70)));
  });
  EXPECT_EQ(outcome, u"已将 3 份记录合并一件"_s);
  EXPECT_EQ(OriginalsOf(1), (QStringList{u"2 3-1 正文3-1<合并件>"_s, u"2 5-1 正文5-1<合并件>"_s}));
}

TEST_P(FrmSearchResultTest, CancellingTheQuestionLeavesEverythingAndTheWindow) {
  InWindow([&](QWidget& window) {
    SearchAll(window);
    Tick(window, 2);
    boxes_.Answer(Answer::Cancel);
    Ok(window);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(IsTicked(window, 2));
  });
  EXPECT_EQ(StatusOf(3), u"需归档"_s);
}

TEST_P(FrmSearchResultTest, WithNothingTickedItAsksChangesNothingAndCloses) {
  const QString outcome = InWindow([&](QWidget& window) {
    SearchAll(window);
    Ok(window);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(boxes_.Texts(), QStringList{u"是否确定要将选中的记录合并一件？"_s});
  EXPECT_EQ(outcome, QString());
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where FileStatus='不归档'"_s), u"0"_s);
}

TEST_P(FrmSearchResultTest, AnErrorIsShownAndTheWindowTellsHowFarItCame) {
  log_.reset();
  const QString outcome = InWindow([&](QWidget& window) {
    SearchAll(window);
    Tick(window, 1);
    Tick(window, 2);
    const LockedStatement locked(*Connected(), 5);
    Ok(window);
    EXPECT_TRUE(boxes_.Last().text.contains(u"表被其他用户锁定"_s)) << qPrintable(boxes_.Last().text);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(TextIn(window, u"LblTicked"_s), u"已将 1 份记录合并一件"_s);
  });
  EXPECT_EQ(outcome, u"已将 1 份记录合并一件"_s);
}

TEST_P(FrmSearchResultTest, ARecordThatIsDeletedMeanwhileShiftsNoPage) {
  const QScopedValueRollback border(RowReading::Border(), {10, 10});
  constexpr int kMore = 130;  // rows are read ahead
  for (int number = kRecords + 1; number <= kRecords + kMore; ++number)
    design_->Insert(u"Lwdj"_s, u"ArchiveID,RegID,Amaintitle"_s,
                    {Key(number), QString::number(number), u"题名"_s + QString::number(number)});
  InWindow([&](QWidget& window) {
    SearchAll(window);
    design_->Run(u"delete from Lwdj where RegID = 140"_s);
    Follow(window, 3);
    QStringList keys;
    for (int row = 1; row <= Loaded(window); ++row) keys << Cell(window, row).siblingAtColumn(4).data().toString();
    EXPECT_EQ(keys.removeDuplicates(), 0);
    EXPECT_EQ(keys.size(), kRecords + kMore - 2) << "without the survivor and the one that is gone";
  });
}

TEST_P(FrmSearchResultTest, LeavingMergesNothing) {
  InWindow([&](QWidget& window) {
    SearchAll(window);
    Tick(window, 1);
    Click(Find<QWidget>(window, u"CmdExit"_s));
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where FileStatus='不归档'"_s), u"0"_s);
}

TEST_P(FrmSearchResultTest, TheWidthsOfTheColumnsComeBack) {
  InWindow([&](QWidget& window) { List(window).header()->resizeSection(1, 222); });
  InWindow([&](QWidget& window) { EXPECT_EQ(List(window).header()->sectionSize(1), 222); });
}

}  // namespace folvane::test
