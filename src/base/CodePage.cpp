#include "base/CodePage.h"

#include <algorithm>
#include <cerrno>
#include <iconv.h>
#include <stdexcept>
#include <string>

namespace folvane {
namespace {

constexpr char kCodePage[] = "GBK";
constexpr const char* kUtf16 = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? "UTF-16LE" : "UTF-16BE";

/// One direction of the conversion. Whatever has no counterpart is replaced and passed over.
class Converter {
 public:
  Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {
    if (handle_ == iconv_t(-1)) throw std::runtime_error(std::string("iconv offers no conversion from ") + from);
  }
  ~Converter() { iconv_close(handle_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  /// Reads all of `in` and writes to `out`, which has room for the worst case. `replace` is given the position where
  /// reading stopped, writes a stand-in and says how many bytes of the input it stands for.
  template <typename Replace>
  qsizetype Convert(const char* in, std::size_t left, char* out, std::size_t room, Replace replace) {
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    char* source = const_cast<char*>(in);  // iconv's signature; it does not write there
    char* target = out;
    while (left > 0 && iconv(handle_, &source, &left, &target, &room) == std::size_t(-1)) {
      const std::size_t skipped = std::min(left, replace(source, target, room));
      source += skipped;
      left -= skipped;
    }
    return target - out;
  }

 private:
  iconv_t handle_;
};

// The number of UTF-16 units of the character at the position.
int UnitsAt(const QString& text, qsizetype at) {
  const bool pair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
  return pair ? 2 : 1;
}

struct Encoded {
  QByteArray bytes;
  bool exact = true;
};

bool IsAscii(const QString& text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

Encoded Encode(const QString& text) {
  if (IsAscii(text)) return {text.toLatin1()};
  thread_local Converter converter(kCodePage, kUtf16);
  Encoded result;
  result.bytes.resize(text.size() * 2);
  const auto* begin = reinterpret_cast<const char*>(text.utf16());
  const auto replace = [&](const char* at, char*& target, std::size_t& room) {
    result.exact = false;
    *target++ = '?';
    --room;
    return std::size_t(UnitsAt(text, (at - begin) / 2)) * 2;
  };
  result.bytes.resize(converter.Convert(begin, std::size_t(text.size()) * 2, result.bytes.data(),
                                        std::size_t(result.bytes.size()), replace));
  return result;
}

// In the code page a byte from 0x81 on begins a character of two bytes.
int BytesAt(const QByteArray& bytes, qsizetype at) { return uchar(bytes[at]) > 0x80 ? 2 : 1; }

}  // namespace

QByteArray ToCodePage(const QString& text) { return Encode(text).bytes; }

bool FitsCodePage(const QString& text) { return Encode(text).exact; }

int ByteLength(const QString& text) { return int(Encode(text).bytes.size()); }

bool FitsByteLength(const QString& text, int maximum) {
  if (text.size() * 2 <= maximum) return true;
  const auto beyondAscii = std::count_if(text.begin(), text.end(), [](QChar c) { return c.unicode() >= 0x80; });
  return text.size() + beyondAscii <= maximum || ByteLength(text) <= maximum;
}

QString FromCodePage(QByteArrayView bytes) {
  thread_local Converter converter(kUtf16, kCodePage);
  QString text(bytes.size(), Qt::Uninitialized);
  auto* out = reinterpret_cast<char*>(text.data());
  const auto replace = [](const char*, char*& target, std::size_t& room) {
    const char16_t stand = QChar::ReplacementCharacter;
    memcpy(target, &stand, sizeof stand);
    target += sizeof stand;
    room -= sizeof stand;
    return std::size_t(1);
  };
  text.resize(converter.Convert(bytes.data(), std::size_t(bytes.size()), out, std::size_t(text.size()) * 2, replace) /
              2);
  return text;
}

QString LimitByteLength(const QString& text, int maximum) {
  if (text.size() * 2 <= maximum) return text;
  const QByteArray bytes = ToCodePage(text);
  if (bytes.size() <= maximum) return text;
  qsizetype units = 0, sum = 0, lastUnits = 0;
  while (sum < maximum) {
    lastUnits = UnitsAt(text, units);
    sum += BytesAt(bytes, sum);
    units += lastUnits;
  }
  if (sum == maximum + 1) units -= lastUnits;  // the last character straddled the limit
  return text.left(units);
}

}  // namespace folvane
