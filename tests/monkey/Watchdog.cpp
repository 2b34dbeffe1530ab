#include "monkey/Watchdog.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <pthread.h>
#include <time.h>
#include <unistd.h>

// Where the program is linked with a sanitizer.
extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

namespace folvane::test {

namespace {

// On its own processor, and by the clock: the machine may have others to serve, and an event may wait for ever.
constexpr qint64 kLongestRun = 5'000, kLongestWait = 60'000;
constexpr int kRemembered = 40, kLineLength = 200;

// Plain memory: it is read while the process is dying.
char lines[kRemembered][kLineLength];
std::atomic<int> lineCount{0};
quint64 theSeed = 0;

qint64 Milliseconds(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000;
}

void Tell(const char* text) { static_cast<void>(!write(STDERR_FILENO, text, std::strlen(text))); }

void TellLastEvents() {
  char head[100];
  std::snprintf(head, sizeof head, "\nmonkey: FOLVANE_MONKEY_SEED=%llu; the last events, step by step:\n",
                static_cast<unsigned long long>(theSeed));
  Tell(head);
  const int count = lineCount;
  for (int line = qMax(0, count - kRemembered); line < count; ++line) Tell(lines[line % kRemembered]);
}

void TellOfSignal(int signal) {
  std::signal(signal, SIG_DFL);
  TellLastEvents();
  raise(signal);
}

void TellAtTheEnd() {
  if (__sanitizer_set_death_callback) return __sanitizer_set_death_callback(&TellLastEvents);
  for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) std::signal(signal, &TellOfSignal);
}

}  // namespace

Watchdog::Watchdog(quint64 seed) {
  theSeed = seed;
  lineCount = 0;
  pthread_getcpuclockid(pthread_self(), &processor_);
  TellAtTheEnd();
  thread_ = std::thread([this] { Watch(); });
}

Watchdog::~Watchdog() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  wake_.notify_all();
  thread_.join();
}

void Watchdog::Begin(int step, const QByteArray& event) {
  const qint64 now = Milliseconds(processor_);
  if (began_ != 0 && now - beganOnProcessor_ > longest_) {
    longest_ = int(now - beganOnProcessor_);
    longestEvent_ = event_;
  }
  event_ = QByteArray::number(step) + ' ' + event;
  const int line = lineCount;
  std::snprintf(lines[line % kRemembered], kLineLength, "%s\n", event_.constData());
  lineCount = line + 1;
  beganOnProcessor_ = now;
  began_ = Milliseconds(CLOCK_MONOTONIC);
}

void Watchdog::Watch() {
  std::unique_lock lock(mutex_);
  while (!wake_.wait_for(lock, std::chrono::milliseconds(250), [this] { return ended_; })) Look();
}

void Watchdog::Look() {
  const qint64 began = began_;
  if (began == 0) return;
  if (Milliseconds(processor_) - beganOnProcessor_ < kLongestRun &&
      Milliseconds(CLOCK_MONOTONIC) - began < kLongestWait)
    return;
  if (began != began_) return;
  Tell("\nmonkey: the last event does not end\n");
  TellLastEvents();  // the sanitizers let an abort pass without a word
  std::signal(SIGABRT, SIG_DFL);
  std::abort();
}

}  // namespace folvane::test
