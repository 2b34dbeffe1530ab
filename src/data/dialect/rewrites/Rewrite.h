#pragma once

#include <vector>

#include "data/dialect/Dialect.h"
#include "data/dialect/Literals.h"
#include "data/dialect/SyntaxTree.h"

namespace folvane::sql {

/// What a rewrite may know and remember.
class RewriteContext {
 public:
  RewriteContext(const Dialect& dialect, const std::vector<Literal>& literals, const QByteArray& orderCollation)
      : dialect_(dialect), literals_(literals), orderCollation_(orderCollation) {}

  const sql::Dialect& Dialect() const { return dialect_; }
  /// What Order By puts texts in order by, "" for the comparison's own order.
  const QByteArray& OrderCollation() const { return orderCollation_; }
  /// What is known of a literal without looking at its value.
  bool Has(const Expression& literal, Literal::Trait trait) const;
  /// A literal's value. The translation serves only statements with that very value from now on.
  const QString& Pin(const Expression& literal);
  const std::vector<int>& Pinned() const { return pinned_; }

 private:
  const sql::Dialect& dialect_;
  const std::vector<Literal>& literals_;
  const QByteArray& orderCollation_;
  std::vector<int> pinned_;
};

/// Gives what stands in an expression's place in the dialect: the expression itself or another. Its parts are rewritten
/// before it, except those that are not values, such as the part of a date.
using Rewrite = ExpressionPtr (*)(ExpressionPtr value, RewriteContext& context);

ExpressionPtr RewriteName(ExpressionPtr value, RewriteContext& context);
ExpressionPtr RewriteUnary(ExpressionPtr value, RewriteContext& context);
ExpressionPtr RewriteBinary(ExpressionPtr value, RewriteContext& context);
ExpressionPtr RewriteLike(ExpressionPtr value, RewriteContext& context);
ExpressionPtr RewriteIn(ExpressionPtr value, RewriteContext& context);
ExpressionPtr RewriteBetween(ExpressionPtr value, RewriteContext& context);
ExpressionPtr RewriteCall(ExpressionPtr value, RewriteContext& context);
ExpressionPtr RewriteDateCall(ExpressionPtr value, RewriteContext& context);
ExpressionPtr RewriteAggregate(ExpressionPtr value, RewriteContext& context);
ExpressionPtr RewriteCase(ExpressionPtr value, RewriteContext& context);
ExpressionPtr RewriteCast(ExpressionPtr value, RewriteContext& context);

/// The same for whole queries and statements. A query's expressions are rewritten between the first and the others.
void PrepareGrouping(Query& query, RewriteContext& context);
void RewriteGrouping(Query& query, RewriteContext& context);
void RewriteDistinct(Query& query, RewriteContext& context);
void RewriteOrder(Query& query, RewriteContext& context);
void RewriteAssignments(Statement& statement, RewriteContext& context);

}  // namespace folvane::sql
