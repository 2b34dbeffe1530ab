#include <QBuffer>

#include <folvane/DataError.h>
#include <folvane/FtpConnection.h>

#include "base/IgnoreErrors.h"
#include "originals/FtpChannel.h"
#include "originals/FtpListing.h"
#include "originals/FtpNames.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kSizeIs = 213, kNoSuchFile = 550;

}  // namespace

/// The channel, and where on the server it works: each exchange goes there first, so that none works elsewhere.
class FtpConnection::Session {
 public:
  explicit Session(const FtpLogin& login) : channel(login), directory(channel.Home()) {}

  QByteArray Encoded(const QString& text) const { return EncodedForFtp(text, channel.ReadsUtf8()); }

  QString Absolute(const QString& path) const {
    if (path.startsWith(u'/')) return path;
    RequireDirectory();
    if (path.isEmpty()) return directory;
    return directory.endsWith(u'/') ? directory + path : directory + u'/' + path;
  }

  void RequireDirectory() const {
    if (directory.isEmpty())
      throw DataError(DataErrorKind::File, u"FTP 连接不在任何目录中：最近一次进入目录没有成功。"_s);
  }

  FtpExchange InDirectory(const QString& doing, const QByteArrayList& commands = {}) const {
    RequireDirectory();
    return {doing, QByteArrayList{"CWD " + Encoded(directory)} + commands};
  }

  FtpExchange OfFile(const QString& doing, FtpExchange::Kind kind, const QString& name, QIODevice* device,
                     const TransferProgress& progress) const {
    RequireFtpName(name);
    FtpExchange exchange = InDirectory(u"%1 %2"_s.arg(doing, name));
    exchange.kind = kind;
    exchange.name = Encoded(name);
    exchange.device = device;
    exchange.progress = progress;
    return exchange;
  }

  FtpReplies Run(const FtpExchange& exchange) {
    FtpOutcome outcome;
    channel.Run(exchange, outcome);
    return outcome.replies;
  }

  /// Whether the server lets us into a directory.
  bool Enters(const QString& path) {
    try {
      Run({u"进入目录 %1"_s.arg(path), {"CWD " + Encoded(path)}});
      return true;
    } catch (const DataError& error) {
      if (error.Kind() == DataErrorKind::Lost) throw;
      return false;
    }
  }

  std::vector<FtpEntry> List() {
    QBuffer listing;
    listing.open(QIODevice::WriteOnly);
    FtpExchange exchange = InDirectory(u"列出目录 %1"_s.arg(directory));
    exchange.kind = FtpExchange::Kind::Listing;
    exchange.device = &listing;
    Run(exchange);
    const QString text = DecodedFromFtp(listing.data());
    return channel.ListsFacts() ? EntriesOfFacts(text) : EntriesOfText(text);
  }

  void Upload(const FtpExchange& exchange, FtpOutcome& outcome) {
    channel.Run(exchange, outcome);
    const FtpReply size = outcome.replies.Last();
    if (size.code == kSizeIs && size.text.mid(4).trimmed().toLongLong() != outcome.sent)
      throw DataError(DataErrorKind::File, u"%1没有完整到达：发送了 %2 字节，服务器上有 %3 字节。"_s.arg(exchange.doing)
                                               .arg(outcome.sent)
                                               .arg(QString::fromLatin1(size.text.mid(4))));
  }

  FtpChannel channel;
  QString directory;  ///< from the top of the server; "" for none
};

FtpConnection::FtpConnection(const FtpLogin& login) : session_(std::make_unique<Session>(login)) {}

FtpConnection::~FtpConnection() = default;

void FtpConnection::ChangeDirectory(const QString& path) {
  const QString target = session_->Absolute(path);
  session_->directory.clear();
  session_->Run({u"进入目录 %1"_s.arg(target), {"CWD " + session_->Encoded(target)}});
  session_->directory = target;
}

void FtpConnection::MakeDirectory(const QString& path) {
  const QString target = session_->Absolute(path);
  if (session_->Enters(target)) return;
  QString made;
  for (const QString& part : target.split(u'/', Qt::SkipEmptyParts)) {
    made += u'/' + part;
    if (!session_->Enters(made)) session_->Run({u"建立目录 %1"_s.arg(made), {"MKD " + session_->Encoded(made)}});
  }
}

std::vector<FtpEntry> FtpConnection::List() { return session_->List(); }

std::optional<qint64> FtpConnection::Size(const QString& name) {
  RequireFtpName(name);
  FtpExchange exchange = session_->InDirectory(u"查询文件 %1"_s.arg(name), {"SIZE " + session_->Encoded(name)});
  exchange.binary = true;
  try {
    return session_->Run(exchange).Last().text.mid(4).trimmed().toLongLong();
  } catch (const DataError& error) {
    if (error.Kind() == DataErrorKind::Lost) throw;
    if (error.NativeCode() == QString::number(kNoSuchFile)) return std::nullopt;
  }
  for (const FtpEntry& entry : session_->List()) {  // a server that does not know sizes
    if (entry.name == name && !entry.isDirectory) return entry.size;
  }
  return std::nullopt;
}

void FtpConnection::Get(const QString& name, QIODevice& target, const TransferProgress& progress) {
  session_->Run(session_->OfFile(u"读取文件"_s, FtpExchange::Kind::Download, name, &target, progress));
}

void FtpConnection::Put(QIODevice& source, const QString& name, const TransferProgress& progress) {
  const FtpExchange exchange = session_->OfFile(u"写入文件"_s, FtpExchange::Kind::Upload, name, &source, progress);
  FtpOutcome outcome;
  try {
    session_->Upload(exchange, outcome);
  } catch (const std::exception&) {
    // What the server has not let begin was not ours.
    if (outcome.replies.HasBegun()) IgnoreErrors([&] { Delete(name); });
    throw;
  }
}

void FtpConnection::Delete(const QString& name) {
  RequireFtpName(name);
  session_->Run(session_->InDirectory(u"删除文件 %1"_s.arg(name), {"DELE " + session_->Encoded(name)}));
}

void FtpConnection::Rename(const QString& from, const QString& to) {
  RequireFtpName(from);
  RequireFtpName(to);
  session_->Run(session_->InDirectory(u"将文件 %1 改名为 %2"_s.arg(from, to),
                                      {"RNFR " + session_->Encoded(from), "RNTO " + session_->Encoded(to)}));
}

}  // namespace folvane
