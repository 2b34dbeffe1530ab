#pragma once

#include <QDateTime>
#include <QVariant>

namespace folvane::demo {

/// A document as it lies on the registry's desk, whichever table it goes into.
struct Letter {
  bool outgoing = false;
  QString key;
  QDateTime registered;
  QDate written;
  QString docNo, title, author, kind;
  QString security;  ///< "" for none
  QString department;
  int pages = 0, copies = 1;
  QString note;
};

/// A text, or null for an empty one.
inline QVariant TextOrNull(const QString& text) { return text.isEmpty() ? QVariant() : QVariant(text); }
inline QString DayText(QDate day) { return day.toString(QStringLiteral("yyyy-MM-dd")); }
/// A day as archive dates are kept: eight digits.
inline QString DayDigits(QDate day) { return day.toString(QStringLiteral("yyyyMMdd")); }

}  // namespace folvane::demo
