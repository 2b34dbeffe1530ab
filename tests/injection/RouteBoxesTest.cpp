// Hostile texts in the editor of a flow's route, and the windows that show the route.
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <optional>

#include "flows/FlowFixture.h"
#include "flows/RouteDialogs.h"
#include "flows/RouteNodes.h"
#include "injection/Watched.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class RouteBoxesTest : public FlowTest {
 protected:
  void SetUp() override {
    FlowTest::SetUp();
    canaries_.emplace(Database(), program_);
    AddHead(Circulation(), {u"1"_s, u"11"_s, u"未传阅"_s, u"甲文"_s});
    AddHead(Circulation(), {u"2"_s, u"12"_s, u"未传阅"_s, u"乙文"_s});
    WriteRoute(u"1"_s, route_);
  }
  void TearDown() override {
    canaries_.reset();
    FlowTest::TearDown();
  }
  /// Types a text into a cell of the nodes. Answers what is kept of it.
  static QString PasteIntoNode(QWidget& window, int row, int column, const QString& text) {
    auto& grid = Find<QTableView>(window, u"DgNodes"_s);
    grid.setCurrentIndex(grid.model()->index(row, column));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // the editor of the cell before
    auto* line = grid.viewport()->findChild<QLineEdit*>();
    if (!line) throw std::runtime_error("nothing can be typed");
    line->selectAll();
    line->insert(text);
    const QString typed = line->text().trimmed();
    auto* choice = qobject_cast<QComboBox*>(line->parentWidget());
    Press(choice ? static_cast<QWidget&>(*choice) : *line, Qt::Key_Return);
    EXPECT_TRUE(WaitUntil([&] { return grid.model()->index(row, column).data().toString().trimmed() == typed; }));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return typed;
  }
  /// Runs the steps in the editor and saves where that can be.
  QString InEditor(const std::function<QString(QWidget&)>& steps) {
    QString entered;
    WithWindow(u"frmRouteEdit"_s, [&](QWidget& window) {
      entered = steps(window);
      ExpectNoMarkup(window, "route editor");
      auto& ok = Find<QPushButton>(window, u"CmdOK"_s);
      if (!ok.isEnabled()) faults_ = TextIn(window, u"LblFaults"_s);
      if (ok.isEnabled()) Click(ok);
      window.close();
    });
    EditRoute(Circulation(), u"1"_s);
    WithWindow(u"frmRouteChoice"_s, [](QWidget& window) {
      ExpectNoMarkup(window, "routes");
      window.close();
    });
    EXPECT_FALSE(TakeOverRoute(Circulation(), u"2"_s));
    return entered;
  }
  void Try(const std::string& name, const QString& column,
           const std::function<QString(QWidget&, const QString&)>& enter,
           const std::function<void(const QString&)>& prepare = {}) {
    const Box box{name,
                  [&](const QString& text) {
                    if (prepare) prepare(text);
                    return InEditor([&](QWidget& window) { return enter(window, text); });
                  },
                  [&] { return design_->Value(u"select %1 from Curr_FlowNode where Node_Number='1'"_s.arg(column)); },
                  [this] {
                    Database().Native(u"delete from UserPopedom"_s);
                    WriteRoute(u"1"_s, route_);
                  }};
    TryBox(Database(), box, SomeHostileLines(50), [this] {
      const bool told = !std::exchange(faults_, QString()).isEmpty() || !boxes_.Texts().isEmpty();
      boxes_.Clear();
      return told;
    });
  }

  const std::vector<RouteNode> route_{{u"1"_s, u"甲"_s, u"单人审核"_s, u"2"_s},
                                      {u"2"_s, u"乙"_s, u"单人审核"_s, u"0"_s}};
  QString faults_;
  MessageBoxes boxes_;
  std::optional<Canaries> canaries_;
};
FOLVANE_ON_EACH_DATABASE(RouteBoxesTest);

}  // namespace

TEST_P(RouteBoxesTest, MembersAndModesAreWrittenAsTypedOrItIsTold) {
  Try("members", u"Node_Member"_s,
      [](QWidget& window, const QString& text) { return PasteIntoNode(window, 0, 1, text); });
  Try("mode", u"Node_Mode"_s, [](QWidget& window, const QString& text) { return PasteIntoNode(window, 0, 2, text); });
}

TEST_P(RouteBoxesTest, ANodeOfAnyNumberIsGoneOnToOrItIsTold) {
  Try("number", u"Next_Node"_s, [](QWidget& window, const QString& text) {
    PasteIntoNode(window, 1, 0, text);
    return PasteIntoNode(window, 0, 3, text);
  });
}

TEST_P(RouteBoxesTest, APersonOfAnyNameBecomesAMember) {
  Try(
      "person", u"Node_Member"_s,
      [](QWidget& window, const QString& text) {
        auto& people = Find<QListWidget>(window, u"lstPeople"_s);
        EXPECT_EQ(people.item(0)->text(), text);
        people.setCurrentRow(0);
        auto& grid = Find<QTableView>(window, u"DgNodes"_s);
        grid.setCurrentIndex(grid.model()->index(0, 0));
        Click(Find<QWidget>(window, u"CmdJoin"_s));
        return (u"甲,"_s + text).trimmed();  // as every cell is kept
      },
      [this](const QString& text) {
        design_->Insert(u"UserPopedom"_s, u"UserID,UserName"_s, {u"5"_s, text});
      });
}

}  // namespace folvane::test
