#pragma once

#include <QStringList>

#include "support/TestDatabase.h"

namespace folvane::test {

/// What no command of any window may change: how each table is made, and the rows of the tables that only whoever sets
/// up the host writes, less the columns that windows keep something in.
QStringList UntouchableRows(TestDatabase& database);

}  // namespace folvane::test
