#include "monkey/Deeds.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTest>
#include <QToolBar>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest/qtestkeyboard.h>
#include <QtTest/qtestmouse.h>

#include "monkey/AwkwardTexts.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

namespace {

using Shown = QPointer<QWidget>;

QByteArray NameOf(const QObject& object) {
  return object.metaObject()->className() + (u' ' + object.objectName()).toUtf8();
}

QByteArray InWords(const QPoint& point) { return QByteArray::number(point.x()) + ',' + QByteArray::number(point.y()); }

/// The window of the window system, none once it is gone from the screen.
QWindow* NativeOf(const Shown& window) { return window && window->isVisible() ? window->windowHandle() : nullptr; }

/// Without the keys of the modifiers by themselves: what they do to a menu would take the window from under the rest.
void Press(const Shown& window, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QWindow* native = NativeOf(window);
    if (!native) return;
    qt_handleKeyEvent(native, type, key, modifiers, text);
    QCoreApplication::processEvents();
  }
}

std::vector<QWidget*> ShownParts(const QWidget& window) {
  std::vector<QWidget*> parts;
  for (QWidget* part : window.findChildren<QWidget*>())
    if (part->window() == &window && part->isVisible() && !part->visibleRegion().isEmpty()) parts.push_back(part);
  return parts;
}

/// A part that takes input; what holds many items is chosen oftener.
QWidget& AnyPart(QWidget& window, Dice& dice) {
  std::vector<QWidget*> parts = ShownParts(window), views;
  if (parts.empty()) return window;
  for (QWidget* part : parts)
    if (const auto* view = qobject_cast<QAbstractItemView*>(part)) views.push_back(view->viewport());
  return *(!views.empty() && dice.OneIn(4) ? dice.AnyOf(views) : dice.AnyOf(parts));
}

/// A place in the part that is in sight, as a place in the window.
QPoint AnyPlace(const QWidget& part, Dice& dice) {
  const QRect seen = part.visibleRegion().boundingRect() | QRect(0, 0, 1, 1);  // a menu may be empty
  const QPoint place(dice.Between(seen.left(), seen.right()), dice.Between(seen.top(), seen.bottom()));
  return part.mapTo(part.window(), place);
}

Qt::KeyboardModifiers AnyModifiers(Dice& dice, int chances) {
  if (!dice.OneIn(chances)) return Qt::NoModifier;
  return dice.AnyOf(std::vector<Qt::KeyboardModifiers>{Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier,
                                                       Qt::ControlModifier | Qt::ShiftModifier});
}

Deed ClickSomewhere(QWidget& window, Dice& dice) {
  QWidget& part = AnyPart(window, dice);
  const QPoint place = AnyPlace(part, dice);
  const auto button = dice.OneIn(6) ? Qt::RightButton : Qt::LeftButton;
  const Qt::KeyboardModifiers keys = AnyModifiers(dice, 8);
  const bool twice = dice.OneIn(5);
  const QByteArray kind = button == Qt::RightButton ? "right click " : twice ? "double click " : "click ";
  return {kind + NameOf(part) + " at " + InWords(place), [window = Shown(&window), place, button, keys, twice] {
            if (QWindow* native = NativeOf(window)) QTest::mouseClick(native, button, keys, place);
            QWindow* native = twice ? NativeOf(window) : nullptr;
            if (native) QTest::mouseDClick(native, button, keys, place);
          }};
}

Deed DragSomething(QWidget& window, Dice& dice) {
  QWidget& part = AnyPart(window, dice);
  const QPoint from = AnyPlace(part, dice), to = AnyPlace(dice.OneIn(2) ? part : AnyPart(window, dice), dice);
  const Qt::KeyboardModifiers keys = AnyModifiers(dice, 6);
  return {"drag " + NameOf(part) + " from " + InWords(from) + " to " + InWords(to),
          [window = Shown(&window), from, to, keys] {
            if (QWindow* native = NativeOf(window)) QTest::mousePress(native, Qt::LeftButton, keys, from);
            if (QWindow* native = NativeOf(window)) QTest::mouseMove(native, (from + to) / 2);
            if (QWindow* native = NativeOf(window)) QTest::mouseMove(native, to);
            if (QWindow* native = NativeOf(window)) QTest::mouseRelease(native, Qt::LeftButton, keys, to);
          }};
}

Deed TurnWheel(QWidget& window, Dice& dice) {
  QWidget& part = AnyPart(window, dice);
  const int turn = dice.AnyOf(std::vector<int>{-1200, -120, 120, 1200});
  return {"wheel over " + NameOf(part), [part = Shown(&part), turn] {
            if (!part || !part->isVisible()) return;
            const QPointF middle = part->rect().center();
            QWheelEvent event(middle, part->mapToGlobal(middle), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(part, &event);
          }};
}

QString LetterOf(Qt::Key key) {
  return key >= Qt::Key_Space && key <= Qt::Key_Z ? QString(QChar(key)).toLower() : QString();
}

Deed PressKey(QWidget& window, Dice& dice) {
  static const std::vector<Qt::Key> keys{
      Qt::Key_Return, Qt::Key_Return, Qt::Key_Enter,     Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Tab,
      Qt::Key_Tab,    Qt::Key_Space,  Qt::Key_Space,     Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,
      Qt::Key_Down,   Qt::Key_Down,   Qt::Key_Home,      Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown,
      Qt::Key_Delete, Qt::Key_Insert, Qt::Key_Backspace, Qt::Key_Menu,   Qt::Key_Alt,    Qt::Key_Backtab};
  const int kind = dice.Between(1, 10);
  Qt::Key key = dice.AnyOf(keys);
  if (kind <= 2) key = Qt::Key(Qt::Key_A + dice.Between(0, 25));
  if (kind == 3) key = Qt::Key(Qt::Key_0 + dice.Between(0, 9));
  if (kind == 4) key = Qt::Key(Qt::Key_F1 + dice.Between(0, 11));
  const Qt::KeyboardModifiers modifiers = AnyModifiers(dice, kind <= 2 ? 2 : 6);
  return {"key " + QKeySequence(int(modifiers) | key).toString().toUtf8(), [window = Shown(&window), key, modifiers] {
            Press(window, key, modifiers, modifiers & ~Qt::ShiftModifier ? QString() : LetterOf(key));
          }};
}

// By an input method or from the clipboard; what is short also key by key.
Deed EnterText(QWidget& window, Dice& dice) {
  const QString text = dice.AnyOf(AwkwardTexts());
  const int way = dice.Between(1, text.size() > 60 ? 2 : 3);
  const bool over = dice.OneIn(2);
  const QByteArray said = "text " + QByteArray::number(text.size()) + " '" + text.left(20).toUtf8().simplified() + '\'';
  return {said, [window = Shown(&window), text, way, over] {
            if (over) Press(window, Qt::Key_A, Qt::ControlModifier, {});
            if (way == 1) {
              QInputMethodEvent typed;
              typed.setCommitString(text);
              if (QWidget* focus = QApplication::focusWidget()) QApplication::sendEvent(focus, &typed);
            } else if (way == 2) {
              QApplication::clipboard()->setText(text);
              Press(window, Qt::Key_V, Qt::ControlModifier, {});
            } else {
              for (const QChar letter : text) Press(window, Qt::Key_unknown, Qt::NoModifier, QString(letter));
            }
          }};
}

/// The commands that can be reached from a bar or menu: enabled, and none of them a menu itself.
void CollectCommands(const QWidget& bar, std::vector<QAction*>& commands, int depth = 0) {
  for (QAction* action : bar.actions()) {
    if (!action->isEnabled() || !action->isVisible() || action->isSeparator()) continue;
    if (action->menu() && depth < 4) CollectCommands(*action->menu(), commands, depth + 1);
    if (!action->menu()) commands.push_back(action);
  }
}

/// Neither commands nor closing ask for modality, which keeps a user from doing so to a window under another.
bool IsUnderAnother(const QWidget& window) {
  const QWidget* modal = QApplication::activeModalWidget();
  return modal && modal != &window && QApplication::activePopupWidget() != &window;
}

Deed GiveCommand(QWidget& window, Dice& dice) {
  std::vector<QAction*> commands;
  for (const QWidget* part : ShownParts(window))
    if (qobject_cast<const QToolBar*>(part) || qobject_cast<const QMenuBar*>(part)) CollectCommands(*part, commands);
  if (commands.empty()) return ClickSomewhere(window, dice);
  QAction* command = dice.AnyOf(commands);
  return {"command " + NameOf(*command) + ' ' + command->text().toUtf8(), [command = QPointer<QAction>(command)] {
            if (command && command->isEnabled()) command->trigger();
          }};
}

Deed Resize(QWidget& window, Dice& dice) {
  const QSize size(dice.Between(50, 1600), dice.Between(50, 1200));
  return {"resize to " + InWords({size.width(), size.height()}), [window = Shown(&window), size] {
            if (window) window->resize(size);
          }};
}

Deed Close(QWidget& window) {
  return {"close", [window = Shown(&window)] {
            if (window) window->close();
          }};
}

Deed Wait(Dice& dice) {
  const int milliseconds = dice.Between(1, 600);
  return {"wait", [milliseconds] { QTest::qWait(milliseconds); }};
}

}  // namespace

Deed AnyDeed(QWidget& window, Dice& dice) {
  const int kind = dice.Between(1, 1000);
  Deed deed;
  if (kind <= 200)
    deed = PressKey(window, dice);
  else if (kind <= 340)
    deed = EnterText(window, dice);
  else if (kind <= 380)
    deed = DragSomething(window, dice);
  else if (kind <= 410)
    deed = TurnWheel(window, dice);
  else if (kind <= 425)
    deed = Resize(window, dice);
  else if (kind <= 428)
    deed = Wait(dice);
  else if (kind <= 440 && !IsUnderAnother(window))
    deed = Close(window);
  else if (kind <= 560 && !IsUnderAnother(window))
    deed = GiveCommand(window, dice);
  else
    deed = ClickSomewhere(window, dice);
  deed.said = NameOf(window) + ": " + deed.said;
  return deed;
}

}  // namespace folvane::test
