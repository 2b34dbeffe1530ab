#include "components/documents/TextDecoding.h"

#include <QStringDecoder>
#include <cerrno>
#include <iconv.h>
#include <vector>

namespace folvane::documents {
namespace {

QString FromGb18030(const QByteArray& bytes) {
  const iconv_t handle = iconv_open(Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? "UTF-16LE" : "UTF-16BE", "GB18030");
  if (handle == iconv_t(-1)) return QString::fromLatin1(bytes);
  QString text;
  text.reserve(bytes.size());
  std::vector<char16_t> buffer(std::size_t(qMin(bytes.size() + 1, qsizetype(1) << 16)));
  char* source = const_cast<char*>(bytes.data());  // iconv's signature; it does not write there
  std::size_t left = std::size_t(bytes.size());
  while (left > 0) {
    char* target = reinterpret_cast<char*>(buffer.data());
    std::size_t room = buffer.size() * sizeof(char16_t);
    const bool failed = iconv(handle, &source, &left, &target, &room) == std::size_t(-1);
    const int error = errno;
    const auto units = (reinterpret_cast<char16_t*>(target) - buffer.data());
    text.append(reinterpret_cast<const QChar*>(buffer.data()), units);
    if (!failed || error == E2BIG) continue;
    text.append(QChar::ReplacementCharacter);
    ++source;
    --left;
  }
  iconv_close(handle);
  return text;
}

}  // namespace

QString DecodedText(const QByteArray& bytes) {
  const auto marked = QStringConverter::encodingForData(bytes);
  QStringDecoder decoder(marked.value_or(QStringConverter::Utf8));
  const QString text = decoder(bytes);
  return !marked && decoder.hasError() ? FromGb18030(bytes) : text;
}

}  // namespace folvane::documents
