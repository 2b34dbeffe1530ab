#include "data/drivers/odbc/OdbcErrors.h"

#include <QRegularExpression>
#include <array>
#include <sqlext.h>

#include "data/RefusedValues.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

struct StateKind {
  const char* prefix;
  DataErrorKind kind;
};

// The first prefix that fits decides; anything else is the statement's fault.
constexpr std::array kStateKinds{
    StateKind{"08", DataErrorKind::Lost},           // connection exceptions
    StateKind{"57P0", DataErrorKind::Lost},         // the server is shutting down or has ended the session
    StateKind{"HYT01", DataErrorKind::Lost},        // connection timeout
    StateKind{"23", DataErrorKind::Constraint},     //
    StateKind{"22001", DataErrorKind::TooLong},     //
    StateKind{"22", DataErrorKind::Conversion},     // data exceptions
    StateKind{"07006", DataErrorKind::Conversion},  // restricted data type attribute violation
    StateKind{"40", DataErrorKind::Locked},         // serialization failure, deadlock
    StateKind{"55P03", DataErrorKind::Locked},      // lock not available
    StateKind{"57014", DataErrorKind::Locked},      // the statement's time was up
    StateKind{"HYT00", DataErrorKind::Locked},      // timeout expired
};

struct Diagnostic {
  QByteArray state;
  SQLINTEGER native = 0;
  QString message;
};

Diagnostic FirstDiagnostic(SQLSMALLINT handleType, SQLHANDLE handle) {
  std::array<SQLCHAR, SQL_SQLSTATE_SIZE + 1> state{};
  QByteArray message(2048, Qt::Uninitialized);
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  const auto get = [&] {
    return SQLGetDiagRec(handleType, handle, 1, state.data(), &native, reinterpret_cast<SQLCHAR*>(message.data()),
                         SQLSMALLINT(message.size()), &length);
  };
  SQLRETURN result = get();
  if (result == SQL_SUCCESS_WITH_INFO && length >= message.size()) {
    message.resize(length + 1);
    result = get();
  }
  if (!SQL_SUCCEEDED(result)) return {};
  message.truncate(qMin<qsizetype>(length, message.size() - 1));
  return {reinterpret_cast<const char*>(state.data()), native, QString::fromUtf8(message)};
}

bool IsDead(SQLHDBC connection) {
  SQLUINTEGER dead = SQL_CD_FALSE;
  const SQLRETURN result = SQLGetConnectAttr(connection, SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  return result == SQL_INVALID_HANDLE || (SQL_SUCCEEDED(result) && dead == SQL_CD_TRUE);
}

// unique_violation of PostgreSQL; on SQL Server and Sybase 2601 for an index and 2627 for a constraint.
bool IsDuplicate(const Diagnostic& diagnostic) {
  return diagnostic.state == "23505" ||
         (diagnostic.state == "23000" && (diagnostic.native == 2601 || diagnostic.native == 2627));
}

}  // namespace

DataErrorKind KindOfSqlState(QByteArrayView state) {
  for (const StateKind& known : kStateKinds)
    if (state.startsWith(known.prefix)) return known.kind;
  return DataErrorKind::Statement;
}

QString ServerText(const QString& message) {
  static const QRegularExpression prefix(u"^(\\[[^\\]]*\\])*\\s*((ERROR|FATAL|PANIC):\\s*)?"_s);
  static const QRegularExpression remark(
      u";?\\s*(Error while executing the query|Error while preparing parameters)?\\s*$"_s);
  QString text = message;
  text.remove(prefix);
  text.remove(remark);
  return text;
}

QStringList KeyColumns(const QString& message) {
  static const QRegularExpression key(u"\\n[^\\n(]*\\((.+?)\\)=\\("_s);
  static const QRegularExpression name(u"^(?:\"((?:[^\"]|\"\")+)\"|([\\w$]+))$"_s,
                                       QRegularExpression::UseUnicodePropertiesOption);
  QStringList columns;
  for (const QString& column : key.match(message).captured(1).split(u", "_s)) {
    const QRegularExpressionMatch match = name.match(column);
    if (!match.hasMatch()) return {};
    columns << match.captured(1).replace(u"\"\""_s, u"\""_s) + match.captured(2);
  }
  return columns;
}

void ThrowOdbcError(SQLSMALLINT handleType, SQLHANDLE handle, SQLHDBC connection) {
  const Diagnostic diagnostic = FirstDiagnostic(handleType, handle);
  const QString code = QString::fromLatin1(diagnostic.state) + u' ' + QString::number(diagnostic.native);
  const QString text = ServerText(diagnostic.message);
  if (IsDead(connection))
    throw DataError(DataErrorKind::Lost, text.isEmpty() ? u"数据库连接已经断开。"_s : text, {}, code);
  if (IsDuplicate(diagnostic)) throw DuplicateError(KeyColumns(diagnostic.message), code);
  throw DataError(KindOfSqlState(diagnostic.state), text.isEmpty() ? u"数据库没有说明错误原因。"_s : text, {}, code);
}

}  // namespace folvane
