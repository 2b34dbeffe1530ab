#pragma once

#include <QString>

namespace folvane::sql {

/// The sign that makes the wildcard behind it stand for itself in the patterns written here; rare in data.
constexpr char16_t kPatternEscape = u'!';

/// A Like pattern of the language, told in the languages of the other databases.
struct LikePattern {
  bool hasClass = false;  ///< [abc], [a-f], [^x], or a bracket that is never closed: `native` does not serve
  QString native;         ///< for Like ... Escape '!'
  QString regex;          ///< for a match of the whole text; without the signs that hold it to the ends
};

/// @param escape the sign of an Escape clause, null when there is none
LikePattern ReadPattern(const QString& pattern, QChar escape = {});

/// The regular expression with its ends held, blanks behind the text passed over.
QString RegexOf(const LikePattern& pattern);

}  // namespace folvane::sql
