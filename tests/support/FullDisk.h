#pragma once

#include <csignal>
#include <stdexcept>
#include <sys/resource.h>

namespace folvane::test {

/// For as long as it lives no file of this process grows beyond a size: a longer write is done in part and then fails,
/// as on a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t size) : ignored_(std::signal(SIGXFSZ, SIG_IGN)) {
    if (getrlimit(RLIMIT_FSIZE, &before_) != 0) throw std::runtime_error("no limit");
    const rlimit full{size, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, ignored_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*ignored_)(int);
  rlimit before_{};
};

}  // namespace folvane::test
