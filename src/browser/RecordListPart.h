#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>

#include "browser/BrowserParts.h"
#include "records/PagedRecordList.h"

namespace folvane {

class ChoiceRelay;
class Recordset;

/// The record list of the browser: opens the records of the current table, fills the list, moves in it and keeps the
/// commands and the status in step with the selected row.
class RecordListPart {
 public:
  explicit RecordListPart(const BrowserParts& parts);

  /// Empties the list and what belongs to its selected row.
  void Clear();
  /// Gives the list the columns of the current table, as wide as the user left them.
  void ShowColumns();
  void KeepColumnWidths();

  /// Opens the current records by the table's rights, condition and order and shows them from the first. Where the
  /// database refuses that, none are open, the commands that need records are off, and the condition that it took
  /// before is the table's again. @throws DataError
  void ShowFromStart();
  /// Fills the list from the record that the cursor is on and selects it.
  void ShowFromCursor();
  /// Opens the records in another order and shows the one of that key, or the first when it is gone. Where the database
  /// refuses the order everything stays as it is. @throws DataError
  void ShowInOrder(const QString& order, const QString& key);
  /// Reads the records again after a command that changed them and shows the one of that key, or the first.
  void Reload(const QString& key = {});

  /// The key of the current row's record, "" when there is none.
  QString SelectedKey() const;
  /// The keys of all selected rows, from the top.
  QStringList SelectedKeys() const;
  /// What the Enter key runs on a row.
  void OnEnter(std::function<void()> handler) { enter_ = std::move(handler); }
  /// What runs when the list shows something else.
  void OnShown(std::function<void()> handler) { shown_ = std::move(handler); }

  void GoToRecord(qint64 position);
  void NextPage();
  void PreviousPage();
  void FirstRecord() { GoToRecord(1); }
  void LastRecord();

  void UpdateCommands();
  /// Enables the command groups that a table in view and the user's rights allow.
  void EnableCommands();
  void DisableCommands();
  /// Has everything around the list tell what it shows and what limits it.
  void TellShown();

 private:
  void OpenRecords();
  void OpenInOrder(const QString& order);
  void Open(Recordset& records, const QString& order) const;
  void Opened();
  void Refused();
  void ShowEmpty();
  void ChooseRow(int row);
  void SelectRow(int row);
  void ShowOriginals();
  bool HandleKey(int key);
  void SortBy(int column);
  void ShowAt(const QString& key);
  void SetLookFileCommands(bool on);
  void EnableMoves(qint64 position, qint64 count);
  bool HasParentTable() const;

  BrowserParts parts_;
  PagedRecordList pages_;
  ChoiceRelay* choice_;
  std::function<void()> enter_, shown_;
  QHash<int, QString> taken_;  ///< by row of the parameters: the last condition that the database took
  QString widthsOf_;           ///< the table whose column widths stand in the list
};

}  // namespace folvane
