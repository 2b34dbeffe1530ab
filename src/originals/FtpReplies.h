#pragma once

#include <QByteArray>
#include <vector>

namespace folvane {

/// What a server has answered to a command.
struct FtpReply {
  int code = 0;
  QByteArray text;  ///< with the code, a line each
};

/// Puts the lines that come from a server together to replies (RFC 959, 4.2).
class FtpReplies {
 public:
  void Take(QByteArray line);
  const std::vector<FtpReply>& All() const { return replies_; }
  /// An empty one where there is none.
  FtpReply Last() const { return replies_.empty() ? FtpReply() : replies_.back(); }
  /// Whether a transfer was begun.
  bool HasBegun() const;
  /// Whether nothing was answered but that the server ends the connection.
  bool IsGoodbyeOnly() const;

 private:
  std::vector<FtpReply> replies_;
  FtpReply open_;  ///< of several lines, its last not yet there; code 0 for none
};

}  // namespace folvane
