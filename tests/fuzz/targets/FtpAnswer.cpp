// A target of libFuzzer: any bytes are read as what an FTP server answers: replies, listings in each form, names.
#include <QByteArrayList>
#include <cstdlib>

#include <folvane/DataError.h>

#include "originals/FtpListing.h"
#include "originals/FtpNames.h"
#include "originals/FtpReplies.h"

namespace {

using namespace folvane;

/// What stands in a directory does not lead out of it when it is asked for.
void Require(const std::vector<FtpEntry>& entries) {
  for (const FtpEntry& entry : entries) {
    if (entry.name.contains(u'\n') || entry.name.contains(u'\r') || entry.size < -1) std::abort();
    try {
      RequireFtpName(entry.name);
      if (entry.name.contains(u'/') || entry.name.contains(u'\\')) std::abort();
      EncodedForFtp(entry.name, true);
      EncodedForFtp(entry.name, false);
    } catch (const DataError&) {
      // no name to ask for
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray answer(reinterpret_cast<const char*>(data), qsizetype(size));
  FtpReplies replies;
  for (const QByteArray& line : answer.split('\n')) replies.Take(line + '\n');
  for (const FtpReply& reply : replies.All())
    if (reply.code < 1 || reply.code > 999 || reply.text.isEmpty()) std::abort();
  replies.HasBegun();
  replies.IsGoodbyeOnly();
  const QString listing = DecodedFromFtp(answer);
  Require(EntriesOfFacts(listing));
  try {
    Require(EntriesOfText(listing));
  } catch (const DataError&) {
    // no listing
  }
  return 0;
}
