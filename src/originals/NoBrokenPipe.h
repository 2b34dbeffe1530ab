#pragma once

#include <csignal>
#include <ctime>

namespace folvane {

/// Writing to a connection that the other side has closed is an error and not the end of the process, for this thread
/// and as long as the object lives.
class NoBrokenPipe {
 public:
  NoBrokenPipe() {
    sigset_t waiting;
    sigpending(&waiting);
    wasWaiting_ = sigismember(&waiting, SIGPIPE) == 1;
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
  }
  ~NoBrokenPipe() {
    const timespec atOnce{};
    if (!wasWaiting_) sigtimedwait(&pipe_, nullptr, &atOnce);
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  NoBrokenPipe(const NoBrokenPipe&) = delete;
  NoBrokenPipe& operator=(const NoBrokenPipe&) = delete;

 private:
  sigset_t pipe_, before_;
  bool wasWaiting_ = false;
};

}  // namespace folvane
