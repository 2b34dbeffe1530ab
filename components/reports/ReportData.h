#pragma once

#include <QDateTime>
#include <QHash>
#include <QString>
#include <memory>
#include <vector>

#include <folvane/ReportRequest.h>

#include "components/reports/ReportTable.h"

namespace folvane::reports {

/// All that a report says: the rows that its request names, and what belongs to them.
class ReportData {
 public:
  /// @param order what the rows are ordered by: columns with Asc or Desc; "" for the order of registration
  /// @throws DataError Usage when nothing is selected or nothing meets the conditions
  ReportData(const ReportRequest& request, const QString& order);

  QString Title() const { return title_; }      ///< the report's name
  QString User() const { return user_; }        ///< "" when not known
  QDateTime Moment() const { return moment_; }  ///< when it was made
  const ReportTable& Main() const { return main_; }
  /// The lines of the sheets that the main table holds; nullptr where it holds none.
  const ReportTable* Lines() const { return lines_.get(); }
  /// The rows of the lines that belong to a row of the main table, in their order.
  std::vector<qint64> LinesOf(qint64 row) const { return Kin(row, lines_.get()); }
  /// The sheets of the lines that the main table holds; nullptr where it holds none.
  const ReportTable* Heads() const { return heads_.get(); }
  /// The row of the sheet that a row of the main table belongs to, -1 for none.
  qint64 HeadOf(qint64 row) const;

 private:
  std::unique_ptr<ReportTable> ReadKin(Connection& connection, const QString& table);
  std::vector<qint64> Kin(qint64 row, const ReportTable* table) const;

  QString title_, user_;
  QDateTime moment_;
  ReportTable main_;
  std::unique_ptr<ReportTable> lines_, heads_;
  QHash<QString, std::vector<qint64>> kin_;  ///< rows of the lines, or of the heads, by the key of the sheet
};

/// What stands behind Where for a request: its conditions, each in brackets, joined by And. The number of a sheet,
/// which only the head has, finds its lines too. @throws DataError Usage for a selection of nothing
QString ConditionsOf(const ReportRequest& request);

}  // namespace folvane::reports
