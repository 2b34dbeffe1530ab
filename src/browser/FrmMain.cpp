#include "browser/FrmMain.h"

#include <QCloseEvent>
#include <QSplitter>
#include <QTreeView>

#include <folvane/Icons.h>

#include "browser/BrowserCommands.h"
#include "browser/BrowserStatus.h"
#include "browser/BulkCommands.h"
#include "browser/ClassTreePart.h"
#include "browser/FilterBar.h"
#include "browser/OriginalsView.h"
#include "browser/QueryCommands.h"
#include "browser/RecordCommands.h"
#include "browser/RecordListPart.h"
#include "browser/RelatedRecords.h"
#include "browser/SearchBar.h"
#include "shell/EventGuard.h"
#include "shell/ModalWindow.h"
#include "shell/OpenHelp.h"
#include "shell/SharedState.h"
#include "widgets/FrmAbout.h"
#include "widgets/RecordListView.h"
#include "widgets/ViewHint.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

FrmMain::FrmMain() {
  setObjectName(u"FrmMain"_s);
  setWindowTitle(u"文件登记"_s);
  setWindowIcon(Icon(u"folvane"_s));
  LayOut();
  const BrowserParts parts{state_,     *commands_,  *status_, *search_,  *treeView_,
                           *listView_, *originals_, *limits_, *listHint_};
  list_ = std::make_unique<RecordListPart>(parts);
  tree_ = std::make_unique<ClassTreePart>(parts, *list_);
  related_ = std::make_unique<RelatedRecords>(parts, *tree_, *list_);
  recordCommands_ = std::make_unique<RecordCommands>(parts, *list_);
  bulkCommands_ = std::make_unique<BulkCommands>(parts, *list_);
  queryCommands_ = std::make_unique<QueryCommands>(parts, *list_);
  Connect();
  status_->ShowUser(Shared().UserName);
  search_->setEnabled(false);
  commands_->ShowReports({});
  list_->DisableCommands();
}

// The models are members and destroyed before the views, which are children: the views must not ask them any more.
FrmMain::~FrmMain() {
  for (QTreeView* view : findChildren<QTreeView*>()) view->setModel(nullptr);
}

void FrmMain::Connect() {
  ConnectMoves();
  ConnectCommands();
  commands_->OnEntry(u"mnu_File6_Exit"_s, [this] { close(); });
  commands_->OnEntry(u"mnuHelpTitle"_s, [this] { OpenHelp(this, u"文件登记.htm"_s); });
  commands_->OnEntry(u"mnuAbout"_s, [] {
    FrmAbout about;
    ShowModal(about);
  });
  search_->OnSearch([this] { queryCommands_->QuickSearch(); });
  limits_->OnLift([this] { LiftFilter(); });
  list_->OnEnter([this] { OpenRow(); });
  ConnectGuarded(listView_, &QTreeView::doubleClicked, this, [this] { OpenRow(); });
  ConnectGuarded(originals_, &QWidget::customContextMenuRequested, this, &FrmMain::ShowOriginalsMenu);
}

void FrmMain::ConnectMoves() {
  commands_->OnEntry(u"mnu_Goto1_UClass"_s, [this] { related_->OpenParent(); });
  commands_->OnEntry(u"mnu_Goto5_FPage"_s, [this] { list_->FirstRecord(); });
  commands_->OnEntry(u"mnu_Goto2_PPage"_s, [this] { list_->PreviousPage(); });
  commands_->OnEntry(u"mnu_Goto3_NPage"_s, [this] { list_->NextPage(); });
  commands_->OnEntry(u"mnu_Goto6_LPage"_s, [this] { list_->LastRecord(); });
  commands_->OnEntry(u"mnu_Goto4_Location"_s, [this] { queryCommands_->GoToNumber(false); });
  commands_->OnEntry(u"mnu_Goto4A_Location"_s, [this] { queryCommands_->GoToNumber(true); });
}

void FrmMain::ConnectCommands() {
  commands_->OnEntry(u"mnu_File1_Add"_s, [this] { recordCommands_->Add(); });
  commands_->OnEntry(u"mnu_File4_Property"_s, [this] { recordCommands_->Change(); });
  commands_->OnEntry(u"mnu_File3_Del"_s, [this] { recordCommands_->Delete(); });
  commands_->OnEntry(u"mnu_Tool5_LSearch"_s, [this] { queryCommands_->SimpleQuery(); });
  commands_->OnEntry(u"mnu_Tool4_HSearch"_s, [this] { queryCommands_->CompoundQuery(); });
  commands_->OnEntry(u"mnu_Tool3_Sort"_s, [this] { queryCommands_->Sort(); });
  commands_->OnEntry(u"Mnu_ReadOrder"_s, [this] { queryCommands_->SetBrowseOrder(); });
  commands_->OnEntry(u"mnu_Tool1_BUpdate"_s, [this] { bulkCommands_->Update(); });
  commands_->OnEntry(u"mnu_Tool2_BDel"_s, [this] { bulkCommands_->Delete(); });
  commands_->BindShortcut(u"mnu_File3_Del"_s, *listView_);  // not meant for what is selected elsewhere
  commands_->OnKey(u"Refresh"_s, [this] { queryCommands_->Refresh(); });
}

void FrmMain::Start() {
  if (status_->IsStarted()) return;
  tree_->Start();
  status_->SetStarted(true);
  listView_->setFocus();
}

// The list cannot be worked in before the entry window has gone and the list shows the records again.
void FrmMain::OpenRow() {
  if (!state_.Parameters.Selected(Parameter::Child).isEmpty()) {
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
  if (listView_->CurrentRow() == 0 || !state_.Parameters.Grants().lookFile) return;
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
  tree_->End();
  if (Shared().CurrentRecords.IsOpen()) Shared().CurrentRecords.Close();
}

}  // namespace folvane
