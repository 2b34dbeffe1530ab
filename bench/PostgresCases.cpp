// A whole table from PostgreSQL, against the server's own client writing it out.
#include <sql.h>
#include <sqlext.h>

#include <folvane/OdbcConnection.h>

#include "bench/Cases.h"
#include "bench/SampleTable.h"
#include "data/Recordset.h"

namespace folvane::bench {

namespace {

void ReadOverOdbc(const Setting& setting, Meter& meter) {
  SQLHENV environment = SQL_NULL_HENV;
  SQLHDBC handle = SQL_NULL_HDBC;
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
  SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment, &handle);
  QByteArray text = qgetenv("FOLVANE_TEST_PG");
  if (!SQL_SUCCEEDED(SQLDriverConnect(handle, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS, nullptr, 0,
                                      nullptr, SQL_DRIVER_NOPROMPT)))
    qFatal("no PostgreSQL server: run through scripts/with-postgres");
  const std::shared_ptr<Connection> connection = AdoptOdbc(handle);
  Recordset records;
  meter.Start();
  records.Open(QStringLiteral("Select * From Records Order By ArchiveID"), connection);
  meter.Stop();
  if (records.RecordCount() != setting.rows) qFatal("the record set has %lld rows", records.RecordCount());
}

void CopyOut(const Setting&, Meter& meter) {
  meter.Start();
  RunPsql(QStringLiteral("COPY (SELECT * FROM Records ORDER BY ArchiveID) TO STDOUT"));
  meter.Stop();
}

}  // namespace

Cases PostgresCases() {
  return {{QStringLiteral("odbc-recordset"), ReadOverOdbc}, {QStringLiteral("psql-copy"), CopyOut}};
}

}  // namespace folvane::bench
