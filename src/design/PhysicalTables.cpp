#include "design/PhysicalTables.h"

#include <optional>

#include <folvane/DataError.h>

#include "catalogue/Ddl.h"
#include "data/DatabaseSession.h"
#include "data/drivers/Driver.h"
#include "design/SqliteColumns.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Kind = PhysicalStep::Kind;

bool IsSqlite(Connection& connection) {
  return DatabaseSession::Of(connection).NativeDriver().Dialect() == DialectKind::Sqlite;
}

QString Quoted(Connection& connection, const QString& name) {
  return QString::fromUtf8(DatabaseSession::Of(connection).Words().Quoted(name));
}

QString Alter(Connection& connection, const PhysicalStep& step, const QString& change) {
  return u"ALTER TABLE %1 %2"_s.arg(Quoted(connection, step.table.name), change);
}

QStringList WidenStatements(Connection& connection, const PhysicalStep& step) {
  const QString type = TypeOf(step.column, DatabaseSession::Of(connection).Words());
  if (IsSqlite(connection)) return RedeclareStatements(connection, step.table.name, step.column.name, type);
  return {Alter(connection, step, u"ALTER COLUMN %1 TYPE %2"_s.arg(Quoted(connection, step.column.name), type))};
}

QString InWords(const PhysicalStep& step) {
  const QString column = u"表“%1”的列“%2”"_s.arg(step.table.name, step.column.name);
  switch (step.kind) {
    case Kind::CreateTable:
      return u"建立表“%1”"_s.arg(step.table.name);
    case Kind::AddColumn:
      return u"建立"_s + column;
    case Kind::WidenColumn:
      return u"加长"_s + column;
    case Kind::DropColumn:
      return u"删除"_s + column;
    case Kind::DropTable:
      break;
  }
  return u"删除表“%1”"_s.arg(step.table.name);
}

// A declaration that was read otherwise than it was meant would show here, before anything lasts.
void RequireWide(Connection& connection, const PhysicalStep& step) {
  const TableInfo* info = DatabaseSession::Of(connection).Table(step.table.name);
  const int at = info ? info->IndexOf(step.column.name) : -1;
  const bool isUnlimited = step.column.type == ColumnType::LongText;
  const int needed = isUnlimited ? kAnyLength : step.column.length;
  if (at < 0 || info->columns[std::size_t(at)].definedSize < needed)
    throw DataError(DataErrorKind::Other,
                    u"表“%1”的列“%2”没有加长，本次修改没有保存。"_s.arg(step.table.name, step.column.name));
}

}  // namespace

QStringList StatementsOf(Connection& connection, const PhysicalStep& step) {
  const NativeWords& words = DatabaseSession::Of(connection).Words();
  switch (step.kind) {
    case Kind::CreateTable:
      return CreateStatements(words, step.table);
    case Kind::AddColumn:
      return {Alter(connection, step, u"ADD COLUMN "_s + step.column.name + u' ' + TypeOf(step.column, words))};
    case Kind::WidenColumn:
      return WidenStatements(connection, step);
    case Kind::DropColumn: {
      QStringList statements;
      if (IsSqlite(connection)) statements = DropIndexStatements(connection, step.table.name, step.column.name);
      return statements << Alter(connection, step, u"DROP COLUMN "_s + Quoted(connection, step.column.name));
    }
    case Kind::DropTable:
      break;
  }
  return {u"DROP TABLE "_s + Quoted(connection, step.table.name)};
}

void CarryOut(Connection& connection, const PhysicalStep& step) {
  DatabaseSession& session = DatabaseSession::Of(connection);
  const QStringList statements = StatementsOf(connection, step);
  const bool isWidening = step.kind == Kind::WidenColumn;
  std::optional<WritableSchema> writable;
  if (isWidening && IsSqlite(connection)) writable.emplace(connection);
  for (const QString& statement : statements) {
    try {
      session.ExecuteNative({statement.toUtf8(), {}});
    } catch (const DataError& error) {
      throw DataError(error.Kind(), u"不能%1：%2"_s.arg(InWords(step), error.Message()), statement, error.NativeCode());
    }
  }
  if (writable) writable->Close();
  session.RefreshSchema();
  if (isWidening) RequireWide(connection, step);
}

}  // namespace folvane::design
