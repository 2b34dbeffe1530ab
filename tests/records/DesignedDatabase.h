#pragma once

#include <QString>
#include <QStringList>
#include <initializer_list>

#include "support/HostDoubles.h"
#include "support/TestDatabase.h"

namespace folvane::test {

/// A column of a business table in a test: field, caption, type word.
struct DesignedField {
  QString name, caption, type;
};

/// What a test writes of the design and of the records, on a fresh database.
class DesignedDatabase {
 public:
  explicit DesignedDatabase(TestDatabase& database);

  void AddClass(int id, const QString& name, int parent = 1);
  /// Describes a table under a class and makes it: its fields, all of them shown in the list and as a text box Txt(1),
  /// Txt(2)... of the entry form in this order.
  void AddTable(const QString& table, const QString& caption, int classId, const std::vector<DesignedField>& fields,
                const QString& parent = {}, const QString& relation = {});
  /// A table with ArchiveID, RegID and Amaintitle, and CreatedDate where asked for.
  void AddPlainTable(const QString& table, const QString& caption, int classId, bool withDate = false);
  /// Adds records 1 to count: ArchiveID is the number in 20 digits, RegID the number, Amaintitle "题名" and the number.
  void AddRecords(const QString& table, int count);
  void AddOriginal(const QString& recordKey, const QString& id, const QString& name, int order);
  /// Makes a design table anew without a key, as a host may have made it.
  void DropKey(const QString& table);
  /// Inserts a row of texts; an element "<null>" gives null.
  void Insert(const QString& table, const QString& columns, const QStringList& values);
  void Run(const QString& sql) { database_.Native(sql); }
  QString Value(const QString& sql) { return database_.Value(sql); }

  static QString Key(int number) { return QStringLiteral("%1").arg(number, 20, 10, QLatin1Char('0')); }

 private:
  TestDatabase& database_;
};

/// Keeps the statements that a connection is told, from the last Take on.
class StatementLog {
 public:
  explicit StatementLog(Connection& connection);
  ~StatementLog();
  QStringList Take();

 private:
  Connection& connection_;
  QStringList statements_;
};

/// Has one statement of a connection fail as if another user held its table, for as long as it lives. Takes the place
/// of a StatementLog.
class LockedStatement {
 public:
  /// @param number of the statement from now on, from 1
  LockedStatement(Connection& connection, int number);
  ~LockedStatement();
  bool WasRun() const { return left_ <= 0; }

 private:
  Connection& connection_;
  int left_;
};

/// A database, a program directory, a clock in 2002 and the administrator logged on.
class DesignTest : public OnEachDatabase {
 protected:
  void SetUp() override;
  void TearDown() override;

  TempProgramDirectory program_;
  std::unique_ptr<DesignedDatabase> design_;
  std::unique_ptr<StatementLog> log_;
};

}  // namespace folvane::test
