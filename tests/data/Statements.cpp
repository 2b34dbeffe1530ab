#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

class Statements : public DataSuite {
 protected:
  DataError Refused(const QString& statement) {
    return FailureOf([&] { Connected()->Execute(statement); });
  }
};
FOLVANE_ON_EACH_DATABASE(Statements);

TEST_P(Statements, AnInsertTellsOneRow) {
  EXPECT_EQ(Connected()->Execute(u"Insert Into files (id, code) Values (6, 'C-001')"_s), 1);
  EXPECT_EQ(Stored(6, u"code"_s), u"C-001"_s);
}

TEST_P(Statements, AnUpdateTellsTheRowsItMet) {
  EXPECT_EQ(Connected()->Execute(u"Update files Set remark = 'x' Where pages = 25"_s), 2);
}

TEST_P(Statements, AnUpdateThatMeetsNothingTellsNone) {
  EXPECT_EQ(Connected()->Execute(u"Update files Set remark = 'x' Where id = 99"_s), 0);
}

TEST_P(Statements, ADeleteTellsTheRowsItMet) {
  EXPECT_EQ(Connected()->Execute(u"Delete From files Where id > 3"_s), 2);
  EXPECT_EQ(Connected()->Execute(u"Delete From files Where id > 3"_s), 0);
}

TEST_P(Statements, AMissingTableIsNamedByTheServersText) {
  const DataError error = Refused(u"Delete From nowhere"_s);
  EXPECT_EQ(error.Kind(), DataErrorKind::Statement);
  EXPECT_TRUE(error.Message().contains(u"nowhere"_s)) << error.what();
  EXPECT_FALSE(error.NativeCode().isEmpty());
}

TEST_P(Statements, AMissingColumnIsNamedByTheServersText) {
  const DataError error = Refused(u"Update files Set nothing = 1"_s);
  EXPECT_EQ(error.Kind(), DataErrorKind::Statement);
  EXPECT_TRUE(error.Message().contains(u"nothing"_s)) << error.what();
}

TEST_P(Statements, AnErrorCarriesTheStatementAsItWasComposed) {
  const QString statement = u"Select title From nowhere Where id = 1"_s;
  const DataError error = FailureOf([&] { Open(statement); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Statement);
  EXPECT_EQ(error.Statement(), statement);
}

TEST_P(Statements, TheServersTextComesWithoutTheNamesOfDrivers) {
  const DataError error = Refused(u"Delete From nowhere"_s);
  EXPECT_FALSE(error.Message().contains(u'[')) << error.what();
  EXPECT_FALSE(error.Message().contains(u"Error while"_s)) << error.what();
}

TEST_P(Statements, ADoubleKeyIsAConstraintError) {
  EXPECT_EQ(Refused(u"Insert Into files (id, code) Values (1, 'x')"_s).Kind(), DataErrorKind::Constraint);
}

TEST_P(Statements, ANullWhereNoneIsAllowedIsAConstraintError) {
  EXPECT_EQ(Refused(u"Update files Set code = Null Where id = 1"_s).Kind(), DataErrorKind::Constraint);
}

TEST_P(Statements, AStatementAfterARefusedOneRuns) {
  Refused(u"Delete From nowhere"_s);
  EXPECT_EQ(Connected()->Execute(u"Delete From files Where id = 1"_s), 1);
}

TEST_P(Statements, TwoStatementsInOneCallAreRefusedAndNeitherRuns) {
  Refused(u"Update files Set remark = 'x' Where id = 1; Delete From files"_s);
  EXPECT_EQ(Stored(1, u"remark"_s), u"甲"_s);
  EXPECT_EQ(Open()->RecordCount(), 5);
}

TEST_P(Statements, ATableMadeByTheHostMeanwhileIsFound) {
  Refused(u"Delete From later"_s);
  Meanwhile(u"CREATE TABLE later (id integer PRIMARY KEY)"_s);
  EXPECT_EQ(Connected()->Execute(u"Insert Into later (id) Values (1)"_s), 1);
}

TEST_P(Statements, AColumnAddedByTheHostMeanwhileIsFound) {
  EXPECT_EQ(Open()->Fields().Count(), 6);
  Meanwhile(u"ALTER TABLE files ADD COLUMN place varchar(30)"_s);
  EXPECT_EQ(Open()->Fields().Count(), 7);
  EXPECT_EQ(Connected()->Execute(u"Update files Set place = '库房' Where id = 1"_s), 1);
}

TEST_P(Statements, TheObserverIsToldEveryStatementAsItWasComposed) {
  QStringList told;
  Connected()->OnStatement([&](const QString& statement) { told << statement; });
  const QString update = u"Update files Set remark = 'x' + title Where Len(title) > 3"_s;
  const QString select = u"Select Top 2 * From files Where code Like 'A-%' Order By id"_s;
  Connected()->Execute(update);
  const auto records = Open(select);
  EXPECT_EQ(told, (QStringList{update, select}));
  records->Requery();
  EXPECT_EQ(told, (QStringList{update, select, select}));
}

TEST_P(Statements, TheObserverIsToldOfAStatementThatFails) {
  QStringList told;
  Connected()->OnStatement([&](const QString& statement) { told << statement; });
  Refused(u"Delete From nowhere"_s);
  EXPECT_EQ(told, QStringList{u"Delete From nowhere"_s});
}

TEST_P(Statements, TheObserverIsNotToldTheBatchWritesOfARecordSet) {
  const auto records = Open();
  QStringList told;
  Connected()->OnStatement([&](const QString& statement) { told << statement; });
  (*records)[u"remark"_s].SetValue(u"x"_s);
  records->UpdateBatch();
  records->Resync();
  EXPECT_EQ(told, QStringList());
  Connected()->OnStatement({});
  Connected()->Execute(u"Delete From files Where id = 1"_s);
  EXPECT_EQ(told, QStringList());
}

}  // namespace

}  // namespace folvane::test
