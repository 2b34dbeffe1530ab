#pragma once

#include <stdexcept>
#include <sys/resource.h>

namespace folvane::test {

/// For as long as it lives this process opens no file.
class NoMoreFiles {
 public:
  NoMoreFiles() {
    if (getrlimit(RLIMIT_NOFILE, &before_) != 0) throw std::runtime_error("no limit");
    const rlimit none{0, before_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
  }
  ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &before_); }
  NoMoreFiles(const NoMoreFiles&) = delete;
  NoMoreFiles& operator=(const NoMoreFiles&) = delete;

 private:
  rlimit before_{};
};

}  // namespace folvane::test
