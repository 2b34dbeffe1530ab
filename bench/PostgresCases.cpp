// A whole table from PostgreSQL, against the server's own client writing it out.
#include <folvane/OdbcConnection.h>

#include "bench/Cases.h"
#include "bench/SampleTable.h"
#include "data/Recordset.h"

namespace folvane::bench {

namespace {

void ReadOverOdbc(const Setting& setting, Meter& meter) {
  const std::shared_ptr<Connection> connection = AdoptOdbc(ConnectOdbc(SchemaOf(setting.rows).toUtf8()));
  Recordset records;
  meter.Start();
  records.Open(QStringLiteral("Select * From Records Order By ArchiveID"), connection);
  meter.Stop();
  if (records.RecordCount() != setting.rows) qFatal("the record set has %lld rows", records.RecordCount());
}

void CopyOut(const Setting& setting, Meter& meter, const char* query) {
  meter.Start();
  RunPsql(SchemaOf(setting.rows), QStringLiteral("COPY (%1) TO STDOUT").arg(QLatin1String(query)));
  meter.Stop();
}

void CopyRows(const Setting& setting, Meter& meter) {
  CopyOut(setting, meter, "SELECT * FROM Records ORDER BY ArchiveID");
}

void CopyKeys(const Setting& setting, Meter& meter) {
  CopyOut(setting, meter, "SELECT ArchiveID FROM Records ORDER BY ArchiveID");
}

void CopySortedKeys(const Setting& setting, Meter& meter) {
  CopyOut(setting, meter, "SELECT ArchiveID FROM Records ORDER BY Title COLLATE \"C\"");
}

void CopyFoundKeys(const Setting& setting, Meter& meter) {
  CopyOut(setting, meter, "SELECT ArchiveID FROM Records WHERE Title ILIKE '%00999%' ORDER BY ArchiveID");
}

}  // namespace

Cases PostgresCases() {
  return {{QStringLiteral("odbc-recordset"), ReadOverOdbc},
          {QStringLiteral("psql-copy"), CopyRows},
          {QStringLiteral("psql-keys"), CopyKeys},
          {QStringLiteral("psql-keys-sorted"), CopySortedKeys},
          {QStringLiteral("psql-keys-found"), CopyFoundKeys}};
}

}  // namespace folvane::bench
