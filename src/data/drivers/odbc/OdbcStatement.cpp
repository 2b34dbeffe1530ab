#include "data/drivers/odbc/OdbcStatement.h"

#include <QLocale>
#include <sqlext.h>

#include "data/ValueText.h"
#include "data/drivers/odbc/OdbcErrors.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

SQLCHAR* AsSql(const QByteArray& text) { return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.constData())); }

// Below the driver a text ends at its first zero byte, and what follows would be lost without a word.
const QByteArray& Whole(const QByteArray& text) {
  if (text.contains('\0')) throw DataError(DataErrorKind::Conversion, u"文字中不能含有空字符。"_s);
  return text;
}

SQLSMALLINT IntegerType(qint64 value) { return SQLINTEGER(value) == value ? SQL_INTEGER : SQL_BIGINT; }

SQLSMALLINT DigitsAfterPoint(const QByteArray& number) {
  const qsizetype point = number.indexOf('.');
  return SQLSMALLINT(point < 0 ? 0 : number.size() - point - 1);
}

}  // namespace

OdbcStatement::OdbcStatement(SQLHDBC connection) : connection_(connection) {
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement_)))
    ThrowOdbcError(SQL_HANDLE_DBC, connection, connection);
}

OdbcStatement::~OdbcStatement() { SQLFreeHandle(SQL_HANDLE_STMT, statement_); }

SQLRETURN OdbcStatement::Check(SQLRETURN outcome) {
  if (!SQL_SUCCEEDED(outcome) && outcome != SQL_NO_DATA) ThrowOdbcError(SQL_HANDLE_STMT, statement_, connection_);
  return outcome;
}

void OdbcStatement::Prepare(const QByteArray& text) {
  Check(SQLPrepare(statement_, AsSql(text), SQLINTEGER(text.size())));
}

void OdbcStatement::Execute(const std::vector<QVariant>& parameters) {
  Bind(parameters);
  hadNoRows_ = Check(SQLExecute(statement_)) == SQL_NO_DATA;
}

void OdbcStatement::ExecuteDirect(const NativeStatement& statement) {
  Bind(statement.parameters);
  hadNoRows_ =
      Check(SQLExecDirect(statement_, AsSql(Whole(statement.text)), SQLINTEGER(statement.text.size()))) == SQL_NO_DATA;
}

qint64 OdbcStatement::ChangedRows() {
  SQLLEN changed = -1;
  if (hadNoRows_)
    changed = 0;  // a searched update or delete that found nothing
  else
    Check(SQLRowCount(statement_, &changed));
  while (!hadNoRows_ && Check(SQLMoreResults(statement_)) != SQL_NO_DATA) {
    // An error further on in what the statement set off belongs to it too.
  }
  return changed;
}

void OdbcStatement::Bind(const std::vector<QVariant>& parameters) {
  bound_.assign(parameters.size(), {});
  for (std::size_t i = 0; i < parameters.size(); ++i) BindValue(SQLUSMALLINT(i + 1), parameters[i], bound_[i]);
}

// Texts go as SQL_VARCHAR, which reaches PostgreSQL without a type: it takes the text for whatever the column beside
// the marker is, a date or a number as well. Whole numbers and fractions go with the types that such literals have
// there, so that "?" stands for a literal in every place.
void OdbcStatement::BindValue(SQLUSMALLINT number, const QVariant& value, Bound& bound) {
  SQLSMALLINT inMemory = SQL_C_CHAR;
  SQLSMALLINT inStatement = SQL_VARCHAR;
  SQLSMALLINT scale = 0;
  SQLPOINTER address = nullptr;
  switch (value.typeId()) {
    case QMetaType::UnknownType:
      bound.length = SQL_NULL_DATA;
      break;
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::Bool: {
      bound.integer = value.toLongLong();
      inMemory = SQL_C_SBIGINT;
      inStatement = value.typeId() == QMetaType::Bool ? SQL_BIT : IntegerType(bound.integer);
      address = &bound.integer;
      bound.length = sizeof bound.integer;
      break;
    }
    case QMetaType::Double:
      bound.bytes = QByteArray::number(value.toDouble(), 'f', QLocale::FloatingPointShortest);
      inStatement = SQL_NUMERIC;
      scale = DigitsAfterPoint(bound.bytes);
      break;
    case QMetaType::QByteArray:
      bound.bytes = value.toByteArray();
      inMemory = SQL_C_BINARY;
      inStatement = SQL_VARBINARY;
      break;
    default:
      bound.bytes = Whole(ValueText(value).toUtf8());
  }
  if (!address) address = bound.bytes.data();
  if (inMemory != SQL_C_SBIGINT && bound.length != SQL_NULL_DATA) bound.length = bound.bytes.size();
  const auto size = SQLULEN(qMax<qsizetype>(1, bound.bytes.size()));  // zero is refused by the manager
  Check(SQLBindParameter(statement_, number, SQL_PARAM_INPUT, inMemory, inStatement, size, scale, address,
                         bound.bytes.size(), &bound.length));
}

}  // namespace folvane
