#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "data/NativeStatement.h"
#include "data/Schema.h"
#include "data/dialect/NativeWords.h"

namespace folvane {

/// How to run a translated statement.
struct Plan {
  NativeStatement statement;
  bool givesRows = false;
  /// Set for "If Not (c) Select a Else Select b": a query of one row and one column, 1 to run `statement`, 0 to run
  /// `otherwise`.
  bool conditional = false;
  NativeStatement condition, otherwise;
};

/// Puts statements of the T-SQL flavour into a database's own dialect. What it has translated it keeps by the
/// statement's template (the text less its literals), so that a repeated statement costs a scan and a look-up.
class Translator {
 public:
  using TableLookup = std::function<const TableInfo*(const QString&)>;

  /// @param orderCollation what Order By puts texts in order by, "" for the comparison's own order
  Translator(DialectKind dialect, TableLookup tables, const QByteArray& orderCollation = {});
  ~Translator();

  /// The plan's values may lie in the statement's text: it is to be run before the text goes.
  /// @throws DataError Untranslatable naming the form that has no counterpart, or Conversion for a literal that cannot
  /// be compared with its column
  Plan Translate(const QString& statement);
  /// Forgets the kept translations, which depend on the columns of the tables.
  void Forget();
  /// The table that "Select ... From t ..." reads alone, "" for joins, unions, grouping and other statements.
  QString BaseTable(const QString& statement);

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace folvane
