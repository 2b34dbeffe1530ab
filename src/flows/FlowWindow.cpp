#include "flows/FlowWindow.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QTableView>

#include "base/IgnoreErrors.h"
#include "flows/FlowCommands.h"
#include "flows/FlowDialogs.h"
#include "flows/RouteDialogs.h"
#include "originals/OriginalFileAction.h"
#include "query/AskQuery.h"
#include "query/ConditionText.h"
#include "reports/ReportSelection.h"
#include "reports/RunReport.h"
#include "shell/EventGuard.h"
#include "shell/LoadedWindow.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "shell/SharedState.h"
#include "widgets/BusyPointer.h"
#include "widgets/WindowCommands.h"
#include "widgets/WindowStatus.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// The grid that the keyboard goes to or that is clicked is the one that the commands are meant for. A focus that comes
// back from another window or from a menu is none of that.
bool TakesGrid(const QEvent& event) {
  if (event.type() == QEvent::MouseButtonPress) return true;
  if (event.type() != QEvent::FocusIn) return false;
  const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

bool IsEnter(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

void FlowWindow::RunKey(const std::function<void()>& work) {
  status_->ShowNotice({});
  status_->RunTrapped(work);
}

void FlowWindow::SetHasten(const QString& hasten) {
  sheets_.SetHasten(hasten);
  if (!sheets_.Reminds()) return;
  setWindowTitle(u"催办单管理"_s);
  commands_->Menu(flow_.routeMenu).menuAction()->setVisible(false);
  findChild<QAction*>(u"Read"_s)->setVisible(false);
}

void FlowWindow::Open() {
  ShowModal(*this, [this] { Start(); });
  End();
}

void FlowWindow::Start() {
  started_ = true;
  LoadFiles();
  UseGrid(Grid::Heads);
  headGrid_->setFocus();
}

void FlowWindow::LoadFiles() {
  const BusyPointer busy;
  sheets_.LoadFiles(ArchiveId);
  ShowHeads();
}

void FlowWindow::End() {
  if (!std::exchange(started_, false)) return;
  const BusyPointer busy;
  KeepLayOut();
  sheets_.WriteBack();
}

void FlowWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(CloseWindowsOver(*this));
  if (event->isAccepted()) RunGuarded([this] { End(); });
}

bool FlowWindow::eventFilter(QObject* watched, QEvent* event) {
  if (TakesGrid(*event)) {
    const bool isHeads = watched == headGrid_ || watched == headGrid_->viewport();
    if (isHeads || sheets_.HasHeads()) UseGrid(isHeads ? Grid::Heads : Grid::Details);
  }
  if (!IsEnter(*event)) return QMainWindow::eventFilter(watched, event);
  RunKey([this] { ModifyCurrent(); });
  return true;
}

void FlowWindow::UseGrid(Grid grid) {
  grid_ = grid;
  commands_->EnableEntry(u"mnuAddNew"_s, grid == Grid::Details);
  commands_->EnableKey(u"NEW"_s, grid == Grid::Details);
}

void FlowWindow::TakeRow(int row) {
  if (showing_ || row < 0 || !sheets_.HasHeads()) return;
  if (sheets_.Heads().AbsolutePosition() == row + 1 && sheets_.Details().IsOpen()) return;
  sheets_.GoToHead(row + 1);
  RefreshFlowCommandsOfHead();
  sheets_.OpenDetails();
  ShowDetails();
  ShowRoute();
  ShowPosition();
}

void FlowWindow::RefreshFlowCommands(qint16 idle) {
  if (!flow_.HasRoute()) return;
  for (const QString& name : IdleRouteCommands(flow_)) findChild<QAction*>(name)->setEnabled(idle == 1);
  for (const QString& name : RunningRouteCommands()) findChild<QAction*>(name)->setEnabled(idle != 1);
}

void FlowWindow::RefreshFlowCommandsOfHead() {
  if (sheets_.IsOnHead()) return RefreshFlowCommands(sheets_.IsIdle() ? 1 : 0);
  for (const QString& name : IdleRouteCommands(flow_) + RunningRouteCommands()) {
    if (QAction* command = findChild<QAction*>(name)) command->setEnabled(false);
  }
}

void FlowWindow::AddDetail() {
  if (!sheets_.IsOnHead()) return;
  FlowDetailDialog dialog(sheets_);
  dialog.StartNew(sheets_.NextDetailSerial());
  ShowModal(dialog);
  ThenShowHead([this] { sheets_.TakeAddedDetail(); });
}

void FlowWindow::ModifyCurrent() {
  if (grid_ == Grid::Heads) {
    ModifyHead();
  } else {
    ModifyDetail();
  }
}

void FlowWindow::ModifyHead() {
  if (!sheets_.HasHeads()) return;
  FlowHeadDialog dialog(sheets_);
  const QString key = sheets_.Key();
  if (unsaved_ && unsaved_->first == key) dialog.ShowUnsaved(unsaved_->second);
  ShowModal(dialog);
  if (dialog.HasFailed()) {
    unsaved_ = {key, dialog.Typed()};
    status_->ShowNotice(u"没有保存：%1。再次打开时仍显示录入的内容。"_s.arg(dialog.Failure()));
  } else if (unsaved_ && unsaved_->first == key) {
    unsaved_.reset();
  }
  sheets_.RequeryHeads();
  ShowHeads();
}

void FlowWindow::ModifyDetail() {
  if (!sheets_.IsOnDetail()) return;
  FlowDetailDialog dialog(sheets_);
  dialog.StartChange();
  ShowModal(dialog);
  sheets_.RequeryDetails(dialog.FileID);
  ShowDetails();
}

bool FlowWindow::Confirm(const QString& question, const QString& note) const {
  return ShowMessage({question, MessageFlag::YesNo + MessageFlag::Information, windowTitle(), note}) == Answer::Yes;
}

void FlowWindow::DeleteCurrent() {
  const bool isHead = grid_ == Grid::Heads;
  if (isHead ? !sheets_.HasHeads() : sheets_.Details().RecordCount() == 0) {
    ShowMessage(u"当前数据已为空,无法继续删除!"_s, MessageFlag::Information, windowTitle());
    return;
  }
  QString changes;
  IgnoreErrors([&] { changes = isHead ? sheets_.TakeHeadChanges() : sheets_.TakeDetailChanges(); });
  if (!Confirm(isHead ? flow_.deleteQuestion : u"确实要删除当前的处理明细记录吗？"_s, changes)) return;
  const QString failed = isHead ? sheets_.DeleteHead() : sheets_.DeleteDetail();
  if (!failed.isEmpty()) status_->ShowFailure(failed);
  ShowHeads();
}

void FlowWindow::DeleteMany(bool all) {
  if (!sheets_.HasHeads()) return;
  const int keyColumn = headModel_.FieldColumn(u"Register_ID"_s);
  QStringList keys;
  for (int row = 0; row < headModel_.rowCount(); ++row) {
    if (all || headGrid_->selectionModel()->isRowSelected(row))
      keys << headModel_.index(row, keyColumn).data().toString();
  }
  if (keys.isEmpty()) return;
  const QString question =
      all ? u"确实要删除列出的全部 %1 张处理单及其明细吗？"_s : u"确实要删除选中的 %1 张处理单及其明细吗？"_s;
  if (!Confirm(question.arg(keys.size()))) return;
  const BusyPointer busy;
  sheets_.DeleteHeads(keys);
  ShowHeads();
  status_->ShowNotice(u"已删除 %1 张处理单"_s.arg(keys.size()));
}

void FlowWindow::FindOption(bool simple) {
  const AskedQuery query = simple ? AskSimpleQuery(flow_.headTable) : AskCompoundQuery(flow_.headTable);
  if (!query.ignored.isEmpty()) status_->ShowNotice(LeftOutNote(query.ignored));
  if (query.condition.isEmpty()) return;
  const BusyPointer busy;
  sheets_.Narrow(query.condition);
  ShowHeads();
  if (query.ignored.isEmpty()) status_->ShowNotice(u"按查询条件列出 %1 张处理单"_s.arg(sheets_.Heads().RecordCount()));
}

void FlowWindow::RunRoute(void (FlowRoute::*operation)()) {
  status_->ShowNotice({});
  FlowRoute route(sheets_, Shared().UserId,
                  {[](const QString& question) {
                     return ShowMessage(question, MessageFlag::OkCancel + MessageFlag::Question, kSystemTitle) ==
                            Answer::Ok;
                   },
                   [](const QString& text) { ShowMessage(text, MessageFlag::Warning, kSystemTitle); }});
  // An operation that is refused may have read what another user has made of the head.
  ThenShowHead([&] { (route.*operation)(); });
}

void FlowWindow::Choise() {
  if (sheets_.IsOnHead() && TakeOverRoute(flow_, sheets_.Key())) ShowRoute();
}

void FlowWindow::EditFlow() {
  if (sheets_.IsOnHead() && EditRoute(flow_, sheets_.Key())) ShowRoute();
}

void FlowWindow::SeeFile() {
  if (!sheets_.IsOnHead()) return;
  const QString record = sheets_.Head(u"File_ID"_s);
  const QString first = FirstOriginalOf(record);
  if (first.isEmpty()) {
    status_->ShowNotice(u"此文件没有原文"_s);
  } else {
    OriginalFileAction(record, kBrowseOriginals, first);
  }
}

void FlowWindow::Print() {
  if (!sheets_.IsOnHead()) return;
  const QString lineColumn = flow_.isHandling ? flow_.idColumn : u"Register_ID"_s;
  SheetValues values{sheets_.Head(flow_.idColumn), sheets_.Head(lineColumn), {}};
  if (sheets_.IsOnDetail()) values.serial = sheets_.Detail(u"File_ID"_s);
  const SheetTables tables{flow_.headTable, flow_.detailTable, flow_.idColumn, lineColumn};
  try {
    PrintSheet(ReportOfSheet(tables, grid_ == Grid::Details, values), windowTitle());
  } catch (const std::exception& error) {
    status_->ShowNotice(kReportFailed + ErrorText(error));
  }
}

void FlowWindow::ShowNotion(const QString& ofUser) {
  if (sheets_.IsOnHead()) ShowRouteProgress(sheets_, ofUser);
}

namespace {

template <typename Window, typename Prepare>
void ShowFlow(Prepare prepare) {
  RequireApplication();
  const LoadedWindow<Window> window;
  prepare(*window);
  window->Open();
}

}  // namespace

void ShowDistribution(const QString& archiveId) {
  ShowFlow<frmDistributeFile>([&](frmDistributeFile& window) { window.ArchiveId = archiveId; });
}

void ShowCirculation(const QString& archiveId) {
  ShowFlow<frmPassFile>([&](frmPassFile& window) { window.ArchiveId = archiveId; });
}

void ShowHandling(const QString& isHasten, const QString& archiveId) {
  ShowFlow<frmTranSact>([&](frmTranSact& window) {
    window.IsHasten = isHasten;
    window.ArchiveId = archiveId;
  });
}

}  // namespace folvane
