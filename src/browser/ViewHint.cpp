#include "browser/ViewHint.h"

#include <QAbstractItemView>
#include <QEvent>

namespace folvane {
namespace {

constexpr int kMargin = 16;

}  // namespace

// A child of the view and not of its viewport, which takes its children along when it scrolls.
ViewHint::ViewHint(QAbstractItemView& view, const QString& name) : QLabel(&view), view_(view) {
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  setForegroundRole(QPalette::PlaceholderText);
  setAlignment(Qt::AlignCenter);
  setWordWrap(true);
  setMargin(kMargin);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  view.viewport()->installEventFilter(this);
  hide();
}

void ViewHint::ShowHint(const QString& text) {
  setText(text);
  Place();
  setVisible(!text.isEmpty());
  raise();
}

void ViewHint::Place() { setGeometry(view_.viewport()->geometry()); }

bool ViewHint::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Move) Place();
  return false;
}

}  // namespace folvane
