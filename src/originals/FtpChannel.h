#pragma once

#include <QByteArrayList>
#include <QString>
#include <curl/curl.h>
#include <exception>
#include <memory>

#include <folvane/FtpConnection.h>

#include "originals/FtpReplies.h"

class QIODevice;

namespace folvane {

/// Commands that go to the server in one sequence, with a transfer at their end or without.
struct FtpExchange {
  enum class Kind { Commands, Listing, Download, Upload };

  QString doing{};            ///< what it is for, in words for an error: "删除文件 7.tif"
  QByteArrayList commands{};  ///< the first that is refused ends the exchange
  Kind kind = Kind::Commands;
  QByteArray name{};            ///< of the file that is transferred
  QIODevice* device = nullptr;  ///< what a transfer reads from or writes to
  TransferProgress progress{};
  bool binary = false;  ///< whether the last command takes the representation of files, as SIZE does
};

/// What came of an exchange.
struct FtpOutcome {
  FtpReplies replies;
  qint64 sent = 0;  ///< bytes of an upload
};

/// Seconds after which a server that does not answer counts as gone.
struct FtpPatience {
  long connecting = 10, answering = 30, stalled = 30;
};
FtpPatience& PatienceWithFtp();

/// The control connection: log-on, sequences of commands, transfers. One that the server has closed since the last
/// exchange is opened again once, silently; after the first answer to an exchange a loss is an error.
class FtpChannel {
 public:
  /// Connects and logs on. @throws DataError Lost, File
  explicit FtpChannel(const FtpLogin& login);
  FtpChannel(const FtpChannel&) = delete;
  FtpChannel& operator=(const FtpChannel&) = delete;

  bool ReadsUtf8() const { return readsUtf8_; }
  bool ListsFacts() const { return listsFacts_; }
  /// The directory after the log-on.
  const QString& Home() const { return home_; }

  /// @param outcome what has come so far also where this throws
  /// @throws DataError Lost where the server is gone, File where it refuses, Other where the progress cancels
  void Run(const FtpExchange& exchange, FtpOutcome& outcome);

 private:
  struct Callbacks;

  void Open();
  void Greet();
  bool IsAlive() const;
  CURLcode Perform(const FtpExchange& exchange, FtpOutcome& outcome);
  void SetLogin();
  void SetEncryption();
  void SetTransfer(const FtpExchange& exchange);
  QByteArrayList CommandsOf(const FtpExchange& exchange);
  [[noreturn]] void Fail(CURLcode code, const FtpExchange& exchange, const FtpReplies& replies) const;

  FtpLogin login_;
  bool readsUtf8_ = false, listsFacts_ = false;
  bool isBinary_ = false;  ///< the representation that the server takes files in; texts until told otherwise
  QString home_;

  // Of the exchange that runs.
  const FtpExchange* exchange_ = nullptr;
  FtpOutcome* outcome_ = nullptr;
  std::exception_ptr thrown_;
  bool opening_ = false, isOther_ = false;
  curl_socket_t control_ = CURL_SOCKET_BAD;
  char reason_[CURL_ERROR_SIZE] = {};

  /// Says goodbye to the server.
  struct Ending {
    void operator()(CURL* handle) const;
  };
  std::unique_ptr<CURL, Ending> handle_;
};

}  // namespace folvane
