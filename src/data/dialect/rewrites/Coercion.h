#pragma once

#include "data/dialect/rewrites/Rewrite.h"

namespace folvane::sql {

/// An expression in the dialect's own words.
ExpressionPtr Native(const char* form, std::vector<ExpressionPtr> parts, ValueType type);
/// A text that goes into the statement as it is.
ExpressionPtr Constant(const QString& text);

/// The column of a result that an item makes, as a name of its own; nullptr for an item without one.
ExpressionPtr NameOf(const SelectItem& item);
/// The expression without the brackets around it.
const Expression& Bare(const Expression& value);
bool IsTextLiteral(const Expression& value);
/// A literal, in brackets or not, as the transform says.
ExpressionPtr Transformed(const Expression& literal, Transform transform, ValueType type, int limit = 0);

/// A value as one of another type, by the language's own conversions: "" is 0 and 1900-01-01, a text that is no number
/// or no date is an error.
ExpressionPtr Coerce(const ExpressionPtr& value, ValueType type, RewriteContext& context);
/// A text as it is told apart from others.
ExpressionPtr Fold(const ExpressionPtr& value, RewriteContext& context);

/// Two values compared by the rules of their common type.
ExpressionPtr Compare(const QString& op, const ExpressionPtr& left, const ExpressionPtr& right,
                      RewriteContext& context);

}  // namespace folvane::sql
