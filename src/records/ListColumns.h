#pragma once

#include <QString>

class QTreeView;
class QWidget;

namespace folvane {

class RecordListModel;

/// Gives a list the columns that the design has for a table, and as the last one the hidden column of the record's key.
/// Rows that the list had are gone.
void BuildColumns(RecordListModel& list, const QString& table);

/// The width of a column in pixels. One as narrow as a dot is meant not to be seen.
int DesignedColumnWidth(const QWidget& list, int twips);

/// The widths of a list's columns: as the design has them, or as the user left them for the table.
class ColumnWidths {
 public:
  /// @param list shows the model
  ColumnWidths(QTreeView& list, const RecordListModel& model) : list_(list), model_(model) {}

  /// Gives the columns that the list has for a table their widths.
  void Show(const QString& table);
  /// Keeps those that the user has changed since then; nothing the second time.
  void Keep();

 private:
  int BoxRoom(size_t column) const;

  QTreeView& list_;
  const RecordListModel& model_;
  QString table_;  ///< the table whose widths the list has, "" for none
};

}  // namespace folvane
