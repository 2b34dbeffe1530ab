#include <folvane/Connection.h>
#include <folvane/DataError.h>

#include "data/FetchedRows.h"
#include "data/TableCatalogue.h"
#include "data/dialect/Translator.h"
#include "data/drivers/Driver.h"

namespace folvane {

Connection::Connection(std::unique_ptr<Driver> driver)
    : driver_(std::move(driver)),
      tables_(std::make_unique<TableCatalogue>(*driver_)),
      translator_(std::make_unique<Translator>(driver_->Dialect(),
                                               [this](const QString& name) { return tables_->Find(name); })) {}

Connection::~Connection() = default;

// Tells the observer, runs the work, and gives an error the statement that it belongs to. A statement that the server
// refuses may have been translated over tables that have changed since.
template <typename Work>
auto Connection::Run(const QString& statement, Work work) {
  if (observer_) observer_(statement);
  try {
    return work();
  } catch (const DataError& error) {
    if (error.Kind() == DataErrorKind::Statement) RefreshSchema();
    throw DataError(error).During(statement);
  }
}

namespace {

// Which of a plan's statements is to run.
const NativeStatement& Chosen(const Plan& plan, Driver& driver) {
  if (!plan.conditional) return plan.statement;
  std::vector<ColumnInfo> columns;
  RowStore rows;
  driver.Query(plan.condition, columns, rows);
  const bool holds = rows.RowCount() > 0 && rows.At(0, 0).ToVariant().toInt() == 1;
  return holds ? plan.statement : plan.otherwise;
}

}  // namespace

qint64 Connection::Execute(const QString& statement) {
  return Run(statement, [&]() -> qint64 {
    const Plan plan = translator_->Translate(statement);
    const NativeStatement& native = Chosen(plan, *driver_);
    if (!plan.givesRows) return driver_->Execute(native);
    std::vector<ColumnInfo> columns;
    RowStore rows;
    driver_->Query(native, columns, rows);
    return -1;
  });
}

FetchedRows Connection::Fetch(const QString& statement) {
  return Run(statement, [&] {
    const Plan plan = translator_->Translate(statement);
    FetchedRows fetched;
    fetched.rows = std::make_unique<RowStore>();
    driver_->Query(Chosen(plan, *driver_), fetched.columns, *fetched.rows);
    return fetched;
  });
}

const TableInfo* Connection::Table(const QString& name) { return tables_->Find(name); }

void Connection::RefreshSchema() {
  translator_->Forget();
  tables_->Forget();
}

QString Connection::BaseTable(const QString& statement) { return translator_->BaseTable(statement); }

void Connection::OnStatement(std::function<void(const QString&)> observer) { observer_ = std::move(observer); }

void Connection::BeginTrans() {
  if (inTransaction_)
    throw DataError(DataErrorKind::Usage, QStringLiteral("已有一个事务正在进行，不能再开始另一个事务。"));
  driver_->Begin();
  inTransaction_ = true;
}

void Connection::CommitTrans() {
  if (!inTransaction_) throw DataError(DataErrorKind::Usage, QStringLiteral("没有正在进行的事务，不能提交。"));
  driver_->Commit();  // a commit that fails leaves the transaction to be rolled back
  inTransaction_ = false;
}

void Connection::RollbackTrans() {
  if (!inTransaction_) throw DataError(DataErrorKind::Usage, QStringLiteral("没有正在进行的事务，不能回滚。"));
  inTransaction_ = false;
  driver_->Rollback();
}

bool Connection::InTransaction() const { return inTransaction_; }

Transaction::Transaction(Connection& connection) : connection_(connection) { connection_.BeginTrans(); }

Transaction::~Transaction() {
  try {
    if (open_) connection_.RollbackTrans();
  } catch (const DataError&) {
    // The connection is gone, and the server has rolled back by itself.
  }
}

void Transaction::Commit() {
  connection_.CommitTrans();
  open_ = false;
}

void Transaction::Rollback() {
  open_ = false;
  connection_.RollbackTrans();
}

}  // namespace folvane
