#include "MixedTable.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

void MakeMixedTable(TestDatabase& database) {
  const bool onSqlite = database.Kind() == "SQLite";
  database.Native(
      u"CREATE TABLE Mixed (id integer PRIMARY KEY, t varchar(20), n integer, "
      "d numeric(9,2), f %1, day date, moment %2)"_s.arg(onSqlite ? u"float"_s : u"double precision"_s,
                                                         onSqlite ? u"datetime"_s : u"timestamp"_s));
  for (const char* sql : {
           "INSERT INTO Mixed VALUES (1,'abc',5,1.50,2.5,'2002-03-04','2002-03-04 10:20:30')",
           "INSERT INTO Mixed VALUES (2,'ABC  ',-3,0,0.25,'2002-12-31','2002-12-31')",
           "INSERT INTO Mixed VALUES (3,'10',0,NULL,NULL,NULL,NULL)",
           "INSERT INTO Mixed VALUES (4,NULL,NULL,10,10,'2003-01-05','2003-01-05 00:00:00')",
           "INSERT INTO Mixed VALUES (5,'9',100,-2.5,-7.5,'1999-02-28','1999-02-28 23:59:59')",
       })
    database.Native(QString::fromUtf8(sql));
}

}  // namespace folvane::test
