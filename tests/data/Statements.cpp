#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {

class Statements : public DataSuite {
 protected:
  DataError Refused(const QString& statement) {
    return FailureOf([&] { Connected()->Execute(statement); });
  }
};
FOLVANE_ON_EACH_DATABASE(Statements);

TEST_P(Statements, AnInsertTellsOneRow) {
  EXPECT_EQ(Connected()->Execute(QStringLiteral("Insert Into files (id, code) Values (6, 'C-001')")), 1);
  EXPECT_EQ(Stored(6, QStringLiteral("code")), QStringLiteral("C-001"));
}

TEST_P(Statements, AnUpdateTellsTheRowsItMet) {
  EXPECT_EQ(Connected()->Execute(QStringLiteral("Update files Set remark = 'x' Where pages = 25")), 2);
}

TEST_P(Statements, AnUpdateThatMeetsNothingTellsNone) {
  EXPECT_EQ(Connected()->Execute(QStringLiteral("Update files Set remark = 'x' Where id = 99")), 0);
}

TEST_P(Statements, ADeleteTellsTheRowsItMet) {
  EXPECT_EQ(Connected()->Execute(QStringLiteral("Delete From files Where id > 3")), 2);
  EXPECT_EQ(Connected()->Execute(QStringLiteral("Delete From files Where id > 3")), 0);
}

TEST_P(Statements, AMissingTableIsNamedByTheServersText) {
  const DataError error = Refused(QStringLiteral("Delete From nowhere"));
  EXPECT_EQ(error.Kind(), DataErrorKind::Statement);
  EXPECT_TRUE(error.Message().contains(QStringLiteral("nowhere"))) << error.what();
  EXPECT_FALSE(error.NativeCode().isEmpty());
}

TEST_P(Statements, AMissingColumnIsNamedByTheServersText) {
  const DataError error = Refused(QStringLiteral("Update files Set nothing = 1"));
  EXPECT_EQ(error.Kind(), DataErrorKind::Statement);
  EXPECT_TRUE(error.Message().contains(QStringLiteral("nothing"))) << error.what();
}

TEST_P(Statements, AnErrorCarriesTheStatementAsItWasComposed) {
  const QString statement = QStringLiteral("Select title From nowhere Where id = 1");
  const DataError error = FailureOf([&] { Open(statement); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Statement);
  EXPECT_EQ(error.Statement(), statement);
}

TEST_P(Statements, TheServersTextComesWithoutTheNamesOfDrivers) {
  const DataError error = Refused(QStringLiteral("Delete From nowhere"));
  EXPECT_FALSE(error.Message().contains(QLatin1Char('['))) << error.what();
  EXPECT_FALSE(error.Message().contains(QStringLiteral("Error while"))) << error.what();
}

TEST_P(Statements, ADoubleKeyIsAConstraintError) {
  EXPECT_EQ(Refused(QStringLiteral("Insert Into files (id, code) Values (1, 'x')")).Kind(), DataErrorKind::Constraint);
}

TEST_P(Statements, ANullWhereNoneIsAllowedIsAConstraintError) {
  EXPECT_EQ(Refused(QStringLiteral("Update files Set code = Null Where id = 1")).Kind(), DataErrorKind::Constraint);
}

TEST_P(Statements, AStatementAfterARefusedOneRuns) {
  Refused(QStringLiteral("Delete From nowhere"));
  EXPECT_EQ(Connected()->Execute(QStringLiteral("Delete From files Where id = 1")), 1);
}

TEST_P(Statements, TwoStatementsInOneCallAreRefusedAndNeitherRuns) {
  Refused(QStringLiteral("Update files Set remark = 'x' Where id = 1; Delete From files"));
  EXPECT_EQ(Stored(1, QStringLiteral("remark")), QStringLiteral("甲"));
  EXPECT_EQ(Open()->RecordCount(), 5);
}

TEST_P(Statements, ATableMadeByTheHostMeanwhileIsFound) {
  Refused(QStringLiteral("Delete From later"));
  Meanwhile(QStringLiteral("CREATE TABLE later (id integer PRIMARY KEY)"));
  EXPECT_EQ(Connected()->Execute(QStringLiteral("Insert Into later (id) Values (1)")), 1);
}

TEST_P(Statements, AColumnAddedByTheHostMeanwhileIsFound) {
  EXPECT_EQ(Open()->Fields().Count(), 6);
  Meanwhile(QStringLiteral("ALTER TABLE files ADD COLUMN place varchar(30)"));
  EXPECT_EQ(Open()->Fields().Count(), 7);
  EXPECT_EQ(Connected()->Execute(QStringLiteral("Update files Set place = '库房' Where id = 1")), 1);
}

TEST_P(Statements, TheObserverIsToldEveryStatementAsItWasComposed) {
  QStringList told;
  Connected()->OnStatement([&](const QString& statement) { told << statement; });
  const QString update = QStringLiteral("Update files Set remark = 'x' + title Where Len(title) > 3");
  const QString select = QStringLiteral("Select Top 2 * From files Where code Like 'A-%' Order By id");
  Connected()->Execute(update);
  const auto records = Open(select);
  EXPECT_EQ(told, (QStringList{update, select}));
  records->Requery();
  EXPECT_EQ(told, (QStringList{update, select, select}));
}

TEST_P(Statements, TheObserverIsToldOfAStatementThatFails) {
  QStringList told;
  Connected()->OnStatement([&](const QString& statement) { told << statement; });
  Refused(QStringLiteral("Delete From nowhere"));
  EXPECT_EQ(told, QStringList{QStringLiteral("Delete From nowhere")});
}

TEST_P(Statements, TheObserverIsNotToldTheBatchWritesOfARecordSet) {
  const auto records = Open();
  QStringList told;
  Connected()->OnStatement([&](const QString& statement) { told << statement; });
  (*records)[QStringLiteral("remark")].SetValue(QStringLiteral("x"));
  records->UpdateBatch();
  records->Resync();
  EXPECT_EQ(told, QStringList());
  Connected()->OnStatement({});
  Connected()->Execute(QStringLiteral("Delete From files Where id = 1"));
  EXPECT_EQ(told, QStringList());
}

}  // namespace

}  // namespace folvane::test
