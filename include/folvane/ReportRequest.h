#pragma once

#include <QString>
#include <memory>

#include <folvane/Connection.h>

namespace folvane {

/// A report that is to be shown, and what it is to cover. Conditions are written as they stand behind Where; an empty
/// one limits nothing, and all that are given hold together.
struct ReportRequest {
  std::shared_ptr<Connection> connection;
  QString mainTable;        ///< the table that the rows come from
  QString reportId;         ///< Report_Index.Report_ID
  QString secondTable;      ///< the record's table; that of a sheet is its head
  QString rightsCondition;  ///< the rows that the user may see; flow sheets have none
  QString filter;           ///< the query or the node of the list
  QString selection;        ///< the rows that the user chose
  QString userName{};       ///< for reports that say who printed them; "" when not known
};

}  // namespace folvane
