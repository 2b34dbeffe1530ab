#pragma once

#include <QtGlobal>

namespace folvane {

/// Rows loaded at a time.
inline constexpr int kPageSize = 30;

/// The rows of a record list within its records. The cursor is on the record of the selected row.
struct ListWindow {
  qint64 position;  ///< the cursor's, from 1
  int index;        ///< of the selected row, from 1
  int count;        ///< rows in the list
};

/// How a list gets to a record: a near move lets it grow, a far one starts it over with one page.
struct MovePlan {
  enum Kind {
    Stay,         ///< the record is the selected one
    Select,       ///< it is in the list, at `index`
    GrowDown,     ///< `rows` more behind the last row; the new last row is it
    GrowUp,       ///< `rows` more before the first row; the new first row is it
    RestartDown,  ///< a new page from it on, filled up from before it when the records end; it is its first own row
    RestartUp,    ///< a new page from it on, it is the first row
  };
  Kind kind;
  int index = 0;
  int rows = 0;
};

/// The way to the record at an absolute position, which may lie past the last one.
MovePlan PlanMove(qint64 target, const ListWindow& window);

}  // namespace folvane
