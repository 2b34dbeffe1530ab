#include "originals/FtpErrors.h"

#include "originals/FtpNames.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kClosingDown = 421, kFirstRefusal = 400;

QString Without(const QString& secret, QString text) {
  return secret.isEmpty() ? text : text.replace(secret, u"***"_s);
}

QString TransportReason(const FtpFailure& failure) {
  switch (failure.code) {
    case CURLE_COULDNT_RESOLVE_HOST:
      return u"找不到此服务器"_s;
    case CURLE_COULDNT_CONNECT:
      return u"服务器没有应答连接请求"_s;
    case CURLE_OPERATION_TIMEDOUT:
      return u"等待超时"_s;
    case CURLE_USE_SSL_FAILED:
      return u"服务器不提供加密连接，而设置要求加密"_s;
    case CURLE_PEER_FAILED_VERIFICATION:
      return u"服务器的证书不受信任（%1）"_s.arg(failure.reason);
    default:
      return failure.reason;
  }
}

}  // namespace

bool IsRefusal(CURLcode code, const FtpReply& reply) {
  switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_CONNECT:
    case CURLE_OPERATION_TIMEDOUT:
    case CURLE_RECV_ERROR:
    case CURLE_GOT_NOTHING:
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_USE_SSL_FAILED:
    case CURLE_PEER_FAILED_VERIFICATION:
      return false;
    default:
      return reply.code >= kFirstRefusal && reply.code != kClosingDown;
  }
}

DataError ErrorOf(const FtpFailure& failure) {
  const QString reply = DecodedFromFtp(failure.reply.text);
  const bool refused = IsRefusal(failure.code, failure.reply);
  const bool counts = refused || failure.reply.code == kClosingDown;
  QString text;
  if (refused) {
    text = u"FTP 服务器拒绝%1：%2"_s.arg(failure.doing, reply);
  } else {
    const QString reason = counts ? reply : TransportReason(failure);
    text = u"%1未能完成，与 FTP 服务器 %2 没有连接：%3"_s.arg(failure.doing, failure.server, reason);
  }
  return DataError(refused ? DataErrorKind::File : DataErrorKind::Lost, Without(failure.secret, text), {},
                   counts ? QString::number(failure.reply.code) : QString());
}

}  // namespace folvane
