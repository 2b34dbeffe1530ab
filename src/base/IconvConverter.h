#pragma once

#include <algorithm>
#include <iconv.h>
#include <stdexcept>
#include <string>

namespace folvane {

/// One direction of a conversion between code pages. Whatever has no counterpart is replaced and passed over.
class IconvConverter {
 public:
  IconvConverter(const std::string& to, const std::string& from) : handle_(iconv_open(to.c_str(), from.c_str())) {
    if (handle_ == iconv_t(-1)) throw std::runtime_error("iconv offers no conversion from " + from);
  }
  ~IconvConverter() { iconv_close(handle_); }
  IconvConverter(const IconvConverter&) = delete;
  IconvConverter& operator=(const IconvConverter&) = delete;

  /// Reads all of `in` and writes to `out`, which has room for the worst case; gives how many bytes were written.
  /// `replace` is given the position where reading stopped, writes a stand-in and says how many bytes of the input it
  /// stands for.
  template <typename Replace>
  std::size_t Convert(const char* in, std::size_t left, char* out, std::size_t room, Replace replace) {
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    char* source = const_cast<char*>(in);  // iconv's signature; it does not write there
    char* target = out;
    while (left > 0 && iconv(handle_, &source, &left, &target, &room) == std::size_t(-1)) {
      const std::size_t skipped = std::min(left, replace(source, target, room));
      source += skipped;
      left -= skipped;
    }
    iconv(handle_, nullptr, nullptr, &target, &room);  // a letter that waits for an accent
    return std::size_t(target - out);
  }

 private:
  iconv_t handle_;
};

}  // namespace folvane
