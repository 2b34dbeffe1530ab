#pragma once

#include <QString>
#include <curl/curl.h>

#include <folvane/DataError.h>

#include "originals/FtpReplies.h"

namespace folvane {

/// What is known of an exchange that failed.
struct FtpFailure {
  CURLcode code = CURLE_OK;
  FtpReply reply;  ///< the server's last
  QString doing;   ///< what the exchange was for
  QString server;  ///< its address
  QString reason;  ///< what the transport had to say, in its own words
  QString secret;  ///< a text that no message repeats, "" for none
};

/// Whether the server has answered with a refusal, rather than gone away.
bool IsRefusal(CURLcode code, const FtpReply& reply);

/// The error that tells of it: File where the server refuses, Lost where it is gone.
DataError ErrorOf(const FtpFailure& failure);

}  // namespace folvane
