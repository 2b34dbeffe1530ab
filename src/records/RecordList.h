#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <functional>

#include "data/Recordset.h"
#include "records/ListColumns.h"
#include "records/PagedRecordList.h"
#include "records/RecordListModel.h"

namespace folvane {

class ChoiceRelay;
class RecordListView;
class TableParameters;

/// How far the records of the table in view have come. Refused are those that the database did not open.
enum class ListRecords { NotOpened, Opened, Refused };

/// The records of a table in a view: opens a record set by the rights, the condition and the order that the parameters
/// have for their selected row, fills the view a page at a time, moves in it and sorts it, and keeps the cursor of the
/// record set on the record of the current row. It says nothing to the user itself.
class RecordList {
 public:
  /// What a list tells its window.
  struct News {
    std::function<void()> opening = {};  ///< records are about to be opened; what was said of those before is over
    std::function<void()> chosen = {};   ///< another row is the current one, or there is none
    std::function<void()> entered = {};  ///< the Enter key was pressed on a row
    PagedRecordList::Progress progress = {};
    PagedRecordList::Failure failure = {};
    /// Records are open and none is shown yet: may set a filter on them. May be empty.
    std::function<void(Recordset&)> opened = {};
    std::function<void()> ticked = {};  ///< other rows are ticked; called where ticks are numbered
  };

  /// Gives the view its model. Every function of the news is called unless it says otherwise.
  RecordList(RecordListView& view, Recordset& records, TableParameters& parameters, News news);

  /// Leaves the table: columns and rows go, and their widths are kept.
  void Clear();
  /// Takes a table into view: gives the list its columns, as wide as the user left them.
  void ShowColumns(const QString& table);
  void KeepColumnWidths() { widths_.Keep(); }
  /// Has no table in view, for one that did not come as far as its records.
  void ForgetTable() { table_.clear(); }

  /// Shows the records of a condition, "" for all that the user may see, from the first. Where the database refuses it,
  /// none are open, and the condition that it took before is the table's again. @throws DataError
  void ShowWhere(const QString& filter);
  /// The same by the condition that the parameters have.
  void ShowFromStart();
  /// Fills the list from the record that the cursor is on and selects it.
  void ShowFromCursor();
  /// Shows no records.
  void ShowNone();
  /// Opens the records in another order and shows the record that was selected, or the first when it is gone. Where the
  /// database refuses the order everything stays as it is. @throws DataError
  void ShowInOrder(const QString& order);
  /// The same for a click on a column: marks it, and keeps the order for the user. @throws DataError
  void SortByColumn(int column);
  /// Reads the records again after a command that changed them and shows the one of that key, or the first.
  void Reload(const QString& key = {});

  void GoToRecord(qint64 position);
  void NextPage();
  void PreviousPage();
  void NextRecord() { GoToRecord(records_.AbsolutePosition() + 1); }
  void PreviousRecord() { GoToRecord(std::max<qint64>(records_.AbsolutePosition() - 1, 1)); }
  void FirstRecord() { GoToRecord(1); }
  void LastRecord() { GoToRecord(RecordCount()); }

  /// The table in view, "" for none.
  const QString& Table() const { return table_; }
  ListRecords State() const { return state_; }
  /// The condition by which the records were opened, or were to be.
  const QString& ShownFilter() const { return shownFilter_; }
  /// Makes the condition of the records in view the table's again, for a command that keeps to what the user sees: the
  /// table's node, chosen anew, has set another one and left the list.
  void HoldFilter();
  /// The table's condition, unless the database has refused it from the start.
  QString TakenFilter() const;
  Recordset& Records() const { return records_; }
  /// The records of the record set, 0 when it is closed.
  qint64 RecordCount() const { return records_.IsOpen() ? records_.RecordCount() : 0; }
  const RecordListModel& Rows() const { return model_; }
  RecordListView& View() const { return view_; }
  /// Gives the rows boxes to tick, which Rows() tells. A tick stays while the user moves in the list; it goes when the
  /// records are opened or read again.
  void SetTickable(bool tickable) { model_.SetTickable(tickable); }
  /// The same with a column that numbers the ticks. A row that is ticked becomes the current one.
  void NumberTicks();
  const QStringList& Ticked() const { return model_.Ticked(); }
  bool HasTicks() const { return !model_.Ticked().isEmpty(); }
  void TickLoaded() { model_.TickLoaded(); }
  void ClearTicks() { model_.ClearTicks(); }
  bool HasFieldColumns() const { return model_.HasFieldColumns(); }
  /// The key of the current row's record, "" when there is none.
  QString SelectedKey() const;
  /// Has the current row show whether its record has originals.
  void ShowOriginals(bool hasOriginals);
  /// The keys of all selected rows, from the top.
  QStringList SelectedKeys() const;

 private:
  void Open(Recordset& records, const QString& order) const;
  void OpenRecords();
  void OpenInOrder(const QString& order);
  void Opened();
  void Refused();
  void ShowAt(const QString& key);
  void SelectRow(int row);
  void ChooseRow(int row);
  void FollowTick(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles);
  bool HandleKey(int key);

  RecordListView& view_;
  Recordset& records_;
  TableParameters& parameters_;
  News news_;
  RecordListModel model_;
  PagedRecordList pages_;
  ColumnWidths widths_;
  ChoiceRelay* choice_;
  QString table_;
  ListRecords state_ = ListRecords::NotOpened;
  QString shownFilter_;
  // By row of the parameters: the last condition that the database took, and one that it refused without having taken
  // any before.
  QHash<int, QString> taken_, untaken_;
};

}  // namespace folvane
