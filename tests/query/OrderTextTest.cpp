#include <folvane/DataError.h>

#include "query/OrderText.h"
#include "query/QueryFixture.h"

namespace folvane::test {
namespace {

using Items = std::vector<OrderItem>;

TEST(OrderTextTest, AnOrderIsTakenApartAtCommasAndBlanks) {
  const std::vector<std::pair<QString, Items>> orders{
      {QString(), {}},
      {u"A"_s, {{u"A"_s, false}}},
      {u"A Desc,B"_s, {{u"A"_s, true}, {u"B"_s, false}}},
      {u"A dEsC,B aSc,C ASC"_s, {{u"A"_s, true}, {u"B"_s, false}, {u"C"_s, false}}},
      {u"A  Asc"_s, {{u"A"_s, true}}},  // what follows the first blank is " Asc"
      {u"A nonsense"_s, {{u"A"_s, true}}},
      {u"A,,B Desc"_s, {{u"A"_s, false}, {QString(), false}, {u"B"_s, true}}},
  };
  for (const auto& [order, items] : orders) EXPECT_EQ(OrderItemsOf(order), items) << qPrintable(order);
}

TEST(OrderTextTest, ItemsAreJoinedWithoutBlanks) {
  const Items items{{u"CreatedDate"_s, true}, {u"RegID"_s, false}};
  EXPECT_EQ(OrderTextOf(items), u"CreatedDate Desc,RegID Asc"_s);
  EXPECT_EQ(OrderWordsOf({{u"日期"_s, true}, {u"登记号"_s, false}}), u"日期(降序),登记号(升序)"_s);
  EXPECT_EQ(OrderItemsOf(OrderTextOf(items)), items);
  EXPECT_EQ(OrderTextOf({}), QString());
}

TEST(OrderTextTest, ALongOrderIsShortenedToWholeItems) {
  const QString order = u"A Desc,B Asc,C Asc"_s;
  EXPECT_EQ(FittedOrder(order, 18), order);
  EXPECT_EQ(FittedOrder(order, 17), u"A Desc,B Asc"_s);
  EXPECT_EQ(FittedOrder(order, 13), u"A Desc,B Asc"_s);
  EXPECT_EQ(FittedOrder(order, 12), u"A Desc"_s) << "before the last comma, though the second item would just fit";
  EXPECT_EQ(FittedOrder(order, 6), QString());
  EXPECT_EQ(FittedOrder(QString(), 5), QString());
  EXPECT_EQ(FittedOrder(u"题名 Desc,B Asc"_s, 15), u"题名 Desc,B Asc"_s);
  EXPECT_EQ(FittedOrder(u"题名 Desc,B Asc"_s, 14), u"题名 Desc"_s) << "a Chinese character takes two bytes";
}

class OrderChoiceTest : public QueryTest {
 protected:
  QStringList Kept() { return Rows(u"select TableName,OrderStr,UserID from FindCirOrder order by UserID"_s); }
};

FOLVANE_ON_EACH_DATABASE(OrderChoiceTest);

TEST_P(OrderChoiceTest, AnOrderIsShownByItsCaptions) {
  TakeStatements();
  EXPECT_EQ(ShownOrder(u"Lwdj"_s, u"RegID Desc,DocNo"_s), (Items{{u"登记号"_s, true}, {u"文号"_s, false}}));
  EXPECT_EQ(TakeStatements(),
            (QStringList{u"Select ChnFieldName from DynamicWindows Where TableName='Lwdj' and FieldName='RegID'"_s,
                         u"Select ChnFieldName from DynamicWindows Where TableName='Lwdj' and FieldName='DocNo'"_s}));
}

TEST_P(OrderChoiceTest, AFieldThatIsGoneFallsOutOfTheOrder) {
  EXPECT_EQ(ShownOrder(u"Lwdj"_s, u"Gone Desc,DocNo Desc,"_s), (Items{{u"文号"_s, true}}));
}

TEST_P(OrderChoiceTest, AnOrderWithTheKeyInItIsNoChoice) {
  TakeStatements();
  EXPECT_EQ(ShownOrder(u"Lwdj"_s, u"RegID Desc,ArchiveID Asc"_s), Items());
  EXPECT_EQ(TakeStatements(), QStringList());
}

TEST_P(OrderChoiceTest, TheOtherFieldsAreOffered) {
  EXPECT_EQ(OfferedCaptions(u"Lwdj"_s, {{u"登记号"_s, true}}),
            (QStringList{u"题名"_s, u"文号"_s, u"密级"_s, u"成文日期"_s, u"办结日期"_s}));
}

TEST_P(OrderChoiceTest, TheFirstChoiceOfAUserIsAddedAndTheNextOneReplacesIt) {
  Run(u"insert into FindCirOrder (TableName,OrderStr,UserID) values ('Lwdj','RegID Asc',8)"_s);
  TakeStatements();
  const ChosenOrder order = KeepOrder(u"Lwdj"_s, {{u"登记号"_s, true}, {u"文号"_s, false}});
  EXPECT_EQ(order.sql, u"RegID Desc,DocNo Asc"_s);
  EXPECT_EQ(order.words, u"登记号(降序),文号(升序)"_s);
  EXPECT_EQ(
      TakeStatements(),
      (QStringList{u"Select FieldName from DynamicWindows Where TableName='Lwdj' and ChnFieldName='登记号'"_s,
                   u"Select FieldName from DynamicWindows Where TableName='Lwdj' and ChnFieldName='文号'"_s,
                   u"Select * From FindCirOrder Where TableName = 'Lwdj' And UserID=7"_s,
                   u"Insert Into FindCirOrder(TableName,OrderStr,UserID) Values('Lwdj','RegID Desc,DocNo Asc',7)"_s}));
  KeepOrder(u"Lwdj"_s, {{u"题名"_s, false}});
  EXPECT_EQ(TakeStatements().last(),
            u"Update FindCirOrder Set OrderStr = 'Amaintitle Asc' Where TableName = 'Lwdj' and UserID=7"_s);
  EXPECT_EQ(Kept(), (QStringList{u"Lwdj|Amaintitle Asc|7"_s, u"Lwdj|RegID Asc|8"_s}));
}

TEST_P(OrderChoiceTest, ACaptionWithoutAFieldIsLeftOut) {
  EXPECT_EQ(KeepOrder(u"Lwdj"_s, {{u"没有"_s, true}, {u"文号"_s, false}}).sql, u"DocNo Asc"_s);
  Run(u"delete from FindCirOrder"_s);
  EXPECT_EQ(KeepOrder(u"Lwdj"_s, {{u"没有"_s, true}}).sql, QString());
  EXPECT_EQ(Kept(), QStringList()) << "an empty order would be one that no list could be opened with";
}

TEST_P(OrderChoiceTest, AnOrderLongerThanItsColumnIsKeptInWholeItems) {
  Run(u"drop table FindCirOrder"_s);
  Run(u"create table FindCirOrder (TableName varchar(50), OrderStr varchar(22), UserID integer)"_s);
  const ChosenOrder order = KeepOrder(u"Lwdj"_s, {{u"登记号"_s, true}, {u"文号"_s, false}, {u"题名"_s, false}});
  EXPECT_EQ(order.sql, u"RegID Desc,DocNo Asc"_s) << "what is kept is what the caller gets";
  EXPECT_EQ(Kept(), QStringList{u"Lwdj|RegID Desc,DocNo Asc|7"_s});
}

TEST_P(OrderChoiceTest, AnOrderThatIsKeptSortsTheRecords) {
  Recordset records;
  records.Open(u"Select * From Lwdj Order By "_s + KeepOrder(u"Lwdj"_s, {{u"登记号"_s, true}}).sql, Connected());
  EXPECT_EQ(records[u"RegID"_s].Text(), u"11"_s);
}

TEST_P(OrderChoiceTest, ACaptionWithAQuoteStandsForItsOwnField) {
  EXPECT_EQ(KeepOrder(u"Lwdj"_s, {{u"x' or '1'='1"_s, true}}).sql, QString());
  Run(u"update DynamicWindows set ChnFieldName='题''名' where FieldName='Amaintitle'"_s);
  EXPECT_EQ(KeepOrder(u"Lwdj"_s, {{u"题'名"_s, true}}).sql, u"Amaintitle Desc"_s);
}

}  // namespace
}  // namespace folvane::test
