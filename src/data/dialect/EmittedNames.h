#pragma once

#include "data/dialect/Dialect.h"
#include "data/dialect/SyntaxTree.h"

namespace folvane::sql {

/// How a dialect writes the names of a statement: in the catalogue's spelling where that is known, which PostgreSQL is
/// particular about.
class EmittedNames {
 public:
  explicit EmittedNames(const Dialect& dialect) : dialect_(dialect), words_(WordsOf(dialect.kind)) {}

  /// Tables come into sight; names may be qualified by theirs until as many have left.
  void Enter(const std::vector<TableReference>& tables);
  void Enter(const TableReference& table) { inSight_.push_back(&table); }
  void Leave(const std::vector<TableReference>& tables) { inSight_.resize(inSight_.size() - tables.size()); }

  QByteArray OfTable(const TableReference& table) const;
  /// @param info the column of that name where it is known
  QByteArray OfColumn(const QString& name, const ColumnInfo* info) const;
  QByteArray OfQualifier(const QString& name) const;
  QByteArray OfAlias(const QString& name) const;

 private:
  const Dialect& dialect_;
  const NativeWords& words_;
  std::vector<const TableReference*> inSight_;
};

}  // namespace folvane::sql
