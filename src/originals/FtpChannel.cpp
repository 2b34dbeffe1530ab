#include "originals/FtpChannel.h"

#include <QIODevice>
#include <QScopedValueRollback>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

#include "originals/FtpErrors.h"
#include "originals/FtpNames.h"
#include "originals/NoBrokenPipe.h"
#include "originals/OriginalPlaces.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr long kNever = 100L * 365 * 24 * 3600;  // seconds
constexpr long kBuffer = 256 * 1024;             // bytes
constexpr int kLastWords = 2'000;                // milliseconds that a server has to say why it ended an upload

/// A list of commands as the transport takes it.
class CommandList {
 public:
  CommandList() = default;
  ~CommandList() { curl_slist_free_all(list_); }
  CommandList(const CommandList&) = delete;
  CommandList& operator=(const CommandList&) = delete;
  void Append(const QByteArray& command) { list_ = curl_slist_append(list_, command.constData()); }
  curl_slist* Get() const { return list_; }

 private:
  curl_slist* list_ = nullptr;
};

}  // namespace

/// What the transport calls. Nothing may be thrown through it: an exception waits until the exchange has ended.
struct FtpChannel::Callbacks {
  template <typename Step>
  static bool Kept(FtpChannel& channel, Step step) {
    try {
      return step();
    } catch (...) {
      channel.thrown_ = std::current_exception();
      return false;
    }
  }

  static std::size_t Reply(char* line, std::size_t size, std::size_t count, void* self) {
    auto& channel = *static_cast<FtpChannel*>(self);
    if (channel.outcome_) channel.outcome_->replies.Take(QByteArray(line, qsizetype(size * count)));
    return size * count;
  }

  static std::size_t Receive(char* bytes, std::size_t size, std::size_t count, void* self) {
    auto& channel = *static_cast<FtpChannel*>(self);
    const auto length = qint64(size * count);
    const bool written = Kept(channel, [&] {
      QIODevice& target = *channel.exchange_->device;
      if (target.write(bytes, length) != length)
        FailOn(channel.exchange_->doing, u"无法写入：%1"_s.arg(target.errorString()));
      return true;
    });
    return written ? size * count : CURL_WRITEFUNC_ERROR;
  }

  static std::size_t Send(char* bytes, std::size_t size, std::size_t count, void* self) {
    auto& channel = *static_cast<FtpChannel*>(self);
    qint64 length = 0;
    const bool read = Kept(channel, [&] {
      QIODevice& source = *channel.exchange_->device;
      length = source.read(bytes, qint64(size * count));
      if (length < 0) FailOn(channel.exchange_->doing, u"无法读取：%1"_s.arg(source.errorString()));
      return true;
    });
    if (!read) return CURL_READFUNC_ABORT;
    channel.outcome_->sent += length;
    return std::size_t(length);
  }

  static int Progress(void* self, curl_off_t total, curl_off_t done, curl_off_t, curl_off_t sent) {
    auto& channel = *static_cast<FtpChannel*>(self);
    const FtpExchange& exchange = *channel.exchange_;
    const bool upload = exchange.kind == FtpExchange::Kind::Upload;
    const qint64 all = !upload ? total : exchange.device->isSequential() ? 0 : exchange.device->size();
    const bool goesOn = Kept(channel, [&] {
      if (!exchange.progress(upload ? sent : done, all > 0 ? all : -1)) FailCancelled();
      return true;
    });
    return goesOn ? 0 : 1;
  }

  // The transport has connected anew by itself, where nothing has been agreed on with the server yet.
  static int BeforeCommands(void* self, char*, char*, int, int) {
    auto& channel = *static_cast<FtpChannel*>(self);
    long connections = 0;
    curl_easy_getinfo(channel.handle_.get(), CURLINFO_NUM_CONNECTS, &connections);
    channel.isOther_ = !channel.opening_ && connections > 0;
    return channel.isOther_ ? CURL_PREREQFUNC_ABORT : CURL_PREREQFUNC_OK;
  }

  // A server that has no more room ends the transfer and then says why. The transport has given up by then.
  static int CloseSocket(void* self, curl_socket_t socket) {
    auto& channel = *static_cast<FtpChannel*>(self);
    const bool sending = channel.exchange_ && channel.exchange_->kind == FtpExchange::Kind::Upload;
    if (socket == channel.control_ && sending && !channel.thrown_ && channel.outcome_->replies.Last().code / 100 == 1) {
      char words[1024];
      pollfd waiting{socket, POLLIN, 0};
      const ssize_t length = poll(&waiting, 1, kLastWords) > 0 ? recv(socket, words, sizeof words, MSG_DONTWAIT) : 0;
      if (length > 0) {
        for (const QByteArray& line : QByteArray(words, length).split('\n')) channel.outcome_->replies.Take(line);
      }
    }
    return close(socket);
  }
};

FtpPatience& PatienceWithFtp() {
  static FtpPatience patience;
  return patience;
}

void FtpChannel::Ending::operator()(CURL* handle) const {
  const NoBrokenPipe noBrokenPipe;
  curl_easy_cleanup(handle);
}

FtpChannel::FtpChannel(const FtpLogin& login) : login_(login) {
  EncodedForFtp(login.user + login.password, true);  // a line break would begin a command of its own
  Open();
}

void FtpChannel::Open() {
  const QScopedValueRollback<bool> opening(opening_, true);
  handle_.reset(curl_easy_init());
  if (!handle_) throw DataError(DataErrorKind::Other, u"无法使用网络。"_s);
  isBinary_ = false;
  Greet();
}

// FEAT tells what the server can do (RFC 2389). Some that announce UTF-8 use it only when they are asked to.
void FtpChannel::Greet() {
  FtpOutcome greeting;
  const FtpExchange exchange{u"登录 %1"_s.arg(login_.user), {"FEAT"}};
  const CURLcode code = Perform(exchange, greeting);
  if (code != CURLE_OK) Fail(code, exchange, greeting.replies);
  const QByteArray features = greeting.replies.Last().code == 211 ? greeting.replies.Last().text.toUpper() : "";
  readsUtf8_ = features.contains("\n UTF8");
  listsFacts_ = features.contains("\n MLST");
  char* home = nullptr;
  curl_easy_getinfo(handle_.get(), CURLINFO_FTP_ENTRY_PATH, &home);
  home_ = home ? DecodedFromFtp(home) : u"/"_s;
  FtpOutcome option;
  const FtpExchange utf8{exchange.doing, {"OPTS UTF8 ON"}};
  if (!readsUtf8_) return;
  const CURLcode asked = Perform(utf8, option);
  if (asked != CURLE_OK) Fail(asked, utf8, option.replies);
}

bool FtpChannel::IsAlive() const {
  curl_socket_t socket = CURL_SOCKET_BAD;
  curl_easy_getinfo(handle_.get(), CURLINFO_ACTIVESOCKET, &socket);
  if (socket == CURL_SOCKET_BAD) return false;
  pollfd idle{socket, POLLIN, 0};
  return poll(&idle, 1, 0) == 0;  // unasked it says nothing but goodbye
}

void FtpChannel::Run(const FtpExchange& exchange, FtpOutcome& outcome) {
  if (exchange_) throw DataError(DataErrorKind::Usage, u"FTP 连接正在传输另一个文件。"_s);
  const bool wasAlive = IsAlive();
  if (!wasAlive) Open();
  CURLcode code = Perform(exchange, outcome);
  const bool unheard = code != CURLE_OK && !thrown_ && (isOther_ || outcome.replies.IsGoodbyeOnly());
  if (unheard && wasAlive) {
    Open();
    outcome = {};
    code = Perform(exchange, outcome);
  }
  if (thrown_) std::rethrow_exception(thrown_);
  if (code != CURLE_OK || (exchange.kind == FtpExchange::Kind::Commands && outcome.replies.Last().code >= 400))
    Fail(code, exchange, outcome.replies);
}

CURLcode FtpChannel::Perform(const FtpExchange& exchange, FtpOutcome& outcome) {
  const QScopedValueRollback<const FtpExchange*> running(exchange_, &exchange);
  const QScopedValueRollback<FtpOutcome*> filling(outcome_, &outcome);
  const NoBrokenPipe noBrokenPipe;
  thrown_ = nullptr;
  isOther_ = false;
  reason_[0] = 0;
  curl_easy_reset(handle_.get());  // keeps the connection
  SetLogin();
  SetEncryption();
  CommandList before, after;
  for (const QByteArray& command : CommandsOf(exchange)) before.Append(command);
  curl_easy_setopt(handle_.get(), CURLOPT_QUOTE, before.Get());
  if (exchange.kind == FtpExchange::Kind::Upload) after.Append("*SIZE " + exchange.name);
  curl_easy_setopt(handle_.get(), CURLOPT_POSTQUOTE, after.Get());
  SetTransfer(exchange);
  const CURLcode code = curl_easy_perform(handle_.get());
  control_ = CURL_SOCKET_BAD;
  curl_easy_getinfo(handle_.get(), CURLINFO_ACTIVESOCKET, &control_);
  if (exchange.kind == FtpExchange::Kind::Listing) isBinary_ = false;
  if (exchange.kind == FtpExchange::Kind::Download || exchange.kind == FtpExchange::Kind::Upload || exchange.binary)
    isBinary_ = true;
  return code;
}

// The transport closes the connection after a command that is refused; not after the last one, since nothing follows
// it.
QByteArrayList FtpChannel::CommandsOf(const FtpExchange& exchange) {
  QByteArrayList commands = exchange.commands;
  if (exchange.kind != FtpExchange::Kind::Commands) return commands;
  commands.last().prepend('*');
  if (exchange.binary && !isBinary_) commands.insert(commands.size() - 1, "TYPE I");
  return commands;
}

void FtpChannel::SetLogin() {
  CURL* handle = handle_.get();
  const FtpPatience& patience = PatienceWithFtp();
  const QByteArray file = exchange_->kind == FtpExchange::Kind::Listing ? QByteArray() : exchange_->name;
  curl_easy_setopt(handle, CURLOPT_URL, FtpUrl(login_.server, login_.port, file).constData());
  curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "ftp");
  curl_easy_setopt(handle, CURLOPT_PROXY, "");  // whatever the surroundings say
  curl_easy_setopt(handle, CURLOPT_USERNAME, login_.user.toUtf8().constData());
  curl_easy_setopt(handle, CURLOPT_PASSWORD, login_.password.toUtf8().constData());
  curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(handle, CURLOPT_TCP_KEEPALIVE, 1L);
  curl_easy_setopt(handle, CURLOPT_MAXAGE_CONN, kNever);
  curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT, patience.connecting);
  curl_easy_setopt(handle, CURLOPT_SERVER_RESPONSE_TIMEOUT, patience.answering);
  curl_easy_setopt(handle, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(handle, CURLOPT_LOW_SPEED_TIME, patience.stalled);
  curl_easy_setopt(handle, CURLOPT_ERRORBUFFER, reason_);
  curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, Callbacks::Reply);
  curl_easy_setopt(handle, CURLOPT_HEADERDATA, this);
  curl_easy_setopt(handle, CURLOPT_PREREQFUNCTION, Callbacks::BeforeCommands);
  curl_easy_setopt(handle, CURLOPT_PREREQDATA, this);
  curl_easy_setopt(handle, CURLOPT_CLOSESOCKETFUNCTION, Callbacks::CloseSocket);
  curl_easy_setopt(handle, CURLOPT_CLOSESOCKETDATA, this);
}

// Offered encryption keeps out who only listens; who insists on it wants to know the server as well.
void FtpChannel::SetEncryption() {
  CURL* handle = handle_.get();
  const bool insists = Services().ftpMustBeEncrypted;
  curl_easy_setopt(handle, CURLOPT_USE_SSL, long(insists ? CURLUSESSL_ALL : CURLUSESSL_TRY));
  curl_easy_setopt(handle, CURLOPT_FTPSSLAUTH, long(CURLFTPAUTH_TLS));
  curl_easy_setopt(handle, CURLOPT_SSL_VERIFYPEER, insists ? 1L : 0L);
  curl_easy_setopt(handle, CURLOPT_SSL_VERIFYHOST, insists ? 2L : 0L);
  const QByteArray authorities = Services().ftpAuthorities.toLocal8Bit();
  if (insists && !authorities.isEmpty()) curl_easy_setopt(handle, CURLOPT_CAINFO, authorities.constData());
}

void FtpChannel::SetTransfer(const FtpExchange& exchange) {
  CURL* handle = handle_.get();
  curl_easy_setopt(handle, CURLOPT_FTP_FILEMETHOD, long(CURLFTPMETHOD_NOCWD));  // the commands go there
  curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, Callbacks::Receive);
  curl_easy_setopt(handle, CURLOPT_WRITEDATA, this);
  curl_easy_setopt(handle, CURLOPT_READFUNCTION, Callbacks::Send);
  curl_easy_setopt(handle, CURLOPT_READDATA, this);
  curl_easy_setopt(handle, CURLOPT_BUFFERSIZE, kBuffer);
  curl_easy_setopt(handle, CURLOPT_UPLOAD_BUFFERSIZE, kBuffer);
  if (exchange.progress) {
    curl_easy_setopt(handle, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(handle, CURLOPT_XFERINFOFUNCTION, Callbacks::Progress);
    curl_easy_setopt(handle, CURLOPT_XFERINFODATA, this);
  }
  switch (exchange.kind) {
    case FtpExchange::Kind::Commands:
      curl_easy_setopt(handle, CURLOPT_NOBODY, 1L);
      break;
    case FtpExchange::Kind::Upload:
      curl_easy_setopt(handle, CURLOPT_UPLOAD, 1L);
      break;
    case FtpExchange::Kind::Listing:
      if (listsFacts_) curl_easy_setopt(handle, CURLOPT_CUSTOMREQUEST, "MLSD");
      break;
    case FtpExchange::Kind::Download:
      break;
  }
}

void FtpChannel::Fail(CURLcode code, const FtpExchange& exchange, const FtpReplies& replies) const {
  const QString reason = QString::fromLocal8Bit(*reason_ ? reason_ : curl_easy_strerror(code));
  throw ErrorOf(
      {code, replies.Last(), exchange.doing, u"%1:%2"_s.arg(login_.server).arg(login_.port), reason, login_.password});
}

}  // namespace folvane
