#pragma once

#include <QSet>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "data/Recordset.h"

namespace folvane {

/// Adds the records of a file to a table that lacks them: those whose key the table does not have. A field goes into
/// the one of its name, two old spellings among them; a text is cut to its field. All are added or none.
class RecordImport {
 public:
  /// Is told before each record how many of how many were looked at; answers false to leave everything as it is.
  using Progress = std::function<bool(qint64 done, qint64 total)>;

  /// @param records of the table, open for writing
  RecordImport(QString table, Recordset& records);

  /// Reads the file and writes what it adds. Whatever happens, no changes wait in the records afterwards, and they
  /// stand where they stood.
  /// @return how many records were added, none when the progress ended it
  /// @throws DataError for a file that cannot be read or that has no keys, and for a value or a row that is refused
  std::optional<qint64> Run(const QString& path, const Progress& progress);

 private:
  /// A field of the file and the one of the table that takes it.
  struct Way {
    int from, to;
    bool isDate;
  };

  void FindWays();
  int TargetOf(const QString& field) const;
  bool AddAll(const Progress& progress);
  bool IsNew(const QString& key);
  void AddRow();
  QVariant Converted(const QVariant& value, const Way& way) const;

  QString table_;
  Recordset& records_;
  Recordset file_;
  int key_ = -1;  ///< the file's field of the key
  std::vector<Way> ways_;
  QSet<QByteArray> added_;  ///< the keys, as they compare
};

}  // namespace folvane
