#pragma once

#include <folvane/Connection.h>

namespace folvane {

/// Takes over a connected ODBC handle (SQLHDBC) for use, not for ownership. The dialect follows from SQL_DBMS_NAME:
/// PostgreSQL is translated, SQL Server and Sybase get the statements as they stand, any other name is refused.
/// Connect with the ANSI calls and a UTF-8 client encoding: a connection that would lose characters is refused.
///
/// No setting of the handle stays changed. Where the host has switched autocommit off, what is written outside a
/// transaction waits for the host's own commit, or for the next transaction of the library, which commits all that
/// waits. One that is rolled back leaves on PostgreSQL what waited before it; on SQL Server and Sybase that goes, too.
/// @throws DataError Usage for a server or an encoding that is refused, Lost
FOLVANE_EXPORT std::shared_ptr<Connection> AdoptOdbc(void* connection);

}  // namespace folvane
