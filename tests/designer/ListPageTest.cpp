#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>

#include "design/SmallDesign.h"
#include "designer/DesignSession.h"
#include "designer/ListPage.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class ListPageTest : public WithSmallDesign {
 protected:
  void SetUp() override {
    WithSmallDesign::SetUp();
    Database().Native(u"Insert Into Lwdj(ArchiveID,RegID,Amaintitle) Values('1',7,'关于春耕的通知')"_s);
    session_ = std::make_unique<designer::DesignSession>(Connected());
    page_ = new designer::ListPage(*session_);
    page_->SetTable(u"Lwdj"_s);
    (new QVBoxLayout(&window_))->addWidget(page_);
    window_.resize(900, 600);
    window_.show();
    window_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
  }
  void TearDown() override { delete page_; }

  designer::DesignSession& Session() { return *session_; }
  designer::ListPage& Page() { return *page_; }
  QTableView& Grid() { return Find<QTableView>(*page_, u"GrdColumns"_s); }
  QTreeView& Live() { return Find<QTreeView>(*page_, u"LiveList"_s); }
  QString Cell(int row, int column) { return Live().model()->index(row, column).data().toString(); }
  QString Hint() {
    auto& hint = Find<QLabel>(Live(), u"LiveHint"_s);
    return hint.isVisible() ? hint.text() : QString();
  }
  std::vector<Design::ListColumn> Columns() {
    Design design = Session().Wanted();
    return TableOf(design, u"Lwdj"_s).columns;
  }
  void Change(const std::function<void(Design&)>& work) { Session().Change(u"改"_s, work); }
  /// Drags with the mouse in the header of the live list, from pixel to pixel.
  void DragHeader(int from, int to) {
    QWidget& header = *Live().header()->viewport();
    const int y = header.height() / 2;
    QTest::mousePress(&header, Qt::LeftButton, {}, {from, y});
    for (const int x : {(from + to) / 2, to}) {
      QMouseEvent move(QEvent::MouseMove, QPointF(x, y), header.mapToGlobal(QPointF(x, y)), Qt::NoButton,
                       Qt::LeftButton, {});
      QCoreApplication::sendEvent(&header, &move);
    }
    QTest::mouseRelease(&header, Qt::LeftButton, {}, {to, y});
    QCoreApplication::processEvents();
  }

 private:
  std::unique_ptr<designer::DesignSession> session_;
  QWidget window_;
  designer::ListPage* page_ = nullptr;
};

FOLVANE_ON_EACH_DATABASE(ListPageTest);

// What does not depend on the database.
class ListColumnsTest : public ListPageTest {};
INSTANTIATE_TEST_SUITE_P(OnSqlite, ListColumnsTest, testing::Values("SQLite"));

TEST_P(ListPageTest, ShowsTheListWithItsRecords) {
  EXPECT_EQ(Live().header()->sectionSize(0), 900 / 15);
  EXPECT_EQ(Live().header()->sectionSize(1), 5700 / 15);
  EXPECT_EQ(Live().model()->headerData(1, Qt::Horizontal).toString(), u"题名"_s);
  EXPECT_EQ(Cell(0, 0), u"7"_s);
  EXPECT_EQ(Cell(0, 1), u"关于春耕的通知"_s);
  EXPECT_EQ(Grid().model()->index(1, 0).data().toString(), u"题名 Amaintitle"_s);
  EXPECT_EQ(Hint(), QString());
}

TEST_P(ListPageTest, AColumnThatTheDatabaseLacksStaysEmpty) {
  Change([](Design& design) {
    Design::Table& table = TableOf(design, u"Lwdj"_s);
    table.fields.push_back({u"Note"_s, u"附注"_s, u"文本型"_s, 200, {}});
    table.columns.push_back({u"Note"_s, u"附注"_s, 1500, 3});
  });
  EXPECT_EQ(Live().header()->count(), 3);
  EXPECT_EQ(Cell(0, 0), u"7"_s);
  EXPECT_EQ(Cell(0, 2), QString());
}

TEST_P(ListPageTest, AHintTellsWhyThereAreNoRecords) {
  Page().SetTable(u"Gdwj"_s);
  EXPECT_EQ(Hint(), u"表中还没有记录"_s);
  Change([](Design& design) {
    design.tables.push_back(TableOf(design, u"Lwdj"_s));
    design.tables.back().name = u"Fwdj"_s;
  });
  Page().SetTable(u"Fwdj"_s);
  EXPECT_TRUE(Hint().startsWith(u"数据库中还没有这张表"_s));
  EXPECT_EQ(Live().header()->count(), 2);
  Change([](Design& design) { TableOf(design, u"Fwdj"_s).columns.clear(); });
  EXPECT_EQ(Hint(), u"列表中还没有列"_s);
  Page().SetTable(u"Nowhere"_s);
  EXPECT_EQ(Grid().model()->rowCount(), 0);
}

TEST_P(ListPageTest, ADatabaseErrorIsAHint) {
  // The columns that are known are gone meanwhile.
  Database().Native(u"Alter Table Lwdj Rename To Lwdj_away"_s);
  Change([](Design& design) { TableOf(design, u"Lwdj"_s).columns[0].caption = u"号"_s; });
  EXPECT_FALSE(Hint().isEmpty());
  EXPECT_EQ(Live().model()->rowCount(), 0);
  Database().Native(u"Alter Table Lwdj_away Rename To Lwdj"_s);
}

TEST_P(ListColumnsTest, DraggingABorderChangesTheWidth) {
  DragHeader(60 - 2, 60 - 2 + 40);
  EXPECT_EQ(Columns()[0].width, 1500);
  EXPECT_EQ(Columns()[1].width, 5700);
  EXPECT_EQ(Session().History().index(), 1);
  Session().History().undo();
  EXPECT_EQ(Columns()[0].width, 900);
  EXPECT_EQ(Live().header()->sectionSize(0), 60);
}

TEST_P(ListColumnsTest, DraggingATitleChangesTheOrder) {
  DragHeader(200, 10);
  const std::vector<Design::ListColumn> moved{{u"Amaintitle"_s, u"题名"_s, 5700, 1}, {u"RegID"_s, u"登记号"_s, 900, 2}};
  EXPECT_EQ(Columns(), moved);
  EXPECT_EQ(Live().header()->logicalIndex(0), 0);
  EXPECT_EQ(Cell(0, 0), u"关于春耕的通知"_s);
  EXPECT_EQ(Session().History().index(), 1);
}

TEST_P(ListColumnsTest, AClickOnATitleChangesNothing) {
  DragHeader(200, 200);
  EXPECT_EQ(Session().History().index(), 0);
}

TEST_P(ListColumnsTest, MovingARowRenumbers) {
  Grid().setCurrentIndex(Grid().model()->index(1, 0));
  Find<QAction>(Page(), u"GrdColumnsUp"_s).trigger();
  EXPECT_EQ(Columns()[0].field, u"Amaintitle"_s);
  EXPECT_EQ(Columns()[0].order, 1);
  EXPECT_EQ(Columns()[1].order, 2);
}

TEST_P(ListColumnsTest, AddsAFieldThatIsNoColumnYet) {
  Find<QAction>(Page(), u"GrdColumnsAdd"_s).trigger();
  ASSERT_EQ(Columns().size(), 3u);
  EXPECT_EQ(Columns()[2].field, u"CreatedDate"_s);
  EXPECT_EQ(Columns()[2].order, 3);
}

TEST_P(ListColumnsTest, AddsAllOtherFieldsAsOneStep) {
  Find<QAction>(Page(), u"GrdColumnsAddRest"_s).trigger();
  EXPECT_EQ(Columns().size(), 5u);
  EXPECT_EQ(Session().History().index(), 1);
  EXPECT_FALSE(Find<QAction>(Page(), u"GrdColumnsAddRest"_s).isEnabled());
  Find<QAction>(Page(), u"GrdColumnsAdd"_s).trigger();
  EXPECT_EQ(Columns().size(), 5u);
  Session().History().undo();
  EXPECT_EQ(Columns().size(), 2u);
}

TEST_P(ListColumnsTest, AnotherFieldBringsItsCaption) {
  QAbstractItemModel& model = *Grid().model();
  EXPECT_TRUE(model.setData(model.index(0, 0), u"密级 SecurityClass"_s));
  EXPECT_EQ(Columns()[0].field, u"SecurityClass"_s);
  EXPECT_EQ(Columns()[0].caption, u"密级"_s);
  EXPECT_FALSE(model.setData(model.index(0, 0), u"Amaintitle"_s));  // is a column already
  EXPECT_FALSE(model.setData(model.index(0, 0), u"Nowhere"_s));
  EXPECT_FALSE(model.setData(model.index(0, 2), -1));
  EXPECT_TRUE(model.setData(model.index(0, 2), 0));
  EXPECT_EQ(Live().header()->sectionSize(0), 1);
  EXPECT_EQ(Session().History().index(), 2);
}

TEST_P(ListColumnsTest, HasANameForEachOfItsControls) { EXPECT_EQ(UnnamedControls(Page()), QStringList()); }

}  // namespace
}  // namespace folvane::test
