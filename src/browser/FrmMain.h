#pragma once

#include <QMainWindow>
#include <memory>

#include "browser/BrowserState.h"

class QSplitter;
class QTreeView;

namespace folvane {

class BrowserCommands;
class BrowserStatus;
class BulkCommands;
class ClassTreePart;
class FilterBar;
class OriginalsView;
class QueryCommands;
class RecordCommands;
class RecordListPart;
class RecordListView;
class RelatedRecords;
class SearchBar;
class ViewHint;

/// The record browser: the class tree on the left, the records of the chosen table on the right with the originals of
/// the selected one beneath.
class FrmMain : public QMainWindow {
 public:
  FrmMain();
  ~FrmMain() override;

  /// The work of the first activation; later ones do nothing. @throws DataError
  void Start();
  /// Keeps the place for the next start and lets go of the records; nothing the second time. The closing of the window
  /// does it, after the windows over it have been closed; whoever hides it calls this.
  void End();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void LayOut();
  void AddTreeView();
  void AddListViews();
  void AddParameterView();
  void Connect();
  void ConnectMoves();
  void ConnectCommands();
  void OpenRow();
  void LiftFilter();
  void RestoreSplitters();
  void KeepSplitters() const;
  void ShowOriginalsMenu(const QPoint& at);

  BrowserState state_;
  std::unique_ptr<BrowserCommands> commands_;
  BrowserStatus* status_;
  SearchBar* search_;
  FilterBar* limits_;
  QTreeView* treeView_;
  RecordListView* listView_;
  ViewHint* listHint_;
  OriginalsView* originals_;
  QSplitter *columns_, *rows_;
  std::unique_ptr<RecordListPart> list_;
  std::unique_ptr<ClassTreePart> tree_;
  std::unique_ptr<RelatedRecords> related_;
  std::unique_ptr<RecordCommands> recordCommands_;
  std::unique_ptr<BulkCommands> bulkCommands_;
  std::unique_ptr<QueryCommands> queryCommands_;
};

}  // namespace folvane
