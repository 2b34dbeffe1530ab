#pragma once

#include <QByteArray>
#include <QString>

namespace folvane::test {

/// Bytes written as hexadecimal numbers; blanks between them do not count.
QByteArray Hex(const char* numbers);

/// What stands ahead of the first descriptor of a column in a file of a flat record set, without tables.
QByteArray FlatHead(int columns, int rows);

struct ColumnSpec {
  int ordinal;
  QString name;
  int type;
  quint32 size;
  int flags;
  int precision = 0, scale = 0;
};

/// The descriptor of a column as ADO writes it for a record set that was built in code.
QByteArray ColumnBytes(const ColumnSpec& column);

/// A file with one row of each kind: two rows read, one of them changed, one deleted and one inserted, of an id and a
/// whole number that may be null.
QByteArray RowKindsFile();
/// A file with texts of all three ways of storing them, a moment and nulls.
QByteArray TextsFile();

/// The bytes of a file, read and written again.
QByteArray Copied(const QByteArray& file);

/// The record sets that ADO wrote, by their path without an ending.
QStringList Samples();

}  // namespace folvane::test
