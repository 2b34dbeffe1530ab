#pragma once

#include <QString>
#include <QVariant>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <folvane/Connection.h>

#include "data/Recordset.h"

namespace folvane {

/// A text to be put in the place of another in the values of a field.
struct Replacement {
  QString find, value;
  bool wholeValue = false;  ///< only values that equal `find`, case included
  bool matchCase = false;   ///< of parts of a value; a whole value always matches case

  /// What becomes of a value; none when it stays as it is.
  std::optional<QString> Of(const QVariant& stored) const;
};

/// What the records of a table meet that the browser shows under a rights condition and a query; "1=1" for all.
QString BrowserFilter(const QString& rights, const QString& query);

/// Puts a value into an empty field of many records by two statements: one for nulls, one for empty texts.
struct FillOfEmpty {
  QString table, field, value, filter;

  std::array<QString, 2> Statements() const;
  /// The records that the statements would change. @throws DataError
  qint64 Count(const std::shared_ptr<Connection>& connection) const;
  /// @throws DataError
  void Run(Connection& connection) const;
};

/// Walks through a record set and replaces in one field of each record. What has been walked over is written in
/// portions, so that an error or a stop leaves the records before it changed and written, the others as they were, and
/// nothing waiting; a value that does not fit the field is found before anything is changed. The record set stands
/// afterwards where it stood.
class BatchWalk {
 public:
  enum class Direction { All, Down, Up };
  /// Is told how many records of how many have been walked over; answers whether to go on.
  using Progress = std::function<bool(qint64 done, qint64 maximum)>;

  /// @param row where to begin, from 1; of no account for Direction::All
  BatchWalk(Recordset& records, QString field, Replacement replacement, Direction direction, qint64 row);

  /// The records that Run would change. @throws DataError for a field that is not there
  qint64 Count();
  /// @return whether the walk came to its end @throws DataError after the records before the failing one have been
  /// written
  bool Run(const Progress& progress);
  /// The records changed so far.
  qint64 Written() const { return written_; }

 private:
  void Start();
  bool OnRow() const;
  void Step();
  std::optional<QString> Replaced() const;
  void CheckLengths();
  bool Walk(const Progress& progress);
  void Replace();
  void WritePortion();
  void WriteSingly();

  Recordset& records_;
  QString field_;
  Replacement replacement_;
  Direction direction_;
  qint64 row_;
  std::vector<qint64> portion_;  ///< bookmarks of the rows changed and not yet written
  qint64 written_ = 0;
};

}  // namespace folvane
