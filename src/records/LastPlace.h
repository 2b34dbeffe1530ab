#pragma once

#include <QString>

namespace folvane {

/// The place a window returns to at its next start: a table and the condition its list had.
/// Kept as one text: the table, and after the first comma the condition.
struct LastPlace {
  QString table, filter;

  static LastPlace FromText(const QString& text);
  QString ToText() const { return table + QLatin1Char(',') + filter; }
};

LastPlace ReadLastPlace();
/// @param text LastPlace::ToText, or "" for no place
void WriteLastPlace(const QString& text);

}  // namespace folvane
