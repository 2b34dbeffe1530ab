#include "widgets/ChoiceRelay.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QItemSelectionModel>
#include <QScopedValueRollback>

#include "shell/EventGuard.h"

namespace folvane {

ChoiceRelay::ChoiceRelay(QAbstractItemView* view, std::function<void(const QModelIndex&)> chosen)
    : QObject(view), view_(view), chosen_(std::move(chosen)) {
  view->viewport()->installEventFilter(this);
  connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) { Tell(current); });
  connect(view, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
    if (!toldSincePress_) Tell(index);
    toldSincePress_ = false;
  });
}

void ChoiceRelay::SelectSilently(const QModelIndex& index) {
  const QScopedValueRollback<bool> silence(silent_, true);
  view_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  view_->scrollTo(index);
}

bool ChoiceRelay::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) toldSincePress_ = false;
  // The first click of a double click has told it already.
  if (event->type() == QEvent::MouseButtonDblClick) toldSincePress_ = true;
  return QObject::eventFilter(watched, event);
}

void ChoiceRelay::Tell(const QModelIndex& index) {
  if (silent_ || !index.isValid()) return;
  toldSincePress_ = true;
  RunGuarded([&] { chosen_(index); });
}

}  // namespace folvane
