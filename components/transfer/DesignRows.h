#pragma once

#include <QMap>
#include <QStringList>
#include <QVariantList>
#include <vector>

namespace folvane {
class Connection;
}

namespace folvane::transfer {

/// The rows of a design table with all their columns, also those that only the host knows: a row that is written again
/// keeps them.
struct DesignRows {
  QString table;
  QStringList columns;
  std::vector<QVariantList> rows;  ///< in the order in which the database gives them

  /// The column of that name without regard to case, -1 when there is none.
  int Find(const QString& column) const;
  /// "" for null, without blanks at the end.
  QString Text(const QVariantList& row, const QString& column) const;
  QString Exact(const QVariantList& row, const QString& column) const;  ///< with them
  /// Puts a value into a row. One that reads as what is there leaves that as it is, a null a null; an empty row is
  /// given its cells first.
  void Put(QVariantList& row, const QString& column, const QString& text) const;
  void PutExact(QVariantList& row, const QString& column, const QString& text) const;
  void PutNumber(QVariantList& row, const QString& column, const QString& digits) const;

  bool operator==(const DesignRows&) const = default;

 private:
  void PutValue(QVariantList& row, const QString& column, const QVariant& value) const;
};

/// Reads a table whole. @throws DataError
DesignRows ReadDesignRows(Connection& connection, const QString& table);

/// What has to be written so that a table's rows become other ones. Rows without a key of their own, whose order may
/// count, are written group by group: those that share the value of a column. A group that did not change stays as it
/// is; a row that is alone in its group before and after is updated.
class RowChange {
 public:
  RowChange(const DesignRows& before, const DesignRows& after, const QString& groupColumn);

  /// Takes away the groups that changed. @throws DataError Conflict where others are there than were read
  void Delete(Connection& connection) const;
  /// Updates single rows and writes the groups that were taken away, in order. @throws DataError
  void Write(Connection& connection) const;

 private:
  struct Group {
    QVariant value;
    std::vector<QVariantList> before, after;

    bool IsChanged() const { return before != after; }
    bool IsOneRow() const { return before.size() == 1 && after.size() == 1; }
  };

  QString Condition(const Group& group) const;
  void Update(Connection& connection, const Group& group) const;

  QString table_, groupColumn_;
  QStringList columns_;
  QMap<QString, Group> groups_;
};

}  // namespace folvane::transfer
