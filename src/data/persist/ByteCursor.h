#pragma once

#include <QByteArrayView>
#include <QString>
#include <QtEndian>

#include "base/FileUpdate.h"

namespace folvane {

/// Why a file cannot be read as a record set, with the place in it, in bytes from its start.
FileError BrokenTablegram(std::size_t offset, const QString& reason);

/// Reads numbers and texts, all little-endian, from a stretch of a file one after the other.
class ByteCursor {
 public:
  explicit ByteCursor(QByteArrayView bytes, std::size_t offset = 0)
      : at_(bytes.data()), end_(bytes.data() + bytes.size()), begin_(bytes.data() - offset) {}

  std::size_t Offset() const { return std::size_t(at_ - begin_); }
  std::size_t Left() const { return std::size_t(end_ - at_); }

  /// @throws FileError when fewer bytes are left, as all below do
  QByteArrayView Take(std::size_t count) {
    if (count > Left()) ThrowCutOff(count);
    const char* from = at_;
    at_ += count;
    return {from, qsizetype(count)};
  }
  QByteArrayView TakeRest() { return Take(Left()); }

  template <typename Number>
  Number Take() {
    return qFromLittleEndian<Number>(Take(sizeof(Number)).data());
  }
  uchar Byte() { return uchar(Take(1).front()); }
  quint16 U16() { return Take<quint16>(); }
  quint32 U32() { return Take<quint32>(); }

  /// A text with the count of its UTF-16 units ahead.
  QString Text();
  /// The next byte, which stays the next one; there has to be one.
  uchar Peek() const { return uchar(*at_); }
  /// A part of the file with its size ahead.
  ByteCursor Frame() { return FrameOf(U16()); }
  ByteCursor FrameOf(std::size_t size) {
    const std::size_t offset = Offset();
    return ByteCursor(Take(size), offset);
  }

 private:
  [[noreturn]] void ThrowCutOff(std::size_t wanted) const;

  const char* at_;
  const char* end_;
  const char* begin_;  ///< where the file would start
};

}  // namespace folvane
