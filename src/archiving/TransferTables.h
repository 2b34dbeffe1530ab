#pragma once

#include <QString>
#include <vector>

#include "archiving/ArchiveNumber.h"
#include "data/Recordset.h"

namespace folvane {

/// What a transfer is to do.
struct TransferOrder {
  QString sourceTable, destinationTable;
  QString sourceStatement;  ///< of the source rows, whole
  bool withOriginals = false;
};

/// A field of the source that a field of the destination takes.
struct MappedField {
  QString SourceField, DesField, SourceChn;
  int sourceIndex = -1, destinationIndex = -1;  ///< in the record sets; -1 for one that is not there
};

inline constexpr int kNoCounter = -1;

/// The field that takes the counter of a number whose item is a page, or its item.
QString SequenceFieldOf(const NumberFormat& format, bool hasDocOrder);
/// The counter of the next record of the rows that are counted together; kNoCounter where the type of the field is not
/// counted. @throws DataError
int FirstCounter(const Recordset& destination, const QString& field, const QString& table, const QString& scopeClause);
/// The first page of the record that has a counter. @throws DataError
int FirstPage(const QString& table, const QString& scopeClause, int counter);

/// What all records of a transfer share: the two tables, opened once, how their fields correspond, the flags that were
/// found once, and the counters.
struct TransferTables {
  /// Reads the map, opens the tables and finds the first numbers, all before the transaction. @throws DataError
  explicit TransferTables(const TransferOrder& order);

  TransferOrder order;
  NumberFormat format;
  QString formatScopeClause;
  std::vector<MappedField> ArchiveFieldMap;
  Recordset source, destination;

  bool hasInputDate, hasArchiveFlag, hasDocOrder, hasQuantity;  ///< in the destination
  bool hasFileStatus;                                           ///< in the source
  QString sequenceField;                                        ///< takes the counter

  int ArchiveCounter = kNoCounter;  ///< of the next record
  int PageCounter = kNoCounter;     ///< the next record's first page

  bool IsCounted() const { return ArchiveCounter != kNoCounter; }
  bool CountsPages() const { return format.CountsPages(); }

 private:
  void ReadFieldMap();
  void FindFields();
};

/// A field by what is known of its place, else by its name. @throws DataError Usage when there is none of the name
inline Field FieldAt(const Recordset& records, int index, const QString& name) {
  return index < 0 ? records.Fields().Item(name) : records.Fields().Item(index);
}

/// Whether a field holds nothing, or nothing but blanks.
bool IsBlank(const Field& field);

}  // namespace folvane
