#include "data/drivers/odbc/OdbcErrors.h"

#include <gtest/gtest.h>

#include "support/QtPrinting.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

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
  EXPECT_EQ(ServerText(u"[FreeTDS][SQL Server]Invalid object name 'x'."_s), u"Invalid object name 'x'."_s);
}

TEST(OdbcMessage, LosesTheSeverityAndTheDriversRemark) {
  EXPECT_EQ(ServerText(u"ERROR: relation \"x\" does not exist;\nError while executing the query"_s),
            u"relation \"x\" does not exist"_s);
}

TEST(OdbcMessage, KeepsTheServersDetailAndItsSquareBrackets) {
  EXPECT_EQ(ServerText(u"ERROR: duplicate key\nDETAIL: Key (a)=([1]) already exists.;\nError while "
                       "executing the query"_s),
            u"duplicate key\nDETAIL: Key (a)=([1]) already exists."_s);
}

QStringList KeyIn(const char* detail) { return KeyColumns(u"ERROR: duplicate (x)\n"_s + QString::fromUtf8(detail)); }

TEST(OdbcMessage, NamesTheColumnsOfADoubleKeyInAnyLanguage) {
  EXPECT_EQ(KeyIn("DETAIL: Key (id)=(1) already exists."), QStringList{u"id"_s});
  EXPECT_EQ(KeyIn("描述: 键值\"(文号, \"Reg ID\")=(甲)=(, 1)\" 已经存在"), (QStringList{u"文号"_s, u"Reg ID"_s}));
}

TEST(OdbcMessage, NamesNoColumnWhereTheKeyIsAnExpression) {
  EXPECT_EQ(KeyIn("DETAIL: Key (lower(code::text))=(a-001) already exists."), QStringList());
  EXPECT_EQ(KeyIn("HINT: none"), QStringList());
}

}  // namespace

}  // namespace folvane::test
