#include "components/documents/TextPages.h"

#include <QFile>
#include <QFontDatabase>
#include <QPainter>

#include "components/documents/TextDecoding.h"

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;

// In points: A4 with margins of two centimetres.
const QSizeF kPaper(595, 842);
constexpr double kMargin = 56, kFontSize = 11, kLineHeight = 16;
constexpr int kLinesOfPage = int((842 - 2 * kMargin) / kLineHeight);
// Widths in tenths of the font's size. They are taken as the same for all letters of a script: measuring each with the
// font takes seconds for a long text.
constexpr int kLineWidth = int((595 - 2 * kMargin) / kFontSize * 10);
constexpr int kWide = 10, kNarrow = 6, kTabStop = 8;

int WidthOf(QChar letter) {
  const char16_t code = letter.unicode();
  if (letter.isLowSurrogate() || letter.isMark()) return 0;
  return code >= 0x1100 && !(code >= 0xFF61 && code <= 0xFFDC) ? kWide : kNarrow;
}

bool BelongsToWord(QChar letter) { return letter.unicode() < 0x1100 && letter.isLetterOrNumber(); }

}  // namespace

TextPages::TextPages(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw DataError(DataErrorKind::File, u"无法读取文件：%1"_s.arg(file.errorString()));
  if (file.size() > kMostTextBytes)
    throw DataError(DataErrorKind::File, u"文本文件过大（%1 MB），无法显示。"_s.arg(file.size() >> 20));
  text_ = DecodedText(file.readAll());
  text_.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
  BreakIntoLines();
}

void TextPages::BreakIntoLines() {
  begins_.push_back(0);
  int width = 0;
  for (qsizetype at = 0; at < text_.size(); ++at) {
    const QChar letter = text_[at];
    if (letter == u'\n') {
      begins_.push_back(at + 1);
      width = 0;
      continue;
    }
    width += letter == u'\t' ? (kTabStop - width / kNarrow % kTabStop) * kNarrow : WidthOf(letter);
    // A blank may stand beyond the margin: nobody sees it.
    if (width <= kLineWidth || at == begins_.back() || letter == u' ') continue;
    // A word goes to the next line whole, unless it is longer than one.
    qsizetype from = at;
    while (from > begins_.back() && BelongsToWord(text_[from]) && BelongsToWord(text_[from - 1])) --from;
    if (from == begins_.back()) from = at;
    begins_.push_back(from);
    width = 0;
    at = from - 1;
  }
  begins_.push_back(text_.size());
}

QString TextPages::Line(int line) const {
  QString text;
  int width = 0;
  for (qsizetype at = begins_[line]; at < begins_[line + 1]; ++at) {
    const QChar letter = text_[at];
    if (letter == u'\n') break;
    const int blanks = letter == u'\t' ? kTabStop - width / kNarrow % kTabStop : letter < u' ' ? 1 : 0;
    text.append(blanks > 0 ? QString(blanks, u' ') : QString(letter));
    width += blanks > 0 ? blanks * kNarrow : WidthOf(letter);
  }
  return text;
}

int TextPages::PageCount() const { return int(begins_.size() - 2) / kLinesOfPage + 1; }

QSizeF TextPages::SizeOf(int) { return kPaper; }

QImage TextPages::Render(int page, double scale) {
  QImage paper(SizeInPixels(kPaper, scale), QImage::Format_RGB32);
  paper.fill(Qt::white);
  QPainter painter(&paper);
  const double factor = paper.width() / kPaper.width();
  painter.scale(factor, factor);
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPixelSize(int(kFontSize));
  painter.setFont(font);
  painter.setPen(Qt::black);
  const int first = page * kLinesOfPage, end = qMin(first + kLinesOfPage, int(begins_.size()) - 1);
  for (int line = first; line < end; ++line) {
    const double baseline = kMargin + (line - first) * kLineHeight + kFontSize;
    painter.drawText(QPointF(kMargin, baseline), Line(line));
  }
  return paper;
}

}  // namespace folvane::documents
