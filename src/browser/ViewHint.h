#pragma once

#include <QLabel>

class QAbstractItemView;

namespace folvane {

/// What to do next, written over a view that has nothing to show. The view takes the mouse as if it were not there.
class ViewHint : public QLabel {
 public:
  ViewHint(QAbstractItemView& view, const QString& name);

  /// "" takes the hint away.
  void ShowHint(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  QAbstractItemView& view_;
};

}  // namespace folvane
