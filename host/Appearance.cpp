#include "host/Appearance.h"

#include <QApplication>
#include <QIcon>
#include <QStyleFactory>

#include <folvane/Icons.h>

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

struct Colours {
  QRgb window, base, alternate, button, text, faint, highlight, link;
};

QPalette PaletteOf(const Colours& colours) {
  QPalette palette{QColor(colours.button), QColor(colours.window)};
  palette.setColor(QPalette::Base, QColor(colours.base));
  palette.setColor(QPalette::AlternateBase, QColor(colours.alternate));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(colours.text));
    palette.setColor(QPalette::Disabled, role, QColor(colours.faint));
  }
  palette.setColor(QPalette::PlaceholderText, QColor(colours.faint));
  palette.setColor(QPalette::ToolTipBase, QColor(colours.base));
  palette.setColor(QPalette::ToolTipText, QColor(colours.text));
  palette.setColor(QPalette::Highlight, QColor(colours.highlight));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(colours.link));
  return palette;
}

}  // namespace

QPalette LightPalette() {
  return PaletteOf({0xfff3f4f6, 0xffffffff, 0xfff6f8fa, 0xfff8f9fa, 0xff1b1f24, 0xff8c959f, 0xff0b6bcb, 0xff0b6bcb});
}

QPalette DarkPalette() {
  return PaletteOf({0xff24272c, 0xff1b1d21, 0xff202328, 0xff30343a, 0xffe6e8eb, 0xff7d858f, 0xff1f6fc4, 0xff6cb8ff});
}

void ApplyAppearance(QApplication& application) {
  const QPalette desktop = QApplication::palette();
  const bool dark = desktop.color(QPalette::WindowText).lightness() > desktop.color(QPalette::Window).lightness();
  QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
  QApplication::setPalette(dark ? DarkPalette() : LightPalette());
  application.setWindowIcon(Icon(u"folvane"_s));
}

}  // namespace folvane::host
