#pragma once

#include <vector>

#include "components/documents/PageSource.h"

namespace folvane::documents {

/// The largest text that is shown, in bytes; it takes about three times as much memory.
constexpr qint64 kMostTextBytes = qint64(32) << 20;

/// A plain text, broken into pages of A4.
class TextPages : public PageSource {
 public:
  explicit TextPages(const QString& path);
  int PageCount() const override;
  QSizeF SizeOf(int page) override;
  QImage Render(int page, double scale) override;
  /// The text of a line of the paper, without its end; tabs are blanks.
  QString Line(int line) const;

 private:
  void BreakIntoLines();

  QString text_;
  std::vector<qsizetype> begins_;  // of each line of the paper, and the end of the text
};

}  // namespace folvane::documents
