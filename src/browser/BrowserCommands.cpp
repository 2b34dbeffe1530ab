#include "browser/BrowserCommands.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

#include "browser/BrowserDesign.h"
#include "browser/BrowserStatus.h"
#include "browser/CommandTrap.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

BrowserCommands::BrowserCommands(QMainWindow& window, BrowserStatus& status)
    : status_(status), commands_(*new WindowCommands(window, BrowserDesign())) {
  commands_.RunKeysThrough([&status](const WindowCommands::Work& work) { RunTrapped(status, work); });
  AddArchiveMenu();
}

void BrowserCommands::AddArchiveMenu() {
  QMenu& menu = commands_.KeyMenu(u"Archive"_s, true);
  menu.setObjectName(u"mnu_ArchiveKey"_s);
  archiveToTarget_ =
      commands_.AddEntry(menu, {u"Archive(1)"_s, u"归档到目标库(&T)"_s, {}, {}, u"将选中的文件归档到目标库"_s});
  commands_.AddEntry(menu, {u"Archive(2)"_s, u"文件归档(&A)..."_s, {}, {}, u"打开文件归档"_s});
}

void BrowserCommands::OnEntry(const QString& entry, std::function<void()> handler) {
  commands_.OnEntry(entry, [this, handler] {
    status_.ShowNotice({});
    handler();
  });
}

void BrowserCommands::OnKey(const QString& key, std::function<void()> handler) {
  commands_.OnKey(key, [this, handler] {
    status_.ShowNotice({});
    handler();
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
  commands_.Enable(*archiveToTarget_, on && hasTarget);
}

void BrowserCommands::SetPrintCommands(bool on) { EnableEntries({u"mnu_Report"_s}, on); }

void BrowserCommands::EnableEntries(const QStringList& entries, bool on) {
  for (const QString& entry : entries) commands_.EnableEntry(entry, on);
}

void BrowserCommands::EnableKeys(const QStringList& keys, bool on) {
  for (const QString& key : keys) commands_.EnableKey(key, on);
}

void BrowserCommands::ShowReports(const std::vector<ReportRow>& reports) {
  const std::vector<ReportRow> shown = reports.empty() ? std::vector{NoReports()} : reports;
  QMenu& menu = commands_.Menu(u"mnu_Report"_s);
  QList<QAction*> entries = menu.actions();
  while (entries.size() > qsizetype(shown.size())) delete entries.takeLast();
  while (entries.size() < qsizetype(shown.size())) {
    entries.append(commands_.AddEntry(menu, {u"mnu_Report_List(%1)"_s.arg(entries.size() + 1), {}, {}, {}, {}}));
  }
  for (qsizetype at = 0; at < entries.size(); ++at) ShowReport(*entries[at], shown[size_t(at)]);
}

// No report can be run yet.
void BrowserCommands::ShowReport(QAction& entry, const ReportRow& report) const {
  entry.setText(report.reportName);
  entry.setToolTip(report.reportName);
  entry.setProperty("Tag", report.reportId);
  entry.setVisible(true);
  entry.setEnabled(false);
}

}  // namespace folvane
