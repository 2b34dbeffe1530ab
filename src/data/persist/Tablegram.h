#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <vector>

#include "data/Schema.h"

// A record set as ADO persists it with adPersistADTG, the Advanced Data TableGram format: what a file holds, part for
// part and nothing interpreted away, so that it can be written again as it was. The layout is that of the open protocol
// document MS-ADTG, with the deviations of files that ADO writes.
namespace folvane {

/// The ids of the parts of a file.
namespace TablegramToken {
enum : uchar {
  Header = 0x01,
  HandlerOptions = 0x02,
  Result = 0x03,
  Table = 0x05,
  Column = 0x06,
  OriginalRow = 0x07,
  Change = 0x0a,
  Deletion = 0x0c,
  Insertion = 0x0d,
  End = 0x0f,
  Context = 0x10,
  OfChild = 0x80,  ///< added to the four of rows: the number of the child record set follows
};
}  // namespace TablegramToken

/// What every file begins with: the mark, version 0.0, little-endian, and nothing said of the texts of 8 bits. ADO
/// knows no others.
inline constexpr QByteArrayView kTablegramHeader("\x01\x07TG!\0\0\0\0", 9);

/// Bits of ColumnDescriptor::flags.
namespace ColumnFlag {
enum : quint32 {
  Write = 0x04,
  Fixed = 0x10,
  Nullable = 0x20,
  MayBeNull = 0x40,
  Long = 0x80,
  Chapter = 0x2000,
  Key = 0x8000,
};
}

/// Bits of ColumnDescriptor::presence: which of the optional parts a descriptor has.
namespace ColumnPart {
enum : quint32 {
  Name = 0x800000,
  Table = 0x400000,
  TableColumn = 0x200000,
  TableColumnName = 0x100000,
  Catalog = 0x020000,
  Schema = 0x010000,
  CollatingSequence = 0x008000,
  ComputeMode = 0x004000,
  DateTimePrecision = 0x002000,
  DefaultValue = 0x001000,
  AutoIncrement = 0x000100,
  CaseSensitive = 0x000080,
  MultiValued = 0x000040,
  Searchable = 0x000020,
  Unique = 0x000010,
  OctetLength = 0x000008,
  Calculation = 0x000004,
};
}

/// The settings of whoever handles updates, one to a file. `rest` stands for what a frame holds behind its known
/// parts, here and below.
struct HandlerOptions {
  QByteArrayView classId;
  uchar updateKind = 1;
  QString originalUrl, updateUrl, friendlyName;
  quint16 asyncOption = 0;
  QByteArrayView rest;
};

/// A table of the database that columns come from.
struct TableDescriptor {
  quint16 ordinal = 0;  ///< from 1
  QString originalName, updateName;
  quint16 codePage = 0, columnCount = 0;
  std::vector<quint16> key;  ///< ordinals of columns of the record set
  QByteArrayView rest;
};

/// A column of a record set.
struct ColumnDescriptor {
  quint32 presence = ColumnPart::Name | ColumnPart::AutoIncrement;
  quint16 ordinal = 0;  ///< from 1
  QString name;
  quint16 table = 0, tableColumn = 0;
  QString tableColumnName;
  quint16 type = 0;       ///< AdoType; of texts and bytes only Char, WChar and Binary
  quint32 maxLength = 0;  ///< in UTF-16 units for texts of type 130, else in bytes
  quint32 precision = 0;
  qint32 scale = 0;
  quint32 flags = 0;
  QString catalog, schema;
  QByteArrayView beforeAutoIncrement;  ///< collating sequence to default value
  quint16 autoIncrement = 0;
  QByteArrayView afterAutoIncrement;  ///< case sensitive to octet length
  quint16 visible = 0xffff;           ///< 0 for what the engine added for itself
  quint32 child = 0;                  ///< in a child record set its number
  int childSet = -1;                  ///< of a chapter: index of the record set behind it
  QByteArrayView relation;            ///< of a chapter: triples of parent column, child column and kind, 4 bytes each
  QByteArrayView relationEnd;
  QByteArrayView calculation;
  QByteArrayView rest;

  bool IsChapter() const { return type == AdoType::Chapter || (flags & ColumnFlag::Chapter); }
  /// Whether the presence bitmap of an original row has a bit for it.
  bool HasPresenceBit() const { return (flags & (ColumnFlag::Nullable | ColumnFlag::MayBeNull)) || IsChapter(); }
};

/// How the bytes of a column's values lie in a row.
struct ValueLayout {
  enum Kind : uchar { Given, ByteCount, LongCount };
  Kind kind = Given;      ///< a size known beforehand, or a count of bytes ahead of them, of one or of four bytes
  bool presence = false;  ///< HasPresenceBit
  uchar unit = 1;         ///< what a count is a multiple of
  uchar least = 0;        ///< the smallest count
  std::size_t most = 0xffffffff;  ///< the greatest count
  std::size_t size = 0;           ///< where it is given
};

/// A maximal length that says there is none.
inline constexpr quint32 kNoLimit = 0xffffffff;

/// One record set of a file: the root, or the set behind a chapter.
struct TablegramSet {
  QByteArrayView resultId;
  uchar resultInfo = 0, cursorModel = 0, normalization = 0;
  quint16 visibleColumns = 0, totalColumns = 0, computedColumns = 0, tableCount = 0, orderByColumns = 0;
  quint32 rowCount = 0;              ///< told, not relied on: with a filter it counts the rows outside it
  QByteArrayView resultProperties;   ///< property sets, as their bytes
  QByteArrayView contextProperties;  ///< property sets, as their bytes
  std::vector<TableDescriptor> tables;
  std::vector<ColumnDescriptor> columns;
  std::vector<ValueLayout> layouts;  ///< by column
  std::size_t presenceBits = 0;      ///< columns with such a bit
  int parent = -1;                   ///< index of the set that holds the chapter
  int parentColumn = -1;             ///< index of that chapter's column
};

/// Everything ahead of the rows. What are views in it live as long as the bytes that it was read from.
struct Tablegram {
  HandlerOptions options;
  std::vector<TablegramSet> sets;  ///< the root first, the others as their numbers say, from 2

  bool IsHierarchical() const { return sets.size() > 1; }
};

/// What a row says of a column.
struct TablegramCell {
  /// Assigned and null at once occurs in no file; it is read as null.
  enum State : uchar { Untouched, Value, Null, ValueAndNull };
  State state = Untouched;
  QByteArrayView bytes;  ///< of a value, without their count
};

/// A row, or what became of the row ahead of it.
struct TablegramRow {
  enum Kind { Original, Change, Deletion, Insertion };

  Kind kind = Original;
  int set = 0;                       ///< index in Tablegram::sets
  std::vector<TablegramCell> cells;  ///< by column; of no meaning in a deletion
  /// The bits behind the last column's, in the last byte of the presence bitmap or of the two maps. ADO sets those of a
  /// presence bitmap and clears those of the maps.
  uchar padding = 0, nullPadding = 0;
};

}  // namespace folvane
