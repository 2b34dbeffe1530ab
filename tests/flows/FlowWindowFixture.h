#pragma once

#include <QLabel>
#include <QTableView>
#include <stdexcept>

#include "flows/FlowFixture.h"
#include "flows/FlowWindow.h"
#include "support/WindowDriver.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

inline QAction& Command(QWidget& window, const QString& name) {
  auto* action = window.findChild<QAction*>(name);
  if (!action) throw std::runtime_error("no command " + name.toStdString());
  return *action;
}

/// A flow's window, driven by the names of its controls.
class FlowWindowTest : public FlowTest {
 protected:
  void AddHeads(const Flow& flow, int count) {
    for (int number = 1; number <= count; ++number) {
      AddRecord(QString::number(10 + number), u"题名%1"_s.arg(number));
      AddHead(flow, {K(number), QString::number(10 + number), flow.idle, u"题名%1"_s.arg(number)});
    }
    log_->Take();
  }
  void Open(const QString& name, WindowSteps steps, const QString& archiveId = {}) {
    WithWindow(name, std::move(steps));
    if (name == u"frmDistributeFile"_s) {
      ShowDistribution(archiveId);
    } else if (name == u"frmPassFile"_s) {
      ShowCirculation(archiveId);
    } else {
      ShowHandling(hasten_, archiveId);
    }
  }
  static QTableView& Heads(QWidget& window) { return Find<QTableView>(window, u"DgFile"_s); }
  static QTableView& Details(QWidget& window) { return Find<QTableView>(window, u"DgDetails"_s); }
  static QAction& Key(QWidget& window, const QString& name) { return FindAction(window, u"tlb"_s, name); }
  static QAction& Entry(QWidget& window, const QString& menu, const QString& name) {
    return FindAction(window, menu, name);
  }
  static void ClickGrid(QTableView& grid, int row) { ClickItem(grid, grid.model()->index(row, 3)); }
  static QString Cell(QTableView& grid, int row, int column) {
    return grid.model()->index(row, column).data().toString();
  }
  static QStringList ShownColumns(QTableView& grid) {
    QStringList captions;
    for (int column = 0; column < grid.model()->columnCount(); ++column) {
      if (!grid.isColumnHidden(column)) captions << grid.model()->headerData(column, Qt::Horizontal).toString();
    }
    return captions;
  }
  static QStringList Fields(QTableView& grid) {
    QStringList fields;
    for (int column = 0; column < grid.model()->columnCount(); ++column)
      fields << grid.model()->headerData(column, Qt::Horizontal, Qt::UserRole).toString();
    return fields;
  }
  static QString Notice(QWidget& window) { return Find<QLabel>(window, u"Notice"_s).text(); }

  MessageBoxes boxes_;
  QString hasten_ = u"0"_s;
};

}  // namespace folvane::test
