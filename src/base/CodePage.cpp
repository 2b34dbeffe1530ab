#include "base/CodePage.h"

#include <algorithm>
#include <cerrno>
#include <iconv.h>
#include <stdexcept>
#include <string>

#include <folvane/DataError.h>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr char kCodePage[] = "GBK";
constexpr const char* kUtf16 = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? "UTF-16LE" : "UTF-16BE";

/// One direction of the conversion. Whatever has no counterpart is replaced and passed over.
class Converter {
 public:
  Converter(const std::string& to, const std::string& from) : handle_(iconv_open(to.c_str(), from.c_str())) {
    if (handle_ == iconv_t(-1)) throw std::runtime_error("iconv offers no conversion from " + from);
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
    iconv(handle_, nullptr, nullptr, &target, &room);  // a letter that waits for an accent
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

bool IsAscii(QByteArrayView bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return uchar(c) < 0x80; });
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

bool Utf8ToCodePage(QByteArrayView utf8, QByteArray& bytes) {
  thread_local Converter converter(kCodePage, "UTF-8");
  bytes.resize(utf8.size());
  if (IsAscii(utf8)) {
    std::copy(utf8.begin(), utf8.end(), bytes.begin());
    return true;
  }
  bool exact = true;
  const auto giveUp = [&](const char* at, char*&, std::size_t&) {
    exact = false;
    return std::size_t(utf8.end() - at);
  };
  bytes.resize(
      converter.Convert(utf8.data(), std::size_t(utf8.size()), bytes.data(), std::size_t(bytes.size()), giveUp));
  return exact;
}

class CodePageReader::Impl {
 public:
  explicit Impl(int number)
      : number_(number), converter_("UTF-8", number == 65001 ? "UTF-8" : "CP" + std::to_string(number)) {}

  void Read(QByteArrayView bytes, QByteArray& utf8) {
    utf8.resize(bytes.size() * kMostOfByte + kMostWaiting);
    const auto replace = [this](const char* at, char*& target, std::size_t& room) {
      const QByteArray stand = QString(StandIn(uchar(*at))).toUtf8();
      target = std::copy(stand.begin(), stand.end(), target);
      room -= std::size_t(stand.size());
      return std::size_t(1);
    };
    utf8.resize(
        converter_.Convert(bytes.data(), std::size_t(bytes.size()), utf8.data(), std::size_t(utf8.size()), replace));
  }

 private:
  static constexpr int kMostOfByte = 3, kMostWaiting = 8;

  /// What Windows reads of a byte that the converter does not know.
  QChar StandIn(uchar byte) const {
    if (number_ == kNationalCodePage && byte == 0x80) return QChar(0x20ac);
    const bool singleByte = number_ == 874 || (number_ >= 1250 && number_ <= 1258);
    return singleByte && byte < 0xa0 ? QChar(byte) : QChar(QChar::ReplacementCharacter);
  }

  int number_;
  Converter converter_;
};

CodePageReader::CodePageReader(int number) {
  constexpr int kKnown[]{437,  850,  866,  874,  932,  936,  949,  950,  1250,
                         1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 65001};
  if (std::find(std::begin(kKnown), std::end(kKnown), number) == std::end(kKnown))
    throw DataError(DataErrorKind::Usage, u"不支持代码页 %1。"_s.arg(number));
  impl_ = std::make_unique<Impl>(number);
}

CodePageReader::~CodePageReader() = default;
CodePageReader::CodePageReader(CodePageReader&&) noexcept = default;

void CodePageReader::Read(QByteArrayView bytes, QByteArray& utf8) {
  if (!IsAscii(bytes)) return impl_->Read(bytes, utf8);
  utf8.resize(bytes.size());
  std::copy(bytes.begin(), bytes.end(), utf8.begin());
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
