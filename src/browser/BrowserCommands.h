#pragma once

#include <QHash>
#include <QMenu>
#include <QObject>
#include <QString>
#include <functional>
#include <initializer_list>
#include <vector>

#include "browser/CommandDesign.h"
#include "records/ReportEntries.h"

class QAction;
class QMainWindow;
class QToolBar;

namespace folvane {

class BrowserStatus;

/// The menus, the toolbar and the pop-up of the record browser, and which of their commands are enabled. A command
/// whose subsystem does not exist yet stays disabled whatever is asked.
class BrowserCommands : public QObject {
 public:
  BrowserCommands(QMainWindow& window, BrowserStatus& status);

  /// What a menu entry runs; the toolbar key that is its twin runs the same.
  void OnEntry(const QString& entry, std::function<void()> handler);
  /// What a toolbar key without a twin runs. An error ends it; the status line tells.
  void OnKey(const QString& key, std::function<void()> handler);
  bool IsEntryEnabled(const QString& entry) const { return entries_.value(entry)->isEnabled(); }

  // Three of the four groups by which rights take effect; the fourth reaches beyond the commands.
  void SetBrowseCommands(bool on, bool hasParentTable);
  void SetEditCommands(bool on, bool hasTarget);
  void SetPrintCommands(bool on);

  void EnableEntries(const QStringList& entries, bool on);
  void EnableKeys(const QStringList& keys, bool on);

  /// Shows the reports of a table as entries of the report menu; without any the one entry that says so.
  void ShowReports(const std::vector<ReportRow>& reports);

  QMenu& OriginalsMenu() const { return *originalsMenu_; }

 private:
  QMenu* AddMenu(QWidget& window, const MenuDesign& design);
  void AddKeys(QToolBar& toolbar);
  void AddArchiveMenu(QToolBar& toolbar);
  void ShowReport(QAction& entry, const ReportRow& report);

  BrowserStatus& status_;
  QHash<QString, QAction*> entries_;
  QHash<QString, QAction*> keys_;
  QMenu* originalsMenu_ = nullptr;
  QMenu* reportMenu_ = nullptr;
  QAction* archiveToTarget_ = nullptr;
};

}  // namespace folvane
