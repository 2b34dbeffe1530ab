#pragma once

#include <string>
#include <vector>

namespace folvane::test {

/// A statement of the T-SQL flavour over the tables of Fixture.h and MixedTable.h, and what SQL Server gives for it.
struct StatementCase {
  const char* name;
  const char* statement;
  /// The rows, each with its values joined by "|", null as "<null>". For a statement that writes: the rows of `check`
  /// after it. One entry "error: Kind" means that the statement is refused with that kind of error.
  std::vector<std::string> expected;
  const char* check = nullptr;
};

// One list a subject; each is run whole on every database.
extern const std::vector<StatementCase> kTreeAndListStatements;
extern const std::vector<StatementCase> kSearchStatements;
extern const std::vector<StatementCase> kRecordStatements;
extern const std::vector<StatementCase> kEntryStatements;
extern const std::vector<StatementCase> kFlowStatements;
extern const std::vector<StatementCase> kArchiveStatements;
extern const std::vector<StatementCase> kConditionStatements;
extern const std::vector<StatementCase> kRefusedStatements;
extern const std::vector<StatementCase> kTextStatements;
extern const std::vector<StatementCase> kNumberStatements;
extern const std::vector<StatementCase> kDateStatements;
extern const std::vector<StatementCase> kFunctionStatements;

}  // namespace folvane::test
