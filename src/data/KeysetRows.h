#pragma once

#include <memory>
#include <optional>

#include "data/FetchedRows.h"
#include "data/KeysetStatement.h"
#include "data/NativeStatement.h"
#include "data/RowStore.h"

namespace folvane {

class DatabaseSession;
class KeyIndex;

/// The rows of one table, known by their keys, which say what rows there are and in which order. A row itself is read
/// when it is looked at for the first time, and kept; what memory is not to hold of the rows read lies in a temporary
/// file.
class KeysetRows final : public StoredRows {
 public:
  /// Reads the first rows, which tell the columns as well. There are none where rows cannot be read again by the keys,
  /// value for value.
  /// @param keys the values of the table's key columns, row by row; there is at least one row
  /// @throws DataError
  static OpenedRows Open(DatabaseSession& session, KeysetStatement statement, const TableInfo& table,
                         std::unique_ptr<RowStore> keys);
  ~KeysetRows() override;

  std::size_t RowCount() const override { return keys_->RowCount(); }
  Cell At(std::size_t row, int column) const override;
  void Read(std::size_t row, Cell* cells) const override;

  bool IsWhole() const override { return false; }
  bool IsRead(RowId row) const override { return places_[row] != kUnread; }
  bool IsAtHand(RowId row, int column) const override { return IsRead(row) || KeyPlace(column) >= 0; }
  bool AreDistinct(int column) const override { return distinctKeys_ && KeyPlace(column) >= 0; }
  bool IsGone(RowId row) const override { return places_[row] == kGone; }
  std::size_t GoneCount() const override { return gone_; }
  void Load(const std::vector<RowId>& rows) const override;
  bool Rewrite(RowId row, const Cell* cells) override;
  void EachCell(const std::vector<int>& columns, const Visit& visit) const override;

 private:
  static constexpr std::uint32_t kUnread = 0xffffffff, kGone = 0xfffffffe;

  KeysetRows(DatabaseSession& session, KeysetStatement statement, const TableInfo& table,
             std::unique_ptr<RowStore> keys, bool areDistinct);
  int KeyPlace(int column) const;
  NativeStatement StatementFor(const std::vector<RowId>& rows) const;
  void Fetch(const std::vector<RowId>& rows, std::vector<ColumnInfo>& columns) const;
  void Place(const std::vector<RowId>& rows, std::size_t from) const;
  void TakeColumns(const std::vector<ColumnInfo>& columns);
  void EachUnread(const std::vector<int>& columns, const Visit& visit) const;
  void EachKeyAlone(const std::vector<int>& columns, const Visit& visit) const;
  bool HasKey(RowId row, const Cell* key) const;
  std::optional<RowId> FindKey(const Cell* key) const;

  DatabaseSession& session_;
  KeysetStatement statement_;
  QByteArray tableName_, selected_;  ///< as statements in the database's own words write them
  std::vector<QByteArray> keyNames_;
  QStringList keyColumns_, columns_;
  std::vector<int> keyPlaces_;  ///< by column: its place in the key, -1 for others
  std::vector<int> keyAt_;      ///< by place in the key: the column
  std::unique_ptr<RowStore> keys_;
  bool distinctKeys_ = false;  ///< of one column, and even where case and trailing blanks do not count

  // What was read so far.
  mutable RowStore read_;
  mutable std::vector<std::uint32_t> places_;  ///< by row: where it stands in read_
  mutable std::size_t gone_ = 0;
  mutable std::unique_ptr<KeyIndex> index_;  ///< made when a column is read for the first time
};

}  // namespace folvane
