#include "data/drivers/sqlite/SqliteStatement.h"

#include <sqlite3.h>

#include "data/ValueText.h"
#include "data/drivers/sqlite/SqliteErrors.h"

namespace folvane {

SqliteStatement::SqliteStatement(sqlite3* database, const QByteArray& text) : database_(database) {
  const int result =
      sqlite3_prepare_v2(database, text.constData(), static_cast<int>(text.size()), &statement_, nullptr);
  if (result != SQLITE_OK) ThrowSqliteError(database, result);
}

SqliteStatement::~SqliteStatement() { sqlite3_finalize(statement_); }

void SqliteStatement::BindText(int index, const QString& text) { BindValue(index, text); }

void SqliteStatement::Bind(const std::vector<QVariant>& parameters) {
  bound_.clear();
  bound_.reserve(parameters.size());
  for (std::size_t i = 0; i < parameters.size(); ++i) BindValue(static_cast<int>(i) + 1, parameters[i]);
}

void SqliteStatement::BindValue(int index, const QVariant& value) {
  int result = SQLITE_OK;
  switch (value.typeId()) {
    case QMetaType::UnknownType:
      result = sqlite3_bind_null(statement_, index);
      break;
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::Bool:
      result = sqlite3_bind_int64(statement_, index, value.toLongLong());
      break;
    case QMetaType::Double:
      result = sqlite3_bind_double(statement_, index, value.toDouble());
      break;
    case QMetaType::QByteArray:
      bound_.push_back(value.toByteArray());
      result = sqlite3_bind_blob64(statement_, index, bound_.back().constData(),
                                   static_cast<sqlite3_uint64>(bound_.back().size()), SQLITE_STATIC);
      break;
    default:
      bound_.push_back(ValueText(value).toUtf8());
      result = sqlite3_bind_text64(statement_, index, bound_.back().constData(),
                                   static_cast<sqlite3_uint64>(bound_.back().size()), SQLITE_STATIC, SQLITE_UTF8);
  }
  if (result != SQLITE_OK) ThrowSqliteError(database_, result);
}

bool SqliteStatement::Step() {
  const int result = sqlite3_step(statement_);
  if (result == SQLITE_ROW) return true;
  if (result == SQLITE_DONE) return false;
  ThrowSqliteError(database_, result);
}

void SqliteStatement::Reset() { sqlite3_reset(statement_); }

bool SqliteStatement::IsNull(int column) const { return sqlite3_column_type(statement_, column) == SQLITE_NULL; }

QString SqliteStatement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  return QString::fromUtf8(text, text ? sqlite3_column_bytes(statement_, column) : 0);
}

qint64 SqliteStatement::Integer(int column) const { return sqlite3_column_int64(statement_, column); }

}  // namespace folvane
