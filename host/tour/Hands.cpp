#include "host/tour/Hands.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTableView>
#include <QToolBar>
#include <QTreeView>
#include <QWindow>

#include "host/tour/Tour.h"

namespace folvane::host::hands {
namespace {
using namespace Qt::Literals::StringLiterals;

void SendMouse(QEvent::Type type, QWidget& widget, const QPoint& at, Qt::MouseButtons down) {
  QWidget& window = *widget.window();
  const QPointF local = widget.mapTo(&window, at), global = widget.mapToGlobal(at);
  const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, local, local, global, button, down, Qt::NoModifier);
  QApplication::sendEvent(window.windowHandle(), &event);
}

QWidget& TypingTarget(QWidget& widget) { return widget.focusProxy() ? TypingTarget(*widget.focusProxy()) : widget; }

void SendKey(QWidget& widget, int key, const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  const QPointer<QWidget> target(&widget);
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, modifiers, text);
    if (target) QApplication::sendEvent(target, &event);
  }
}

QHeaderView& HeaderOf(QAbstractItemView& view) {
  if (auto* tree = qobject_cast<QTreeView*>(&view)) return *tree->header();
  if (auto* table = qobject_cast<QTableView*>(&view)) return *table->horizontalHeader();
  throw TourError(view.objectName() + u" has no columns"_s);
}

}  // namespace

// The mouse goes to the window's edge after the click, so that what was clicked does not stay lit.
void Click(QWidget& widget, const QPoint& at) {
  const QPointer<QWidget> window(widget.window());
  SendMouse(QEvent::MouseButtonPress, widget, at, Qt::LeftButton);
  SendMouse(QEvent::MouseButtonRelease, widget, at, Qt::NoButton);
  if (window && window->isVisible()) SendMouse(QEvent::MouseMove, *window, window->rect().bottomLeft(), Qt::NoButton);
}

void Click(QWidget& widget) {
  if (!widget.isEnabled()) throw TourError(widget.objectName() + u" cannot be pressed"_s);
  Click(widget, widget.rect().center());
}

void ClickItem(QAbstractItemView& view, const QModelIndex& index) {
  view.scrollTo(index);
  Click(*view.viewport(), view.visualRect(index).center());
}

void ClickColumn(QAbstractItemView& view, int column) {
  QHeaderView& header = HeaderOf(view);
  Click(*header.viewport(),
        {header.sectionViewportPosition(column) + header.sectionSize(column) / 2, header.height() / 2});
}

void ClickKey(QWidget& window, const QString& toolBar, const QString& key) {
  auto* bar = window.findChild<QToolBar*>(toolBar);
  auto* action = bar ? bar->findChild<QAction*>(key) : nullptr;
  QWidget* button = action ? bar->widgetForAction(action) : nullptr;
  if (!button) throw TourError(u"no key %1 on %2"_s.arg(key, toolBar));
  if (!action->isEnabled()) throw TourError(u"the key %1 is off"_s.arg(key));
  Click(*button);
}

void Press(QWidget& widget, int key) { SendKey(TypingTarget(widget), key, {}); }

void Type(QWidget& widget, const QString& text) {
  QWidget& target = TypingTarget(widget);
  target.setFocus();
  for (const QChar letter : text) SendKey(target, Qt::Key_unknown, letter);
}

void Retype(QWidget& widget, const QString& text) {
  SendKey(TypingTarget(widget), Qt::Key_A, {}, Qt::ControlModifier);
  Type(widget, text);
}

void Choose(QComboBox& box, int index) {
  box.setFocus();
  while (box.currentIndex() != index) {
    const int before = box.currentIndex();
    Press(box, before < index ? Qt::Key_Down : Qt::Key_Up);
    if (box.currentIndex() == before) throw TourError(box.objectName() + u" does not move"_s);
  }
}

}  // namespace folvane::host::hands
