#pragma once

#include "host/demo/Words.h"

namespace folvane::demo {

inline const QString kFonds = QStringLiteral("0188"), kCategory = QStringLiteral("WS");

/// The number of a part of an archive number, filled with zeros.
inline QString Padded(int number, int width) { return QString::number(number).rightJustified(width, QLatin1Char('0')); }

/// What archive numbers of a year and a retention period begin with, such as 0188-WS·2026-D30.
inline QString NumberBeginning(const Words& words, int year, const QString& retention) {
  const QString code = words.Code(QStringLiteral("保管期限"), retention).rightJustified(3, QLatin1Char('0'));
  return QStringLiteral("%1-%2·%3-%4").arg(kFonds, kCategory, QString::number(year), code);
}

}  // namespace folvane::demo
