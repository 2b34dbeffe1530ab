#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sqlext.h>

#include <folvane/OdbcConnection.h>

#include "data/DataSuite.h"
#include "data/drivers/odbc/OdbcDriver.h"
#include "data/drivers/odbc/OdbcRows.h"
#include "data/drivers/odbc/OdbcSchema.h"
#include "data/drivers/odbc/OdbcStatement.h"
#include "data/drivers/odbc/OdbcTypes.h"
#include "support/OdbcHandle.h"
#include "support/PostgresDatabase.h"

// In the place of the driver manager's own, which they call: how many statements are on the handles of this program.
namespace {

int statementsAlive = 0;

template <typename Function>
Function* DriverManagers(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT type, SQLHANDLE on, SQLHANDLE* made) {
  static auto* const own = DriverManagers<decltype(SQLAllocHandle)>("SQLAllocHandle");
  const SQLRETURN outcome = own(type, on, made);
  statementsAlive += type == SQL_HANDLE_STMT && SQL_SUCCEEDED(outcome);
  return outcome;
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT type, SQLHANDLE handle) {
  static auto* const own = DriverManagers<decltype(SQLFreeHandle)>("SQLFreeHandle");
  statementsAlive -= type == SQL_HANDLE_STMT;
  return own(type, handle);
}

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

// A host's connection with settings of its own to the database of a test.
class OdbcConnections : public testing::Test {
 protected:
  void SetUp() override { MakeFiles(database_); }

  /// @param settings keywords of a connection string, over those of the test run
  void Connect(const QByteArray& settings = {}) {
    handle_ = std::make_unique<OdbcHandle>(qgetenv("FOLVANE_TEST_PG") + settings);
    handle_->Rows(u"SET search_path TO "_s + database_.Value(u"SELECT current_schema()"_s));
    connection_ = AdoptOdbc(handle_->Connection());
  }
  void Mark(int id) { connection_->Execute(u"Update files Set remark = 'marked' Where id = %1"_s.arg(id)); }
  int Marked() { return database_.Value(u"SELECT count(*) FROM files WHERE remark = 'marked'"_s).toInt(); }
  void EndSession() {
    const QString session = handle_->Rows(u"SELECT pg_backend_pid()"_s)[0][0];
    database_.Native(u"SELECT pg_terminate_backend(%1, 5000)"_s.arg(session));
  }
  SQLUINTEGER Autocommit() {
    SQLUINTEGER autocommit = 77;
    SQLGetConnectAttr(handle_->Connection(), SQL_ATTR_AUTOCOMMIT, &autocommit, 0, nullptr);
    return autocommit;
  }

  PostgresDatabase database_;
  std::unique_ptr<OdbcHandle> handle_;
  std::shared_ptr<folvane::Connection> connection_;
};

TEST(OdbcServers, AreKnownByTheirNames) {
  EXPECT_EQ(DialectOfServer(u"PostgreSQL"_s), DialectKind::PostgreSql);
  for (const char* name : {"Microsoft SQL Server", "SQL Server", "Adaptive Server Enterprise", "Sybase"})
    EXPECT_EQ(DialectOfServer(QLatin1String(name)), DialectKind::TransactSql) << name;
}

TEST(OdbcServers, OfAnotherKindAreRefusedByName) {
  const DataError error = FailureOf([] { DialectOfServer(u"Ledger 7"_s); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Usage);
  EXPECT_TRUE(error.Message().contains(u"Ledger 7"_s));
}

TEST_F(OdbcConnections, NothingIsNoConnection) {
  EXPECT_EQ(FailureOf([] { AdoptOdbc(nullptr); }).Kind(), DataErrorKind::Usage);
}

TEST_F(OdbcConnections, OneThatDoesNotTalkUtf8IsRefused) {
  OdbcHandle handle(qgetenv("FOLVANE_TEST_PG"));
  handle.Rows(u"SET client_encoding TO 'LATIN1'"_s);
  const DataError error = FailureOf([&] { AdoptOdbc(handle.Connection()); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Usage);
  EXPECT_TRUE(error.Message().contains(u"UTF-8"_s));
}

TEST_F(OdbcConnections, OneThatAWideCallHasMadeUnfitForChineseIsRefused) {
  const QByteArray unicode = qgetenv("FOLVANE_TEST_PG").replace("PostgreSQL ANSI", "PostgreSQL Unicode");
  OdbcHandle handle(unicode, OdbcHandle::Calls::Wide);
  EXPECT_EQ(FailureOf([&] { AdoptOdbc(handle.Connection()); }).Kind(), DataErrorKind::Usage);
}

TEST_F(OdbcConnections, OneThatIsGoneAlreadyIsToldAsLost) {
  Connect();
  EndSession();
  EXPECT_EQ(FailureOf([&] { AdoptOdbc(handle_->Connection()); }).Kind(), DataErrorKind::Lost);
}

TEST_F(OdbcConnections, OneThatTheHostHasDisconnectedIsToldAsLost) {
  Connect();
  Recordset records;
  records.Open(u"Select * From files Order By id"_s, connection_);
  SQLDisconnect(handle_->Connection());
  EXPECT_EQ(FailureOf([&] { Mark(1); }).Kind(), DataErrorKind::Lost);
  EXPECT_EQ(FailureOf([&] { connection_->BeginTrans(); }).Kind(), DataErrorKind::Lost);
  EXPECT_EQ(FailureOf([&] { records.Requery(); }).Kind(), DataErrorKind::Lost);
  EXPECT_EQ(records.RecordCount(), 5);
}

TEST_F(OdbcConnections, TheHandleMayBeFreedBeforeTheConnectionIs) {
  Connect();
  connection_->BeginTrans();
  DatabaseSession::Of(*connection_)
      .NativeDriver()
      .Execute({"UPDATE files SET remark = ? WHERE id = ?", {u"marked"_s, 1LL}});
  const int withPrepared = statementsAlive;
  EndSession();
  EXPECT_EQ(FailureOf([&] { Mark(2); }).Kind(), DataErrorKind::Lost);
  EXPECT_LT(statementsAlive, withPrepared) << "kept on a handle that the host may free";
  handle_.reset();
  connection_.reset();
  EXPECT_EQ(Marked(), 0);
}

TEST_F(OdbcConnections, TheHostsAutocommitIsAsItWasAfterEveryTransaction) {
  Connect();
  for (const SQLULEN how : {SQL_AUTOCOMMIT_ON, SQL_AUTOCOMMIT_OFF}) {
    SQLSetConnectAttr(handle_->Connection(), SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(how), 0);
    connection_->BeginTrans();
    EXPECT_EQ(Autocommit(), SQLUINTEGER(SQL_AUTOCOMMIT_OFF));
    connection_->CommitTrans();
    EXPECT_EQ(Autocommit(), how);
    connection_->BeginTrans();
    FailureOf([&] { connection_->Execute(u"Delete From nowhere"_s); });
    connection_->RollbackTrans();
    EXPECT_EQ(Autocommit(), how);
  }
}

TEST_F(OdbcConnections, ARollbackLeavesWhatWaitedForTheHostsCommit) {
  Connect();
  SQLSetConnectAttr(handle_->Connection(), SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0);
  Mark(1);
  for (const bool fails : {false, true}) {
    connection_->BeginTrans();
    Mark(2);
    if (fails) FailureOf([&] { connection_->Execute(u"Delete From nowhere"_s); });
    connection_->RollbackTrans();
    EXPECT_FALSE(connection_->InTransaction());
  }
  EXPECT_EQ(Marked(), 0) << "it still waits";
  SQLEndTran(SQL_HANDLE_DBC, handle_->Connection(), SQL_COMMIT);
  EXPECT_EQ(Marked(), 1);
}

TEST_F(OdbcConnections, ACommitToAVanishedServerIsNoSuccess) {
  Connect();
  {
    Transaction transaction(*connection_);
    Mark(1);
    EndSession();
    EXPECT_EQ(FailureOf([&] { transaction.Commit(); }).Kind(), DataErrorKind::Lost);
  }
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(Marked(), 0);
}

// The driver first closes what was read to its end, finds the server gone, and takes the transaction for ended.
TEST_F(OdbcConnections, ACommitBehindRowsThatWereReadToAVanishedServerIsNoSuccess) {
  Connect();
  {
    Transaction transaction(*connection_);
    Recordset records;
    records.Open(u"Select * From files Order By id"_s, connection_);
    records[u"remark"_s].SetValue(u"marked"_s);
    records.UpdateBatch();
    EndSession();
    EXPECT_EQ(FailureOf([&] { transaction.Commit(); }).Kind(), DataErrorKind::Lost);
  }
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(Marked(), 0);
}

TEST_F(OdbcConnections, ARollbackToAVanishedServerEndsTheTransaction) {
  Connect();
  connection_->BeginTrans();
  DatabaseSession::Of(*connection_)
      .NativeDriver()
      .Execute({"UPDATE files SET remark = ? WHERE id = ?", {u"marked"_s, 1LL}});
  const int withPrepared = statementsAlive;
  EndSession();
  EXPECT_EQ(FailureOf([&] { Mark(2); }).Kind(), DataErrorKind::Lost);
  EXPECT_LT(statementsAlive, withPrepared) << "kept on a handle that the host may free";
  try {
    connection_->RollbackTrans();
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Lost);
  }
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(FailureOf([&] { connection_->BeginTrans(); }).Kind(), DataErrorKind::Lost);
}

// Protocol 7.4-0 leaves a failed statement's transaction aborted, 7.4-1 throws away what it did and goes on with a new
// one. Either way a commit would report success, and part of the work would be missing.
TEST_F(OdbcConnections, ACommitAfterAnErrorThatCostTheTransactionIsRefused) {
  for (const char* protocol : {"Protocol=7.4-0;", "Protocol=7.4-1;"}) {
    Connect(protocol);
    connection_->BeginTrans();
    Mark(1);
    FailureOf([&] { connection_->Execute(u"Delete From nowhere"_s); });
    if (qstrcmp(protocol, "Protocol=7.4-1;") == 0) Mark(2);
    EXPECT_EQ(FailureOf([&] { connection_->CommitTrans(); }).Kind(), DataErrorKind::Statement) << protocol;
    connection_->RollbackTrans();
    EXPECT_EQ(Marked(), 0) << protocol;
    Mark(3);
    EXPECT_EQ(Marked(), 1) << protocol;
    database_.Native(u"UPDATE files SET remark = NULL"_s);
  }
}

TEST_F(OdbcConnections, TheCatalogueFunctionsTellWhatTheServersOwnCatalogueTells) {
  database_.Native(
      u"CREATE TABLE many_kinds (a integer NOT NULL, b varchar(20) NOT NULL, c numeric(9,2), "
      "d timestamp, PRIMARY KEY (b, a))"_s);
  database_.Native(u"CREATE TABLE indexed (a integer, b integer NOT NULL, c integer NOT NULL)"_s);
  database_.Native(u"CREATE UNIQUE INDEX wide ON indexed (b, c)"_s);
  database_.Native(u"CREATE UNIQUE INDEX with_null ON indexed (a)"_s);
  Connect();
  for (const char* name : {"MANY_KINDS", "Indexed"}) {
    const auto table = DescribeOdbcTable(handle_->Connection(), QLatin1String(name));
    const auto expected = DatabaseSession::Of(*connection_).NativeDriver().Describe(QLatin1String(name));
    ASSERT_TRUE(table && expected) << name;
    EXPECT_EQ(table->name, expected->name);
    EXPECT_EQ(table->key, expected->key) << name;
    ASSERT_EQ(table->columns.size(), expected->columns.size());
    for (std::size_t i = 0; i < table->columns.size(); ++i) {
      EXPECT_EQ(table->columns[i].name, expected->columns[i].name);
      EXPECT_EQ(table->columns[i].type, expected->columns[i].type) << table->columns[i].name.toStdString();
      EXPECT_EQ(table->columns[i].definedSize, expected->columns[i].definedSize);
      EXPECT_EQ(table->columns[i].nullable, expected->columns[i].nullable);
    }
  }
  EXPECT_FALSE(DescribeOdbcTable(handle_->Connection(), u"nowhere"_s));
}

TEST_F(OdbcConnections, AnExactNumberOfManyDigitsIsReadAndWrittenWhole) {
  database_.Native(u"CREATE TABLE sums (id integer PRIMARY KEY, total numeric(24,6), note varchar(9))"_s);
  database_.Native(u"INSERT INTO sums VALUES (1, 123456789012345678.901234, 'old')"_s);
  Connect();
  Recordset records;
  records.Open(u"Select * From sums"_s, connection_);
  EXPECT_EQ(records[u"total"_s].Text(), u"123456789012345678.901234"_s);
  records[u"total"_s].SetValue(u"223456789012345678.901234"_s);
  records.UpdateBatch();
  EXPECT_EQ(database_.Value(u"SELECT total FROM sums"_s), u"223456789012345678.901234"_s);
}

// The ODBC driver keeps what it has once read of a table.
TEST_F(OdbcConnections, AColumnThatTheHostHasChangedTellsItsNewTypeAndSize) {
  Connect();
  QueryNative(*connection_, "SELECT * FROM files");
  database_.Native(u"ALTER TABLE files ALTER COLUMN title TYPE varchar(100)"_s);
  database_.Native(u"ALTER TABLE files ALTER COLUMN pages TYPE varchar(10)"_s);
  const NativeResult result = QueryNative(*connection_, "SELECT title, pages FROM files ORDER BY id");
  EXPECT_EQ(result.columns[0].definedSize, 100);
  EXPECT_EQ(result.columns[1].type, AdoType::VarChar);
  EXPECT_EQ(result.columns[1].definedSize, 10);
  EXPECT_EQ(result.rows[0][1], QVariant(u"10"_s));
}

// The settings of PostgreSQL's ODBC driver that change how it describes columns, fetches rows or sends parameters.
class OdbcSettings : public OdbcConnections, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    OdbcConnections::SetUp();
    database_.Native(
        u"CREATE TABLE kinds (id integer PRIMARY KEY, flag boolean, title varchar(300), remark "
        "text, amount numeric(12,2), ratio double precision, content bytea)"_s);
    Connect(GetParam());
  }
};
INSTANTIATE_TEST_SUITE_P(Each, OdbcSettings,
                         testing::Values("", "UseDeclareFetch=1;Fetch=50;", "UseServerSidePrepare=0;",
                                         "BoolsAsChar=0;TextAsLongVarchar=0;UnknownsAsLongVarchar=1;",
                                         "MaxVarcharSize=100;MaxLongVarcharSize=200;", "UnknownSizes=2;",
                                         "Driver={PostgreSQL Unicode};"));

TEST_P(OdbcSettings, DoNotChangeTheTypesOfColumns) {
  const NativeResult result = QueryNative(*connection_, "SELECT id, flag, title, remark, amount, content FROM kinds");
  std::vector<int> types, sizes;
  for (const ColumnInfo& column : result.columns) {
    types.push_back(column.type);
    sizes.push_back(column.definedSize);
  }
  EXPECT_EQ(types, (std::vector{3, 11, 200, 201, 131, 205}));
  EXPECT_EQ(sizes, (std::vector{4, 2, 300, 2147483647, 19, 2147483647}));
}

TEST_P(OdbcSettings, DoNotChangeValuesNorCutThem) {
  const QString longText(5000, QChar(0x6863));
  const std::vector<QVariant> values{1LL, QString::fromUtf8("𠀀'?"), longText, 0.1, 0.1, QByteArray("\x00\xff\x5c", 3)};
  DatabaseSession::Of(*connection_)
      .NativeDriver()
      .Execute({"INSERT INTO kinds (id, title, remark, amount, ratio, content) VALUES (?, ?, ?, ?, ?, ?)", values});
  DatabaseSession::Of(*connection_).NativeDriver().Execute({"UPDATE kinds SET flag = ? WHERE id = ?", {true, 1LL}});
  for (int id = 2; id < 200; ++id)
    DatabaseSession::Of(*connection_)
        .NativeDriver()
        .Execute({"INSERT INTO kinds (id, remark) VALUES (?, ?)", {qlonglong(id), longText.left(id * 20)}});
  const NativeResult read = QueryNative(
      *connection_, "SELECT id, title, remark, amount, ratio, content, flag FROM kinds WHERE remark <> ? ORDER BY id",
      {u"x"_s});
  ASSERT_EQ(read.rows.size(), 199u);
  EXPECT_EQ(read.rows[0][1], values[1]);
  EXPECT_TRUE(read.rows[0][2] == values[2]);
  EXPECT_EQ(read.rows[0][3], QVariant(u"0.10"_s));
  EXPECT_EQ(read.rows[0][4], values[4]);
  EXPECT_EQ(read.rows[0][5], values[5]);
  EXPECT_EQ(read.rows[0][6], QVariant(1LL));
  for (int id = 2; id < 200; ++id)
    EXPECT_TRUE(read.rows[std::size_t(id - 1)][2] == QVariant(longText.left(id * 20))) << id;
}

TEST_P(OdbcSettings, RowsReadOneByOneAreThoseReadInBlocks) {
  for (int id = 0; id < 100; ++id)
    DatabaseSession::Of(*connection_)
        .NativeDriver()
        .Execute({"INSERT INTO kinds VALUES (?, ?, ?, ?, ?, ?, ?)",
                  {qlonglong(id), id % 2 == 0, QString(id, QChar(0x6863)),
                   id % 3 ? QVariant(QString(id * 1000, u'x')) : QVariant(), id / 4.0, id / 8.0,
                   QByteArray(id * 900, char(id))}});
  const QByteArray text = "SELECT * FROM kinds ORDER BY id";
  OdbcStatement statement(handle_->Connection());
  statement.ExecuteDirect({text, {}});
  RowStore rows;
  ReadRowsOneByOne(statement, DescribeResult(DialectKind::PostgreSql, statement), rows);
  const NativeResult blocks = QueryNative(*connection_, text);
  ASSERT_EQ(rows.RowCount(), blocks.rows.size());
  for (std::size_t row = 0; row < rows.RowCount(); ++row)
    for (int column = 0; column < rows.ColumnCount(); ++column)
      EXPECT_TRUE(rows.At(row, column).ToVariant() == blocks.rows[row][std::size_t(column)]) << row << ' ' << column;
}

}  // namespace

}  // namespace folvane::test
