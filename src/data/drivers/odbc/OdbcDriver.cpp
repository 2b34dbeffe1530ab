#include "data/drivers/odbc/OdbcDriver.h"

#include <array>
#include <malloc.h>
#include <sqlext.h>

#include <folvane/OdbcConnection.h>

#include "data/DatabaseSession.h"
#include "data/RowStore.h"
#include "data/drivers/odbc/OdbcErrors.h"
#include "data/drivers/odbc/OdbcRows.h"
#include "data/drivers/odbc/OdbcSchema.h"
#include "data/drivers/odbc/OdbcStatement.h"
#include "data/drivers/odbc/OdbcTypes.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMostPreparedOdbc = 64;
constexpr std::size_t kManyRows = 50'000;
// The width with which PostgreSQL's ODBC driver describes a varchar without a length.
constexpr int kWidthOfNoLength = 255;

QString ServerName(SQLHDBC connection) {
  std::array<char, 256> name{};
  const SQLRETURN outcome = SQLGetInfo(connection, SQL_DBMS_NAME, name.data(), SQLSMALLINT(name.size()), nullptr);
  if (!SQL_SUCCEEDED(outcome)) ThrowOdbcError(SQL_HANDLE_DBC, connection, connection);
  return QString::fromUtf8(name.data());
}

QByteArray BaseName(OdbcStatement& statement, std::size_t column, SQLUSMALLINT attribute) {
  std::array<char, 256> name{};
  statement.Check(SQLColAttribute(statement.Handle(), SQLUSMALLINT(column + 1), attribute, name.data(),
                                  SQLSMALLINT(name.size()), nullptr, nullptr));
  return name.data();
}

}  // namespace

DialectKind DialectOfServer(const QString& name) {
  if (name.startsWith("PostgreSQL"_L1, Qt::CaseInsensitive)) return DialectKind::PostgreSql;
  for (const char* known : {"Microsoft SQL Server", "SQL Server", "Adaptive Server", "Sybase", "ASE", "FreeTDS"})
    if (name.contains(QLatin1String(known), Qt::CaseInsensitive)) return DialectKind::TransactSql;
  throw DataError(DataErrorKind::Usage, u"不支持的数据库“%1”：只能使用 PostgreSQL、SQL Server 或 Sybase。"_s.arg(name));
}

OdbcDriver::OdbcDriver(SQLHDBC connection)
    : connection_(connection), dialect_(DialectOfServer(ServerName(connection))) {
  CheckEncoding();
}

OdbcDriver::~OdbcDriver() = default;

// A connection that was opened with the wide calls, or has another client encoding, puts something else in the place of
// characters without a word; some do so only beyond the first 65,536 characters, to which the last of the sample
// belongs.
void OdbcDriver::CheckEncoding() {
  if (dialect_ != DialectKind::PostgreSql) return;
  const QString sample = QString::fromUtf8("档案𠀀");
  std::vector<ColumnInfo> columns;
  RowStore rows;
  Query({"SELECT '" + sample.toUtf8() + "', length('" + sample.toUtf8() + "')", {}}, columns, rows);
  const bool kept = rows.RowCount() == 1 && rows.At(0, 0).ToVariant().toString() == sample &&
                    rows.At(0, 1).ToVariant().toInt() == sample.toUcs4().size();
  if (!kept)
    throw DataError(DataErrorKind::Usage,
                    u"数据库连接的字符编码不是 UTF-8，汉字会丢失。请用 ANSI 方式连接，并将 client_encoding "
                    "设为 UTF8。"_s);
}

// Once the server is gone nothing more is kept on the handle, which the host may then free at any time.
template <typename Work>
auto OdbcDriver::Run(Work work) {
  try {
    return work();
  } catch (const DataError& error) {
    if (error.Kind() == DataErrorKind::Lost) prepared_.clear();
    throw;
  }
}

OdbcStatement& OdbcDriver::Prepared(const QByteArray& text) {
  if (const auto known = prepared_.constFind(text); known != prepared_.constEnd()) return **known;
  if (prepared_.size() >= kMostPreparedOdbc) prepared_.clear();
  auto statement = std::make_shared<OdbcStatement>(connection_);
  statement->Prepare(text);
  return **prepared_.insert(text, statement);
}

qint64 OdbcDriver::Execute(const NativeStatement& native) {
  return Run([&] {
    if (inTransaction_ && !native.parameters.empty()) {
      OdbcStatement& statement = Prepared(native.text);
      statement.Execute(native.parameters);
      return statement.ChangedRows();
    }
    OdbcStatement statement(connection_);
    statement.ExecuteDirect(native);
    return statement.ChangedRows();
  });
}

void OdbcDriver::Query(const NativeStatement& native, std::vector<ColumnInfo>& columns, RowStore& rows) {
  const std::size_t before = rows.RowCount();
  Read(native, columns, rows);
#ifdef __GLIBC__
  // The driver has held the whole result, most of it in small pieces, which the heap would keep.
  if (rows.RowCount() - before > kManyRows) malloc_trim(0);
#endif
}

void OdbcDriver::Read(const NativeStatement& native, std::vector<ColumnInfo>& columns, RowStore& rows) {
  Run([&] {
    OdbcStatement statement(connection_);
    statement.ExecuteDirect(native);
    std::vector<OdbcColumn> described = DescribeResult(dialect_, statement);
    ReadRows(statement, described, rows);
    FindWidths(statement, described);
    columns.clear();
    for (const OdbcColumn& column : described) columns.push_back(column.info);
  });
}

// A varchar without a length cannot be told from varchar(255) by its description; the table's own columns can.
void OdbcDriver::FindWidths(OdbcStatement& statement, std::vector<OdbcColumn>& columns) {
  if (dialect_ != DialectKind::PostgreSql) return;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    ColumnInfo& column = columns[i].info;
    if (column.type != AdoType::VarChar || column.definedSize != kWidthOfNoLength) continue;
    column.definedSize = 2147483647;
    const QByteArray table = BaseName(statement, i, SQL_DESC_BASE_TABLE_NAME);
    if (table.isEmpty()) continue;
    const std::optional<TableInfo>& info = Described(table);
    const int index = info ? info->IndexOf(QString::fromUtf8(BaseName(statement, i, SQL_DESC_BASE_COLUMN_NAME))) : -1;
    if (index >= 0) column.definedSize = info->columns[size_t(index)].definedSize;
  }
}

// A description takes longer than most statements. It is asked for anew where the one of the layer above is.
const std::optional<TableInfo>& OdbcDriver::Described(const QByteArray& table) {
  const QString name = QString::fromUtf8(table).toLower();
  if (!described_.contains(name)) Describe(name);
  return described_[name];
}

std::optional<TableInfo> OdbcDriver::Describe(const QString& table) {
  if (dialect_ != DialectKind::PostgreSql) return Run([&] { return DescribeOdbcTable(connection_, table); });
  std::optional<TableInfo> info = DescribePostgresTable(*this, table);
  described_.insert(table.toLower(), info);
  return info;
}

QByteArray OdbcDriver::PinyinCollation() {
  return dialect_ == DialectKind::PostgreSql ? FindPostgresPinyin(*this) : QByteArray();
}

void OdbcDriver::ExecuteOnce(const char* text) { OdbcStatement(connection_).ExecuteDirect({text, {}}); }

void OdbcDriver::CheckConnection(SQLRETURN outcome) {
  if (!SQL_SUCCEEDED(outcome)) ThrowOdbcError(SQL_HANDLE_DBC, connection_, connection_);
}

SQLRETURN OdbcDriver::SetAutocommit(SQLULEN how) {
  // The manager wants the number in the place of the address.
  const auto value = reinterpret_cast<SQLPOINTER>(how);  // NOLINT(performance-no-int-to-ptr)
  return SQLSetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT, value, 0);
}

void OdbcDriver::Begin() {
  SQLUINTEGER autocommit = SQL_AUTOCOMMIT_ON;
  CheckConnection(SQLGetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT, &autocommit, 0, nullptr));
  autocommitWasOn_ = autocommit == SQL_AUTOCOMMIT_ON;
  if (autocommitWasOn_) CheckConnection(SetAutocommit(SQL_AUTOCOMMIT_OFF));
  inTransaction_ = true;
  if (dialect_ != DialectKind::PostgreSql) return;
  try {
    ExecuteOnce("SAVEPOINT folvane_begin");
  } catch (const DataError&) {
    SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
    LeaveTransaction();
    throw;
  }
}

void OdbcDriver::Commit() {
  prepared_.clear();
  // After an error PostgreSQL, or its driver, may have thrown away what was done so far, and a commit would report
  // success all the same. The savepoint of the beginning is still there only if nothing was lost.
  if (dialect_ == DialectKind::PostgreSql) ExecuteOnce("RELEASE SAVEPOINT folvane_begin");
  CheckConnection(SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_COMMIT));
  // So does a commit before which the driver has found the server gone while it let go of what was read.
  SQLUINTEGER isDead = SQL_CD_FALSE;
  SQLGetConnectAttr(connection_, SQL_ATTR_CONNECTION_DEAD, &isDead, 0, nullptr);
  if (isDead == SQL_CD_TRUE) throw DataError(DataErrorKind::Lost, u"提交时数据库连接已经断开。"_s);
  LeaveTransaction();
}

void OdbcDriver::Rollback() {
  prepared_.clear();
  try {
    // What the host had not committed when the transaction began is not taken back with it.
    if (!autocommitWasOn_ && dialect_ == DialectKind::PostgreSql) {
      ExecuteOnce("ROLLBACK TO SAVEPOINT folvane_begin");
      ExecuteOnce("RELEASE SAVEPOINT folvane_begin");
      return LeaveTransaction();
    }
    CheckConnection(SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK));
  } catch (const DataError& error) {
    // A server that is gone has rolled back by itself. On one that is not, autocommit would keep the changes.
    if (error.Kind() == DataErrorKind::Lost) LeaveTransaction();
    throw;
  }
  LeaveTransaction();
}

bool OdbcDriver::InTransaction() const { return inTransaction_; }

// Puts the host's setting back, which fails only where the connection is gone.
void OdbcDriver::LeaveTransaction() {
  inTransaction_ = false;
  if (autocommitWasOn_) SetAutocommit(SQL_AUTOCOMMIT_ON);
}

std::shared_ptr<Connection> AdoptOdbc(void* connection) {
  if (!connection) throw DataError(DataErrorKind::Usage, u"没有已连接的 ODBC 句柄。"_s);
  return MakeConnection(std::make_unique<OdbcDriver>(connection));
}

}  // namespace folvane
