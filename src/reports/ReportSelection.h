#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace folvane {

/// The condition that names the records of those keys in a table; "table.ArchiveID IN ()" for none.
QString GetSelectionClause(const QString& table, const QStringList& keys);

/// The condition that names the one record of an entry form.
QString RecordSelection(const QString& table, const QString& archiveId);

/// The tables of a flow and the columns by which a report finds its sheet and the line of a sheet.
struct SheetTables {
  QString head;                                        ///< such as Distribute_File
  QString details;                                     ///< such as Distribute_Details
  QString headColumn;                                  ///< of the head: such as Distribute_ID
  QString lineColumn = QStringLiteral("Register_ID");  ///< of the head, in front of the line's File_ID
};

/// The values in the current rows of a flow window.
struct SheetValues {
  QString head;                   ///< in headColumn
  QString line;                   ///< in lineColumn of the head
  std::optional<QString> serial;  ///< File_ID of the line; nothing without a current line
};

/// What the report of a sheet covers.
struct SheetReport {
  QString table;      ///< the main table, whose name is the group of its reports too
  QString head;       ///< the head table, which goes with it in any case
  QString selection;  ///< the condition on its rows
  QString hindrance;  ///< why there can be no report, in words for the user; "" when there can
};

/// The report that a flow window prints: of the sheet while the grid of heads is in use, else of the line.
SheetReport ReportOfSheet(const SheetTables& tables, bool detailsInUse, const SheetValues& values);

}  // namespace folvane
