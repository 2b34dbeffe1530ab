#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "reports/ReportEntries.h"
#include "widgets/WindowCommands.h"

class QAction;
class QMainWindow;
class QMenu;

namespace folvane {

class BrowserStatus;

/// The commands of the record browser and the groups in which rights and the record list enable them. A new command
/// clears the notice of the one before. An error of a toolbar key ends it; the status line tells.
class BrowserCommands {
 public:
  BrowserCommands(QMainWindow& window, BrowserStatus& status);

  /// What a menu entry runs; the toolbar key that is its twin runs the same.
  void OnEntry(const QString& entry, std::function<void()> handler);
  /// What a toolbar key without a twin runs.
  void OnKey(const QString& key, std::function<void()> handler);
  void BindShortcut(const QString& entry, QWidget& widget) { commands_.BindShortcut(entry, widget); }
  bool IsEntryEnabled(const QString& entry) const { return commands_.IsEntryEnabled(entry); }

  // The commands that reading, changing and printing take. Looking at originals takes a right too, which also enables
  // the list of originals; RecordListPart sees to that.
  void SetBrowseCommands(bool on, bool hasParentTable);
  void SetEditCommands(bool on, bool hasTarget);
  void SetPrintCommands(bool on);

  void EnableEntries(const QStringList& entries, bool on);
  void EnableKeys(const QStringList& keys, bool on);

  /// Shows the reports of a table as entries of the report menu; without any the one entry that says so.
  void ShowReports(const std::vector<ReportRow>& reports);

  QMenu& OriginalsMenu() const { return commands_.Menu(QStringLiteral("mnu_Pop")); }

 private:
  void AddArchiveMenu();
  void ShowReport(QAction& entry, const ReportRow& report) const;

  BrowserStatus& status_;
  WindowCommands& commands_;
  QAction* archiveToTarget_ = nullptr;
};

}  // namespace folvane
