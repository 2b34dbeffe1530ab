#include "data/DatabaseSession.h"

#include <folvane/DataError.h>

#include "data/Recordset.h"
#include "data/RowReading.h"
#include "data/TableCatalogue.h"
#include "data/dialect/Translator.h"
#include "data/drivers/Driver.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

FetchedRows RowsOf(const NativeStatement& statement, Driver& driver) {
  FetchedRows fetched{{}, std::make_unique<RowStore>()};
  driver.Query(statement, fetched.columns, *fetched.rows);
  return fetched;
}

// Which of a plan's statements is to run.
const NativeStatement& Chosen(const Plan& plan, Driver& driver) {
  if (!plan.conditional) return plan.statement;
  const FetchedRows answer = RowsOf(plan.condition, driver);
  const bool holds = answer.rows->RowCount() > 0 && answer.rows->At(0, 0).ToVariant().toInt() == 1;
  return holds ? plan.statement : plan.otherwise;
}

class DriverSession final : public DatabaseSession {
 public:
  explicit DriverSession(std::unique_ptr<Driver> driver)
      : driver_(std::move(driver)), tables_(*driver_), translator_(MakeTranslator({})) {}

  qint64 Execute(const QString& statement) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  bool InTransaction() const override { return inTransaction_; }
  void OnStatement(std::function<void(const QString&)> observer) override { observer_ = std::move(observer); }

  FetchedRows Fetch(const QString& statement, TextOrder order) override;
  OpenedRows Open(const QString& statement, TextOrder order) override;
  FetchedRows FetchUntold(const QString& statement, TextOrder order) override;
  const TableInfo* Table(const QString& name) override { return tables_.Find(name); }
  void RefreshSchema() override;
  QString BaseTable(const QString& statement) override { return translator_->BaseTable(statement); }
  const NativeWords& Words() const override { return WordsOf(driver_->Dialect()); }
  qint64 ExecuteNative(const NativeStatement& statement) override { return NativeDriver().Execute(statement); }
  FetchedRows FetchNative(const NativeStatement& statement) override { return RowsOf(statement, NativeDriver()); }
  Driver& NativeDriver() override;

 private:
  void RollBack();
  std::unique_ptr<Translator> MakeTranslator(const QByteArray& orderCollation);
  Translator& TranslatorFor(TextOrder order);
  Plan Translate(const QString& statement, TextOrder order);
  template <typename Work>
  auto Run(const QString& statement, Work work);

  std::unique_ptr<Driver> driver_;
  TableCatalogue tables_;
  std::unique_ptr<Translator> translator_, pinyinTranslator_;
  RowReading reading_{*this};
  std::function<void(const QString&)> observer_;
  bool inTransaction_ = false;
  bool owesRollback_ = false;  ///< the handle is still inside a transaction that is over
};

std::unique_ptr<Translator> DriverSession::MakeTranslator(const QByteArray& orderCollation) {
  return std::make_unique<Translator>(
      driver_->Dialect(), [this](const QString& name) { return tables_.Find(name); }, orderCollation);
}

Translator& DriverSession::TranslatorFor(TextOrder order) {
  if (order == TextOrder::Plain) return *translator_;
  if (!pinyinTranslator_) pinyinTranslator_ = MakeTranslator(driver_->PinyinCollation());
  return *pinyinTranslator_;
}

// A value that is too long may fit: another user may have made its column longer since it was described.
Plan DriverSession::Translate(const QString& statement, TextOrder order) {
  try {
    return TranslatorFor(order).Translate(statement);
  } catch (const DataError& error) {
    if (error.Kind() != DataErrorKind::TooLong) throw;
    RefreshSchema();
    return TranslatorFor(order).Translate(statement);
  }
}

// Tells the observer, runs the work, and gives an error the statement that it belongs to. A statement that the server
// refuses may have been translated over tables that have changed since.
template <typename Work>
auto DriverSession::Run(const QString& statement, Work work) {
  if (observer_) observer_(statement);
  try {
    return work(NativeDriver());
  } catch (const DataError& error) {
    if (error.Kind() == DataErrorKind::Statement) RefreshSchema();
    throw DataError(error).During(statement);
  }
}

qint64 DriverSession::Execute(const QString& statement) {
  return Run(statement, [&](Driver& driver) -> qint64 {
    const Plan plan = Translate(statement, TextOrder::Plain);
    const NativeStatement& native = Chosen(plan, driver);
    if (!plan.givesRows) return driver.Execute(native);
    RowsOf(native, driver);
    return -1;
  });
}

FetchedRows DriverSession::Fetch(const QString& statement, TextOrder order) {
  return Run(statement, [&](Driver&) { return FetchUntold(statement, order); });
}

OpenedRows DriverSession::Open(const QString& statement, TextOrder order) {
  return Run(statement, [&](Driver&) { return reading_.Read(statement, order); });
}

FetchedRows DriverSession::FetchUntold(const QString& statement, TextOrder order) {
  Driver& driver = NativeDriver();
  const Plan plan = Translate(statement, order);
  return RowsOf(Chosen(plan, driver), driver);
}

void DriverSession::RefreshSchema() {
  translator_->Forget();
  if (pinyinTranslator_) pinyinTranslator_->Forget();
  tables_.Forget();
  reading_.Forget();
}

void DriverSession::BeginTrans() {
  if (inTransaction_) throw DataError(DataErrorKind::Usage, u"已有一个事务正在进行，不能再开始另一个事务。"_s);
  NativeDriver().Begin();
  inTransaction_ = true;
}

void DriverSession::CommitTrans() {
  if (!inTransaction_) throw DataError(DataErrorKind::Usage, u"没有正在进行的事务，不能提交。"_s);
  driver_->Commit();  // a commit that fails leaves the transaction to be rolled back
  inTransaction_ = false;
}

void DriverSession::RollbackTrans() {
  if (!inTransaction_) throw DataError(DataErrorKind::Usage, u"没有正在进行的事务，不能回滚。"_s);
  inTransaction_ = false;
  RollBack();
}

void DriverSession::RollBack() {
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

Driver& DriverSession::NativeDriver() {
  if (owesRollback_) RollBack();
  return *driver_;
}

}  // namespace

std::shared_ptr<Connection> MakeConnection(std::unique_ptr<Driver> driver) {
  return std::make_shared<Connection>(std::make_unique<DriverSession>(std::move(driver)));
}

}  // namespace folvane
