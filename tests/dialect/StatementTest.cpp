#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "Fixture.h"
#include "MixedTable.h"
#include "StatementCase.h"
#include "data/Recordset.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

std::string KindName(DataErrorKind kind) {
  switch (kind) {
    case DataErrorKind::Statement:
      return "Statement";
    case DataErrorKind::Untranslatable:
      return "Untranslatable";
    case DataErrorKind::Conversion:
      return "Conversion";
    case DataErrorKind::Constraint:
      return "Constraint";
    case DataErrorKind::TooLong:
      return "TooLong";
    default:
      return "other";
  }
}

std::vector<std::string> RowsOf(const std::shared_ptr<Connection>& connection, const QString& statement) {
  Recordset records;
  records.Open(statement, connection, CursorType::Static, LockType::ReadOnly);
  std::vector<std::string> rows;
  for (; !records.EOF_(); records.MoveNext()) {
    QStringList values;
    for (int i = 0; i < records.Fields().Count(); ++i) {
      const Field field = records.Fields().Item(i);
      values << (field.IsNull() ? u"<null>"_s : field.Text());
    }
    rows.push_back(values.join(u'|').toStdString());
  }
  return rows;
}

std::vector<std::string> Outcome(const std::shared_ptr<Connection>& connection, const StatementCase& given) {
  const QString statement = QString::fromUtf8(given.statement);
  try {
    if (!given.check) return RowsOf(connection, statement);
    connection->Execute(statement);
    return RowsOf(connection, QString::fromUtf8(given.check));
  } catch (const DataError& error) {
    EXPECT_FALSE(error.Message().isEmpty());
    EXPECT_EQ(error.Statement(), statement);
    return {"error: " + KindName(error.Kind())};
  }
}

}  // namespace

class StatementTest : public OnEachDatabase {
 protected:
  // Each case sees the tables as they were made; what it writes is rolled back.
  void RunAll(const std::vector<StatementCase>& cases) {
    FillTables(Database());
    MakeMixedTable(Database());
    for (const StatementCase& given : cases) {
      SCOPED_TRACE(std::string(given.name) + ": " + given.statement);
      Transaction transaction(*Connected());
      EXPECT_EQ(Outcome(Connected(), given), given.expected);
    }
  }
};

TEST_P(StatementTest, TreeAndList) { RunAll(kTreeAndListStatements); }
TEST_P(StatementTest, Searches) { RunAll(kSearchStatements); }
TEST_P(StatementTest, Records) { RunAll(kRecordStatements); }
TEST_P(StatementTest, Entry) { RunAll(kEntryStatements); }
TEST_P(StatementTest, Flows) { RunAll(kFlowStatements); }
TEST_P(StatementTest, Archiving) { RunAll(kArchiveStatements); }
TEST_P(StatementTest, ConditionsOfAdministrators) { RunAll(kConditionStatements); }
TEST_P(StatementTest, RefusedForms) { RunAll(kRefusedStatements); }
TEST_P(StatementTest, Texts) { RunAll(kTextStatements); }
TEST_P(StatementTest, Numbers) { RunAll(kNumberStatements); }
TEST_P(StatementTest, Dates) { RunAll(kDateStatements); }
TEST_P(StatementTest, Functions) { RunAll(kFunctionStatements); }

FOLVANE_ON_EACH_DATABASE(StatementTest);

}  // namespace folvane::test
