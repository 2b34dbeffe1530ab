#pragma once

#include <QString>

namespace folvane::sql {

/// A Like pattern of the T-SQL language, told in the languages of the other databases.
struct LikePattern {
  bool hasClass = false;  ///< [abc], [a-f] or [^x]: only `regex` serves
  QString native;         ///< for Like ... Escape '\'
  QString regex;          ///< for a match of the whole text
};

/// @param escape the sign of an Escape clause, null when there is none
LikePattern ReadPattern(const QString& pattern, QChar escape = {});

}  // namespace folvane::sql
