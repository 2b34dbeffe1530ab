#include <QHeaderView>
#include <QIcon>
#include <QImage>
#include <QSplitter>
#include <gmock/gmock.h>

#include <folvane/Icons.h>

#include "flows/FlowWindowFixture.h"

namespace folvane::test {
namespace {

/// How a flow's window looks: signs, sizes, and what it shows of another user's work.
class FlowLookTest : public FlowWindowTest {
 protected:
  static QVariant Sign(QTableView& grid, int row, int column) {
    return grid.model()->index(row, column).data(Qt::DecorationRole);
  }
  static QImage Picture(const QIcon& icon) { return icon.pixmap(QSize(32, 32), 1.0).toImage(); }
  /// Whether the status of a row bears the sign of that name.
  static bool Bears(QTableView& grid, int row, const QString& name) {
    return !Icon(name).isNull() && Picture(Sign(grid, row, 3).value<QIcon>()) == Picture(Icon(name));
  }
};

FOLVANE_ON_EACH_DATABASE(FlowLookTest);

TEST_P(FlowLookTest, EachStatusOfACirculationHasASignOfItsOwn) {
  const QStringList statuses{u"暂缓"_s, u"已完成"_s, u"传阅中"_s, u"已传阅"_s, u"未传阅"_s};
  for (int at = 0; at < statuses.size(); ++at) AddHead(Circulation(), {K(9 - at), QString::number(at), statuses[at]});
  Open(u"frmPassFile"_s, [](QWidget& window) {
    QTableView& heads = Heads(window);
    ASSERT_EQ(Cell(heads, 0, 3), u"暂缓"_s);
    EXPECT_FALSE(Sign(heads, 0, 3).isValid());  // not one of the flow's own
    const QStringList names{u"stateended"_s, u"staterunning"_s, u"statedone"_s, u"stateidle"_s};
    for (int at = 0; at < names.size(); ++at) EXPECT_TRUE(Bears(heads, at + 1, names[at])) << names[at].toStdString();
    EXPECT_FALSE(Sign(heads, 1, 7).isValid());  // only the status bears one
  });
}

TEST_P(FlowLookTest, ADistributionHasNoSignsOfARoute) {
  AddHead(Distribution(), {K(3), u"13"_s, u"已完成"_s});
  AddHead(Distribution(), {K(2), u"12"_s, u"已分发"_s});
  AddHead(Distribution(), {K(1), u"11"_s, u"未分发"_s});
  Open(u"frmDistributeFile"_s, [](QWidget& window) {
    EXPECT_FALSE(Sign(Heads(window), 0, 3).isValid());
    EXPECT_TRUE(Bears(Heads(window), 1, u"statedone"_s));
    EXPECT_TRUE(Bears(Heads(window), 2, u"stateidle"_s));
  });
}

TEST_P(FlowLookTest, TheSizesThatAUserGaveAreKeptForEachWindow) {
  QList<int> parts;
  Open(u"frmPassFile"_s, [&](QWidget& window) {
    Heads(window).horizontalHeader()->resizeSection(7, 211);
    Details(window).horizontalHeader()->resizeSection(2, 123);
    auto& splitter = Find<QSplitter>(window, u"HSplitter"_s);
    const QList<int> usual = splitter.sizes();
    splitter.setSizes({usual[0] - 60, usual[1] + 60});
    parts = splitter.sizes();
    ASSERT_NE(parts, usual);
  });
  Open(u"frmPassFile"_s, [&](QWidget& window) {
    EXPECT_EQ(Heads(window).columnWidth(7), 211);
    EXPECT_EQ(Details(window).columnWidth(2), 123);
    EXPECT_EQ(Find<QSplitter>(window, u"HSplitter"_s).sizes(), parts);
    EXPECT_TRUE(Heads(window).isColumnHidden(1));
  });
  Open(u"frmTranSact"_s, [&](QWidget& window) {
    EXPECT_NE(Heads(window).columnWidth(7), 211);
    EXPECT_NE(Find<QSplitter>(window, u"HSplitter"_s).sizes(), parts);
  });
}

TEST_P(FlowLookTest, ARefusedStepShowsWhatAnotherUserHasMadeOfTheHead) {
  AddHead(Circulation(), {K(1), u"11"_s, u"传阅中"_s});
  AddRoute(K(1), {u"1|甲|单人审核|2"_s, u"2|乙|单人审核|0"_s});
  Database().Native(u"update Curr_Flow set CurrNode='1'"_s);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    auto& route = Find<QLabel>(window, u"LblRoute"_s);
    ASSERT_EQ(route.text(), u"流程： <b>▶ 甲</b> → 乙 → 结束"_s);
    Database().Native(u"update PassRead_File set PassRead_Status='已完成'"_s);
    Command(window, u"NextRead"_s).trigger();
    EXPECT_TRUE(boxes_.Last().text.contains(u"现在的状态是“已完成”"_s)) << boxes_.Last().text.toStdString();
    EXPECT_EQ(Cell(Heads(window), 0, 3), u"已完成"_s);
    EXPECT_EQ(route.text(), u"流程： 甲 → 乙 → <b>✔ 结束</b>"_s);
    EXPECT_FALSE(Command(window, u"NextRead"_s).isEnabled());
    EXPECT_TRUE(Command(window, u"StartRead"_s).isEnabled());
  });
}

}  // namespace
}  // namespace folvane::test
