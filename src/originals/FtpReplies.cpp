#include "originals/FtpReplies.h"

#include <algorithm>

namespace folvane {
namespace {

constexpr int kClosing = 421;

// The code at the head of a line, 0 for none.
int CodeOf(const QByteArray& line) {
  if (line.size() < 3 || !std::all_of(line.begin(), line.begin() + 3, [](char c) { return c >= '0' && c <= '9'; }))
    return 0;
  return line.left(3).toInt();
}

}  // namespace

void FtpReplies::Take(QByteArray line) {
  while (line.endsWith('\n') || line.endsWith('\r')) line.chop(1);
  const int code = CodeOf(line);
  const bool continues = line.size() > 3 && line[3] == '-';
  if (open_.code == 0 && code == 0) return;
  if (open_.code == 0) {
    open_ = {code, line};
    if (continues) return;
  } else {
    open_.text += '\n' + line;
    if (code != open_.code || continues) return;
  }
  replies_.push_back(open_);
  open_ = {};
}

bool FtpReplies::HasBegun() const {
  return std::any_of(replies_.begin(), replies_.end(), [](const FtpReply& reply) { return reply.code / 100 == 1; });
}

bool FtpReplies::IsGoodbyeOnly() const {
  return std::all_of(replies_.begin(), replies_.end(), [](const FtpReply& reply) { return reply.code == kClosing; });
}

}  // namespace folvane
