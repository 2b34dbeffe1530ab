#include "widgets/EmptyHint.h"

#include <QAbstractItemView>
#include <QEvent>

namespace folvane {
namespace {

constexpr int kMargin = 12;

}  // namespace

// A child of the view and not of what the view scrolls, which would take it along.
EmptyHint::EmptyHint(QAbstractItemView& view, const QString& text) : QLabel(text, &view), view_(view) {
  setObjectName(QStringLiteral("EmptyHint"));
  setAlignment(Qt::AlignCenter);
  setWordWrap(true);
  setMargin(kMargin);
  setForegroundRole(QPalette::PlaceholderText);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  view.viewport()->installEventFilter(this);
  const QAbstractItemModel* model = view.model();
  connect(model, &QAbstractItemModel::rowsInserted, this, &EmptyHint::ShowWhileEmpty);
  connect(model, &QAbstractItemModel::rowsRemoved, this, &EmptyHint::ShowWhileEmpty);
  connect(model, &QAbstractItemModel::modelReset, this, &EmptyHint::ShowWhileEmpty);
  CoverView();
  ShowWhileEmpty();
}

bool EmptyHint::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Move) CoverView();
  return false;
}

void EmptyHint::CoverView() { setGeometry(view_.viewport()->geometry()); }

void EmptyHint::ShowWhileEmpty() { setVisible(view_.model()->rowCount() == 0); }

}  // namespace folvane
