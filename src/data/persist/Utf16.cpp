#include "data/persist/Utf16.h"

#include <QStringConverter>
#include <QtEndian>

namespace folvane {

QString Utf16ToText(QByteArrayView bytes) {
  QString text(bytes.size() / 2, Qt::Uninitialized);
  if (!text.isEmpty()) qFromLittleEndian<char16_t>(bytes.data(), text.size(), text.data());
  return text;
}

void AppendUtf16(QByteArray& bytes, QStringView text) {
  const qsizetype before = bytes.size();
  bytes.resize(before + text.size() * 2);
  if (!text.isEmpty()) qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes.data() + before);
}

void Utf16ToUtf8(QByteArrayView bytes, QByteArray& utf8) {
  constexpr char32_t kStandIn = QChar::ReplacementCharacter;
  const qsizetype units = bytes.size() / 2;
  const auto unit = [&](qsizetype at) { return qFromLittleEndian<char16_t>(bytes.data() + at * 2); };
  utf8.resize(units * 3);
  auto* out = reinterpret_cast<uchar*>(utf8.data());
  for (qsizetype i = 0; i < units; ++i) {
    char32_t c = unit(i);
    if (c < 0x80) {
      *out++ = uchar(c);
      continue;
    }
    if (QChar::isSurrogate(c)) {
      const bool pair = QChar::isHighSurrogate(c) && i + 1 < units && QChar::isLowSurrogate(unit(i + 1));
      c = pair ? QChar::surrogateToUcs4(char16_t(c), unit(++i)) : kStandIn;
    }
    if (c < 0x800) {
      *out++ = uchar(0xc0 | c >> 6);
    } else {
      if (c < 0x10000) {
        *out++ = uchar(0xe0 | c >> 12);
      } else {
        *out++ = uchar(0xf0 | c >> 18);
        *out++ = uchar(0x80 | (c >> 12 & 0x3f));
      }
      *out++ = uchar(0x80 | (c >> 6 & 0x3f));
    }
    *out++ = uchar(0x80 | (c & 0x3f));
  }
  utf8.resize(reinterpret_cast<char*>(out) - utf8.data());
}

void Utf8ToUtf16(QByteArrayView utf8, QByteArray& bytes) {
  // Without the flag a mark of byte order ahead of the text would be taken off.
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
  bytes.resize(decoder.requiredSpace(utf8.size()) * qsizetype(sizeof(QChar)));
  auto* begin = reinterpret_cast<QChar*>(bytes.data());
  const QChar* end = decoder.appendToBuffer(begin, utf8);
  bytes.resize((end - begin) * qsizetype(sizeof(QChar)));
  if constexpr (Q_BYTE_ORDER == Q_BIG_ENDIAN) qbswap<2>(bytes.data(), bytes.size() / 2, bytes.data());
}

}  // namespace folvane
