#pragma once

#include <QLabel>

namespace folvane {

/// A line of advice, paler than the captions.
inline QLabel* NewHint(const QString& text, QWidget* parent) {
  auto* hint = new QLabel(text, parent);
  hint->setForegroundRole(QPalette::PlaceholderText);
  return hint;
}

}  // namespace folvane
