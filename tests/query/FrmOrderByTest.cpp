#include <QHeaderView>
#include <QTreeView>

#include "query/FrmOrderBy.h"
#include "query/QueryFixture.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

class FrmOrderByTest : public QueryTest {
 protected:
  void InWindow(const std::function<void()>& steps) {
    window_.TableName = u"Lwdj"_s;
    WithWindow(u"FrmOrderBy"_s, [&](QWidget&) { steps(); });
    window_.Open();
  }
  QString Offered() { return ColumnOf(window_, u"LV1"_s).join(u' '); }
  QString Chosen() { return ColumnOf(window_, u"LV2"_s).join(u' '); }
  QTreeView& List(const QString& name) { return Find<QTreeView>(window_, name); }
  QModelIndex Row(int row) { return List(u"LV2"_s).model()->index(row, 0); }
  bool Ticked(int row) { return Row(row).data(Qt::CheckStateRole).toInt() == Qt::Checked; }
  /// What the row's small icon shows.
  QString Image(int row) { return Row(row).data(Qt::UserRole + 1).toString(); }
  void Tick(int row) {
    const QRect place = List(u"LV2"_s).visualRect(Row(row));
    ClickAt(*List(u"LV2"_s).viewport(), place.topLeft() + QPoint(9, place.height() / 2));
  }
  void ClickHeader(const QString& list) {
    ClickAt(*List(list).header()->viewport(), QPoint(20, List(list).header()->height() / 2));
  }
  QString KeptOrder() { return Value(u"select OrderStr from FindCirOrder where UserID = 7"_s); }

  MessageBoxes boxes_;
  FrmOrderBy window_;
};

FOLVANE_ON_EACH_DATABASE(FrmOrderByTest);

TEST_P(FrmOrderByTest, AnOldOrderIsShownWithItsDirectionsAsTicks) {
  window_.OldOrder = u"RegID Desc,DocNo"_s;
  InWindow([&] {
    EXPECT_EQ(window_.windowTitle(), u"排序方式"_s);
    EXPECT_EQ(Chosen(), u"登记号 文号"_s);
    EXPECT_TRUE(Ticked(0));
    EXPECT_FALSE(Ticked(1));
    EXPECT_NE(Image(0), Image(1));
    EXPECT_EQ(Offered(), u"题名 密级 成文日期 办结日期"_s);
    EXPECT_EQ(List(u"LV1"_s).model()->headerData(0, Qt::Horizontal), u"表字段"_s);
    EXPECT_EQ(List(u"LV2"_s).model()->headerData(0, Qt::Horizontal), u"已选择排序字段"_s);
  });
}

TEST_P(FrmOrderByTest, AnOldOrderWithTheKeyAnywhereInItIsNotShown) {
  window_.OldOrder = u"RegID Desc,ArchiveID Asc"_s;
  InWindow([&] {
    EXPECT_EQ(Chosen(), QString());
    EXPECT_EQ(ColumnOf(window_, u"LV1"_s).size(), 6);
  });
}

TEST_P(FrmOrderByTest, OkWithoutAFieldGivesNothingAndLeavesTheStoredOrder) {
  Run(u"insert into FindCirOrder (TableName,OrderStr,UserID) values ('Lwdj','RegID Asc',7)"_s);
  window_.OldOrder = u"RegID Asc"_s;
  InWindow([&] {
    Click(window_, u"CmdSort(0)"_s);
    TakeStatements();
    Click(window_, u"CmdOK"_s);
    EXPECT_FALSE(window_.isVisible());
    EXPECT_EQ(TakeStatements(), QStringList());
  });
  EXPECT_EQ(window_.ReturnSql, QString());
  EXPECT_EQ(KeptOrder(), u"RegID Asc"_s);
}

TEST_P(FrmOrderByTest, TwoFieldsTheFirstTickedGiveBothTexts) {
  InWindow([&] {
    ClickRow(window_, u"LV1"_s, 0);
    Click(window_, u"CmdSort(2)"_s);
    ClickRow(window_, u"LV1"_s, 1);
    Click(window_, u"CmdSort(2)"_s);
    EXPECT_EQ(Chosen(), u"登记号 文号"_s);
    EXPECT_FALSE(Ticked(0));
    const QString ascending = Image(0);
    Tick(0);
    EXPECT_NE(Image(0), ascending);
    Click(window_, u"CmdOK"_s);
  });
  EXPECT_EQ(window_.ReturnSql, u"RegID Desc,DocNo Asc"_s);
  EXPECT_EQ(window_.ReturnSqlChn, u"登记号(降序),文号(升序)"_s);
  EXPECT_EQ(KeptOrder(), u"RegID Desc,DocNo Asc"_s);
}

TEST_P(FrmOrderByTest, TheFourKeysMoveOneOrAllAndAreOnWhileThereIsSomethingToMove) {
  const auto on = [&] {
    QString keys;
    for (int key = 0; key < 4; ++key) keys += Find(window_, u"CmdSort(%1)"_s.arg(key)).isEnabled() ? u'1' : u'0';
    return keys;
  };
  InWindow([&] {
    EXPECT_EQ(on(), u"0011"_s);
    ClickRow(window_, u"LV1"_s, 1);
    Click(window_, u"CmdSort(2)"_s);
    EXPECT_EQ(on(), u"1111"_s);
    Click(window_, u"CmdSort(3)"_s);
    EXPECT_EQ(Chosen(), u"题名 登记号 文号 密级 成文日期 办结日期"_s);
    EXPECT_EQ(on(), u"1100"_s);
    Tick(1);
    ClickRow(window_, u"LV2"_s, 1);
    Click(window_, u"CmdSort(1)"_s);
    EXPECT_EQ(Offered(), u"登记号"_s);
    EXPECT_FALSE(List(u"LV1"_s).model()->index(0, 0).data(Qt::CheckStateRole).isValid()) << "only LV2 has ticks";
    Click(window_, u"CmdSort(0)"_s);
    EXPECT_EQ(Offered(), u"登记号 题名 文号 密级 成文日期 办结日期"_s);
    EXPECT_EQ(on(), u"0011"_s);
    ClickRow(window_, u"LV1"_s, 0);
    Click(window_, u"CmdSort(2)"_s);
    EXPECT_FALSE(Ticked(0)) << "a field comes in without a tick";
  });
}

TEST_P(FrmOrderByTest, ADoubleClickMovesARowLikeItsKey) {
  InWindow([&] {
    DoubleClickItem(List(u"LV1"_s), List(u"LV1"_s).model()->index(2, 0));
    EXPECT_EQ(Chosen(), u"文号"_s);
    const QRect place = List(u"LV2"_s).visualRect(Row(0));
    DoubleClickAt(*List(u"LV2"_s).viewport(), place.topLeft() + QPoint(60, place.height() / 2));
    EXPECT_EQ(Chosen(), QString());
  });
}

TEST_P(FrmOrderByTest, AClickOnAHeaderFlipsTheOrderOfThatList) {
  window_.OldOrder = u"Amaintitle,RegID Desc"_s;
  InWindow([&] {
    ClickHeader(u"LV2"_s);
    const QString once = Chosen();
    ClickHeader(u"LV2"_s);
    const QString twice = Chosen();
    EXPECT_NE(once, twice);
    ClickHeader(u"LV2"_s);
    EXPECT_EQ(Chosen(), once);
    EXPECT_EQ(Ticked(0), Chosen().startsWith(u"登记号"_s)) << "a tick goes with its row";
    const QString offered = Offered();
    ClickHeader(u"LV1"_s);
    ClickHeader(u"LV1"_s);
    EXPECT_NE(Offered(), offered);
    Click(window_, u"CmdOK"_s);
  });
  EXPECT_EQ(window_.ReturnSqlChn.count(u','), 1);
}

TEST_P(FrmOrderByTest, CancelEscapeAndTheWindowsOwnButtonClearBothTexts) {
  for (const auto& leave :
       std::vector<std::function<void()>>{[&] { Click(window_, u"CmdCancel"_s); },
                                          [&] { Press(window_, Qt::Key_Escape); }, [&] { window_.close(); }}) {
    InWindow([&] {
      Click(window_, u"CmdSort(3)"_s);
      window_.ReturnSql = window_.ReturnSqlChn = u"old"_s;
      leave();
      EXPECT_FALSE(window_.isVisible());
    });
    EXPECT_EQ(window_.ReturnSql + window_.ReturnSqlChn, QString());
  }
  EXPECT_EQ(KeptOrder(), u"<no row>"_s);
}

TEST_P(FrmOrderByTest, EveryMoveHasAKeyAndSpaceTicks) {
  InWindow([&] {
    ClickRow(window_, u"LV1"_s, 0);
    Press(List(u"LV1"_s), Qt::Key_Right, Qt::AltModifier);
    Press(List(u"LV1"_s), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Chosen(), u"登记号 题名"_s);
    ClickRow(window_, u"LV2"_s, 0);
    Press(List(u"LV2"_s), Qt::Key_Space);
    Press(List(u"LV2"_s), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Chosen(), u"题名 登记号"_s);
    EXPECT_TRUE(Ticked(1)) << "the tick goes with its row";
    Press(List(u"LV2"_s), Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(Offered(), QString());
    Press(List(u"LV2"_s), Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(Chosen(), QString());
  });
}

TEST_P(FrmOrderByTest, AFailureIsShownAndTheWindowStaysWithTheChoice) {
  InWindow([&] {
    Click(window_, u"CmdSort(3)"_s);
    Run(u"drop table FindCirOrder"_s);
    Click(window_, u"CmdOK"_s);
    EXPECT_TRUE(window_.isVisible());
    EXPECT_EQ(boxes_.Requests().size(), 1u);
    EXPECT_EQ(ColumnOf(window_, u"LV2"_s).size(), 6);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  });
  EXPECT_EQ(window_.ReturnSql, QString());
}

TEST_P(FrmOrderByTest, AnEmptyListSaysWhatToDoAndEveryControlHasAName) {
  InWindow([&] {
    EXPECT_TRUE(Find(Find(window_, u"LV2"_s), u"EmptyHint"_s).isVisible());
    EXPECT_EQ(UnnamedControls(window_), QStringList());
    Click(window_, u"CmdSort(3)"_s);
    EXPECT_TRUE(Find(Find(window_, u"LV1"_s), u"EmptyHint"_s).isVisible());
  });
}

}  // namespace
}  // namespace folvane::test
