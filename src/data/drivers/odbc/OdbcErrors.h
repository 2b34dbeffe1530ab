#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <sql.h>

#include <folvane/DataError.h>

namespace folvane {

/// The portable kind of an SQLSTATE (ISO/IEC 9075 classes, with the PostgreSQL states of appendix A of its manual).
DataErrorKind KindOfSqlState(QByteArrayView state);

/// The server's own words in a diagnostic message: without the "[vendor][driver]" prefixes, the severity and the
/// driver's closing remark.
QString ServerText(const QString& message);

/// The columns of the key in PostgreSQL's message about a key that is there already; none for an index over
/// expressions. The message may be in any language: "(columns)=(values)" stands in it as it is.
QStringList KeyColumns(const QString& message);

/// Throws the first diagnostic of a handle that is a statement or a connection. A connection that is gone, or a handle
/// that the host has freed meanwhile, gives Lost.
[[noreturn]] void ThrowOdbcError(SQLSMALLINT handleType, SQLHANDLE handle, SQLHDBC connection);

}  // namespace folvane
