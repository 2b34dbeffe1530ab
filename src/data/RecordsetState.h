#pragma once

#include <map>
#include <memory>
#include <optional>
#include <tuple>

#include <folvane/DataError.h>

#include "data/ColumnIndex.h"
#include "data/Criteria.h"
#include "data/Recordset.h"
#include "data/Rows.h"
#include "data/View.h"

namespace folvane {

class BatchWriter;

/// What an open record set consists of: its rows, the view of them, the cursor in the view and the edit in progress.
class RecordsetState {
 public:
  RecordsetState(QString source, std::shared_ptr<Connection> connection, LockType lock, OpenedRows opened);
  ~RecordsetState();

  // Cursor. Either a row is under the position, or a hole where a deleted row was, or BOF or EOF is true.
  bool HasRow() const { return cursorState_ == CursorState::Row; }
  RowId CurrentRow() const;  ///< @throws DataError Usage without a row
  /// The row at a position, for a look at a column. A row that was not read yet is read with its neighbours in view.
  /// @throws DataError where it cannot be read
  RowId SeenRow(qint64 position, int column) const;
  RowId SeenRow(int column) const {
    CurrentRow();
    return SeenRow(position_, column);
  }
  /// The current row, for whatever takes it for one that is there. @throws DataError as above, Conflict where it is
  /// gone
  RowId LivingRow() const;
  bool IsOnGoneRow() const { return HasRow() && rows.StateOf(CurrentRow()) == RowChange::Gone; }
  void GoTo(qint64 position);
  void GoToRow(RowId row);
  void GoFirst() { view.Count() ? GoTo(0) : GoEnd(); }
  void GoLast() { view.Count() ? GoTo(view.Count() - 1) : GoEnd(); }
  /// Moves, and further by steps over rows that are gone. Where one cannot be read it stands as before.
  /// @throws DataError
  template <typename Move>
  void Walk(Move move, int step) {
    const auto before = std::pair(cursorState_, position_);
    try {
      move();
      PassGone(step);
    } catch (const DataError&) {
      std::tie(cursorState_, position_) = before;
      throw;
    }
  }
  void GoEnd();
  void GoBeforeStart();
  void Step(qint64 count);

  qint64 Find(const Condition& condition, qint64 from, SearchDirection direction);
  void Reshow();  ///< builds the view anew from filter and sort

  // Editing.
  void BeginEdit();
  void EndEdit();
  void DropEdit();
  void RequireWritable() const;
  void RequireConnection() const;  ///< @throws DataError Usage for what was opened from a file
  void AddRow();
  void DeleteCurrentRow();
  void Write(const std::vector<RowId>& pending);
  /// Reads rows again by key; those not yet in the database are passed over. @throws DataError
  void ReadAgain(const std::vector<RowId>& wanted);
  void TakeAsRead(RowId row, const std::vector<QVariant>& values);

  enum class CursorState { Row, Hole, Bof, Eof, Empty };
  struct Edit {
    RowId row;
    bool adding;
    std::optional<RowChange> before;
  };

  QString source;
  std::shared_ptr<Connection> connection;
  LockType lock;
  Rows rows;
  View view{rows};
  QString filter, sort;
  std::optional<Edit> edit;

  CursorState cursorState_ = CursorState::Empty;
  qint64 position_ = 0;  ///< of the row or of the hole, from 0

 private:
  const ColumnIndex& IndexOf(int column);
  std::vector<RowId> RowsMeeting(const Criteria& criteria);

  std::vector<RowId> AnchoredRows(const Condition& anchor);
  void Bring(qint64 position) const;
  void PassGone(int step);

  std::map<int, ColumnIndex> indexes_;
  struct Page {
    qint64 begin = -1, end = -1, size = 0;
  };
  mutable Page page_;                    ///< the positions that were brought last
  std::unique_ptr<BatchWriter> writer_;  ///< made for the first row that is written
};

}  // namespace folvane
