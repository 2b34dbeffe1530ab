#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QWidget>
#include <functional>
#include <stdexcept>
#include <vector>

namespace folvane::host {

/// The tour did not find what it should.
class TourError : public std::runtime_error {
 public:
  explicit TourError(const QString& what) : std::runtime_error(what.toStdString()) {}
};

void Expect(bool holds, const QString& what);

/// The visible window of that object name, nullptr when there is none.
QWidget* VisibleWindow(const QString& name);
/// The same for a window that has to be there, and the controls in it. @throws TourError
QWidget& Window(const QString& name);
template <typename Control>
Control& In(const QString& window, const QString& name);

/// A walk through the program's windows: steps that wait for what they need, whichever event loop is running by then,
/// and act on it. Prints a line for every step; the first one that fails ends the program.
class Tour : public QObject {
 public:
  /// @param folder where the pictures go, made if need be
  explicit Tour(const QString& folder);

  using Condition = std::function<bool()>;
  using Action = std::function<void()>;
  Tour& Step(const QString& what, Condition ready, Action act);

  /// Takes the first step as soon as an event loop runs.
  void Start();
  /// True when every step was taken.
  bool Completed() const { return at_ == steps_.size() && !failed_; }

  /// Saves the window as the next numbered picture; at scale 2 every point is four.
  void Picture(QWidget& window, const QString& name, int scale = 1);

 private:
  struct Stage {
    QString what;
    Condition ready;
    Action act;
  };
  void LookAgain();
  void Look();
  void Fail(const QString& why);

  QString folder_;
  int pictures_ = 0;
  std::vector<Stage> steps_;
  size_t at_ = 0;
  bool failed_ = false;
  QElapsedTimer waiting_;
};

template <typename Control>
Control& In(const QString& window, const QString& name) {
  auto* control = Window(window).findChild<Control*>(name);
  if (!control) throw TourError(QStringLiteral("no %1 in %2").arg(name, window));
  return *control;
}

}  // namespace folvane::host
