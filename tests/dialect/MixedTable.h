#pragma once

#include "support/TestDatabase.h"

namespace folvane::test {

/// Makes the table Mixed, which has a column of each kind of type:
///
///   id  t        n     d      f      day         moment
///   1   'abc'    5     1.50   2.5    2002-03-04  2002-03-04 10:20:30
///   2   'ABC  '  -3    0.00   0.25   2002-12-31  2002-12-31
///   3   '10'     0     null   null   null        null
///   4   null     null  10.00  10     2003-01-05  2003-01-05 (with its midnight written out)
///   5   '9'      100   -2.50  -7.5   1999-02-28  1999-02-28 23:59:59
void MakeMixedTable(TestDatabase& database);

}  // namespace folvane::test
