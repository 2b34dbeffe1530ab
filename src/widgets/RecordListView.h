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

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::function<bool(int)> keyHandler_;
};

}  // namespace folvane
