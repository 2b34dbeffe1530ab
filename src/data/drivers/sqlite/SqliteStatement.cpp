#include "data/drivers/sqlite/SqliteStatement.h"

#include <QStringEncoder>
#include <sqlite3.h>

#include "data/Utf8.h"
#include "data/ValueText.h"
#include "data/drivers/sqlite/SqliteErrors.h"

namespace folvane {

namespace {

constexpr std::size_t kMostUtf8 = 3;  ///< bytes that a unit of UTF-16 takes at most

const QString& StringIn(const QVariant& value) { return *static_cast<const QString*>(value.constData()); }

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* database, const QByteArray& text) : database_(database) {
  const int result = sqlite3_prepare_v2(database, text.constData(), int(text.size()), &statement_, nullptr);
  if (result != SQLITE_OK) ThrowSqliteError(database, result);
}

SqliteStatement::~SqliteStatement() { sqlite3_finalize(statement_); }

void SqliteStatement::Bind(const std::vector<QVariant>& parameters) {
  bound_.clear();
  // Room for all strings at once, which costs a statement of many values less than a piece of memory for each.
  std::size_t room = 0;
  for (const QVariant& value : parameters)
    if (value.typeId() == QMetaType::QString) room += kMostUtf8 * size_t(StringIn(value).size());
  if (room > textsSize_) {
    texts_ = std::make_unique_for_overwrite<char[]>(room);
    textsSize_ = room;
  }
  textsUsed_ = 0;
  for (std::size_t i = 0; i < parameters.size(); ++i) BindValue(int(i) + 1, parameters[i]);
}

void SqliteStatement::BindString(int index, const QString& text) {
  QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
  char* start = texts_.get() + textsUsed_;
  const auto length = size_t(encoder.appendToBuffer(start, text) - start);
  textsUsed_ += length;
  const int result = sqlite3_bind_text64(statement_, index, start ? start : "", length, SQLITE_STATIC, SQLITE_UTF8);
  if (result != SQLITE_OK) ThrowSqliteError(database_, result);
}

void SqliteStatement::BindValue(int index, const QVariant& value) {
  int result = SQLITE_OK;
  switch (value.typeId()) {
    case QMetaType::QString:
      return BindString(index, StringIn(value));
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
      result = sqlite3_bind_blob64(statement_, index, bound_.back().constData(), sqlite3_uint64(bound_.back().size()),
                                   SQLITE_STATIC);
      break;
    default:
      bound_.push_back(ValueText(value).toUtf8());
      result = sqlite3_bind_text64(statement_, index, bound_.back().constData(), sqlite3_uint64(bound_.back().size()),
                                   SQLITE_STATIC, SQLITE_UTF8);
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
  return TextOfUtf8({text, text ? sqlite3_column_bytes(statement_, column) : 0});
}

qint64 SqliteStatement::Integer(int column) const { return sqlite3_column_int64(statement_, column); }

}  // namespace folvane
