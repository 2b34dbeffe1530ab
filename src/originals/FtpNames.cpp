#include "originals/FtpNames.h"

#include <QStringDecoder>
#include <curl/curl.h>
#include <memory>

#include <folvane/DataError.h>

#include "base/CodePage.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

[[noreturn]] void RefuseName(const QString& reason) { throw DataError(DataErrorKind::File, reason); }

}  // namespace

QByteArray EncodedForFtp(const QString& text, bool utf8) {
  for (const QChar c : text) {
    if (c.isNull() || c == u'\r' || c == u'\n') RefuseName(u"FTP 的名称中有换行符或空字符。"_s);
  }
  if (utf8) return text.toUtf8();
  if (!FitsCodePage(text)) RefuseName(u"FTP 服务器不支持 UTF-8，名称“%1”中有国家编码以外的字符。"_s.arg(text));
  return ToCodePage(text);
}

QString DecodedFromFtp(const QByteArray& bytes) {
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString text = decoder(bytes);
  return decoder.hasError() ? FromCodePage(bytes) : text;
}

void RequireFtpName(const QString& name) {
  if (name.isEmpty() || name == u"."_s || name == u".."_s || name.contains(u'/') || name.contains(u'\\'))
    RefuseName(u"“%1”不是 FTP 目录中的文件名。"_s.arg(name));
}

QByteArray FtpUrl(const QString& server, quint16 port, const QByteArray& file) {
  const std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> url(curl_url(), &curl_url_cleanup);
  const QString name = server.trimmed();
  const QByteArray host = (name.contains(u':') && !name.startsWith(u'[') ? u'[' + name + u']' : name).toUtf8();
  char* text = nullptr;
  if (curl_url_set(url.get(), CURLUPART_SCHEME, "ftp", 0) != CURLUE_OK ||
      curl_url_set(url.get(), CURLUPART_HOST, host.constData(), 0) != CURLUE_OK ||
      curl_url_set(url.get(), CURLUPART_PORT, QByteArray::number(port).constData(), 0) != CURLUE_OK ||
      curl_url_set(url.get(), CURLUPART_PATH, "/", 0) != CURLUE_OK ||
      curl_url_get(url.get(), CURLUPART_URL, &text, 0) != CURLUE_OK)
    throw DataError(DataErrorKind::Lost, u"“%1”不是 FTP 服务器的地址。"_s.arg(server));
  const QByteArray top(text);
  curl_free(text);
  return top + file.toPercentEncoding();
}

}  // namespace folvane
