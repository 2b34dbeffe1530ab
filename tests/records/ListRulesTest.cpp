#include <gtest/gtest.h>

#include "records/ColumnSort.h"
#include "records/LastPlace.h"
#include "records/RecordListModel.h"
#include "records/RecordStatement.h"
#include "records/RowIcon.h"
#include "records/YearFormula.h"
#include "support/QtPrinting.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

class ColumnSortTest : public testing::Test {
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

}  // namespace

TEST_F(ColumnSortTest, AnotherColumnSortsAscending) {
  EXPECT_EQ(Click(0, u"ArchiveId Desc"_s), u"RegID Asc"_s);
  EXPECT_EQ(Caption(0), u"↑登记号"_s);
  EXPECT_EQ(list_.headerData(0, Qt::Horizontal, Qt::UserRole + 2).toString(), u"1"_s);
}

TEST_F(ColumnSortTest, TheSameColumnAgainSortsDescendingAndAThirdClickRepeatsThat) {
  Click(0, u"ArchiveId Desc"_s);
  EXPECT_EQ(Click(0, u"RegID Asc"_s), u"RegID Desc"_s);
  EXPECT_EQ(Caption(0), u"↓登记号"_s);
  EXPECT_EQ(Click(0, u"RegID Desc"_s), u"RegID Desc"_s);
  EXPECT_EQ(Caption(0), u"↓登记号"_s);
}

TEST_F(ColumnSortTest, LeavingAColumnTakesItsArrow) {
  Click(0, u"ArchiveId Desc"_s);
  EXPECT_EQ(Click(1, u"RegID Asc"_s), u"DocNo Asc"_s);
  EXPECT_EQ(Caption(0), u"登记号"_s);
  EXPECT_EQ(Caption(1), u"↑文号"_s);
}

TEST_F(ColumnSortTest, AColumnSortedByAStoredOrderStartsAscending) {
  EXPECT_EQ(Click(0, u"regid Desc"_s), u"RegID Asc"_s);
  EXPECT_EQ(Caption(0), u"↑登记号"_s);
}

TEST_F(ColumnSortTest, AClickOnTheHiddenColumnSortsByTheKey) {
  EXPECT_EQ(Click(2, u"RegID Asc"_s), u"ArchiveId Asc"_s);
}

TEST_F(ColumnSortTest, TheOrderOfAClickIsToldBeforeAnythingIsMarked) {
  EXPECT_EQ(OrderAfterClick(list_, 0, u"ArchiveId Desc"_s), u"RegID Asc"_s);
  EXPECT_EQ(Caption(0), u"登记号"_s);
}

TEST_F(ColumnSortTest, AnOrderOfSeveralColumnsStartsWithItsFirstField) {
  EXPECT_EQ(OrderField(u"CreatedDate Desc,RegID Asc"_s), u"CreatedDate"_s);
  EXPECT_EQ(OrderField(u"RegID,DocNo"_s), u"RegID"_s);
  EXPECT_EQ(OrderField(QString()), QString());
}

TEST(RowIconTest, SeventhColumnAndOriginalsGiveTheIcon) {
  EXPECT_EQ(IconOfRow(u"  "_s, false), 2);
  EXPECT_EQ(IconOfRow(u"a"_s, false), 1);
  EXPECT_EQ(IconOfRow(QString(), true), 5);
  EXPECT_EQ(IconOfRow(u"a"_s, true), 4);
}

TEST(RowIconTest, ACountOfTheOriginalsMovesTheIconWithinItsPair) {
  EXPECT_EQ(IconAfterCount(4, false), 1);
  EXPECT_EQ(IconAfterCount(5, false), 2);
  EXPECT_EQ(IconAfterCount(1, true), 4);
  EXPECT_EQ(IconAfterCount(2, true), 5);
  EXPECT_EQ(IconAfterCount(4, true), 4);
}

TEST(RecordStatementTest, WithoutAConditionThereIsNoWherePart) {
  EXPECT_EQ(RecordStatement(u"Lwdj"_s, QString(), u"ArchiveId Desc"_s),
            u"Select * From Lwdj Order By ArchiveId Desc"_s);
  EXPECT_EQ(RecordStatement(u"Lwdj"_s, u"1 = 2"_s, u"RegID Asc"_s),
            u"Select * From Lwdj Where 1 = 2 Order By RegID Asc"_s);
}

TEST(LastPlaceTest, TheFilterStandsBehindTheFirstComma) {
  EXPECT_EQ(LastPlace::FromText(QString()).table, u"Lwdj"_s) << "the usual first place";
  EXPECT_EQ(LastPlace::FromText(u"Fwdj"_s).table, u"Fwdj"_s);
  const LastPlace place = LastPlace::FromText(u" Fwdj,Left(CreatedDate,4) = '2001' "_s);
  EXPECT_EQ(place.table, u"Fwdj"_s);
  EXPECT_EQ(place.filter, u"Left(CreatedDate,4) = '2001'"_s);
  EXPECT_EQ(place.ToText(), u"Fwdj,Left(CreatedDate,4) = '2001'"_s);
}

TEST(SecondLevelTest, TheFieldSaysHowItsNodesLimitTheList) {
  EXPECT_EQ(SecondLevelFilter(u"createddate"_s, u"2001"_s), u"Left(CreatedDate,4) = '2001'"_s);
  EXPECT_EQ(SecondLevelFilter(u"DocNo"_s, u"国办"_s), u"DOCNO like '国办%'"_s);
  EXPECT_EQ(SecondLevelFilter(u"FileStatus"_s, u"已归档"_s), u"FileStatus ='已归档'"_s);
}

TEST(SecondLevelTest, TheFieldSaysWhereTheNodesComeFrom) {
  EXPECT_EQ(SecondLevelStatement(u"Lwdj"_s, u"CreatedDate"_s),
            u"select DISTINCT left(Createddate,4)  from Lwdj order by 1 desc"_s);
  EXPECT_EQ(SecondLevelStatement(u"Lwdj"_s, u"DOCNO"_s),
            u"select DISTINCT name from AssistantDicKey where DicID=(select Dicid from AssistantDictionary where "
            "name='机关代字')"_s);
  EXPECT_EQ(SecondLevelStatement(u"Lwdj"_s, u"FileStatus"_s),
            u"select DISTINCT FileStatus  from Lwdj order by 1 desc"_s);
}

}  // namespace folvane::test
