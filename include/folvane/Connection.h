#pragma once

#include <QString>
#include <functional>
#include <memory>

#include <folvane/Export.h>

namespace folvane {

class Driver;
class TableCatalogue;
class Translator;
struct TableInfo;
struct FetchedRows;

/// What Order By puts the texts of a record set in order by.
enum class TextOrder {
  Plain,   ///< by their codes, without regard to ASCII case and trailing blanks, as texts compare
  Pinyin,  ///< Chinese by pinyin, where the database can
};

/// The host's open database connection. Made by AdoptSqlite or AdoptOdbc; it never opens or closes the handle behind
/// it, and the host keeps that handle open for as long as a window of the library is shown.
///
/// Statements are written in the T-SQL flavour and put into the database's own dialect on the way. One statement a
/// call.
class FOLVANE_EXPORT Connection {
 public:
  explicit Connection(std::unique_ptr<Driver> driver);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Runs one statement and gives the number of rows it changed; -1 when the database does not tell.
  /// @throws DataError
  qint64 Execute(const QString& statement);

  /// Starts a transaction. One at a time: a second one inside the first is an error.
  void BeginTrans();
  void CommitTrans();
  /// A rollback that is interrupted is tried again. Where that does not help, the changes stand on the handle without
  /// being kept: every later statement and transaction tries once more, and is refused for as long as that fails.
  void RollbackTrans();
  bool InTransaction() const;

  /// Has every statement told to the observer, as it was composed and before any dialect, whether it is executed or
  /// opened as a record set. The batch writes of a record set are not told. An empty function ends the telling.
  void OnStatement(std::function<void(const QString&)> observer);

  // What the record set needs of a connection.

  /// Runs a statement that gives rows and keeps them all. @throws DataError
  FetchedRows Fetch(const QString& statement, TextOrder order = TextOrder::Plain);
  /// The columns and the key of a table, nullptr when the database has no such table. Kept until RefreshSchema.
  const TableInfo* Table(const QString& name);
  /// Forgets what is known of the tables; called when a statement fails over a table or a column.
  void RefreshSchema();
  /// The table that a statement of the form Select ... From t ... reads alone; "" for joins and anything else.
  QString BaseTable(const QString& statement);
  /// The driver, ready for a statement. @throws DataError where a rollback is due that fails
  Driver& NativeDriver();

 private:
  void RollBack();
  std::unique_ptr<Translator> MakeTranslator(const QByteArray& orderCollation);
  Translator& TranslatorFor(TextOrder order);
  template <typename Work>
  auto Run(const QString& statement, Work work);

  std::unique_ptr<Driver> driver_;
  std::unique_ptr<TableCatalogue> tables_;
  std::unique_ptr<Translator> translator_, pinyinTranslator_;
  std::function<void(const QString&)> observer_;
  bool inTransaction_ = false;
  bool owesRollback_ = false;  ///< the handle is still inside a transaction that is over
};

/// A transaction as a scope: rolls back when it is left without Commit.
class FOLVANE_EXPORT Transaction {
 public:
  explicit Transaction(Connection& connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit();
  void Rollback();

 private:
  Connection& connection_;
  bool open_ = true;
};

}  // namespace folvane
