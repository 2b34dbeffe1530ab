#pragma once

#include <QLabel>
#include <QPointer>

class QAbstractItemView;

namespace folvane {

/// What a view says in its middle: why it shows nothing, or what to do next. It lies over the view and is no row of its
/// model, and the view takes mouse and drops as if it were not there.
class ViewHint : public QLabel {
 public:
  ViewHint(QAbstractItemView& view, const QString& name);

  /// "" takes the hint away.
  void ShowHint(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  QPointer<QWidget> viewport_;  ///< the view is gone before its model tells a last reset
};

/// Gives a view a hint named "EmptyHint" that stands there whenever the view has no rows.
/// @param view has its model already, and keeps it
void AddEmptyHint(QAbstractItemView& view, const QString& text);

/// A line of advice in a dialog, paler than the captions.
QLabel* NewHint(const QString& text, QWidget* parent);

}  // namespace folvane
