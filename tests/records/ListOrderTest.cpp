#include <gmock/gmock.h>

#include "records/DesignedDatabase.h"
#include "records/ListOrder.h"
#include "records/RecordListModel.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

class MarkedOrderTest : public testing::Test {
 protected:
  void SetUp() override {
    list_.SetColumns(
        {{u"RegID"_s, u"登记号"_s, 10, {}}, {u"DocNo"_s, u"文号"_s, 10, {}}, {u"ArchiveId"_s, u"ID"_s, 1, {}}});
  }
  QString Caption(int column) const { return list_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(); }
  QString Click(int column, const QString& before) {
    const QString order = OrderAfterClick(list_, column, before);
    MarkOrder(list_, column, before, order);
    return order;
  }
  RecordListModel list_;
};

class KeptOrderTest : public DesignTest {};

}  // namespace

TEST(ListOrderTextTest, TheKeyInAnOrderIsFoundInAnyCase) {
  EXPECT_TRUE(OrdersByKey(u"ArchiveId Desc"_s));
  EXPECT_TRUE(OrdersByKey(u"A Desc,ArchiveID"_s));
  EXPECT_FALSE(OrdersByKey(u"A Desc"_s));
}

TEST_F(MarkedOrderTest, AnotherColumnSortsAscending) {
  EXPECT_EQ(Click(0, u"ArchiveId Desc"_s), u"RegID Asc"_s);
  EXPECT_EQ(Caption(0), u"↑登记号"_s);
  EXPECT_EQ(list_.headerData(0, Qt::Horizontal, Qt::UserRole + 2).toString(), u"1"_s);
}

TEST_F(MarkedOrderTest, TheSameColumnAgainSortsDescendingAndAThirdClickRepeatsThat) {
  Click(0, u"ArchiveId Desc"_s);
  EXPECT_EQ(Click(0, u"RegID Asc"_s), u"RegID Desc"_s);
  EXPECT_EQ(Caption(0), u"↓登记号"_s);
  EXPECT_EQ(Click(0, u"RegID Desc"_s), u"RegID Desc"_s);
  EXPECT_EQ(Caption(0), u"↓登记号"_s);
}

TEST_F(MarkedOrderTest, LeavingAColumnTakesItsArrow) {
  Click(0, u"ArchiveId Desc"_s);
  EXPECT_EQ(Click(1, u"RegID Asc"_s), u"DocNo Asc"_s);
  EXPECT_EQ(Caption(0), u"登记号"_s);
  EXPECT_EQ(Caption(1), u"↑文号"_s);
}

TEST_F(MarkedOrderTest, AColumnSortedByAStoredOrderStartsAscending) {
  EXPECT_EQ(Click(0, u"regid Desc"_s), u"RegID Asc"_s);
  EXPECT_EQ(Caption(0), u"↑登记号"_s);
}

TEST_F(MarkedOrderTest, AClickOnTheHiddenColumnSortsByTheKey) {
  EXPECT_EQ(Click(2, u"RegID Asc"_s), u"ArchiveId Asc"_s);
}

TEST_F(MarkedOrderTest, TheOrderOfAClickIsToldBeforeAnythingIsMarked) {
  EXPECT_EQ(OrderAfterClick(list_, 0, u"ArchiveId Desc"_s), u"RegID Asc"_s);
  EXPECT_EQ(Caption(0), u"登记号"_s);
}

TEST_F(MarkedOrderTest, AnOrderThatNoClickGaveMarksNothing) {
  Click(1, u"RegID Asc"_s);
  UnmarkOrder(list_);
  EXPECT_EQ(Caption(1), u"文号"_s);
}

TEST_F(MarkedOrderTest, AnOrderOfSeveralColumnsStartsWithItsFirstField) {
  EXPECT_EQ(OrderField(u"CreatedDate Desc,RegID Asc"_s), u"CreatedDate"_s);
  EXPECT_EQ(OrderField(u"RegID,DocNo"_s), u"RegID"_s);
  EXPECT_EQ(OrderField(QString()), QString());
}

FOLVANE_ON_EACH_DATABASE(KeptOrderTest);

TEST_P(KeptOrderTest, AStoredOrderIsTakenAndAMissingOneIsStoredOnce) {
  EXPECT_EQ(ReadDefaultOrder(u"Lwdj"_s), u"ArchiveId Desc"_s);
  SaveOrder(u"Lwdj"_s, u"RegID Asc"_s);
  EXPECT_EQ(ReadDefaultOrder(u"Lwdj"_s), u"RegID Asc"_s);
  EXPECT_EQ(design_->Value(u"select count(*) from FindCirOrder"_s), u"1"_s);
}

TEST_P(KeptOrderTest, SavingTheOrderOfATableWithoutARowInsertsIt) {
  SaveOrder(u"Lwdj"_s, u"RegID Asc"_s);
  EXPECT_EQ(design_->Value(u"select OrderStr from FindCirOrder"_s), u"RegID Asc"_s);
  EXPECT_THAT(log_->Take(),
              ElementsAre(u"Select * From FindCirOrder Where TableName = 'Lwdj' and UserID=1"_s,
                          u"Insert Into FindCirOrder(TableName,OrderStr,UserID) Values('Lwdj','RegID Asc',1)"_s));
}

}  // namespace folvane::test
