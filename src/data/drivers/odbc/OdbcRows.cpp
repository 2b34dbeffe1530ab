#include "data/drivers/odbc/OdbcRows.h"

#include <algorithm>
#include <memory>
#include <sqlext.h>
#include <string>

#include "data/RowStore.h"
#include "data/drivers/odbc/OdbcStatement.h"
#include "data/drivers/odbc/OdbcTypes.h"

namespace folvane {

namespace {

// Buffers of one block of rows stay within the processor's near cache, where filling and emptying them is cheapest.
constexpr std::size_t kBlockBytes = std::size_t(128) << 10;
constexpr std::size_t kMostBlockRows = 256;
constexpr std::size_t kFirstWidth = 256;  // of a column whose values may be longer
constexpr std::size_t kMostWidth = std::size_t(16) << 10;
constexpr std::size_t kPieceSize = std::size_t(64) << 10;

SQLSMALLINT MemoryType(Cell::Kind kind) {
  switch (kind) {
    case Cell::Integer:
      return SQL_C_SBIGINT;
    case Cell::Real:
      return SQL_C_DOUBLE;
    case Cell::Bytes:
      return SQL_C_BINARY;
    default:
      return SQL_C_CHAR;
  }
}

// Text is given with a zero byte at its end, for which a buffer needs room.
std::size_t EndBytes(Cell::Kind kind) { return kind == Cell::Text ? 1 : 0; }

void Append(RowStore& rows, Cell::Kind kind, const char* value, SQLLEN length) {
  if (length == SQL_NULL_DATA) return rows.AddNull();
  qint64 integer = 0;
  double real = 0;
  switch (kind) {
    case Cell::Integer:
      std::memcpy(&integer, value, sizeof integer);
      return rows.AddInteger(integer);
    case Cell::Real:
      std::memcpy(&real, value, sizeof real);
      return rows.AddReal(real);
    case Cell::Bytes:
      return rows.AddBytes(value, size_t(length));
    default:
      return rows.AddText(value, size_t(length));
  }
}

// A value of the current row of any length, piece by piece.
SQLLEN GetWhole(OdbcStatement& statement, SQLUSMALLINT column, Cell::Kind kind, std::string& value) {
  const std::size_t end = EndBytes(kind);
  std::size_t filled = 0;
  std::size_t room = kPieceSize;
  for (;;) {
    value.resize(filled + room);
    SQLLEN left = 0;
    const SQLRETURN outcome = statement.Check(
        SQLGetData(statement.Handle(), column, MemoryType(kind), value.data() + filled, SQLLEN(room), &left));
    if (left == SQL_NULL_DATA) return SQL_NULL_DATA;
    if (outcome == SQL_NO_DATA) break;
    const bool whole = left != SQL_NO_TOTAL && size_t(left) + end <= room;
    filled += whole ? size_t(left) : room - end;
    if (whole) break;
    room = left == SQL_NO_TOTAL ? kPieceSize : size_t(left) - (room - end) + end;
  }
  return SQLLEN(filled);
}

/// The rows of a result by blocks into bound buffers. A value that is longer than its buffer is read again whole.
class BlockReader {
 public:
  BlockReader(OdbcStatement& statement, const std::vector<OdbcColumn>& columns, RowStore& rows)
      : statement_(statement), rows_(rows) {
    std::size_t rowBytes = 0;
    for (const OdbcColumn& column : columns) {
      bound_.push_back({column.kind, FirstWidth(column), {}, {}});
      rowBytes += bound_.back().width;
    }
    blockRows_ = std::clamp<std::size_t>(kBlockBytes / std::max<std::size_t>(rowBytes, 1), 1, kMostBlockRows);
  }

  void Read() {
    SetAttribute(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(blockRows_));
    SetAttribute(SQL_ATTR_ROWS_FETCHED_PTR, &fetched_);
    outcomes_ = std::make_unique<SQLUSMALLINT[]>(blockRows_);
    SetAttribute(SQL_ATTR_ROW_STATUS_PTR, outcomes_.get());
    for (std::size_t i = 0; i < bound_.size(); ++i) Bind(i);
    while (statement_.Check(SQLFetch(statement_.Handle())) != SQL_NO_DATA) {
      for (std::size_t row = 0; row < fetched_; ++row) AppendRow(row);
      Widen();
    }
  }

 private:
  struct Column {
    Cell::Kind kind;
    std::size_t width;
    std::unique_ptr<char[]> buffer;
    std::unique_ptr<SQLLEN[]> lengths;
    std::size_t longest = 0;
  };

  static std::size_t FirstWidth(const OdbcColumn& column) {
    if (column.kind == Cell::Integer || column.kind == Cell::Real) return sizeof(qint64);
    const auto most = size_t(column.mostBytes) + EndBytes(column.kind);
    return column.mostBytes == 0 ? kFirstWidth : std::min(most, kFirstWidth);
  }

  void SetAttribute(SQLINTEGER attribute, SQLPOINTER value) {
    statement_.Check(SQLSetStmtAttr(statement_.Handle(), attribute, value, 0));
  }

  void Bind(std::size_t index) {
    Column& column = bound_[index];
    column.buffer = std::make_unique<char[]>(column.width * blockRows_);
    column.lengths = std::make_unique<SQLLEN[]>(blockRows_);
    statement_.Check(SQLBindCol(statement_.Handle(), SQLUSMALLINT(index + 1), MemoryType(column.kind),
                                column.buffer.get(), SQLLEN(column.width), column.lengths.get()));
  }

  void AppendRow(std::size_t row) {
    // An error of one row leaves the call a success.
    if (outcomes_[row] == SQL_ROW_ERROR) statement_.Check(SQL_ERROR);
    for (std::size_t i = 0; i < bound_.size(); ++i) {
      Column& column = bound_[i];
      const SQLLEN length = column.lengths[row];
      const bool whole =
          length == SQL_NULL_DATA || (length >= 0 && size_t(length) + EndBytes(column.kind) <= column.width);
      if (whole)
        Append(rows_, column.kind, column.buffer.get() + row * column.width, length);
      else
        AppendAgain(row, i);
    }
    rows_.EndRow();
  }

  void AppendAgain(std::size_t row, std::size_t index) {
    Column& column = bound_[index];
    statement_.Check(SQLSetPos(statement_.Handle(), SQLSETPOSIROW(row + 1), SQL_POSITION, SQL_LOCK_NO_CHANGE));
    const SQLLEN length = GetWhole(statement_, SQLUSMALLINT(index + 1), column.kind, whole_);
    if (length != SQL_NULL_DATA) column.longest = std::max(column.longest, size_t(length));
    Append(rows_, column.kind, whole_.data(), length);
  }

  // Reading again costs more than a wider buffer, where values of that length are likely to come again.
  void Widen() {
    for (std::size_t i = 0; i < bound_.size(); ++i) {
      Column& column = bound_[i];
      const std::size_t needed = std::min(column.longest + EndBytes(column.kind), kMostWidth);
      if (needed <= column.width) continue;
      column.width = std::min(needed + needed / 2, kMostWidth);
      Bind(i);
    }
  }

  OdbcStatement& statement_;
  RowStore& rows_;
  std::vector<Column> bound_;
  std::size_t blockRows_ = 1;
  SQLULEN fetched_ = 0;
  std::unique_ptr<SQLUSMALLINT[]> outcomes_;
  std::string whole_;
};

// Whether a bound value of any row of a block can be read again.
bool CanReadAgain(SQLHDBC connection) {
  SQLUINTEGER extensions = 0;
  SQLGetInfo(connection, SQL_GETDATA_EXTENSIONS, &extensions, sizeof extensions, nullptr);
  constexpr SQLUINTEGER kNeeded = SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER | SQL_GD_BLOCK | SQL_GD_BOUND;
  return (extensions & kNeeded) == kNeeded;
}

bool AllFit(const std::vector<OdbcColumn>& columns) {
  return std::all_of(columns.begin(), columns.end(), [](const OdbcColumn& column) {
    return column.kind == Cell::Integer || column.kind == Cell::Real ||
           (column.mostBytes > 0 && size_t(column.mostBytes) < kFirstWidth);
  });
}

}  // namespace

void ReadRows(OdbcStatement& statement, const std::vector<OdbcColumn>& columns, RowStore& rows) {
  if (!AllFit(columns) && !CanReadAgain(statement.Connection())) return ReadRowsOneByOne(statement, columns, rows);
  rows.SetColumnCount(int(columns.size()));
  BlockReader(statement, columns, rows).Read();
}

void ReadRowsOneByOne(OdbcStatement& statement, const std::vector<OdbcColumn>& columns, RowStore& rows) {
  rows.SetColumnCount(int(columns.size()));
  std::string value;
  while (statement.Check(SQLFetch(statement.Handle())) != SQL_NO_DATA) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const SQLLEN length = GetWhole(statement, SQLUSMALLINT(i + 1), columns[i].kind, value);
      Append(rows, columns[i].kind, value.data(), length);
    }
    rows.EndRow();
  }
}

}  // namespace folvane
