#pragma once

#include <QByteArray>
#include <QImage>
#include <functional>
#include <optional>
#include <sane/sane.h>

namespace folvane::scanning {

/// The largest page that is taken in, in bytes as the scanner sends them: A3 in colour at 600 dots per inch has 199
/// MiB.
constexpr qint64 kMostPageBytes = qint64(512) << 20;

/// Reads the page that a scanner has been started for.
class PageReader {
 public:
  PageReader(SANE_Handle handle, const std::function<bool(int percent)>& goOn) : handle_(handle), goOn_(goOn) {}
  /// @return none when it was broken off
  /// @throws ScanError, DataError where the scanner sends what cannot be shown
  std::optional<QImage> Read();

 private:
  bool ReadFrame();
  qint64 ExpectedBytes() const;
  void TakeFrame();
  void TakeLine(const uchar* line, uchar* target) const;

  SANE_Handle handle_;
  const std::function<bool(int)>& goOn_;
  SANE_Parameters frame_{};
  QByteArray bytes_;
  QImage page_;
  int frames_ = 0;
};

}  // namespace folvane::scanning
