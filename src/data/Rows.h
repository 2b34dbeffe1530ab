#pragma once

#include <QVariant>
#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/FetchedRows.h"
#include "data/ValueText.h"

namespace folvane {

/// Values of some columns of a row.
class ColumnValues {
 public:
  /// nullptr for a column that has none.
  const QVariant* Find(int column) const;
  void Set(int column, const QVariant& value);
  /// Sets what the other has, which has nothing afterwards.
  void TakeAll(ColumnValues& values);
  void Clear() { values_.clear(); }
  void Reserve(std::size_t columns) { values_.reserve(columns); }

 private:
  std::vector<std::pair<int, QVariant>> values_;
};

/// What waits to be written for a row, or was written since it was read. Of a row that was read it holds only what has
/// changed.
struct RowChange {
  enum State { Clean, Modified, Added, Deleted, Gone };
  State state = Clean;
  ColumnValues given;    ///< that wait to be written
  ColumnValues written;  ///< that the database has in place of those read
};

/// The rows of a record set: those read, as the store holds them, under the changes made since.
class Rows {
 public:
  explicit Rows(OpenedRows opened);

  const std::vector<ColumnInfo>& Columns() const { return columns_; }
  int IndexOf(const QString& column) const { return IndexOfColumn(columns_, column); }
  const StoredRows& Store() const { return *store_; }

  RowId StoredCount() const { return RowId(store_->RowCount()); }
  /// One past the last id in use.
  RowId EndId() const { return StoredCount() + added_; }
  /// False for rows deleted or taken back.
  bool IsLive(RowId row) const;
  /// How a row stands against the database: as it is there, or waiting as changed, added or deleted; Gone for one that
  /// is no more.
  RowChange::State StateOf(RowId row) const;
  /// True while every id below EndId is live.
  bool AllLive() const { return dead_ == 0 && store_->GoneCount() == 0; }

  bool IsRead(RowId row) const { return row >= StoredCount() || store_->IsRead(row); }
  /// Whether a value is known without asking the database, which the functions below do otherwise.
  bool IsAtHand(RowId row, int column) const { return row >= StoredCount() || store_->IsAtHand(row, column); }
  /// Reads those of the rows together that were not read yet. @throws DataError
  void Load(const std::vector<RowId>& rows) const;
  /// Calls visit(row, valueOf) for all live rows, in any order; valueOf(column) is the value of one of these columns,
  /// which is all that is read of rows that were not read yet. @throws DataError
  template <typename Visit>
  void Each(const std::vector<int>& columns, Visit visit) const;

  QVariant Value(RowId row, int column) const;
  /// As the database has it; invalid for a row that it does not have.
  QVariant Original(RowId row, int column) const;
  /// Whether a value waits to be written that is another than the original.
  bool IsChanged(RowId row, int column) const;
  const RowChange* Change(RowId row) const;
  /// The rows whose value in a column may no longer be the one read; some may come twice.
  const std::vector<RowId>& GivenIn(int column) const { return given_[size_t(column)]; }

  RowId Append();
  void SetValue(RowId row, int column, const QVariant& value);
  void MarkDeleted(RowId row);
  /// Undoes all changes of a row that are not written.
  void Restore(RowId row);
  /// Puts a row's values and state back to what they were before an edit.
  void PutBack(RowId row, const std::optional<RowChange>& before);
  std::optional<RowChange> Snapshot(RowId row) const;
  /// The row's pending change stands in the database now.
  void MarkWritten(RowId row);
  /// The row as it was just read again.
  void Refresh(RowId row, const std::vector<QVariant>& values);

  static bool IsPending(const RowChange& change);
  /// In ascending order.
  std::vector<RowId> PendingRows() const;
  /// Reads the values of a row as they were read, or those before the change that a file brought along; all null for a
  /// row that was added since.
  void ReadStored(RowId row, Cell* cells) const;
  void ReadStoredOriginal(RowId row, Cell* cells) const;

 private:
  QVariant Stored(RowId row, int column) const;
  QVariant StoredOriginal(RowId row, int column) const;
  bool CameChanged(RowId row) const;
  std::size_t IndexOfOriginal(RowId row) const;
  void SetState(RowId row, RowChange& change, RowChange::State state);
  void NoteGiven(RowId row, const RowChange& change, int column);
  bool KeepInStore(RowId row, const ColumnValues& written);

  std::vector<ColumnInfo> columns_;
  std::unique_ptr<StoredRows> store_;
  std::unique_ptr<WaitingRows> waiting_;  ///< of a file
  std::unordered_map<RowId, RowChange> changes_;
  std::set<RowId> pending_;
  std::vector<std::vector<RowId>> given_;  ///< by column
  RowId added_ = 0;
  RowId dead_ = 0;
};

template <typename Visit>
void Rows::Each(const std::vector<int>& columns, Visit visit) const {
  const auto visitNow = [&](RowId row) {
    if (IsLive(row)) visit(row, [&](int column) { return Value(row, column); });
  };
  RowId from = 0;
  if (!store_->IsWhole()) {
    store_->EachCell(columns, [&](RowId row, const Cell* cells) {
      if (Change(row) || store_->IsGone(row)) return visitNow(row);
      visit(row, [&](int column) {
        const auto place = std::find(columns.begin(), columns.end(), column) - columns.begin();
        return DecodeCell(cells[place], columns_[std::size_t(column)]);
      });
    });
    from = StoredCount();
  }
  for (RowId row = from; row < EndId(); ++row) visitNow(row);
}

}  // namespace folvane
