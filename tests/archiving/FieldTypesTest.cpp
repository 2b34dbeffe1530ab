#include <gtest/gtest.h>

#include "archiving/TransferFixture.h"
#include "base/TypedValues.h"
#include "design/transfer/FieldTypes.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kHighestAdoType = 205;

QList<int> TypesThat(const std::function<bool(int)>& are) {
  QList<int> types;
  for (int type = 0; type <= kHighestAdoType; ++type)
    if (are(type)) types << type;
  return types;
}

TEST(FieldTypes, ThatTakeNumbersThatTakeDatesAndAllOthers) {
  EXPECT_EQ(TypesThat([](int type) { return BranchOf(type) == FieldBranch::Number; }),
            QList<int>({2, 3, 4, 16, 17, 18, 19, 20, 21, 131, 139}));
  EXPECT_EQ(TypesThat([](int type) { return BranchOf(type) == FieldBranch::Date; }), QList<int>({133, 135}));
  EXPECT_EQ(BranchOf(5), FieldBranch::Text);
  EXPECT_EQ(BranchOf(6), FieldBranch::Text);
  EXPECT_EQ(BranchOf(7), FieldBranch::Text);
}

TEST(FieldTypes, ThatAreCountedOn) {
  EXPECT_EQ(TypesThat(IsCountableFieldType),
            QList<int>({2, 3, 4, 5, 6, 11, 16, 17, 18, 19, 20, 21, 131, 201, 203, 205}));
}

TEST(FieldTypes, NumbersAreReadAsPeopleTypeThem) {
  EXPECT_EQ(NumberFor(3, u"12"_s), QVariant(12LL));
  EXPECT_EQ(NumberFor(3, u"１２"_s), QVariant(12LL));
  EXPECT_EQ(NumberFor(3, u"1,200"_s), QVariant(1200LL));
  EXPECT_EQ(NumberFor(3, u"2.5"_s), QVariant(2LL));  // to the even neighbour
  EXPECT_EQ(NumberFor(20, u"3.5"_s), QVariant(4LL));
  EXPECT_EQ(NumberFor(4, u"2.5"_s), QVariant(u"2.5"_s));
  EXPECT_EQ(NumberFor(4, u"(2.5)"_s), QVariant(-2.5));
  EXPECT_EQ(NumberFor(131, u"12345678901234567.25"_s), QVariant(u"12345678901234567.25"_s));
  EXPECT_EQ(NumberFor(3, QString()), std::nullopt);
  EXPECT_EQ(NumberFor(3, u"12页"_s), std::nullopt);
  EXPECT_THROW(NumberFor(20, u"1e30"_s), NumberError);
}

TEST(FieldTypes, DatesAreWrittenInOneForm) {
  EXPECT_EQ(DateFor(u"2002年3月4日"_s), QVariant(u"2002-03-04"_s));
  EXPECT_EQ(DateFor(u"2002/3/4 12:30"_s), QVariant(u"2002-03-04"_s));
  EXPECT_EQ(DateFor(u"20020304"_s), std::nullopt);
  EXPECT_EQ(DateFor(QString()), std::nullopt);
}

TEST(FieldTypes, CountersHoldSixteenBits) {
  EXPECT_EQ(CounterOf(32767), 32767);
  EXPECT_EQ(CounterOf(2.5), 2);
  EXPECT_EQ(CounterOf(-32768), -32768);
  EXPECT_THROW(CounterOf(32768), NumberError);
  EXPECT_THROW(CounterOf(-32769), NumberError);
  EXPECT_THROW(NumberIn(u"页"_s), NumberError);
}

// A column of each type that the databases can give, and what a value becomes in it.
struct TypeCase {
  QString sqliteType, postgresType;  // "" where there is none
  int adoType;
  QString value, stored;  // stored "?" for a question
};

const TypeCase kTypeCases[] = {
    {u"smallint"_s, u"smallint"_s, 2, u" 12 "_s, u"12"_s},
    {u"smallint"_s, u"smallint"_s, 2, u"甲"_s, u"?"_s},
    {u"integer"_s, u"integer"_s, 3, u"12"_s, u"12"_s},
    {u"integer"_s, u"integer"_s, 3, u"2.5"_s, u"2"_s},
    {u"integer"_s, u"integer"_s, 3, QString(), u"?"_s},
    {u"real"_s, u"real"_s, 4, u"1.5"_s, u"1.5"_s},
    {u"real"_s, u"real"_s, 4, u"甲"_s, u"?"_s},
    {u"double"_s, u"double precision"_s, 5, u"1.25"_s, u"1.25"_s},
    {u"double"_s, u"double precision"_s, 5, u"123456789"_s, u"12345678"_s},  // cut to the field's eight bytes
    {u"double"_s, u"double precision"_s, 5, QString(), u"<null>"_s},
    {u"money"_s, QString(), 6, u"1.25"_s, u"1.25"_s},
    {u"bit"_s, u"boolean"_s, 11, u"1"_s, u"1"_s},
    {u"tinyint"_s, QString(), 17, u"12"_s, u"12"_s},
    {u"tinyint"_s, QString(), 17, u"甲"_s, u"?"_s},
    {u"bigint"_s, u"bigint"_s, 20, u"12345678901"_s, u"12345678901"_s},
    {u"numeric"_s, u"numeric(10,2)"_s, 131, u"1.25"_s, u"1.25"_s},
    {u"numeric"_s, u"numeric(10,2)"_s, 131, u"甲"_s, u"?"_s},
    {u"date"_s, u"date"_s, 133, u"2002年3月4日"_s, u"2002-03-04"_s},
    {u"date"_s, u"date"_s, 133, u"20020304"_s, u"?"_s},
    {u"timestamp"_s, u"timestamp"_s, 135, u"3/4/2002"_s, u"2002-03-04"_s},
    {u"timestamp"_s, u"timestamp"_s, 135, u"甲"_s, u"?"_s},
    {u"char(4)"_s, u"char(4)"_s, 129, u"甲乙丙"_s, u"甲乙"_s},
    {u"varchar(5)"_s, u"varchar(5)"_s, 200, u"甲乙丙"_s, u"甲乙"_s},
    {u"varchar(6)"_s, u"varchar(6)"_s, 200, u" 甲乙丙 "_s, u"甲乙丙"_s},
    {u"text"_s, u"text"_s, 201, u"甲乙丙"_s, u"甲乙丙"_s},
    {u"nvarchar(4)"_s, QString(), 202, u"甲乙丙"_s, u"甲乙"_s},
    {u"ntext"_s, QString(), 203, u"甲乙丙"_s, u"甲乙丙"_s},
};

class FieldBranchTest : public TransferTest {
 protected:
  QString TypeOn(const TypeCase& each) const { return OnSqlite() ? each.sqliteType : each.postgresType; }
};
FOLVANE_ON_EACH_DATABASE(FieldBranchTest);

TEST_P(FieldBranchTest, DecideHowAValueComesIntoAField) {
  design_->Run(u"delete from Design_TableRelation"_s);
  AddDocument(1, u"题名"_s, u"2002-01-01"_s, u"1"_s);
  Unmap();
  Map(u"Unit"_s, u"Given"_s, u"单位"_s);
  for (const TypeCase& each : kTypeCases) {
    if (TypeOn(each).isEmpty()) continue;
    const QString label = TypeOn(each) + u": "_s + each.value;
    SCOPED_TRACE(label.toStdString());
    design_->Run(u"alter table Wenshu add column Given "_s + TypeOn(each));
    design_->Run(u"update Fwdj set FileStatus='需归档', Unit='"_s + each.value + u'\'');
    boxes_.Clear();
    const bool asks = each.stored == u"?";
    const auto connection = Database().Connect();  // knows the table as it is now
    Shared().Connection = connection;
    EXPECT_EQ(Transfer(1).SucceedCount(), asks ? 0 : 1);
    EXPECT_EQ(boxes_.Requests().size(), asks ? 1u : 0u);
    if (!asks) {
      Recordset archived;
      archived.Open(u"Select Given From Wenshu"_s, connection);
      EXPECT_EQ(archived.Fields().Item(0).Type(), each.adoType);
      const Field given = archived.Fields().Item(0);  // one of char(n) may be filled up with blanks
      EXPECT_EQ(given.IsNull() ? u"<null>"_s : given.Text().trimmed(), each.stored);
    }
    transfer_.reset();
    design_->Run(u"delete from Wenshu"_s);
    design_->Run(u"alter table Wenshu drop column Given"_s);
  }
}

}  // namespace
}  // namespace folvane::test
