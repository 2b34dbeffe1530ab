#pragma once

#include <QStringList>
#include <gtest/gtest.h>

#include "catalogue/Ddl.h"
#include "data/Recordset.h"
#include "forms/EntryLayout.h"
#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/TestDatabase.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// The design tables and the business table Lwdj on a fresh database, which the shared state points to; user 7 in
/// March 2002.
class EntryTest : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    FixClock(QDateTime(QDate(2002, 3, 4), QTime(10, 11, 12)));
    Shared().Connection = Connected();
    Shared().UserId = u"7"_s;
    Database().Furnish(&CreateCatalogue);
    CreateTable(*Connected(), BusinessTable(u"Lwdj"_s, {{u"RegID"_s, ColumnType::Integer},
                                                        {u"Amaintitle"_s, ColumnType::Text, 200},
                                                        {u"DocNo"_s, ColumnType::Text, 50},
                                                        {u"FondsNo"_s, ColumnType::Text, 4},
                                                        {u"CreatedDate"_s, ColumnType::Text, 10},
                                                        {u"FileDate"_s, ColumnType::Date},
                                                        {u"Pages"_s, ColumnType::Integer},
                                                        {u"FileStatus"_s, ColumnType::Text, 20}}));
    Connected()->OnStatement([this](const QString& statement) { statements_ << statement; });
  }
  void TearDown() override {
    Connected()->OnStatement({});
    if (Shared().CurrentRecords.IsOpen()) Shared().CurrentRecords.Close();
    Shared().Connection.reset();
    Shared().UserId.clear();
  }

  void Run(const QString& sql) { Database().Native(sql); }
  QString Value(const QString& sql) { return Database().Value(sql); }
  /// Has the database refuse what makes a row of that kind, such as "insert" where "new.Name = 'x'".
  void Refuse(const QString& table, const QString& act, const QString& condition) {
    if (OnSqlite()) {
      Run(u"create trigger Refuse before %2 on %1 when %3 begin select raise(abort, 'refused'); end"_s.arg(table, act,
                                                                                                           condition));
      return;
    }
    Run(u"create function Refuse() returns trigger language plpgsql as 'begin raise exception ''refused''; end'"_s);
    Run(u"create trigger Refuse before %2 on %1 for each row when (%3) execute function Refuse()"_s.arg(table, act,
                                                                                                        condition));
  }
  /// All records of Lwdj in the shared record set.
  Recordset& OpenRecords() {
    if (Shared().CurrentRecords.IsOpen()) Shared().CurrentRecords.Close();
    Shared().CurrentRecords.Open(u"Select * From Lwdj Order By ArchiveID"_s, Shared().Connection);
    statements_.clear();
    return Shared().CurrentRecords;
  }
  /// The statements since the last call.
  QStringList TakeStatements() { return std::exchange(statements_, {}); }

 private:
  QStringList statements_;
};

}  // namespace folvane::test
