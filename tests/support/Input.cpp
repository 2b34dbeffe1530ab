#include <QAbstractItemView>
#include <QTest>
#include <QWindow>
#include <QtTest/qtestkeyboard.h>
#include <QtTest/qtestmouse.h>
#include <stdexcept>

#include "support/WindowDriver.h"

namespace folvane::test {

namespace {

QWindow& NativeWindow(QWidget& widget) {
  QWindow* window = widget.window()->windowHandle();
  if (!window) throw std::runtime_error("the window of " + widget.objectName().toStdString() + " was never shown");
  return *window;
}

QWidget& TypingTarget(QWidget& widget) { return widget.focusProxy() ? TypingTarget(*widget.focusProxy()) : widget; }

/// Scrolls to the item and gives its middle, a little way in where the item is wide so that the text is hit.
QPoint MiddleOf(QAbstractItemView& view, const QModelIndex& index) {
  view.scrollTo(index);
  const QRect place = view.visualRect(index) & view.viewport()->rect();
  if (place.isEmpty()) throw std::runtime_error("an item of " + view.objectName().toStdString() + " cannot be seen");
  return {place.left() + qMin(place.width() / 2, 12), place.center().y()};
}

}  // namespace

void ClickAt(QWidget& widget, const QPoint& at, Qt::MouseButton button, Qt::KeyboardModifiers keys) {
  QTest::mouseClick(&NativeWindow(widget), button, keys, widget.mapTo(widget.window(), at));
}

void Click(QWidget& widget, Qt::MouseButton button, Qt::KeyboardModifiers keys) {
  ClickAt(widget, widget.rect().center(), button, keys);
}

void DoubleClickAt(QWidget& widget, const QPoint& at) {
  const QPoint place = widget.mapTo(widget.window(), at);
  // As the window system sends it: the first click of its own, then the second as part of the double click.
  QTest::mouseClick(&NativeWindow(widget), Qt::LeftButton, Qt::NoModifier, place);
  QTest::mouseDClick(&NativeWindow(widget), Qt::LeftButton, Qt::NoModifier, place);
}

void ClickItem(QAbstractItemView& view, const QModelIndex& index, Qt::MouseButton button, Qt::KeyboardModifiers keys) {
  const QPoint place = MiddleOf(view, index);
  ClickAt(*view.viewport(), place, button, keys);
}

void DoubleClickItem(QAbstractItemView& view, const QModelIndex& index) {
  const QPoint place = MiddleOf(view, index);
  DoubleClickAt(*view.viewport(), place);
}

void Type(QWidget& widget, const QString& text) {
  QWidget& target = TypingTarget(widget);
  target.setFocus();
  for (const QChar letter : text) {
    const Qt::Key key = letter.unicode() < 128 ? QTest::asciiToKey(letter.toLatin1()) : Qt::Key_unknown;
    QTest::sendKeyEvent(QTest::Click, &target, key, QString(letter), Qt::NoModifier);
  }
}

void Press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers keys) {
  QWidget& target = TypingTarget(widget);
  target.setFocus();
  QTest::keyClick(&target, key, keys);
}

void Retype(QWidget& widget, const QString& text) {
  Press(widget, Qt::Key_A, Qt::ControlModifier);
  text.isEmpty() ? Press(widget, Qt::Key_Delete) : Type(widget, text);
}

bool WaitUntil(const std::function<bool()>& condition) {
  const bool held = QTest::qWaitFor(condition, 5000);
  EXPECT_TRUE(held) << "what was waited for did not come";
  return held;
}

}  // namespace folvane::test
