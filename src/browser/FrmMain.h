#pragma once

#include <QMainWindow>
#include <memory>

#include "records/TableParameters.h"

class QSplitter;
class QTreeView;

namespace folvane {

class ArchiveCommands;
class BrowserCommands;
class BulkCommands;
class ExchangeCommands;
class FilterBar;
class ListLimits;
class ListStatus;
class OriginalCommands;
class OriginalsView;
class QueryCommands;
class RecordCommands;
class RecordList;
class RecordListView;
class RelatedRecords;
class SearchBar;
class TableNavigation;
class ViewHint;
struct BrowserView;
struct ReportRow;

/// Opens the record browser and returns when the user has closed it. Its tree and list are built anew each time.
/// @throws DataError what fails while it opens
void ShowRecordBrowser();

/// The record browser: the class tree on the left, the records of the chosen table on the right with the originals of
/// the selected one beneath.
class FrmMain : public QMainWindow {
 public:
  FrmMain();
  ~FrmMain() override;

  /// The work of the first activation. @throws DataError
  void Start();
  /// Keeps the table in view for the next start and lets go of the records; nothing the second time. The closing of the
  /// window does it, after the windows over it have been closed; whoever hides it calls this.
  void End();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void LayOut();
  void AddTreeView();
  void AddListViews();
  void MakeList();
  void MakeNavigation();
  void Connect();
  void ConnectMoves();
  void ConnectCommands();
  void ConnectOriginals();
  void ConnectArchiving();

  // What the window does as another table, other records or another row come into view.
  void LeaveTable();
  void EnterTable();
  void ShowRow();
  void TellShown();
  void TellUnchanged();
  BrowserView View() const;

  void SortByColumn(int column);
  void GoToNumber(bool byPage);
  void OpenRow();
  void RunReport(const ReportRow& report);
  void LiftFilter();
  void RestoreSplitters();
  void KeepSplitters() const;
  void ShowOriginalsMenu(const QPoint& at);

  TableParameters parameters_;
  std::unique_ptr<BrowserCommands> commands_;
  ListStatus* status_;
  SearchBar* search_;
  FilterBar* filterBar_;
  QTreeView* treeView_;
  RecordListView* listView_;
  ViewHint* listHint_;
  OriginalsView* originals_;
  QSplitter *columns_, *rows_;
  std::unique_ptr<RecordList> list_;
  std::unique_ptr<TableNavigation> tables_;
  std::unique_ptr<ListLimits> limits_;
  std::unique_ptr<RelatedRecords> related_;
  std::unique_ptr<RecordCommands> recordCommands_;
  std::unique_ptr<BulkCommands> bulkCommands_;
  std::unique_ptr<QueryCommands> queryCommands_;
  std::unique_ptr<OriginalCommands> originalCommands_;
  std::unique_ptr<ArchiveCommands> archiveCommands_;
  std::unique_ptr<ExchangeCommands> exchangeCommands_;
};

}  // namespace folvane
