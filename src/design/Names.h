#pragma once

#include <QString>

namespace folvane::design {

inline constexpr int kMostServerBytes = 63;  ///< of UTF-8 in a name: PostgreSQL cuts what is longer

/// Why a table or a column cannot be given that name, "" when it can. Statements name them without quotes, so that a
/// name must be a word of every database, and none that stands for something else.
QString NameComplaint(const QString& name);

/// A text in quotes for a statement.
QString TextLiteral(const QString& text);

}  // namespace folvane::design
