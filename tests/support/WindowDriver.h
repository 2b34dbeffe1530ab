#pragma once

#include <QAction>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "support/QtPrinting.h"

class QAbstractItemView;
class QModelIndex;

namespace folvane::test {

using WindowSteps = std::function<void(QWidget& window)>;

/// Has the steps run inside the event loop of a window that a later call will open: as soon as a window of that object
/// name (of that class, where it has no name) is shown and takes input. Call it before the call that opens the window;
/// inside the steps call it again for a window that a step opens. The window is closed after the steps if they have not
/// closed it.
///
/// Nothing hangs: a window that does not come, one that does not close and an exception in the steps each fail the test
/// and end every open window.
void WithWindow(const QString& name, WindowSteps steps);

/// For as long as it lives windows may stand open without having been announced: the test drives them by itself.
class DrivenByTest {
 public:
  DrivenByTest();
  ~DrivenByTest();
  DrivenByTest(const DrivenByTest&) = delete;
  DrivenByTest& operator=(const DrivenByTest&) = delete;
};

/// The descendant of that object name. @throws std::runtime_error naming it when there is none
template <typename T = QWidget>
T& Find(const QObject& window, const QString& name);
QObject& FindObject(const QObject& window, const QString& name, const QMetaObject& type);

/// The action of that name whose parent (tool bar or menu) has the name `owner`.
QAction& FindAction(const QWidget& window, const QString& owner, const QString& name);

/// The property "text" of the control of that name.
QString TextIn(const QWidget& window, const QString& name);

// Input as a user gives it: mouse events go to the window system's window, so that modality is respected.
void Click(QWidget& widget, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = Qt::NoModifier);
void ClickAt(QWidget& widget, const QPoint& at, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers keys = Qt::NoModifier);
void DoubleClickAt(QWidget& widget, const QPoint& at);
void ClickItem(QAbstractItemView& view, const QModelIndex& index, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier);
void DoubleClickItem(QAbstractItemView& view, const QModelIndex& index);
/// Types into a control or its focus proxy, Chinese included.
void Type(QWidget& widget, const QString& text);
void Press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier);
/// Marks all the text and types over it.
void Retype(QWidget& widget, const QString& text);

/// Runs the event loop until the condition holds; a failure when it does not within five seconds.
bool WaitUntil(const std::function<bool()>& condition);

/// Watches the windows of the running test: wakes the parent of a modal window that was hidden, which the offscreen
/// platform does not do, and fails the test over a window that nobody drives or that was awaited in vain.
class WindowDriverListener : public testing::EmptyTestEventListener {
 public:
  WindowDriverListener();
  ~WindowDriverListener() override;

 private:
  void OnTestProgramStart(const testing::UnitTest&) override;
  void OnTestProgramEnd(const testing::UnitTest&) override;
  void OnTestEnd(const testing::TestInfo&) override;
  class Watch;
  std::unique_ptr<Watch> watch_;
};

template <typename T>
T& Find(const QObject& window, const QString& name) {
  return static_cast<T&>(FindObject(window, name, T::staticMetaObject));
}

}  // namespace folvane::test
