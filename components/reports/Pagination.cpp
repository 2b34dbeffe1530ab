#include "components/reports/Pagination.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>
#include <algorithm>
#include <optional>

namespace folvane::reports {
namespace {

struct Span {
  double top, bottom;
};

// A table whose head is repeated.
struct HeadedTable {
  Span head;
  double bottom;
};

class Cutter {
 public:
  Cutter(const QTextDocument& document, double pageHeight, double pixel)
      : layout_(*document.documentLayout()), pageHeight_(pageHeight), pixel_(pixel) {
    AddParts(document.rootFrame()->begin());
    std::sort(breaks_.begin(), breaks_.end());
  }

  std::vector<PageSlice> Cut() const {
    std::vector<PageSlice> pages;
    double top = 0;
    do {
      PageSlice page{top, 0, 0, 0};
      if (const HeadedTable* table = TableGoingOn(top)) {
        page.headTop = table->head.top;
        page.headBottom = table->head.bottom;
      }
      page.bottom = EndOf(top, top + pageHeight_ - (page.headBottom - page.headTop));
      pages.push_back(page);
      top = page.bottom;
    } while (top < end_ - 0.5);
    return pages;
  }

 private:
  // Those of a frame, or of a cell.
  void AddParts(QTextFrame::iterator part) {
    for (; !part.atEnd(); ++part) {
      if (auto* table = qobject_cast<QTextTable*>(part.currentFrame()))
        AddTable(*table);
      else if (part.currentFrame())
        AddParts(part.currentFrame()->begin());
      else if (part.currentBlock().isValid())
        AddBlock(part.currentBlock());
    }
  }

  void AddBreaks(QTextFormat::PageBreakFlags policy, const Span& place) {
    if (policy & QTextFormat::PageBreak_AlwaysBefore) breaks_.push_back(place.top);
    if (policy & QTextFormat::PageBreak_AlwaysAfter) breaks_.push_back(place.bottom);
  }

  void AddBlock(const QTextBlock& block) {
    const QRectF rect = layout_.blockBoundingRect(block);
    AddBreaks(block.blockFormat().pageBreakPolicy(), {rect.top(), rect.bottom()});
    if (!block.text().trimmed().isEmpty()) end_ = std::max(end_, rect.bottom());
    AddLines(block);
  }

  void AddLines(const QTextBlock& block) {
    const double top = layout_.blockBoundingRect(block).top();
    const QTextLayout& text = *block.layout();
    for (int line = 0; line < text.lineCount(); ++line) {
      const QRectF rect = text.lineAt(line).rect();
      solid_.push_back({top + rect.top(), top + rect.bottom()});
    }
  }

  void AddTable(QTextTable& table) {
    const Span place = PlaceOf(table);
    end_ = std::max(end_, place.bottom);
    AddBreaks(table.format().pageBreakPolicy(), place);
    const std::vector<double> tops = RowTops(table, place.top);
    const auto bottomOf = [&](size_t row) { return row + 1 < tops.size() ? tops[row + 1] : place.bottom; };
    const size_t heads = size_t(table.format().headerRowCount());
    for (size_t row = 0; row < tops.size(); ++row) {
      // The head and the first row behind it are one piece.
      const Span span{row <= heads ? tops[0] : tops[row], bottomOf(row)};
      if (span.bottom - span.top <= pageHeight_)
        solid_.push_back(span);
      else
        AddPartsOfRow(table, int(row));
    }
    if (heads > 0 && heads < tops.size() && tops[heads] - tops[0] < pageHeight_ / 2)
      headed_.push_back({{tops[0], tops[heads]}, place.bottom});
  }

  // How far the texts of cells stand below the line above them.
  double Inset(const QTextTable& table) const {
    const QTextTableFormat format = table.format();
    return pixel_ * (format.cellPadding() + format.border() + format.cellSpacing() / 2);
  }

  // The layout tells a table's size, but the place of its first cell.
  Span PlaceOf(QTextTable& table) const {
    const QRectF rect = layout_.frameBoundingRect(&table);
    const double top = rect.top() - Inset(table) - pixel_ * table.format().border();
    return {top, top + rect.height()};
  }

  std::vector<double> RowTops(const QTextTable& table, double tableTop) const {
    std::vector<double> tops;
    for (int row = 0; row < table.rows(); ++row) {
      std::optional<double> text;
      for (int column = 0; column < table.columns(); ++column) {
        const QTextTableCell cell = table.cellAt(row, column);
        if (cell.row() != row) continue;  // of a row above, and reaching down
        const double top = layout_.blockBoundingRect(cell.firstCursorPosition().block()).top();
        text = std::min(text.value_or(top), top);
      }
      tops.push_back(row == 0 ? tableTop : text ? *text - Inset(table) : tops.back());
    }
    return tops;
  }

  // A row that does not fit a page is cut like the text beside tables.
  void AddPartsOfRow(const QTextTable& table, int row) {
    for (int column = 0; column < table.columns(); ++column) {
      const QTextTableCell cell = table.cellAt(row, column);
      if (cell.column() == column) AddParts(cell.begin());
    }
  }

  const HeadedTable* TableGoingOn(double top) const {
    const auto found = std::find_if(headed_.begin(), headed_.end(), [&](const HeadedTable& table) {
      return table.head.bottom < top + 0.5 && top < table.bottom - 0.5;
    });
    return found == headed_.end() ? nullptr : &*found;
  }

  double EndOf(double top, double limit) const {
    const auto forced = std::upper_bound(breaks_.begin(), breaks_.end(), top + 0.5);
    if (forced != breaks_.end()) limit = std::min(limit, *forced);
    if (limit >= end_) return std::max(end_, top);
    double end = limit;
    for (bool moved = true; moved;) {
      moved = false;
      for (const Span& span : solid_) {
        if (span.top >= end - 0.01 || span.bottom <= end + 0.01) continue;
        end = span.top;
        moved = true;
      }
    }
    return end > top + 0.5 ? end : limit;
  }

  const QAbstractTextDocumentLayout& layout_;
  double pageHeight_, pixel_, end_ = 0;
  std::vector<Span> solid_;  ///< what is not to be cut through
  std::vector<double> breaks_;
  std::vector<HeadedTable> headed_;
};

}  // namespace

std::vector<PageSlice> CutIntoPages(const QTextDocument& document, double pageHeight, double pixel) {
  return Cutter(document, pageHeight, pixel).Cut();
}

}  // namespace folvane::reports
