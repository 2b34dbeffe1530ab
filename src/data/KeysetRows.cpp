#include "data/KeysetRows.h"

#include <algorithm>
#include <numeric>

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "data/KeyIndex.h"
#include "data/Recordset.h"
#include "data/TextFold.h"
#include "data/drivers/Driver.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

constexpr std::size_t kMostMarkers = 1000;  // of one statement; some servers take no more than 2,100
constexpr std::size_t kFirstRows = 64;
constexpr std::size_t kChunksInMemory = 8;

/// Looks through keys once for whether rows can be read again by them, and what else they are like.
class KeyCheck {
 public:
  bool CanReadBy(const RowStore& keys) {
    std::vector<Cell> cells(size_t(keys.ColumnCount()));
    isOne_ = cells.size() == 1;
    for (std::size_t row = 0; row < keys.RowCount(); ++row) {
      keys.Read(row, cells.data());
      for (const Cell& cell : cells)
        if (cell.kind != Cell::Integer && (cell.kind != Cell::Text || !LookAt(cell.bytes))) return false;
    }
    return true;
  }

  /// Keys differ byte for byte, and folding takes nothing away where all are of one case and none ends with a blank.
  bool AreDistinct() const { return isOne_ && !endsWithBlank_ && !(hasCapitals_ && hasSmall_); }

 private:
  bool LookAt(QByteArrayView text) {
    constexpr std::uint64_t kHigh = 0x8080808080808080u, kCase = 0x2020202020202020u;
    std::uint64_t high = 0;
    endsWithBlank_ = endsWithBlank_ || text.endsWith(' ');
    ByEight(text, [&](std::uint64_t eight) {
      high |= eight & kHigh;
      const std::uint64_t capitals = FoldEight(eight) ^ eight, big = eight & ~kCase;
      hasCapitals_ = hasCapitals_ || capitals != 0;
      hasSmall_ = hasSmall_ || ((FoldEight(big) ^ big) & ~capitals) != 0;
      return true;
    });
    return high == 0 || text.isValidUtf8();
  }

  bool isOne_ = false, endsWithBlank_ = false, hasCapitals_ = false, hasSmall_ = false;
};

}  // namespace

KeysetRows::KeysetRows(DatabaseSession& session, KeysetStatement statement, const TableInfo& table,
                       std::unique_ptr<RowStore> keys, bool areDistinct)
    : session_(session),
      statement_(std::move(statement)),
      tableName_(session.Words().Quoted(table.name)),
      selected_("*"),
      keys_(std::move(keys)),
      places_(keys_->RowCount(), kUnread) {
  read_.LimitMemory(kChunksInMemory);
  distinctKeys_ = areDistinct;
  for (const int column : table.key) {
    keyColumns_ << table.columns[size_t(column)].name;
    keyNames_.push_back(session.Words().Quoted(keyColumns_.last()));
  }
}

KeysetRows::~KeysetRows() = default;

OpenedRows KeysetRows::Open(DatabaseSession& session, KeysetStatement statement, const TableInfo& table,
                            std::unique_ptr<RowStore> keys) {
  KeyCheck check;
  if (!check.CanReadBy(*keys)) return {};
  std::unique_ptr<KeysetRows> rows(
      new KeysetRows(session, std::move(statement), table, std::move(keys), check.AreDistinct()));
  std::vector<RowId> first(std::min(rows->RowCount(), kFirstRows));
  std::iota(first.begin(), first.end(), RowId(0));
  OpenedRows opened;
  rows->Fetch(first, opened.columns);
  rows->TakeColumns(opened.columns);
  rows->Place(first, 0);
  opened.rows = std::move(rows);
  return opened;
}

// The columns stay those of the first page, whatever becomes of the table.
void KeysetRows::TakeColumns(const std::vector<ColumnInfo>& columns) {
  QByteArrayList names;
  for (const ColumnInfo& column : columns) {
    columns_ << column.name;
    names << session_.Words().Quoted(column.name);
    keyPlaces_.push_back(int(keyColumns_.indexOf(column.name)));
  }
  selected_ = names.join(',');
  for (const QString& name : keyColumns_) {
    keyAt_.push_back(int(columns_.indexOf(name)));
    if (keyAt_.back() < 0) throw DataError(DataErrorKind::Statement, u"表的字段已经改变，请重新打开。"_s);
  }
}

int KeysetRows::KeyPlace(int column) const { return keyPlaces_[size_t(column)]; }

Cell KeysetRows::At(std::size_t row, int column) const {
  const int place = KeyPlace(column);
  if (!IsRead(RowId(row)) && place < 0) Load({RowId(row)});
  if (IsRead(RowId(row)) && !IsGone(RowId(row))) return read_.At(places_[row], column);
  return place >= 0 ? keys_->At(row, place) : Cell();
}

void KeysetRows::Read(std::size_t row, Cell* cells) const {
  if (!IsRead(RowId(row))) Load({RowId(row)});
  if (!IsGone(RowId(row))) return read_.Read(places_[row], cells);
  std::fill_n(cells, keyPlaces_.size(), Cell());
  for (std::size_t i = 0; i < keyAt_.size(); ++i) cells[keyAt_[i]] = keys_->At(row, int(i));
}

void KeysetRows::Load(const std::vector<RowId>& rows) const {
  const std::size_t most = std::max<std::size_t>(kMostMarkers / keyNames_.size(), 1);
  std::vector<RowId> together;
  std::vector<ColumnInfo> columns;
  const auto load = [&] {
    if (together.empty()) return;
    const std::size_t from = read_.RowCount();
    Fetch(together, columns);
    Place(together, from);
    together.clear();
  };
  for (const RowId row : rows) {
    if (!IsRead(row)) together.push_back(row);
    if (together.size() == most) load();
  }
  load();
}

bool KeysetRows::Rewrite(RowId row, const Cell* cells) {
  if (!IsRead(row) || IsGone(row)) return false;
  for (int column = 0; column < read_.ColumnCount(); ++column) read_.Add(cells[column]);
  read_.EndRow();
  places_[row] = std::uint32_t(read_.RowCount() - 1);
  return true;
}

NativeStatement KeysetRows::StatementFor(const std::vector<RowId>& rows) const {
  NativeStatement statement;
  statement.parameters.reserve(rows.size() * keyNames_.size());
  statement.text = "SELECT " + selected_ + " FROM " + tableName_ + " WHERE ";
  QByteArray one;
  if (keyNames_.size() == 1) {
    statement.text += keyNames_[0] + " IN (?" + QByteArray(",?").repeated(qsizetype(rows.size()) - 1) + ')';
  } else {
    for (const QByteArray& name : keyNames_) one += (one.isEmpty() ? "(" : " AND ") + name + "=?";
    one += ')';
    statement.text += one + (" OR " + one).repeated(qsizetype(rows.size()) - 1);
  }
  for (const RowId row : rows)
    for (int i = 0; i < int(keyNames_.size()); ++i) statement.parameters.push_back(keys_->At(row, i).ToVariant());
  return statement;
}

void KeysetRows::Fetch(const std::vector<RowId>& rows, std::vector<ColumnInfo>& columns) const {
  try {
    session_.NativeDriver().Query(StatementFor(rows), columns, read_);
  } catch (const DataError&) {
    read_.DropBegunRow();
    throw;
  }
}

// A row takes its place when all were read, so that an error changes nothing.
void KeysetRows::Place(const std::vector<RowId>& rows, std::size_t from) const {
  const KeyIndex wanted(*keys_, rows);
  std::vector<Cell> key(keyAt_.size());
  for (std::size_t at = from; at < read_.RowCount(); ++at) {
    for (std::size_t i = 0; i < keyAt_.size(); ++i) key[i] = read_.At(at, keyAt_[i]);
    if (const auto row = wanted.Find(key.data())) places_[*row] = std::uint32_t(at);
  }
  for (const RowId row : rows) {
    if (IsRead(row)) continue;
    places_[row] = kGone;
    ++gone_;
  }
}

void KeysetRows::EachCell(const std::vector<int>& columns, const Visit& visit) const {
  const bool inKey = std::all_of(columns.begin(), columns.end(), [this](int column) { return KeyPlace(column) >= 0; });
  inKey ? EachKeyAlone(columns, visit) : EachUnread(columns, visit);
  std::vector<Cell> cells(columns.size());
  for (RowId row = 0; row < RowCount(); ++row) {
    if (!IsRead(row) || IsGone(row)) continue;
    for (std::size_t i = 0; i < columns.size(); ++i) cells[i] = At(row, columns[i]);
    visit(row, cells.data());
  }
}

void KeysetRows::EachKeyAlone(const std::vector<int>& columns, const Visit& visit) const {
  std::vector<Cell> cells(columns.size());
  for (RowId row = 0; row < RowCount(); ++row) {
    if (IsRead(row) && !IsGone(row)) continue;
    for (std::size_t i = 0; i < columns.size(); ++i) cells[i] = keys_->At(row, KeyPlace(columns[i]));
    visit(row, cells.data());
  }
}

void KeysetRows::EachUnread(const std::vector<int>& columns, const Visit& visit) const {
  QStringList names = keyColumns_;
  for (const int column : columns) names << columns_[column];
  const FetchedRows read = session_.FetchUntold(statement_.OfColumnsUnordered(names), TextOrder::Plain);
  std::vector<bool> isVisited(RowCount());
  std::vector<Cell> cells(std::size_t(names.size()));
  RowId next = 0;
  for (std::size_t at = 0; at < read.rows->RowCount(); ++at) {
    read.rows->Read(at, cells.data());
    // Mostly they come in the order of the keys.
    const auto row = next < RowCount() && HasKey(next, cells.data()) ? std::optional(next) : FindKey(cells.data());
    if (!row) continue;
    next = *row + 1;
    if (IsRead(*row) || isVisited[*row]) continue;
    isVisited[*row] = true;
    visit(*row, cells.data() + keyNames_.size());
  }
  // What the condition leaves out by now is read by its key, and visited as read or found to be gone.
  std::vector<RowId> missing;
  for (RowId row = 0; row < RowCount(); ++row)
    if (!IsRead(row) && !isVisited[row]) missing.push_back(row);
  Load(missing);
}

bool KeysetRows::HasKey(RowId row, const Cell* key) const {
  for (int i = 0; i < int(keyNames_.size()); ++i)
    if (!SameCell(keys_->At(row, i), key[i])) return false;
  return true;
}

std::optional<RowId> KeysetRows::FindKey(const Cell* key) const {
  if (!index_) index_ = std::make_unique<KeyIndex>(*keys_);
  return index_->Find(key);
}

}  // namespace folvane
