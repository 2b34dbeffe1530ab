#include <folvane/Connection.h>
#include <folvane/DataError.h>

#include "data/FetchedRows.h"
#include "data/TableCatalogue.h"
#include "data/dialect/Translator.h"
#include "data/drivers/Driver.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

Connection::Connection(std::unique_ptr<Driver> driver)
    : driver_(std::move(driver)),
      tables_(std::make_unique<TableCatalogue>(*driver_)),
      translator_(MakeTranslator({})) {}

Connection::~Connection() = default;

std::unique_ptr<Translator> Connection::MakeTranslator(const QByteArray& orderCollation) {
  return std::make_unique<Translator>(
      driver_->Dialect(), [this](const QString& name) { return tables_->Find(name); }, orderCollation);
}

Translator& Connection::TranslatorFor(TextOrder order) {
  if (order == TextOrder::Plain) return *translator_;
  if (!pinyinTranslator_) pinyinTranslator_ = MakeTranslator(driver_->PinyinCollation());
  return *pinyinTranslator_;
}

// Tells the observer, runs the work, and gives an error the statement that it belongs to. A statement that the server
// refuses may have been translated over tables that have changed since.
template <typename Work>
auto Connection::Run(const QString& statement, Work work) {
  if (observer_) observer_(statement);
  try {
    return work(NativeDriver());
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
  return Run(statement, [&](Driver& driver) -> qint64 {
    const Plan plan = translator_->Translate(statement);
    const NativeStatement& native = Chosen(plan, driver);
    if (!plan.givesRows) return driver.Execute(native);
    std::vector<ColumnInfo> columns;
    RowStore rows;
    driver.Query(native, columns, rows);
    return -1;
  });
}

FetchedRows Connection::Fetch(const QString& statement, TextOrder order) {
  return Run(statement, [&](Driver& driver) {
    const Plan plan = TranslatorFor(order).Translate(statement);
    FetchedRows fetched;
    fetched.rows = std::make_unique<RowStore>();
    driver.Query(Chosen(plan, driver), fetched.columns, *fetched.rows);
    return fetched;
  });
}

const TableInfo* Connection::Table(const QString& name) { return tables_->Find(name); }

void Connection::RefreshSchema() {
  translator_->Forget();
  if (pinyinTranslator_) pinyinTranslator_->Forget();
  tables_->Forget();
}

QString Connection::BaseTable(const QString& statement) { return translator_->BaseTable(statement); }

void Connection::OnStatement(std::function<void(const QString&)> observer) { observer_ = std::move(observer); }

void Connection::BeginTrans() {
  if (inTransaction_) throw DataError(DataErrorKind::Usage, u"已有一个事务正在进行，不能再开始另一个事务。"_s);
  NativeDriver().Begin();
  inTransaction_ = true;
}

void Connection::CommitTrans() {
  if (!inTransaction_) throw DataError(DataErrorKind::Usage, u"没有正在进行的事务，不能提交。"_s);
  driver_->Commit();  // a commit that fails leaves the transaction to be rolled back
  inTransaction_ = false;
}

void Connection::RollbackTrans() {
  if (!inTransaction_) throw DataError(DataErrorKind::Usage, u"没有正在进行的事务，不能回滚。"_s);
  inTransaction_ = false;
  RollBack();
}

void Connection::RollBack() {
  constexpr int kMostTries = 8;
  for (int tries = 1;; ++tries) {
    try {
      driver_->Rollback();
      owesRollback_ = false;
      return;
    } catch (const DataError& error) {
      owesRollback_ = driver_->InTransaction();
      if (!owesRollback_) throw;
      if (tries == kMostTries)
        throw DataError(error.Kind(), u"未完成的修改还没有撤销，撤销之前不能再使用数据库：%1"_s.arg(error.Message()),
                        {}, error.NativeCode());
    }
  }
}

Driver& Connection::NativeDriver() {
  if (owesRollback_) RollBack();
  return *driver_;
}

bool Connection::InTransaction() const { return inTransaction_; }

Transaction::Transaction(Connection& connection) : connection_(connection) { connection_.BeginTrans(); }

Transaction::~Transaction() {
  try {
    if (open_) connection_.RollbackTrans();
  } catch (const DataError&) {
    // Either the connection is gone, and the server has rolled back by itself, or the next statement tries again.
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
