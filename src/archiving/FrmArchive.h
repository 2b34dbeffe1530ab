#pragma once

#include <QMainWindow>
#include <QString>
#include <memory>

#include "archiving/ArchiveCommandDesign.h"
#include "data/Recordset.h"
#include "records/TableParameters.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QSplitter;
class QTimer;
class QTreeView;

namespace folvane {

class ArchiveFields;
class ClassTree;
class FilterBar;
class ListLimits;
class ListStatus;
class QueryCommands;
class RecordList;
class RecordListView;
class ViewHint;

/// Opens the archive window and returns when the user has closed it; it is unloaded then.
/// @param table that the window begins with, "" for none @throws DataError what fails while it opens
void ShowArchiveWindow(const QString& table);

/// The archive window: the class tree, the records of the chosen table that wait for archiving, of which the user ticks
/// some, and the fields of the archive number that they get. Used through DefaultInstance.
class FrmArchive : public QMainWindow {
 public:
  FrmArchive();
  ~FrmArchive() override;

  QString CurrTable;  ///< the table to begin with, "" for none

  /// Fills the tree and shows the first table. @throws DataError
  void Start();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  enum class Parameters { FromDialog, FromPanel };

  void LayOut();
  void AddTreeView();
  void AddListView();
  void AddPanel();
  void MakeList();
  void Connect();
  void ConnectMoves();
  void ConnectTicking();
  void End();

  void ChooseNode(int node);
  void OpenChosenNode();
  void ShowTable(int node);
  void ShowTableOf(int node);
  void LimitToWaiting(Recordset& records);
  bool ShowsWaiting() const;
  void LoadFields();
  void ShowRow();
  void TellShown();
  void TellTicked();
  void TellForecast();
  QString EmptyListHint() const;
  QString Target() const;
  ArchiveView View() const;
  void Enable(const ArchiveEnabling& enabling);
  void EnableTransfer(bool on);

  void SendKey(Qt::Key key);
  void TickAll(bool on);
  void EditSettings();
  void Archive(Parameters parameters);
  bool TakeParameters(Parameters parameters);
  void Transfer();

  TableParameters parameters_;
  Recordset records_;
  QString tableInView_;  ///< the key of the node that was shown last
  std::unique_ptr<WindowCommands> commands_;
  ListStatus* status_;
  FilterBar* filterBar_;
  QTreeView* treeView_;
  RecordListView* listView_;
  ViewHint* listHint_;
  QCheckBox *tickAll_, *takeOriginals_, *formNumber_;
  QLabel* ticked_;
  QGroupBox* panel_;
  ArchiveFields* fields_;
  QLabel* forecast_;
  QTimer* forecastDue_;
  QPushButton* ok_;
  QSplitter* columns_;
  std::unique_ptr<ClassTree> tree_;
  std::unique_ptr<RecordList> list_;
  std::unique_ptr<ListLimits> limits_;
  std::unique_ptr<QueryCommands> queries_;
};

}  // namespace folvane
