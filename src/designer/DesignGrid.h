#pragma once

#include <QWidget>

class QAction;
class QTableView;
class QToolBar;

namespace folvane::designer {

class GridModel;

/// A grid of things with the keys that add, delete and move them. Cells are edited in place; what was copied from a
/// spreadsheet can be pasted, and adds the rows that are missing.
class DesignGrid : public QWidget {
  Q_OBJECT

 public:
  /// @param name of the grid, such as "GrdFields"; its keys are named after it, "GrdFieldsAdd"
  /// @param caption above it, for a screen reader too
  /// @param hint shown while there are no rows
  DesignGrid(GridModel* model, const QString& name, const QString& caption, const QString& hint, QWidget* parent);
  ~DesignGrid() override;

  /// Shows the design as it is now; the current row stays current where it is still there.
  void Refresh();
  /// From 0; -1 for none.
  int CurrentRow() const;
  void GoTo(int row);
  /// A further key behind the others.
  void AddKey(QAction* key);

 Q_SIGNALS:
  void CurrentRowChanged();

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  QAction* NewKey(const QString& name, const QString& icon, const QString& tip, const QString& shortcut,
                  void (DesignGrid::*run)());
  void Enable();
  void MakeCurrent(const QModelIndex& cell);
  std::vector<int> SelectedRows() const;
  void Add();
  void Remove();
  void MoveUp() { Move(-1); }
  void MoveDown() { Move(1); }
  void Move(int by);
  void CopyCells() const;
  void PasteCells();

  GridModel& model_;
  QString name_;
  QTableView* view_;
  QToolBar* bar_;
  QAction *add_, *remove_, *up_ = nullptr, *down_ = nullptr;
};

}  // namespace folvane::designer
