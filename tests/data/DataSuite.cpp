#include "data/DataSuite.h"

#include <QFile>
#include <gtest/gtest.h>

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

DataError FailureOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const DataError& error) {
    return error;
  }
  ADD_FAILURE() << "no error was raised";
  return {DataErrorKind::Usage, u"no error was raised"_s};
}

NativeResult QueryNative(Connection& connection, const QByteArray& text, std::vector<QVariant> parameters) {
  NativeResult result;
  RowStore store;
  DatabaseSession::Of(connection).NativeDriver().Query({text, std::move(parameters)}, result.columns, store);
  for (std::size_t row = 0; row < store.RowCount(); ++row) {
    result.rows.emplace_back();
    for (int column = 0; column < store.ColumnCount(); ++column)
      result.rows.back().push_back(store.At(row, column).ToVariant());
  }
  return result;
}

void MakeFiles(TestDatabase& database, const QString& table) {
  database.Native(
      u"CREATE TABLE %1 (id integer PRIMARY KEY, code varchar(20) NOT NULL, title varchar(60), "
      "pages integer, filed date, remark text)"_s.arg(table));
  for (const char* row :
       {"1, 'A-001', '关于档案的通知', 10, '2002-03-04', '甲'", "2, 'A-002', '会议纪要', 25, '2002-03-05', NULL",
        "3, 'B-001', 'Report of 2002', 3, NULL, ''", "4, 'B-002', '财务报表 100%', NULL, '2001-12-31', 'it''s'",
        "5, 'a-003', '年度总结', 25, '2003-01-01', '乙'"})
    database.Native(u"INSERT INTO "_s + table + u" VALUES ("_s + QString::fromUtf8(row) + u')');
}

std::unique_ptr<Recordset> DataSuite::Open(const QString& source, LockType lock) {
  auto records = std::make_unique<Recordset>();
  records->Open(source, Connected(), CursorType::Static, lock);
  return records;
}

QString DataSuite::Stored(int id, const QString& column) {
  return Database().Value(u"SELECT %1 FROM files WHERE id = %2"_s.arg(column).arg(id));
}

void DataSuite::TakeDatabaseAway() {
  if (!OnSqlite()) {
    const NativeResult session = QueryNative(*Connected(), "SELECT pg_backend_pid()");
    Meanwhile(u"SELECT pg_terminate_backend(%1, 5000)"_s.arg(session.rows[0][0].toLongLong()));
    return;
  }
  QFile file(Database().Rows(u"PRAGMA database_list"_s)[0][2]);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  file.write(QByteArray(int(file.size()), 'x'));
}

QStringList Texts(Recordset& records, const QString& field) {
  QStringList texts;
  if (records.RecordCount() == 0) return texts;
  for (records.MoveFirst(); !records.EOF_(); records.MoveNext()) texts << records[field].Text();
  return texts;
}

void StandOn(Recordset& records, int id) {
  records.MoveFirst();
  records.Find(u"id = %1"_s.arg(id));
  ASSERT_FALSE(records.EOF_()) << "no file " << id;
}

}  // namespace folvane::test
