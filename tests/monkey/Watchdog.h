#pragma once

#include <QByteArray>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace folvane::test {

/// Ends the process with its seed, its step and the last events when one event takes too long, and tells the same when
/// the process ends by itself: over a signal or a finding of the sanitizers. One at a time.
class Watchdog {
 public:
  explicit Watchdog(quint64 seed);
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  /// An event begins, and whatever was before it is over.
  void Begin(int step, const QByteArray& event);
  /// The milliseconds that the longest event took so far, and which one it was.
  int Longest() const { return longest_; }
  const QByteArray& LongestEvent() const { return longestEvent_; }

 private:
  void Watch();
  void Look();

  std::atomic<qint64> began_{0}, beganOnProcessor_{0};
  clockid_t processor_{};  ///< the time that the watched thread has been running
  int longest_ = 0;
  QByteArray event_, longestEvent_;
  std::mutex mutex_;
  std::condition_variable wake_;
  bool ended_ = false;
  std::thread thread_;
};

}  // namespace folvane::test
