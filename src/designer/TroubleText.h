#pragma once

#include <QLabel>
#include <QPalette>

namespace folvane::designer {

/// Shows a text in a dialog, in a colour of its own where it tells of something wrong.
inline void ShowTrouble(QLabel& label, const QString& text, bool isWrong) {
  QPalette colours = label.parentWidget()->palette();
  const bool isDark = colours.color(QPalette::WindowText).lightness() > colours.color(QPalette::Window).lightness();
  if (isWrong) colours.setColor(QPalette::WindowText, isDark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x26, 0x1e));
  label.setPalette(colours);
  label.setText(text);
}

}  // namespace folvane::designer
