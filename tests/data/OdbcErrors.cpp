#include "data/drivers/odbc/OdbcErrors.h"

#include <gtest/gtest.h>

#include "support/QtPrinting.h"

namespace folvane::test {

namespace {

struct StateCase {
  const char* name;
  const char* state;
  DataErrorKind kind;
};

class OdbcState : public testing::TestWithParam<StateCase> {};

TEST_P(OdbcState, TellsTheKindOfTheError) { EXPECT_EQ(KindOfSqlState(GetParam().state), GetParam().kind); }

INSTANTIATE_TEST_SUITE_P(Known, OdbcState,
                         testing::Values(StateCase{"UniqueKey", "23505", DataErrorKind::Constraint},
                                         StateCase{"NotNull", "23502", DataErrorKind::Constraint},
                                         StateCase{"AnyConstraint", "23000", DataErrorKind::Constraint},
                                         StateCase{"TooLong", "22001", DataErrorKind::TooLong},
                                         StateCase{"BadNumberText", "22P02", DataErrorKind::Conversion},
                                         StateCase{"NumberOutOfRange", "22003", DataErrorKind::Conversion},
                                         StateCase{"LinkFailure", "08S01", DataErrorKind::Lost},
                                         StateCase{"EndedByTheServer", "57P01", DataErrorKind::Lost},
                                         StateCase{"Deadlock", "40P01", DataErrorKind::Locked},
                                         StateCase{"Serialization", "40001", DataErrorKind::Locked},
                                         StateCase{"LockNotAvailable", "55P03", DataErrorKind::Locked},
                                         StateCase{"TimeIsUp", "57014", DataErrorKind::Locked},
                                         StateCase{"MissingTable", "42P01", DataErrorKind::Statement},
                                         StateCase{"MissingColumn", "42S22", DataErrorKind::Statement},
                                         StateCase{"Unheard", "XX000", DataErrorKind::Statement}),
                         [](const testing::TestParamInfo<StateCase>& info) { return info.param.name; });

TEST(OdbcMessage, LosesTheNamesOfTheDriversInFront) {
  EXPECT_EQ(ServerText(QStringLiteral("[FreeTDS][SQL Server]Invalid object name 'x'.")),
            QStringLiteral("Invalid object name 'x'."));
}

TEST(OdbcMessage, LosesTheSeverityAndTheDriversRemark) {
  EXPECT_EQ(ServerText(QStringLiteral("ERROR: relation \"x\" does not exist;\nError while executing the query")),
            QStringLiteral("relation \"x\" does not exist"));
}

TEST(OdbcMessage, KeepsTheServersDetailAndItsSquareBrackets) {
  EXPECT_EQ(ServerText(QStringLiteral("ERROR: duplicate key\nDETAIL: Key (a)=([1]) already exists.;\nError while "
                                      "executing the query")),
            QStringLiteral("duplicate key\nDETAIL: Key (a)=([1]) already exists."));
}

QStringList KeyIn(const char* detail) {
  return KeyColumns(QStringLiteral("ERROR: duplicate (x)\n") + QString::fromUtf8(detail));
}

TEST(OdbcMessage, NamesTheColumnsOfADoubleKeyInAnyLanguage) {
  EXPECT_EQ(KeyIn("DETAIL: Key (id)=(1) already exists."), QStringList{QStringLiteral("id")});
  EXPECT_EQ(KeyIn("描述: 键值\"(文号, \"Reg ID\")=(甲)=(, 1)\" 已经存在"),
            (QStringList{QStringLiteral("文号"), QStringLiteral("Reg ID")}));
}

TEST(OdbcMessage, NamesNoColumnWhereTheKeyIsAnExpression) {
  EXPECT_EQ(KeyIn("DETAIL: Key (lower(code::text))=(a-001) already exists."), QStringList());
  EXPECT_EQ(KeyIn("HINT: none"), QStringList());
}

}  // namespace

}  // namespace folvane::test
