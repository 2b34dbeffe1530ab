#include "host/Message.h"

#include <QLabel>

namespace folvane::host {

void ShowMessage(QLabel& label, const QString& message, bool isError) {
  QPalette colours = label.parentWidget()->palette();
  const bool dark = colours.color(QPalette::WindowText).lightness() > colours.color(QPalette::Window).lightness();
  const QColor red(dark ? 0xffff8a80 : 0xffb3261e);
  colours.setColor(QPalette::WindowText, isError ? red : colours.color(QPalette::Disabled, QPalette::WindowText));
  label.setPalette(colours);
  label.setText(message);
}

}  // namespace folvane::host
