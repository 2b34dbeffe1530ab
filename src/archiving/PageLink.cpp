#include "archiving/PageLink.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace folvane {

PageLink::PageLink(const QString& name, const QString& text, const QString& tip, QWidget* parent)
    : QLabel(text, parent) {
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  setToolTip(tip);
  setAccessibleName(tip);
  setForegroundRole(QPalette::Link);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::TabFocus);
  setMargin(2);
}

void PageLink::Highlight() {
  QFont shown = font();
  shown.setUnderline(underMouse() || hasFocus());
  setFont(shown);
}

void PageLink::enterEvent(QEnterEvent* event) {
  QLabel::enterEvent(event);
  Highlight();
}

void PageLink::leaveEvent(QEvent* event) {
  QLabel::leaveEvent(event);
  Highlight();
}

void PageLink::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  Highlight();
}

void PageLink::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  Highlight();
}

void PageLink::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->pos())) Q_EMIT Clicked();
}

void PageLink::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
    Q_EMIT Clicked();
  } else {
    QLabel::keyPressEvent(event);
  }
}

}  // namespace folvane
