#include "browser/BrowserCommands.h"

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include "browser/CommandTrap.h"
#include "shell/EventGuard.h"
#include "widgets/Icons.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

void Enable(QAction& action, bool on) { action.setEnabled(on && AvailableCommands().contains(action.objectName())); }

QAction* NewAction(QObject& parent, const QString& name, const QString& caption, const QString& shortcut,
                   const QString& tip) {
  auto* action = new QAction(caption, &parent);
  action->setObjectName(name);
  const QKeySequence keys(shortcut);
  action->setShortcut(keys);
  action->setToolTip(keys.isEmpty() ? tip : tip + u" ("_s + keys.toString(QKeySequence::NativeText) + u")"_s);
  Enable(*action, true);
  return action;
}

QString ReportEntryName(int number) { return u"mnu_Report_List(%1)"_s.arg(number); }

}  // namespace

BrowserCommands::BrowserCommands(QMainWindow& window, BrowserStatus& status) : QObject(&window), status_(status) {
  for (const MenuDesign& design : BrowserMenus()) {
    QMenu* menu = AddMenu(window, design);
    window.menuBar()->addMenu(menu);
    if (design.name == u"mnu_Report"_s) reportMenu_ = menu;
  }
  originalsMenu_ = AddMenu(window, OriginalsMenuDesign());

  auto* toolbar = new QToolBar(u"工具栏"_s, &window);
  toolbar->setObjectName(u"tlb"_s);
  toolbar->setMovable(false);
  toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
  toolbar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  AddKeys(*toolbar);
  AddArchiveMenu(*toolbar);
  window.addToolBar(toolbar);
}

QMenu* BrowserCommands::AddMenu(QWidget& window, const MenuDesign& design) {
  auto* menu = new QMenu(design.caption, &window);
  menu->setObjectName(design.name);
  menu->setToolTipsVisible(true);
  menu->menuAction()->setObjectName(design.name);
  entries_.insert(design.name, menu->menuAction());
  for (const EntryDesign& entry : design.entries) {
    if (entry.name.isEmpty()) {
      menu->addSeparator();
      continue;
    }
    QAction* action = NewAction(*menu, entry.name, entry.caption, entry.shortcut, entry.tip);
    action->setIcon(Icon(entry.icon));
    menu->addAction(action);
    entries_.insert(entry.name, action);
  }
  return menu;
}

void BrowserCommands::AddKeys(QToolBar& toolbar) {
  for (const KeyDesign& key : BrowserKeys()) {
    if (key.name.isEmpty()) {
      toolbar.addSeparator();
      continue;
    }
    QAction* action = NewAction(toolbar, key.name, key.caption, key.shortcut, key.tip);
    action->setIcon(Icon(key.name));
    toolbar.addAction(action);
    keys_.insert(key.name, action);
  }
}

void BrowserCommands::AddArchiveMenu(QToolBar& toolbar) {
  auto* menu = new QMenu(&toolbar);
  menu->setObjectName(u"mnu_ArchiveKey"_s);
  archiveToTarget_ = NewAction(*menu, u"Archive(1)"_s, u"归档到目标库(&T)"_s, {}, u"将选中的文件归档到目标库"_s);
  menu->addAction(archiveToTarget_);
  menu->addAction(NewAction(*menu, u"Archive(2)"_s, u"文件归档(&A)..."_s, {}, u"打开文件归档"_s));
  QAction* key = keys_.value(u"Archive"_s);
  key->setMenu(menu);
  static_cast<QToolButton*>(toolbar.widgetForAction(key))->setPopupMode(QToolButton::MenuButtonPopup);
}

void BrowserCommands::OnEntry(const QString& entry, std::function<void()> handler) {
  ConnectGuarded(entries_.value(entry), &QAction::triggered, this, [this, handler] {
    status_.ShowNotice({});
    handler();
  });
  for (const KeyDesign& key : BrowserKeys()) {
    if (key.twin == entry) OnKey(key.name, handler);
  }
}

void BrowserCommands::OnKey(const QString& key, std::function<void()> handler) {
  ConnectGuarded(keys_.value(key), &QAction::triggered, this, [this, handler] {
    status_.ShowNotice({});
    RunTrapped(status_, handler);
  });
}

void BrowserCommands::SetBrowseCommands(bool on, bool hasParentTable) {
  EnableEntries({u"mnu_File4_Property"_s, u"mnu_File5_Save"_s, u"mnu_Tool3_Sort"_s, u"mnu_Tool4_HSearch"_s,
                 u"mnu_Tool5_LSearch"_s, u"mnu_Goto"_s},
                on);
  EnableKeys({u"PrePage"_s, u"NextPage"_s, u"Search"_s, u"Refresh"_s, u"Mod"_s}, on);
  if (on) EnableEntries({u"mnu_Goto1_UClass"_s}, hasParentTable);
}

void BrowserCommands::SetEditCommands(bool on, bool hasTarget) {
  EnableEntries({u"mnu_File1_Add"_s, u"mnu_File2_Open"_s, u"mnu_File3_Del"_s, u"mnu_Tool1_BUpdate"_s,
                 u"mnu_Tool2_BDel"_s, u"mnu_Manager"_s},
                on);
  EnableKeys({u"NEW"_s, u"Del"_s, u"Archive"_s}, on);
  Enable(*archiveToTarget_, on && hasTarget);
}

void BrowserCommands::SetPrintCommands(bool on) { EnableEntries({u"mnu_Report"_s}, on); }

void BrowserCommands::EnableEntries(const QStringList& entries, bool on) {
  for (const QString& entry : entries) Enable(*entries_.value(entry), on);
}

void BrowserCommands::EnableKeys(const QStringList& keys, bool on) {
  for (const QString& key : keys) Enable(*keys_.value(key), on);
}

void BrowserCommands::ShowReports(const std::vector<ReportRow>& reports) {
  const std::vector<ReportRow> shown = reports.empty() ? std::vector{NoReports()} : reports;
  QList<QAction*> entries = reportMenu_->actions();
  while (entries.size() > qsizetype(shown.size())) delete entries.takeLast();
  while (entries.size() < qsizetype(shown.size())) {
    entries.append(NewAction(*reportMenu_, ReportEntryName(int(entries.size()) + 1), {}, {}, {}));
    reportMenu_->addAction(entries.last());
  }
  for (qsizetype at = 0; at < entries.size(); ++at) ShowReport(*entries[at], shown[size_t(at)]);
}

void BrowserCommands::ShowReport(QAction& entry, const ReportRow& report) {
  entry.setText(report.reportName);
  entry.setToolTip(report.reportName);
  entry.setProperty("Tag", report.reportId);
  entry.setVisible(true);
}

}  // namespace folvane
