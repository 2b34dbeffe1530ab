#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "reports/ReportEntries.h"
#include "widgets/WindowCommands.h"

class QAction;
class QMainWindow;
class QMenu;

namespace folvane {

class ListStatus;
struct BrowserEnabling;

/// The menus of the record browser, the pop-up on the originals among them, and its toolbar.
CommandDesign BrowserDesign();

/// The commands of the record browser. A new command clears the notice of the one before. An error of a toolbar key
/// ends it; the status line tells.
class BrowserCommands {
 public:
  BrowserCommands(QMainWindow& window, ListStatus& status);

  /// What a menu entry runs; the toolbar key that is its twin runs the same.
  void OnEntry(const QString& entry, std::function<void()> handler);
  /// What a toolbar key without a twin runs.
  void OnKey(const QString& key, std::function<void()> handler);
  /// What the toolbar key "Archive" runs, and the first entry of its menu.
  void OnArchiveToTarget(std::function<void()> handler);
  /// What the second entry of that menu runs, and its twin among the flows.
  void OnArchiveWindow(std::function<void()> handler);
  void BindShortcut(const QString& entry, QWidget& widget) { commands_.BindShortcut(entry, widget); }
  void Enable(const BrowserEnabling& enabling);

  /// Shows the reports of a table as entries of the report menu; without any the one entry that says so.
  void ShowReports(const std::vector<ReportRow>& reports);
  /// What a click on a report runs, with its name and id.
  void OnReport(std::function<void(const ReportRow& report)> handler);

  QMenu& OriginalsMenu() const { return commands_.Menu(QStringLiteral("mnu_Pop")); }

 private:
  void AddArchiveMenu();
  void ShowReport(QAction& entry, const ReportRow& report) const;

  ListStatus& status_;
  WindowCommands& commands_;
  QAction *archiveToTarget_ = nullptr, *archiveWindow_ = nullptr;
};

}  // namespace folvane
