#pragma once

#include <QLabel>

class QAbstractItemView;

namespace folvane {

/// What a view says in its middle while it has no rows: why there is nothing, or what to do next. It lies over the view
/// and is no row of its model, takes no mouse click or drop from the view, and is gone with the first row. The text can
/// be changed by setText.
class EmptyHint : public QLabel {
 public:
  /// @param view has its model already, and keeps it
  EmptyHint(QAbstractItemView& view, const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void CoverView();
  void ShowWhileEmpty();

  QAbstractItemView& view_;
};

}  // namespace folvane
