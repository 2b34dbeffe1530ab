#include "base/CodePage.h"

#include <algorithm>
#include <optional>

#include <folvane/DataError.h>

#include "base/GbkTable.h"
#include "base/IconvConverter.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// The number of UTF-16 units of the character at the position.
int UnitsAt(const QString& text, qsizetype at) {
  const bool pair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
  return pair ? 2 : 1;
}

char* PutBytes(char* at, quint16 bytes) {
  *at++ = char(bytes >> 8);
  *at++ = char(bytes);
  return at;
}

/// Appends a character beyond ASCII, of one UTF-16 unit.
char* PutUtf8(char* at, char16_t unit) {
  if (unit < 0x800) {
    *at++ = char(0xc0 | unit >> 6);
  } else {
    *at++ = char(0xe0 | unit >> 12);
    *at++ = char(0x80 | (unit >> 6 & 0x3f));
  }
  *at++ = char(0x80 | (unit & 0x3f));
  return at;
}

/// Reads a character beyond ASCII in UTF-8; 0 for one of more than one UTF-16 unit, and for what is none.
char16_t TakeUnit(const char*& at, const char* end) {
  const auto lead = uchar(*at);
  const int more = lead >= 0xc2 && lead < 0xe0 ? 1 : lead >= 0xe0 && lead < 0xf0 ? 2 : 0;
  if (more == 0 || end - at <= more) return 0;
  unsigned unit = lead & (more == 1 ? 0x1f : 0x0f);
  for (int i = 1; i <= more; ++i) {
    if ((uchar(at[i]) & 0xc0) != 0x80) return 0;
    unit = unit << 6 | (uchar(at[i]) & 0x3f);
  }
  at += more + 1;
  return char16_t(unit);
}

struct Encoded {
  QByteArray bytes;
  bool exact = true;
};

Encoded Encode(const QString& text) {
  const GbkTable& table = GbkTable::Get();
  Encoded result;
  result.bytes.resize(text.size() * 2);
  char* at = result.bytes.data();
  for (qsizetype i = 0; i < text.size(); i += UnitsAt(text, i)) {
    const char16_t unit = text[i].unicode();
    if (unit < 0x80) {
      *at++ = char(unit);
    } else if (const quint16 bytes = table.Encode(unit)) {
      at = PutBytes(at, bytes);
    } else {
      *at++ = '?';
      result.exact = false;
    }
  }
  result.bytes.resize(at - result.bytes.constData());
  return result;
}

bool IsAscii(QByteArrayView bytes) {
  uchar all = 0;
  for (const char c : bytes) all |= uchar(c);
  return all < 0x80;
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
  QByteArray buffer;
  return QString::fromUtf8(CodePageReader(kNationalCodePage).Read(bytes, buffer));
}

bool Utf8ToCodePage(QByteArrayView utf8, QByteArray& bytes) {
  const GbkTable& table = GbkTable::Get();
  bytes.resize(utf8.size());
  char* out = bytes.data();
  const char* at = utf8.begin();
  while (at < utf8.end()) {
    if (uchar(*at) < 0x80) {
      *out++ = *at++;
      continue;
    }
    const char16_t unit = TakeUnit(at, utf8.end());
    const quint16 pair = unit < 0x80 ? quint16(0) : table.Encode(unit);
    if (!pair) return false;
    out = PutBytes(out, pair);
  }
  bytes.resize(out - bytes.constData());
  return true;
}

class CodePageReader::Impl {
 public:
  explicit Impl(int number) : number_(number) {
    if (number != kNationalCodePage)
      converter_.emplace("UTF-8", number == kUtf8 ? "UTF-8" : "CP" + std::to_string(number));
  }

  void Read(QByteArrayView bytes, QByteArray& utf8) {
    utf8.resize(bytes.size() * kMostOfByte + kMostWaiting);
    utf8.resize(converter_ ? Convert(bytes, utf8.data(), std::size_t(utf8.size())) : ReadGbk(bytes, utf8.data()));
  }

 private:
  static constexpr int kMostOfByte = 3, kMostWaiting = 8;
  static constexpr int kUtf8 = 65001;

  qsizetype Convert(QByteArrayView bytes, char* out, std::size_t room) {
    const auto replace = [this](const char* at, char*& target, std::size_t& left) {
      const char* before = target;
      target = PutUtf8(target, StandIn(uchar(*at)));
      left -= std::size_t(target - before);
      return std::size_t(1);
    };
    return qsizetype(converter_->Convert(bytes.data(), std::size_t(bytes.size()), out, room, replace));
  }

  qsizetype ReadGbk(QByteArrayView bytes, char* out) const {
    const GbkTable& table = GbkTable::Get();
    const char* begin = out;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
      const auto byte = uchar(bytes[i]);
      if (byte < 0x80) {
        *out++ = char(byte);
        continue;
      }
      const char16_t unit = i + 1 < bytes.size() ? table.Decode(byte, uchar(bytes[i + 1])) : char16_t(0);
      if (unit) ++i;
      out = PutUtf8(out, unit ? unit : StandIn(byte));
    }
    return out - begin;
  }

  /// What Windows reads of a byte that begins no character.
  char16_t StandIn(uchar byte) const {
    if (number_ == kNationalCodePage && byte == 0x80) return u'€';
    const bool singleByte = number_ == 874 || (number_ >= 1250 && number_ <= 1258);
    return singleByte && byte < 0xa0 ? char16_t(byte) : char16_t(QChar::ReplacementCharacter);
  }

  int number_;
  std::optional<IconvConverter> converter_;  ///< of all but the national code page
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

QByteArrayView CodePageReader::Read(QByteArrayView bytes, QByteArray& buffer) {
  if (IsAscii(bytes)) return bytes;
  impl_->Read(bytes, buffer);
  return buffer;
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
