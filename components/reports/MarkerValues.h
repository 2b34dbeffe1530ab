#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "components/reports/ReportData.h"

namespace folvane::reports {

/// Where in a template a marker stands.
enum class Scope { Root, Group, Row, Line };

/// What the template is being filled with at that place.
struct Place {
  Scope scope = Scope::Root;
  std::vector<qint64> rows;      ///< the rows that counts and sums cover: all, or those of a group
  qint64 row = 0;                ///< the first one outside of ROWS
  int number = 1;                ///< of the row or of the line, from 1
  qint64 line = -1;              ///< of the lines, -1 outside of LINES
  std::optional<QString> group;  ///< what the rows of the group have in common, nothing outside of a group
};

/// What a marker stands for at a place, as plain text; nothing for a name that is not known there.
std::optional<QString> ValueOf(const QString& name, const Place& place, const ReportData& data);

/// What the rows of a group have in common in a section that makes groups: BY_, YEARS_OF_ or MONTHS_OF_ and a field;
/// nothing for a name that is none.
std::optional<QString> GroupOf(const QString& section, qint64 row, const ReportData& data);

/// A date such as 2002-03-04 or 20020304 as 2002年3月4日, a month as 2002年3月; any other text as it is.
QString ChineseDate(const QString& text);

}  // namespace folvane::reports
