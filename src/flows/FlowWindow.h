#pragma once

#include <QMainWindow>
#include <QString>
#include <functional>
#include <optional>
#include <utility>

#include "flows/FlowRoute.h"
#include "flows/FlowSheets.h"
#include "records/RecordsetModel.h"

class QLabel;
class QSplitter;
class QTableView;

namespace folvane {

class WindowCommands;
class WindowStatus;

/// The window of a flow: the sheets above, the details of the current one beneath. What differs from flow to flow it
/// takes from the flow's description.
class FlowWindow : public QMainWindow {
 public:
  ~FlowWindow() override;

  QString ArchiveId;  ///< of the record on whose sheet the window opens; "" for the first sheet

  /// Shows the window modally. @throws DataError what fails while it opens
  void Open();

 protected:
  explicit FlowWindow(const Flow& flow);
  /// @param hasten of handling: "1" for reminders, "0" for details
  void SetHasten(const QString& hasten);

  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  enum class Grid { Heads, Details };

  void LayOut();
  QTableView* NewGrid(const QString& name, RecordsetModel& model, const std::vector<GridColumn>& columns);
  void KeepLayOut() const;
  void Connect();
  void ConnectRoute();

  void Start();
  void End();
  void LoadFiles();
  void TakeRow(int row);
  void UseGrid(Grid grid);
  void RefreshFlowCommands(qint16 idle);
  void RefreshFlowCommandsOfHead();

  /// Runs a key of the toolbar: errors end it, and the status line tells.
  void RunKey(const std::function<void()>& work);
  void AddDetail();
  void ModifyCurrent();
  void ModifyHead();
  void ModifyDetail();
  void DeleteCurrent();
  void DeleteMany(bool all);
  void FindOption(bool simple);
  void RunRoute(void (FlowRoute::*operation)());
  void Choise();
  void EditFlow();
  void ShowNotion(const QString& ofUser);
  void SeeFile();
  void Print();

  void ShowHeads();
  void ShowDetails();
  /// Shows the values of the current head anew, with its details and commands.
  void ShowCurrentHead();
  /// Does something with the current head and shows it as it is then.
  void ThenShowHead(const std::function<void()>& work);
  void ShowRoute();
  void ShowPosition();
  bool Confirm(const QString& question, const QString& note = {}) const;

  const Flow& flow_;
  FlowSheets sheets_;
  RecordsetModel headModel_, detailModel_;
  WindowCommands* commands_;
  QSplitter* splitter_;
  QTableView *headGrid_, *detailGrid_;
  QLabel* route_;
  WindowStatus* status_;
  Grid grid_ = Grid::Heads;
  bool started_ = false, showing_ = false;
  std::optional<std::pair<QString, HeadValues>> unsaved_;  ///< what could not be written of a head, by its key
};

class frmDistributeFile : public FlowWindow {
 public:
  frmDistributeFile() : FlowWindow(Distribution()) {}
};

class frmPassFile : public FlowWindow {
 public:
  frmPassFile() : FlowWindow(Circulation()) {}
};

class frmTranSact : public FlowWindow {
 public:
  frmTranSact() : FlowWindow(Handling()) {}

  QString IsHasten;  ///< "0" for handling, "1" for hastening

  void Open() {
    SetHasten(IsHasten);
    FlowWindow::Open();
  }
};

// Each opens a flow's window on the sheet of a record, "" for the first, and returns when it is closed.
// @throws DataError
void ShowDistribution(const QString& archiveId = {});
void ShowCirculation(const QString& archiveId = {});
void ShowHandling(const QString& isHasten, const QString& archiveId = {});

}  // namespace folvane
