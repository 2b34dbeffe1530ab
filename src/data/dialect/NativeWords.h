#pragma once

#include <QByteArray>
#include <QString>

namespace folvane {

/// The databases by the language of their statements.
enum class DialectKind { TransactSql, Sqlite, PostgreSql };

/// The words of a database for statements that go to it as they are written: those of a record set's batch and those
/// that make tables.
struct NativeWords {
  char openName, closeName;  ///< around a name; the closing one stands twice inside
  /// What is to be given back is named behind one of these: ahead of the values of an Insert, or at the end of an
  /// Insert or Update; "" for the other.
  const char* insertedAhead;
  const char* writtenAtEnd;
  /// How a stored date, %1, is compared with one that is written in so many letters, %2.
  const char* storedDate;
  /// Lets one connection at a time go on from there to the end of its transaction; "" where the locks of the rows that
  /// were written have others wait who read them.
  const char* oneAtATime;
  /// The types of columns, %1 the length; null where tables are made by the server's own tools.
  const char* text;
  const char* longText;
  const char* integer;
  const char* date;
  const char* blob;

  QByteArray Quoted(const QString& name) const {
    const QByteArray close(1, closeName);
    return openName + name.toUtf8().replace(close, close + close) + close;
  }
};

const NativeWords& WordsOf(DialectKind kind);

}  // namespace folvane
