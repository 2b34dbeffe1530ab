#include "support/Accessibility.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextEdit>

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

template <typename... Kinds>
bool IsOneOf(const QWidget* widget) {
  return (qobject_cast<const Kinds*>(widget) || ...);
}

bool IsControl(const QWidget* widget) {
  if (IsOneOf<QHeaderView, QScrollBar>(widget)) return false;
  return IsOneOf<QAbstractButton, QAbstractItemView, QAbstractSlider, QAbstractSpinBox, QComboBox, QLineEdit,
                 QPlainTextEdit, QTextEdit>(widget);
}

bool IsPartOfAnother(const QWidget* widget) {
  for (const QWidget* parent = widget->parentWidget(); parent && !parent->isWindow(); parent = parent->parentWidget()) {
    if (IsControl(parent)) return true;
  }
  return widget->objectName().startsWith(u"qt_"_s);
}

QString NameOf(QWidget* widget) {
  const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
  return face ? face->text(QAccessible::Name) : QString();
}

}  // namespace

QStringList UnnamedControls(QWidget& window) {
  QStringList unnamed;
  for (auto* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisibleTo(&window) || !IsControl(widget) || IsPartOfAnother(widget)) continue;
    if (NameOf(widget).trimmed().isEmpty()) {
      unnamed << QLatin1String(widget->metaObject()->className()) + u' ' + widget->objectName();
    }
  }
  return unnamed;
}

}  // namespace folvane::test
