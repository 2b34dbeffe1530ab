#include "archiving/FrmArchive.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>
#include <QTreeView>

#include <folvane/HostServices.h>
#include <folvane/Icons.h>

#include "archiving/ArchiveFields.h"
#include "query/QueryCommands.h"
#include "records/ClassTree.h"
#include "records/FilterBar.h"
#include "records/ListLimits.h"
#include "records/ListStatus.h"
#include "records/RecordList.h"
#include "shell/EventGuard.h"
#include "shell/LoadedWindow.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "shell/OpenHelp.h"
#include "shell/SharedState.h"
#include "shell/TableFields.h"
#include "widgets/BusyPointer.h"
#include "widgets/FrmAbout.h"
#include "widgets/RecordListView.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kSecondNode = 2;
const QString kFirstTableInView = u"Lwdj"_s;
const QString kStatusField = u"FileStatus"_s;

}  // namespace

void ShowArchiveWindow(const QString& table) {
  const LoadedWindow<FrmArchive> window;
  window->CurrTable = table;
  ShowModal(*window, [&window] { window->Start(); });
}

FrmArchive::FrmArchive() {
  setObjectName(u"FrmArchive"_s);
  setWindowTitle(u"文件归档"_s);
  setWindowIcon(Icon(u"archive"_s));
  LayOut();
  tree_ =
      std::make_unique<ClassTree>(*treeView_, parameters_, TableNodes::Plain, [this](int node) { ChooseNode(node); });
  MakeList();
  limits_ = std::make_unique<ListLimits>(*list_, parameters_, *tree_);
  queries_ = std::make_unique<QueryCommands>(*list_, parameters_, *limits_, *status_);
  Connect();
  status_->ShowUser(Shared().UserName);
  panel_->hide();
  Enable(ArchiveEnabling({}));
}

// The models are members and destroyed before the views, which are children: the views must not ask them any more.
FrmArchive::~FrmArchive() {
  for (QTreeView* view : findChildren<QTreeView*>()) view->setModel(nullptr);
}

void FrmArchive::MakeList() {
  RecordList::News news;
  news.opening = [this] { status_->ShowNotice({}); };
  news.opened = [this](Recordset& records) { LimitToWaiting(records); };
  news.chosen = [this] { ShowRow(); };
  news.entered = [] {};
  news.ticked = [this] { TellTicked(); };
  news.progress = [this](int done, int maximum) { status_->ShowProgress(done, maximum); };
  news.failure = [](const MessageRequest& message) { ShowMessage(message); };
  list_ = std::make_unique<RecordList>(*listView_, records_, parameters_, std::move(news));
  list_->NumberTicks();
}

void FrmArchive::Connect() {
  ConnectMoves();
  ConnectTicking();
  commands_->OnEntry(u"mnuArchive"_s, [this] { Archive(Parameters::FromDialog); });
  ConnectGuarded(ok_, &QPushButton::clicked, this, [this] { Archive(Parameters::FromPanel); });
  commands_->OnEntry(u"mnuExit"_s, [this] { close(); });
  commands_->OnEntry(u"mnuSim"_s, [this] { queries_->SimpleQuery(); });
  commands_->OnEntry(u"mnuSearch"_s, [this] { queries_->CompoundQuery(); });
  commands_->OnEntry(u"mnuTaxis"_s, [this] { queries_->Sort(); });
  commands_->OnEntry(u"mnuArcSet"_s, [this] { EditSettings(); });
  commands_->OnEntry(u"mnuTitle"_s, [this] { OpenHelp(this, u"文件归档.htm"_s); });
  commands_->OnEntry(u"mnuAbout"_s, [] {
    FrmAbout about;
    ShowModal(about);
  });
  const auto lift = [this] {
    listView_->setFocus();
    queries_->Refresh();
  };
  filterBar_->OnLift(lift);
  ConnectGuarded(new QShortcut(QKeySequence::Refresh, this), &QShortcut::activated, this, lift);
  ConnectGuarded(treeView_, &QTreeView::activated, this, [this] { OpenChosenNode(); });
  ConnectGuarded(listView_->header(), &QHeaderView::sectionClicked, this,
                 [this](int column) { status_->RunTrapped([&] { list_->SortByColumn(column); }); });
}

void FrmArchive::ConnectMoves() {
  commands_->OnEntry(u"mnuFirst"_s, [this] { list_->FirstRecord(); });
  commands_->OnEntry(u"mnuPre"_s, [this] { list_->PreviousRecord(); });
  commands_->OnEntry(u"mnuNext"_s, [this] { list_->NextRecord(); });
  commands_->OnEntry(u"mnuLast"_s, [this] { list_->LastRecord(); });
  commands_->OnEntry(u"mnuPrePage"_s, [this] { listView_->SendKey(Qt::Key_PageUp); });
  commands_->OnEntry(u"mnuNextPage"_s, [this] { listView_->SendKey(Qt::Key_PageDown); });
}

void FrmArchive::ConnectTicking() {
  ConnectGuarded(tickAll_, &QCheckBox::clicked, this, &FrmArchive::TickAll);
  ConnectGuarded(takeOriginals_, &QCheckBox::clicked, this,
                 [this](bool on) { commands_->SetMark(u"mnuIsOriginal"_s, on); });
  commands_->OnEntry(u"mnuIsOriginal"_s,
                     [this] { takeOriginals_->setChecked(commands_->IsMarked(u"mnuIsOriginal"_s)); });
  commands_->OnEntry(u"mnuIsArchive"_s, [this] { formNumber_->setChecked(false); });
  auto* all = new QShortcut(QKeySequence::SelectAll, listView_, nullptr, nullptr, Qt::WidgetShortcut);
  ConnectGuarded(all, &QShortcut::activated, this, [this] {
    if (tickAll_->isEnabled()) tickAll_->click();
  });
  fields_->OnChange([this] { TellTicked(); });
  ConnectGuarded(forecastDue_, &QTimer::timeout, this, &FrmArchive::TellForecast);
}

// The table in view is named at the end whatever the second node is: only another node is shown when it is chosen.
void FrmArchive::Start() {
  const BusyPointer busy;
  tree_->Build();
  tree_->AddAllTables();
  if (const int row = parameters_.Find(CurrTable); row != 0) {
    const int node = parameters_.Get(row, Parameter::Node).toInt();
    tree_->Select(node);
    ShowTable(node);
    return listView_->setFocus();
  }
  if (tree_->Count() >= kSecondNode) {
    tree_->SelectShown(kSecondNode);
    ShowTable(kSecondNode);
  }
  tableInView_ = kFirstTableInView;
  TellShown();
  treeView_->setFocus();
}

void FrmArchive::ChooseNode(int node) {
  const ClassTreeNode chosen = tree_->Node(node);
  if (chosen.key == tableInView_) return TellShown();
  parameters_.SetTag(QString());
  if (chosen.image == NodeImage::Table) parameters_.Set(chosen.tag.toInt(), Parameter::Filter, QString());
  ShowTable(node);
}

// The way to a table that counts as the one in view and is not shown.
void FrmArchive::OpenChosenNode() {
  const int node = tree_->Current();
  if (node != 0 && tree_->Node(node).image == NodeImage::Table && list_->State() == ListRecords::NotOpened) {
    ShowTable(node);
  }
}

void FrmArchive::ShowTable(int node) {
  try {
    const BusyPointer busy;
    ShowTableOf(node);
  } catch (const std::exception& error) {
    if (list_->State() == ListRecords::NotOpened) {
      tableInView_.clear();
      list_->ForgetTable();
      status_->ShowNothing();
    }
    TellShown();
    TellTicked();
    ShowOpeningFailure(*list_, error);
    return;
  }
  TellShown();
  TellTicked();
}

void FrmArchive::ShowTableOf(int node) {
  fields_->Clear();
  list_->Clear();
  Enable(ArchiveEnabling({}));
  const ClassTreeNode shown = tree_->Node(node);
  tableInView_.clear();
  const bool isTable = shown.image == NodeImage::Table;
  panel_->setVisible(isTable);
  if (!isTable) {
    tree_->Expand(node);
    return status_->ShowNothing();
  }
  tableInView_ = shown.key;
  parameters_.Select(shown.tag.toInt());
  list_->ShowColumns(shown.key);
  list_->ShowFromStart();
  LoadFields();
}

// A table without the field shows all its records.
void FrmArchive::LimitToWaiting(Recordset& records) {
  if (!GetChnFieldName(list_->Table(), kStatusField).isEmpty()) records.SetFilter(u"FileStatus = '需归档'"_s);
}

void FrmArchive::LoadFields() {
  fields_->Load(Target());
  TellTicked();
}

void FrmArchive::ShowRow() {
  const ArchiveView view = View();
  Enable(ArchiveEnabling(view));
  if (!view.hasRows) status_->ShowNoRecords();
  if (view.selected) status_->ShowPosition(view.position, view.count);
  TellShown();
  TellTicked();
}

void FrmArchive::TellShown() {
  const bool hasTable = !list_->Table().isEmpty();
  if (hasTable) {
    const QString all = ShowsWaiting() ? u"全部需归档的文件"_s : u"全部记录"_s;
    filterBar_->ShowLimits(limits_->FilterText(), limits_->RightsText(), all);
  } else {
    filterBar_->Clear();
  }
  listHint_->ShowHint(EmptyListHint());
}

bool FrmArchive::ShowsWaiting() const { return list_->State() == ListRecords::Opened && !records_.Filter().isEmpty(); }

QString FrmArchive::EmptyListHint() const {
  if (list_->Table().isEmpty()) {
    const int node = tree_->Current();
    const bool isTable = node != 0 && tree_->Node(node).image == NodeImage::Table;
    return isTable ? u"按回车键或双击“%1”以打开它。"_s.arg(tree_->Node(node).text) : tree_->ChoiceHint();
  }
  const QString hint = limits_->EmptyListHint();
  if (hint.isEmpty() || !ShowsWaiting() || list_->RecordCount() > 0) return hint;  // what keeps them from being shown
  if (parameters_.Selected(Parameter::RowLimit) == u"1 = 2"_s) return hint;
  return u"没有需要归档的文件：这里只列出归档状态为“需归档”的文件。"_s +
         (list_->ShownFilter().isEmpty() ? QString() : u"\n按 F5 取消查询条件。"_s);
}

QString FrmArchive::Target() const { return parameters_.Selected(Parameter::Target); }

ArchiveView FrmArchive::View() const {
  const TableGrants grants = parameters_.Grants();
  return {!list_->Table().isEmpty(),
          grants.edit && grants.hasTarget,
          list_->Rows().Count() > 0,
          listView_->CurrentRow() > 0,
          records_.IsOpen() ? records_.AbsolutePosition() : 0,
          list_->RecordCount()};
}

void FrmArchive::Enable(const ArchiveEnabling& enabling) {
  for (auto entry = enabling.entries.begin(); entry != enabling.entries.end(); ++entry) {
    commands_->EnableEntry(entry.key(), entry.value());
  }
  for (auto key = enabling.keys.begin(); key != enabling.keys.end(); ++key)
    commands_->EnableKey(key.key(), key.value());
  tickAll_->setEnabled(enabling.ticksAll);
  EnableTransfer(enabling.transfer);
}

void FrmArchive::EnableTransfer(bool on) {
  for (const QString& entry : {u"mnuArchive"_s, u"mnuIsOriginal"_s}) commands_->EnableEntry(entry, on);
  commands_->EnableKey(u"DoArchive"_s, on);
  takeOriginals_->setEnabled(on);
  ok_->setEnabled(on);
}

void FrmArchive::closeEvent(QCloseEvent* event) {
  event->setAccepted(CloseWindowsOver(*this));
  if (event->isAccepted()) RunGuarded([this] { End(); });
}

}  // namespace folvane
