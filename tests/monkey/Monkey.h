#pragma once

#include <QMap>
#include <QTimer>
#include <functional>
#include <vector>

#include "monkey/Watchdog.h"

class QWidget;

namespace folvane::test {

/// Does random things to whatever windows are open, one event after the other, inside whatever event loop is running.
class Monkey : public QObject {
 public:
  /// @param onStep told before each event
  Monkey(quint64 seed, int events, std::function<void(int step)> onStep);

  /// Opens windows, each by a call that returns when it is closed, and has the monkey in them for some hundreds of
  /// events before it closes them. Returns when all events are spent and no window is open.
  void Run(const std::function<void(quint64 chance)>& open);

  int Steps() const { return step_; }
  const Watchdog& Times() const { return watchdog_; }
  /// How many events each window got, by its name.
  const QMap<QByteArray, int>& Visits() const { return visits_; }
  int Cancelled() const { return cancelled_; }

 private:
  void Tick();
  void Act();
  void Leave();

  quint64 seed_;
  int events_, step_ = 0, stay_ = 0, leaving_ = 0, cancelled_ = 0;
  std::function<void(int)> onStep_;
  Watchdog watchdog_;
  QTimer timer_;
  int acting_ = 0;  ///< the level of the event loop in which an event is being carried out
  QMap<QByteArray, int> visits_;
};

}  // namespace folvane::test
