#include "query/FieldListView.h"
#include "query/FrmSimSet.h"
#include "query/QueryFixture.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

class FrmSimSetTest : public QueryTest {
 protected:
  void SetUp() override {
    QueryTest::SetUp();
    Run(u"insert into SimSearch (TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex) values "
        "('Lwdj','DocNo','文号',1,1,1)"_s);
    Run(u"insert into SimSearch (TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex) values "
        "('Lwdj','RegID','登记号',2,2,1)"_s);
  }
  void InWindow(const std::function<void()>& steps) {
    window_.TableName = u"Lwdj"_s;
    WithWindow(u"FrmSimSet"_s, [&](QWidget&) { steps(); });
    window_.Open();
  }
  QString Offered() { return ColumnOf(window_, u"LV1"_s).join(u' '); }
  QString Chosen() { return ColumnOf(window_, u"LV2"_s).join(u' '); }
  QStringList Saved() {
    return Rows(u"select DataField,ChnDataField,OrderNo,CtlType,CtlIndex from SimSearch order by OrderNo"_s);
  }

  FrmSimSet window_;
};

FOLVANE_ON_EACH_DATABASE(FrmSimSetTest);

TEST_P(FrmSimSetTest, TheListsShowWhatIsChosenAndWhatIsNot) {
  InWindow([&] {
    EXPECT_EQ(window_.windowTitle(), u"简单查询设置"_s);
    EXPECT_EQ(Chosen(), u"文号 登记号"_s);
    EXPECT_EQ(ColumnOf(window_, u"LV2"_s, 1), (QStringList{u"DocNo"_s, u"RegID"_s}));
    EXPECT_EQ(Offered(), u"题名 密级 成文日期 办结日期"_s);
    EXPECT_EQ(Find<QAbstractButton>(window_, u"Image3"_s).text(), u"选中 >"_s);
    EXPECT_EQ(Find<QAbstractButton>(window_, u"Image4"_s).text(), u"移除 <"_s);
    EXPECT_EQ(Find<QAbstractButton>(window_, u"CmdOK"_s).text(), u"确定(&O)"_s);
    EXPECT_EQ(Find<QAbstractButton>(window_, u"CmdCancel"_s).text(), u"取消(&C)"_s);
  });
}

TEST_P(FrmSimSetTest, TheSelectedRowsGoToTheEndAndBack) {
  InWindow([&] {
    ClickRow(window_, u"LV1"_s, 3);
    ClickRow(window_, u"LV1"_s, 0, Qt::ControlModifier);
    Click(window_, u"Image3"_s);
    EXPECT_EQ(Chosen(), u"文号 登记号 题名 办结日期"_s) << "in the order of the list";
    EXPECT_EQ(Offered(), u"密级 成文日期"_s);
    ClickRow(window_, u"LV2"_s, 0);
    Click(window_, u"Image4"_s);
    EXPECT_EQ(Chosen(), u"登记号 题名 办结日期"_s);
    EXPECT_EQ(Offered(), u"密级 成文日期 文号"_s);
    Click(window_, u"CmdOK"_s);
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_FALSE(window_.IsCancel);
  EXPECT_EQ(Saved(),
            (QStringList{u"RegID|登记号|1|2|1"_s, u"Amaintitle|题名|2|1|1"_s, u"FinishDate|办结日期|3|2|2"_s}));
}

TEST_P(FrmSimSetTest, TheSelectedRowIsSwappedWithItsNeighbourAndStaysSelected) {
  InWindow([&] {
    ClickRow(window_, u"LV2"_s, 1);
    Click(window_, u"CmdSort(1)"_s);
    EXPECT_EQ(Chosen(), u"登记号 文号"_s);
    Click(window_, u"CmdSort(1)"_s);
    EXPECT_EQ(Chosen(), u"登记号 文号"_s) << "the first one goes no higher";
    Click(window_, u"CmdSort(2)"_s);
    EXPECT_EQ(Chosen(), u"文号 登记号"_s);
    Click(window_, u"CmdSort(2)"_s);
    EXPECT_EQ(Chosen(), u"文号 登记号"_s) << "the last one goes no lower";
    Click(window_, u"CmdSort(1)"_s);
    Click(window_, u"CmdOK"_s);
  });
  EXPECT_EQ(Saved(), (QStringList{u"RegID|登记号|1|2|1"_s, u"DocNo|文号|2|1|1"_s}));
}

TEST_P(FrmSimSetTest, CancelEscapeAndTheWindowsOwnButtonLeaveTheFieldsAsTheyAre) {
  const QStringList before = Saved();
  for (const auto& leave :
       std::vector<std::function<void()>>{[&] { Click(window_, u"CmdCancel"_s); },
                                          [&] { Press(window_, Qt::Key_Escape); }, [&] { window_.close(); }}) {
    window_.IsCancel = false;
    InWindow([&] {
      ClickRow(window_, u"LV1"_s, 0);
      Click(window_, u"Image3"_s);
      leave();
      EXPECT_FALSE(window_.isVisible());
    });
    EXPECT_TRUE(window_.IsCancel);
    EXPECT_EQ(Saved(), before);
  }
}

TEST_P(FrmSimSetTest, WithoutASelectionOrARowNothingMoves) {
  InWindow([&] {
    Click(window_, u"Image3"_s);
    Click(window_, u"Image4"_s);
    Click(window_, u"CmdSort(1)"_s);
    EXPECT_EQ(Chosen(), u"文号 登记号"_s);
    for (int row = 0; row < 2; ++row) {
      ClickRow(window_, u"LV2"_s, 0);
      Click(window_, u"Image4"_s);
    }
    EXPECT_EQ(Chosen(), QString());
    EXPECT_FALSE(Find(window_, u"Image4"_s).isEnabled());
    Click(window_, u"CmdOK"_s);
  });
  EXPECT_EQ(Saved(), QStringList());
}

TEST_P(FrmSimSetTest, EveryMoveHasAKey) {
  InWindow([&] {
    ClickRow(window_, u"LV1"_s, 0);
    Press(Find(window_, u"LV1"_s), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Chosen(), u"文号 登记号 题名"_s);
    Press(Find(window_, u"LV1"_s), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Chosen(), u"文号 登记号 题名 密级"_s) << "the row that follows is selected";
    ClickRow(window_, u"LV2"_s, 1);
    Press(Find(window_, u"LV2"_s), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Chosen(), u"文号 题名 登记号 密级"_s);
    Press(Find(window_, u"LV2"_s), Qt::Key_Up, Qt::AltModifier);
    Press(Find(window_, u"LV2"_s), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Chosen(), u"文号 题名 密级"_s);
    Press(Find(window_, u"LV2"_s), Qt::Key_Return);
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_FALSE(window_.IsCancel);
}

TEST_P(FrmSimSetTest, ADoubleClickMovesARow) {
  InWindow([&] {
    auto& offered = Find<QAbstractItemView>(window_, u"LV1"_s);
    DoubleClickItem(offered, offered.model()->index(1, 0));
    EXPECT_EQ(Chosen(), u"文号 登记号 密级"_s);
    auto& chosen = Find<QAbstractItemView>(window_, u"LV2"_s);
    DoubleClickItem(chosen, chosen.model()->index(0, 0));
    EXPECT_EQ(Chosen(), u"登记号 密级"_s);
  });
}

TEST_P(FrmSimSetTest, AFieldThatIsGoneFromTheDesignCanBeRemoved) {
  Run(u"delete from DynamicWindows where FieldName = 'DocNo'"_s);
  InWindow([&] {
    EXPECT_EQ(Chosen(), u"文号 登记号"_s);
    ClickRow(window_, u"LV2"_s, 0);
    Click(window_, u"Image4"_s);
    Click(window_, u"CmdOK"_s);
  });
  EXPECT_EQ(Saved(), QStringList{u"RegID|登记号|1|2|1"_s});
}

TEST_P(FrmSimSetTest, AFailedSaveLeavesTheFieldsAsTheyWereAndTheWindowWithTheChoice) {
  MessageBoxes boxes;
  const QStringList before = Saved();
  for (const QString& statement :
       {u"Delete From SimSearch"_s, u"Select * from SimSearch"_s, u"Select ChnFieldName"_s}) {
    InWindow([&] {
      ClickRow(window_, u"LV1"_s, 0);
      Click(window_, u"Image3"_s);
      Refuse(statement);
      Click(window_, u"CmdOK"_s);
      Refuse({});
      EXPECT_EQ(Saved(), before);
      EXPECT_TRUE(boxes.Last().details.startsWith(u"语句：%1"_s.arg(statement)));
      EXPECT_EQ(Chosen(), u"文号 登记号 题名"_s);
    });
    EXPECT_TRUE(window_.IsCancel);
  }
}

TEST_P(FrmSimSetTest, AnEmptyListSaysWhatToDoAndEveryControlHasAName) {
  Run(u"delete from SimSearch"_s);
  InWindow([&] {
    EXPECT_TRUE(Find(Find(window_, u"LV2"_s), u"EmptyHint"_s).isVisible());
    EXPECT_FALSE(Find(Find(window_, u"LV1"_s), u"EmptyHint"_s).isVisible());
    EXPECT_EQ(UnnamedControls(window_), QStringList());
  });
}

}  // namespace
}  // namespace folvane::test
