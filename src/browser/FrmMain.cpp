#include "browser/FrmMain.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QPointer>
#include <QSplitter>
#include <QTreeView>
#include <algorithm>

#include <folvane/Icons.h>

#include "browser/ArchiveCommands.h"
#include "browser/BrowserCommands.h"
#include "browser/BrowserEnabling.h"
#include "browser/BulkCommands.h"
#include "browser/ExchangeCommands.h"
#include "browser/OriginalCommands.h"
#include "browser/OriginalsView.h"
#include "browser/RecordCommands.h"
#include "browser/RelatedRecords.h"
#include "browser/SearchBar.h"
#include "browser/TableNavigation.h"
#include "bulk/FrmRecordMove.h"
#include "query/QueryCommands.h"
#include "records/FilterBar.h"
#include "records/ListLimits.h"
#include "records/ListStatus.h"
#include "records/RecordList.h"
#include "reports/ReportEntries.h"
#include "reports/ReportSelection.h"
#include "reports/RunReport.h"
#include "shell/DefaultInstance.h"
#include "shell/EventGuard.h"
#include "shell/LoadedWindow.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "shell/OpenHelp.h"
#include "shell/SharedState.h"
#include "widgets/FrmAbout.h"
#include "widgets/RecordListView.h"
#include "widgets/ViewHint.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

void ShowRecordBrowser() {
  DefaultInstance<FrmMain>::Unload();
  const QPointer<FrmMain> window(&DefaultInstance<FrmMain>::Get());
  ShowModal(*window, [&window] { window->Start(); });
  if (window) RunGuarded([&window] { window->End(); });  // a host may have opened another one meanwhile
}

FrmMain::FrmMain() {
  setObjectName(u"FrmMain"_s);
  setWindowTitle(u"文件登记"_s);
  setWindowIcon(Icon(u"folvane"_s));
  LayOut();
  MakeList();
  MakeNavigation();
  limits_ = std::make_unique<ListLimits>(*list_, parameters_, tables_->Tree());
  limits_->SetCaptions([this](const QString& field) { return search_->CaptionOf(field); });
  limits_->OfferCommands();
  related_ = std::make_unique<RelatedRecords>(*tables_, *list_, parameters_);
  recordCommands_ = std::make_unique<RecordCommands>(*list_, parameters_, *treeView_, *status_);
  bulkCommands_ = std::make_unique<BulkCommands>(*list_, parameters_, *status_);
  queryCommands_ = std::make_unique<QueryCommands>(*list_, parameters_, *limits_, *status_);
  originalCommands_ = std::make_unique<OriginalCommands>(*list_, *originals_, *status_);
  archiveCommands_ = std::make_unique<ArchiveCommands>(*list_, parameters_, *originals_, *status_);
  exchangeCommands_ = std::make_unique<ExchangeCommands>(*list_, *status_);
  Connect();
  status_->ShowUser(Shared().UserName);
  search_->setEnabled(false);
  originals_->setEnabled(false);
  commands_->ShowReports({});
  commands_->Enable(BrowserEnabling({}));
}

// The models are members and destroyed before the views, which are children: the views must not ask them any more.
FrmMain::~FrmMain() {
  for (QTreeView* view : findChildren<QTreeView*>()) view->setModel(nullptr);
}

void FrmMain::MakeList() {
  RecordList::News news;
  news.opening = [this] { status_->ShowNotice({}); };
  news.chosen = [this] { ShowRow(); };
  news.entered = [this] { OpenRow(); };
  news.progress = [this](int done, int maximum) { status_->ShowProgress(done, maximum); };
  news.failure = [](const MessageRequest& message) { ShowMessage(message); };
  list_ = std::make_unique<RecordList>(*listView_, Shared().CurrentRecords, parameters_, std::move(news));
}

void FrmMain::MakeNavigation() {
  TableNavigation::Steps steps;
  steps.leave = [this] { LeaveTable(); };
  steps.enter = [this] { EnterTable(); };
  steps.tell = [this] { TellShown(); };
  steps.stay = [this] { TellUnchanged(); };
  tables_ = std::make_unique<TableNavigation>(*treeView_, parameters_, *list_, std::move(steps));
}

void FrmMain::Connect() {
  ConnectMoves();
  ConnectCommands();
  ConnectOriginals();
  ConnectArchiving();
  commands_->OnEntry(u"mnu_File6_Exit"_s, [this] { close(); });
  commands_->OnEntry(u"mnuHelpTitle"_s, [this] { OpenHelp(this, u"文件登记.htm"_s); });
  commands_->OnEntry(u"mnuAbout"_s, [] {
    FrmAbout about;
    ShowModal(about);
  });
  search_->OnSearch([this](const QString& condition) { list_->ShowWhere(condition); });
  filterBar_->OnLift([this] { LiftFilter(); });
  ConnectGuarded(listView_->header(), &QHeaderView::sectionClicked, this, &FrmMain::SortByColumn);
  ConnectGuarded(listView_, &QTreeView::doubleClicked, this, [this] { OpenRow(); });
}

void FrmMain::ConnectMoves() {
  commands_->OnEntry(u"mnu_Goto1_UClass"_s, [this] { related_->OpenParent(); });
  commands_->OnEntry(u"mnu_Goto5_FPage"_s, [this] { list_->FirstRecord(); });
  commands_->OnEntry(u"mnu_Goto2_PPage"_s, [this] { list_->PreviousPage(); });
  commands_->OnEntry(u"mnu_Goto3_NPage"_s, [this] { list_->NextPage(); });
  commands_->OnEntry(u"mnu_Goto6_LPage"_s, [this] { list_->LastRecord(); });
  commands_->OnEntry(u"mnu_Goto4_Location"_s, [this] { GoToNumber(false); });
  commands_->OnEntry(u"mnu_Goto4A_Location"_s, [this] { GoToNumber(true); });
}

void FrmMain::ConnectCommands() {
  commands_->OnEntry(u"mnu_File1_Add"_s, [this] { recordCommands_->Add(); });
  commands_->OnEntry(u"mnu_File4_Property"_s, [this] { recordCommands_->Change(); });
  commands_->OnEntry(u"mnu_File3_Del"_s, [this] { recordCommands_->Delete(); });
  commands_->OnEntry(u"mnu_File2_Open"_s, [this] { exchangeCommands_->Open(); });
  commands_->OnEntry(u"mnu_File5_Save"_s, [this] { exchangeCommands_->Save(); });
  commands_->OnEntry(u"mnu_Manager1_Distribute"_s, [this] { recordCommands_->HandToFlow(u"Distribute_File"_s); });
  commands_->OnEntry(u"mnu_Manager2_PassRead"_s, [this] { recordCommands_->HandToFlow(u"PassRead_File"_s); });
  commands_->OnEntry(u"mnu_Manager3_Transact"_s, [this] { recordCommands_->HandToFlow(u"Transact_File"_s); });
  commands_->OnEntry(u"mnu_Tool5_LSearch"_s, [this] { queryCommands_->SimpleQuery(); });
  commands_->OnEntry(u"mnu_Tool4_HSearch"_s, [this] { queryCommands_->CompoundQuery(); });
  commands_->OnEntry(u"mnu_Tool3_Sort"_s, [this] { queryCommands_->Sort(); });
  commands_->OnEntry(u"Mnu_ReadOrder"_s, [this] { queryCommands_->SetBrowseOrder(); });
  commands_->OnEntry(u"mnu_Tool1_BUpdate"_s, [this] { bulkCommands_->Update(); });
  commands_->OnEntry(u"mnu_Tool2_BDel"_s, [this] { bulkCommands_->Delete(); });
  commands_->BindShortcut(u"mnu_File3_Del"_s, *listView_);  // not meant for what is selected elsewhere
  commands_->OnReport([this](const ReportRow& report) { RunReport(report); });
  commands_->OnKey(u"Refresh"_s, [this] { queryCommands_->Refresh(); });
}

void FrmMain::ConnectOriginals() {
  commands_->OnEntry(u"mnu_Pop1_AddFile"_s, [this] { originalCommands_->Add(); });
  commands_->OnEntry(u"mnu_Pop2_Browse"_s, [this] { originalCommands_->Browse(); });
  commands_->OnEntry(u"mnu_Pop3_Scan"_s, [this] { originalCommands_->Scan(); });
  commands_->OnEntry(u"mnu_Pop4_DelFile"_s, [this] { originalCommands_->Delete(); });
  for (const QString& entry : {u"mnu_Pop1_AddFile"_s, u"mnu_Pop4_DelFile"_s})
    commands_->BindShortcut(entry, *originals_);
  commands_->OnKey(u"LookFiles"_s, [this] { originalCommands_->Look(); });
  originals_->OnOpen([this] { originalCommands_->Browse(); });
  originals_->OnDrop([this](const QStringList& files) { originalCommands_->Add(files); });
  ConnectGuarded(originals_, &QWidget::customContextMenuRequested, this, &FrmMain::ShowOriginalsMenu);
}

void FrmMain::ConnectArchiving() {
  commands_->OnArchiveToTarget([this] { archiveCommands_->ToTarget(); });
  commands_->OnArchiveWindow([this] { archiveCommands_->OpenWindow(); });
  commands_->OnEntry(u"mnuUnitRecord"_s, [this] { archiveCommands_->Merge(); });
}

void FrmMain::GoToNumber(bool byPage) {
  const LoadedWindow<FrmRecordMove> window;
  window->MoveType = byPage;
  ShowModal(*window);
  if (window->MoveNumber != 0) list_->GoToRecord(std::min<qint64>(window->MoveNumber, list_->RecordCount()));
}

void FrmMain::RunReport(const ReportRow& report) {
  list_->HoldFilter();
  ReportRequest request;
  request.mainTable = list_->Table();
  request.reportId = report.reportId;
  request.rightsCondition = parameters_.Selected(Parameter::RowLimit);
  request.filter = parameters_.Selected(Parameter::Filter);
  request.selection = GetSelectionClause(list_->Table(), list_->SelectedKeys());
  RunMenuReport(report.reportName, request);
}

void FrmMain::Start() {
  tables_->Start();
  status_->SetStarted(true);
  listView_->setFocus();
}

void FrmMain::LeaveTable() {
  commands_->Enable(BrowserEnabling({}));
  originals_->Clear();
}

void FrmMain::EnterTable() {
  const QString& table = list_->Table();
  if (table.isEmpty()) {
    status_->ShowNothing();
    commands_->ShowReports({});
    return;
  }
  search_->Fill(table);
  commands_->ShowReports(ReadReportEntries(table));
  commands_->Enable(BrowserEnabling(View()));
}

void FrmMain::ShowRow() {
  originals_->Clear();
  const BrowserView view = View();
  if (view.selected) originals_->ShowOriginalsOf(list_->SelectedKey());
  TellShown();
  commands_->Enable(BrowserEnabling(view));
  if (!view.hasRows) status_->ShowNoRecords();
  if (view.selected) status_->ShowPosition(view.position, view.count);
}

void FrmMain::TellShown() {
  const bool hasTable = !list_->Table().isEmpty();
  if (hasTable) {
    filterBar_->ShowLimits(limits_->FilterText(), limits_->RightsText());
  } else {
    filterBar_->Clear();
  }
  search_->setEnabled(hasTable);
  search_->FollowFilter(list_->ShownFilter());
  originals_->setEnabled(hasTable && parameters_.Grants().lookFile);
  listHint_->ShowHint(hasTable ? limits_->EmptyListHint() : tables_->Tree().ChoiceHint());
  tables_->FollowFilter();
}

// The list stands as it was, whatever the node seems to promise.
void FrmMain::TellUnchanged() {
  const QString filter = limits_->FilterText();
  status_->ShowNotice(filter.isEmpty() ? QString() : u"列表仍按“"_s + filter + u"”显示，按 F5 显示全部"_s);
}

BrowserView FrmMain::View() const {
  const Recordset& records = list_->Records();
  return {!list_->Table().isEmpty(),
          parameters_.Grants(),
          tables_->HasParentTable(),
          list_->State() == ListRecords::Refused,
          list_->Rows().Count() > 0,
          listView_->CurrentRow() > 0,
          records.IsOpen() ? records.AbsolutePosition() : 0,
          list_->RecordCount()};
}

void FrmMain::SortByColumn(int column) {
  status_->RunTrapped([&] { list_->SortByColumn(column); });
}

// The list cannot be worked in before the entry window has gone and the list shows the records again.
void FrmMain::OpenRow() {
  if (!parameters_.Selected(Parameter::Child).isEmpty()) {
    related_->OpenChildren();
    return;
  }
  listView_->setEnabled(false);
  RunGuarded([this] { recordCommands_->Change(); });
  listView_->setEnabled(true);
  listView_->setFocus();
}

// The key that was pressed goes with what it lifts.
void FrmMain::LiftFilter() {
  listView_->setFocus();
  queryCommands_->Refresh();
}

void FrmMain::ShowOriginalsMenu(const QPoint& at) {
  if (listView_->CurrentRow() == 0) return;
  commands_->OriginalsMenu().popup(originals_->viewport()->mapToGlobal(at));
}

void FrmMain::closeEvent(QCloseEvent* event) {
  event->setAccepted(CloseWindowsOver(*this));
  if (event->isAccepted()) RunGuarded([this] { End(); });
}

void FrmMain::End() {
  if (!status_->IsStarted()) return;
  status_->SetStarted(false);
  KeepSplitters();
  list_->KeepColumnWidths();
  tables_->End();
  if (list_->Records().IsOpen()) list_->Records().Close();
}

}  // namespace folvane
