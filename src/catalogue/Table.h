#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace folvane {

/// What a column holds, in words that every database knows. A date is text of the form YYYY-MM-DD where the database
/// would otherwise take it for a number.
enum class ColumnType { Text, LongText, Integer, Date, Blob };

struct Column {
  QString name;
  ColumnType type = ColumnType::Text;
  int length = 0;  ///< characters of a Text column
};

/// A table as it is made on an empty database.
struct Table {
  QString name;
  std::vector<Column> columns;
  QStringList key;                   ///< columns of the primary key; none where rows may repeat
  std::vector<QStringList> indexes;  ///< further indexes, by their columns

  /// The column of that name without regard to case, nullptr when there is none.
  const Column* Find(const QString& column) const;
};

/// A business table: the given columns behind the key ArchiveID, which is put first where they lack it.
Table BusinessTable(const QString& name, std::vector<Column> columns, std::vector<QStringList> indexes = {});

}  // namespace folvane
