#pragma once

#include <QByteArrayView>
#include <QString>
#include <sqlite3.h>

namespace folvane {

// What the functions registered on a SQLite handle share.

/// Registers functions until the first failure.
class SqliteFunctionList {
 public:
  using Body = void (*)(sqlite3_context*, int, sqlite3_value**);

  explicit SqliteFunctionList(sqlite3* database) : database_(database) {}
  /// A function of its arguments alone, null whenever one of them is null.
  void Add(const char* name, int arguments, Body body);
  int Result() const { return result_; }
  void SetResult(int result) { result_ = result; }

 private:
  sqlite3* database_;
  int result_ = SQLITE_OK;
};

bool HasNull(int count, sqlite3_value** values);
QByteArrayView Utf8Of(sqlite3_value* value);
QString TextOf(sqlite3_value* value);
void ResultText(sqlite3_context* context, const QString& text);
void FailConversion(sqlite3_context* context, const QString& text, const QString& wanted);
void Fail(sqlite3_context* context, const QString& message);

// Each adds the functions of its file.
void AddTextFunctions(SqliteFunctionList& list);
void AddNumberFunctions(SqliteFunctionList& list);
void AddDateFunctions(SqliteFunctionList& list);

}  // namespace folvane
