#pragma once

#include <QString>
#include <functional>

#include <folvane/HostServices.h>

#include "data/Recordset.h"
#include "records/MovePlan.h"
#include "records/RecordListModel.h"

namespace folvane {

/// Fills a list with a window of a record set, a page at a time and growing as the user moves. The record set holds all
/// rows; the list holds those shown so far. Which row is selected is the view's business: indexes here count from 1.
class PagedRecordList {
 public:
  /// Is told how many rows of how many have been added; done >= 0 while filling, -1 when the filling has ended.
  using Progress = std::function<void(int done, int maximum)>;
  /// Is given what there is to say to the user about rows that could not be added, before anything else is done.
  using Failure = std::function<void(const MessageRequest& message)>;

  PagedRecordList(Recordset& records, RecordListModel& list, Progress progress, Failure failure)
      : records_(records), list_(list), progress_(std::move(progress)), failure_(std::move(failure)) {}

  /// Adds up to that many rows from the cursor on, at the end of the list or, backwards, before its first row. The
  /// cursor ends one past them. An error is told and ends the filling; the rows added so far stay.
  void FillRows(int maximum, SearchDirection direction = SearchDirection::Forward);

  /// Starts the list over with the page from the cursor on.
  void Refill();
  /// Fills a page that came out short with the rows before that position.
  /// @return the rows added, which stand before the others
  int FillUpBefore(qint64 position);

  /// Puts the cursor on a record. @return whether it is there
  bool PositionOn(const QString& key);
  /// The same, on the first record when that one is gone or no key is given.
  void PositionOnOrFirst(const QString& key);

  /// Brings the record at an absolute position into the list, whose selected row is `selected`.
  /// @return the index of its row; 0 when it is the selected one, or when nothing could be shown
  int GoTo(qint64 position, int selected);

 private:
  bool AddRow(SearchDirection direction);
  ListRow ReadRow() const;
  int Restart(qint64 position, bool fillUp);
  int Grow(int edgeRow, SearchDirection direction, int rows);

  Recordset& records_;
  RecordListModel& list_;
  Progress progress_;
  Failure failure_;
};

}  // namespace folvane
