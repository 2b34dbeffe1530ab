#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace folvane {

/// A statement of the form "Select * From t [Where ...] [Order By ...]", of which other statements over the same rows
/// can be made.
class KeysetStatement {
 public:
  /// Nothing for a statement of any other form.
  static std::optional<KeysetStatement> Read(const QString& statement);

  /// The table as the statement names it.
  const QString& Table() const { return table_; }
  bool HasCondition() const { return hasCondition_; }
  bool HasOrder() const { return orderAt_ < text_.size(); }

  /// The same rows in the same order with these columns alone.
  QString OfColumns(const QStringList& columns) const;
  /// The same rows in any order with these columns alone.
  QString OfColumnsUnordered(const QStringList& columns) const;
  /// No more rows than that.
  QString OfFirst(qint64 rows) const;
  /// Counts the rows of the whole table, up to that many.
  QString CountingUpTo(qint64 rows, const QString& column) const;

 private:
  QString Selecting(const QString& what, qsizetype end) const;

  QString text_, table_;
  qsizetype starAt_ = 0;
  qsizetype orderAt_ = 0;  ///< where Order By begins; the length of the text without it
  bool hasCondition_ = false;
};

}  // namespace folvane
