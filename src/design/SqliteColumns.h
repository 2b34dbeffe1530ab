#pragma once

#include <QString>
#include <QStringList>

#include <folvane/Connection.h>

namespace folvane::design {

/// The statements that give a column of an SQLite table another declared type. SQLite keeps to no lengths, but the
/// declaration is where they are read from. It is changed in place, as SQLite's documentation allows for changes that
/// do not concern what is stored: rows, indexes, triggers and views stay untouched, and it goes with the transaction.
/// @param type the new one; it has to store its values as the old one does
/// @throws DataError Usage where the declaration is not understood
QStringList RedeclareStatements(Connection& connection, const QString& table, const QString& column,
                                const QString& type);

/// Lets the schema be written until it is closed, or until it goes with an error on the way.
class WritableSchema {
 public:
  explicit WritableSchema(Connection& connection);
  void Close();  ///< @throws DataError
  ~WritableSchema();
  WritableSchema(const WritableSchema&) = delete;
  WritableSchema& operator=(const WritableSchema&) = delete;

 private:
  Connection& connection_;
  bool isOpen_ = true;
};

/// The statement of a table as it would read with another type of a column. @throws DataError Usage
QString Redeclared(const QString& statement, const QString& column, const QString& type);

/// The statements that drop the indexes which a column is part of. @throws DataError
QStringList DropIndexStatements(Connection& connection, const QString& table, const QString& column);

}  // namespace folvane::design
