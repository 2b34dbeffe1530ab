#include "components/scanning/PageReader.h"

#include <QThread>
#include <cstring>

#include "components/scanning/ScanErrors.h"

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr SANE_Int kPortion = 64 << 10;
// A driver that reads in a thread ends that thread by force when its last bytes are taken, wherever it stands. If it is
// freeing memory just then, nobody can any more: so it gets the time to end by itself. In milliseconds, for each page.
constexpr unsigned long kToEnd = 50;

// Three passes bring one colour each.
int ColourOf(SANE_Frame format) {
  return format == SANE_FRAME_RED ? 0 : format == SANE_FRAME_GREEN ? 1 : format == SANE_FRAME_BLUE ? 2 : -1;
}

void RequireShowable(const SANE_Parameters& frame) {
  const bool isDeep = frame.depth == 8 || frame.depth == 16;
  const bool isBitonal = frame.depth == 1 && frame.format == SANE_FRAME_GRAY;
  if ((isDeep || isBitonal) && frame.format <= SANE_FRAME_BLUE && frame.pixels_per_line > 0) return;
  throw DataError(DataErrorKind::Other, u"扫描仪送出的图像格式不受支持，请换一种颜色模式。"_s);
}

QImage::Format FormatOf(const SANE_Parameters& frame) {
  if (frame.format != SANE_FRAME_GRAY) return QImage::Format_RGB888;
  return frame.depth == 1 ? QImage::Format_Mono : QImage::Format_Grayscale8;
}

}  // namespace

std::optional<QImage> PageReader::Read() {
  while (true) {
    RequireGood(sane_get_parameters(handle_, &frame_));
    RequireShowable(frame_);
    if (!ReadFrame()) {
      sane_cancel(handle_);
      return std::nullopt;
    }
    TakeFrame();
    if (frame_.last_frame) return page_;
    RequireGood(sane_start(handle_));
  }
}

// -1 of a hand scanner, which does not know when it will be lifted.
qint64 PageReader::ExpectedBytes() const {
  return frame_.lines > 0 ? qint64(frame_.lines) * frame_.bytes_per_line : -1;
}

bool PageReader::ReadFrame() {
  const qint64 expected = ExpectedBytes();
  if (expected > kMostPageBytes) throw ScanError(SANE_STATUS_NO_MEM);
  bytes_.clear();
  bytes_.reserve(qMax(expected, qint64(0)));
  QByteArray portion(kPortion, 0);
  bool isWaitedFor = false;
  while (true) {
    const bool isColour = ColourOf(frame_.format) >= 0;
    const int done = expected < 0 ? -1 : int(bytes_.size() * 100 / qMax(expected, qint64(1)));
    if (!goOn_(done < 0 || !isColour ? done : (done + 100 * frames_) / 3)) return false;
    if (!isWaitedFor && expected > 0 && bytes_.size() + kPortion >= expected) {
      QThread::msleep(kToEnd);
      isWaitedFor = true;
    }
    SANE_Int length = 0;
    const SANE_Status status =
        sane_read(handle_, reinterpret_cast<SANE_Byte*>(portion.data()), SANE_Int(portion.size()), &length);
    if (status == SANE_STATUS_EOF) return true;
    RequireGood(status);
    if (bytes_.size() + length > kMostPageBytes) throw ScanError(SANE_STATUS_NO_MEM);
    bytes_.append(portion.constData(), length);
  }
}

void PageReader::TakeFrame() {
  const int lines = int(bytes_.size() / qMax(frame_.bytes_per_line, 1));
  if (lines == 0) throw ScanError(SANE_STATUS_EOF);
  if (frames_++ == 0) {
    page_ = QImage(frame_.pixels_per_line, lines, FormatOf(frame_));
    if (page_.isNull()) throw ScanError(SANE_STATUS_NO_MEM);
    page_.fill(0);
    if (page_.format() == QImage::Format_Mono) page_.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
  }
  for (int y = 0; y < qMin(lines, page_.height()); ++y)
    TakeLine(reinterpret_cast<const uchar*>(bytes_.constData()) + qsizetype(y) * frame_.bytes_per_line,
             page_.scanLine(y));
}

void PageReader::TakeLine(const uchar* line, uchar* target) const {
  const int colour = ColourOf(frame_.format);
  const int samples = qMin(page_.width(), frame_.pixels_per_line) * (frame_.format == SANE_FRAME_RGB ? 3 : 1);
  if (frame_.depth == 1) {
    std::memcpy(target, line, std::size_t(qMin((samples + 7) / 8, frame_.bytes_per_line)));
    return;
  }
  // Of samples of two bytes, in the machine's order, the higher one is kept.
  const int size = frame_.depth / 8, high = size == 2 && Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? 1 : 0;
  const int step = colour < 0 ? 1 : 3, first = colour < 0 ? 0 : colour;
  const int most = qMin(samples, frame_.bytes_per_line / size);
  for (int i = 0; i < most; ++i) target[first + i * step] = line[i * size + high];
}

}  // namespace folvane::scanning
