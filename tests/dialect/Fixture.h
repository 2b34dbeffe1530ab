#pragma once

#include "support/TestDatabase.h"

namespace folvane::test {

/// Makes all tables of the catalogue and two business tables, and fills what the statement cases look at:
///
///   Lwdj  ArchiveID              RegID  DocNo          Amaintitle        CreatedDate  FileDate    FileStatus  Quantity
///   Note
///         20020304101112000001   1      沪政发〔2002〕1号   关于档案工作的通知       2002-03-04   2002-03-01  需归档
///         2     甲 20020305101112000002   2      ABC-2          Report [a] 100%   2002-03-05   2002-03-02  已归档 null
///         null 20030101101112000003   10     abc-3          it's a_b          2003-01-01   null        需归档 5
///         (empty)
///   Ajml  an archive table with FondsNo, YearNo, ItemNo (numbers), ArchiveNo, PageNo, Quantity, CreatedDate
///
/// The columns of numbers are numbers, FileDate is a date on PostgreSQL and text on SQLite.
void FillTables(TestDatabase& database);

}  // namespace folvane::test
