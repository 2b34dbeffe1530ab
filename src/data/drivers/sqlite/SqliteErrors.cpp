#include "data/drivers/sqlite/SqliteErrors.h"

#include <QStringList>
#include <sqlite3.h>

#include "data/RefusedValues.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

// The low byte of an extended result code is the primary code: https://www.sqlite.org/rescode.html
DataErrorKind KindOf(int result) {
  switch (result & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return DataErrorKind::Locked;
    case SQLITE_CONSTRAINT:
      return DataErrorKind::Constraint;
    case SQLITE_TOOBIG:
      return DataErrorKind::TooLong;
    case SQLITE_MISMATCH:
      return DataErrorKind::Conversion;
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_MISUSE:
      return DataErrorKind::Lost;
    default:
      return DataErrorKind::Statement;
  }
}

bool IsDuplicate(int result) {
  return result == SQLITE_CONSTRAINT_UNIQUE || result == SQLITE_CONSTRAINT_PRIMARYKEY ||
         result == SQLITE_CONSTRAINT_ROWID;
}

// "UNIQUE constraint failed: files.id, files.code" names the columns; an index over expressions is named by itself.
QStringList ColumnsNamedIn(const QString& message) {
  QStringList columns;
  for (const QString& name : message.section(u": "_s, 1).split(u", "_s))
    if (name.contains(u'.')) columns << name.section(u'.', -1);
  return columns;
}

}  // namespace

void ThrowSqliteError(sqlite3* database, int result) {
  const int code = sqlite3_extended_errcode(database);
  // The handle's code belongs to its last call; where that one was another, the result in hand says more.
  const int shown = (code & 0xff) == (result & 0xff) ? code : result;
  const QString message = QString::fromUtf8(sqlite3_errmsg(database)), number = QString::number(shown);
  if (IsDuplicate(shown)) throw DuplicateError(ColumnsNamedIn(message), number);
  throw DataError(KindOf(shown), message, {}, number);
}

}  // namespace folvane
