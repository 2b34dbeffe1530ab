#pragma once

#include <vector>

class QTextDocument;

namespace folvane::reports {

/// What of a document stands on a page, in the units of its layout: from top to bottom, below the head of a table that
/// goes on from the page before.
struct PageSlice {
  double top = 0, bottom = 0;
  double headTop = 0, headBottom = 0;  ///< equal where no table goes on
};

/// Cuts a document that has been laid out in one piece into pages of a height. No row of a table and no line of a text
/// is cut through, unless it alone is higher than a page; page breaks of the document are kept; a table's head stays
/// with its first row and is repeated where the table goes on.
/// @param pixel the width that a border of 1 has
std::vector<PageSlice> CutIntoPages(const QTextDocument& document, double pageHeight, double pixel);

}  // namespace folvane::reports
