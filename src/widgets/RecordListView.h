#pragma once

#include <QTreeView>
#include <functional>

namespace folvane {

/// A flat list of records in columns, several of which can be selected. Cells stay on one line.
class RecordListView : public QTreeView {
 public:
  explicit RecordListView(QWidget* parent = nullptr);

  /// Is asked about each key before the view moves; true keeps the key from the view.
  void SetKeyHandler(std::function<bool(int key)> handler) { keyHandler_ = std::move(handler); }
  /// The row that is current, counted from 1; 0 when there is none.
  int CurrentRow() const { return currentIndex().isValid() ? currentIndex().row() + 1 : 0; }

  /// Has a key pressed and let go in the view, which takes the focus.
  void SendKey(Qt::Key key);
  /// Ticks the selected rows, or takes their ticks: all get what the current one has not.
  void TickSelected();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  /// With the shift key a click on a box gives all rows from the current one on what the clicked one gets.
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  std::function<bool(int)> keyHandler_;
};

}  // namespace folvane
