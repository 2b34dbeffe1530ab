#pragma once

#include <vector>

namespace folvane {

class OdbcStatement;
class RowStore;
struct OdbcColumn;

/// Appends all rows of a result to the store, every value whole. @throws DataError
void ReadRows(OdbcStatement& statement, const std::vector<OdbcColumn>& columns, RowStore& rows);

/// The same without blocks, as ReadRows does where the driver cannot give a value a second time: every driver can do
/// it, slowly.
void ReadRowsOneByOne(OdbcStatement& statement, const std::vector<OdbcColumn>& columns, RowStore& rows);

}  // namespace folvane
