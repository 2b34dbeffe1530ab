#pragma once

#include <QModelIndex>
#include <QObject>
#include <functional>

class QAbstractItemView;

namespace folvane {

/// Tells once for each act of the user, or of a program that sets the current index, which row of a view was chosen:
/// when the current row changes, and when the row that is current already is clicked again. Errors of the handler are
/// shown.
///
/// Make it after the view has its model.
class ChoiceRelay : public QObject {
 public:
  ChoiceRelay(QAbstractItemView* view, std::function<void(const QModelIndex&)> chosen);

  /// Makes a row the current and only selected one and brings it into view, without telling.
  void SelectSilently(const QModelIndex& index);

 private:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void Tell(const QModelIndex& index);

  QAbstractItemView* view_;
  std::function<void(const QModelIndex&)> chosen_;
  bool silent_ = false;
  bool toldSincePress_ = false;
};

}  // namespace folvane
