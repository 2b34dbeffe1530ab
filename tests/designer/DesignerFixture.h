#pragma once

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QTabWidget>
#include <gmock/gmock.h>

#include <folvane/Designer.h>

#include "design/SmallDesign.h"
#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane::test {

MATCHER_P(Says, part, "") { return arg.contains(part); }

/// The designer over a database with the small design, driven by the names of its controls.
class DesignerTest : public WithSmallDesign {
 protected:
  void SetUp() override {
    WithSmallDesign::SetUp();
    Shared().Connection = Connected();
    Shared().UserName = QStringLiteral("系统管理员");
  }
  void TearDown() override { Shared().Connection.reset(); }

  void Open(const WindowSteps& steps) {
    WithWindow(QStringLiteral("FrmDesigner"), steps);
    ShowDesigner();
  }
  /// Chooses a node of the tree by its text.
  static void Choose(QWidget& window, const QString& node) {
    auto& tree = Find<QAbstractItemView>(window, QStringLiteral("TreDesign"));
    const auto found =
        tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, node, 1, Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_FALSE(found.isEmpty()) << node.toStdString();
    tree.setCurrentIndex(found.first());
  }
  /// Brings a page of the table to the front.
  static void ShowPage(QWidget& window, const QString& page) {
    auto& pages = Find<QTabWidget>(window, QStringLiteral("TabTable"));
    pages.setCurrentWidget(&Find(pages, page));
  }
  /// Runs a command of a menu.
  static void Run(QWidget& window, const QString& menu, const QString& entry) {
    FindAction(window, menu, entry).trigger();
  }
  /// The cells of a grid or list, joined by "|".
  static QStringList Shown(QWidget& window, const QString& view) {
    const QAbstractItemModel& model = *Find<QAbstractItemView>(window, view).model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) cells << model.index(row, column).data().toString();
      rows << cells.join(u'|');
    }
    return rows;
  }
  static bool Set(QWidget& window, const QString& grid, int row, int column, const QVariant& value,
                  int role = Qt::EditRole) {
    QAbstractItemModel& model = *Find<QAbstractItemView>(window, grid).model();
    return model.setData(model.index(row, column), value, role);
  }
  static QString Notice(QWidget& window) { return TextIn(window, QStringLiteral("Notice")); }
  static void Undo(QWidget& window) { Run(window, QStringLiteral("mnuEdit"), QStringLiteral("mnuUndo")); }
  static void Redo(QWidget& window) { Run(window, QStringLiteral("mnuEdit"), QStringLiteral("mnuRedo")); }
  static QAction& Key(QWidget& window, const QString& name) { return Find<QAction>(window, name); }
  /// Applies what the window wants, with the same answer to every question about data.
  static void Apply(QWidget& window, int answer = 0) {
    WithWindow(QStringLiteral("PlanDialog"), [&](QWidget& dialog) {
      for (auto* box : dialog.findChildren<QComboBox*>()) box->setCurrentIndex(answer);
      Click(Find(dialog, QStringLiteral("CmdOK")));
    });
    Run(window, QStringLiteral("mnuDesign"), QStringLiteral("mnuApply"));
  }
  static void NewTable(QWidget& window, const QString& caption) {
    WithWindow(QStringLiteral("NewTableDialog"), [&](QWidget& dialog) {
      Type(Find(dialog, QStringLiteral("TxtCaption")), caption);
      Click(Find(dialog, QStringLiteral("CmdOK")));
    });
    Run(window, QStringLiteral("mnuDesign"), QStringLiteral("mnuNewTable"));
  }

  const TempProgramDirectory directory_;
  MessageBoxes boxes_;
};

}  // namespace folvane::test
