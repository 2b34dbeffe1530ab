#include "components/originals/ThumbnailReader.h"

#include <QBuffer>
#include <QElapsedTimer>

#include <folvane/DataError.h>

#include "components/documents/Thumbnail.h"

namespace folvane::originals {
namespace {

constexpr qint64 kMostBytes = 8 * 1024 * 1024;
constexpr int kPatience = 300;    // milliseconds for a file
constexpr int kBetweenReads = 5;  // milliseconds

}  // namespace

ThumbnailReader::ThumbnailReader(RecordOriginals& originals, QSize atMost, Show show)
    : originals_(originals), atMost_(atMost), show_(std::move(show)) {
  timer_.setInterval(kBetweenReads);
  connect(&timer_, &QTimer::timeout, this, &ThumbnailReader::ReadNext);
}

void ThumbnailReader::Start(const std::vector<Original>& wanted) {
  waiting_.assign(wanted.begin(), wanted.end());
  if (!waiting_.empty()) timer_.start();
}

void ThumbnailReader::ReadNext() {
  if (pauses_ > 0) return;
  if (waiting_.empty()) return timer_.stop();
  const Original next = waiting_.front();
  waiting_.pop_front();
  const Pause once(*this);
  try {
    originals_.Store();
  } catch (const std::exception& error) {
    waiting_.clear();
    if (onUnreachable) onUnreachable(QString::fromUtf8(error.what()));
    return;
  }
  const QImage thumbnail = Read(next);
  if (!thumbnail.isNull()) show_(next.id, thumbnail);
}

// A thumbnail is a comfort: whoever opens the original is told what is wrong with it.
QImage ThumbnailReader::Read(const Original& original) {
  if (original.size > kMostBytes) return {};
  QElapsedTimer since;
  since.start();
  QBuffer content;
  content.open(QIODevice::WriteOnly);
  try {
    originals_.Fetch(original, content,
                     [&](qint64 done, qint64) { return done <= kMostBytes && since.elapsed() < kPatience; });
    return documents::Thumbnail(original.type, content.data(), atMost_);
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace folvane::originals
