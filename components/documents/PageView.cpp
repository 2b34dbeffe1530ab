#include "components/documents/PageView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

namespace folvane::documents {
namespace {
constexpr int kBorder = 10;
}

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  viewport()->setBackgroundRole(QPalette::Mid);
  viewport()->setAutoFillBackground(true);
}

void PageView::Show(const DrawnPage& page, bool fromEnd) {
  const bool isOther = page.wish.page != page_.wish.page || page_.image.isNull();
  const bool isWhole = verticalScrollBar()->maximum() == 0;
  const auto share = [](const QScrollBar* bar) {
    return bar->maximum() > 0 ? (bar->value() + bar->pageStep() / 2.0) / (bar->maximum() + bar->pageStep()) : 0.5;
  };
  const double across = share(horizontalScrollBar()), down = share(verticalScrollBar());
  page_ = page;
  SetRanges();
  const auto centre = [](QScrollBar* bar, double at) {
    bar->setValue(int(at * (bar->maximum() + bar->pageStep()) - bar->pageStep() / 2.0));
  };
  // Zooming and turning keep the middle where it is; a page that was seen whole begins at its head.
  centre(horizontalScrollBar(), across);
  if (isOther) {
    verticalScrollBar()->setValue(fromEnd ? verticalScrollBar()->maximum() : 0);
  } else {
    centre(verticalScrollBar(), isWhole ? 0 : down);
  }
  viewport()->update();
}

void PageView::Clear() {
  page_ = {};
  SetRanges();
  viewport()->update();
}

QSize PageView::Room(Zoom::Fit fit) const {
  // Without regard to the scroll bars that the page before needed. One that is fitted to the width needs the upright
  // one.
  const int bar = fit == Zoom::Fit::Width ? verticalScrollBar()->sizeHint().width() : 0;
  return (maximumViewportSize() - QSize(2 * kBorder + bar, 2 * kBorder)).expandedTo(QSize(1, 1));
}

void PageView::SetRanges() {
  const QSize room = viewport()->size(),
              page = page_.size.isEmpty() ? QSize() : page_.size + QSize(kBorder, kBorder) * 2;
  horizontalScrollBar()->setPageStep(room.width());
  horizontalScrollBar()->setRange(0, qMax(0, page.width() - room.width()));
  horizontalScrollBar()->setSingleStep(40);
  verticalScrollBar()->setPageStep(room.height());
  verticalScrollBar()->setRange(0, qMax(0, page.height() - room.height()));
  verticalScrollBar()->setSingleStep(40);
}

QRect PageView::PageRect() const {
  const QSize room = viewport()->size();
  const auto begin = [](int room, int page, int scrolled) {
    return page + 2 * kBorder <= room ? (room - page) / 2 : kBorder - scrolled;
  };
  return {QPoint(begin(room.width(), page_.size.width(), horizontalScrollBar()->value()),
                 begin(room.height(), page_.size.height(), verticalScrollBar()->value())),
          page_.size};
}

void PageView::paintEvent(QPaintEvent*) {
  if (page_.image.isNull()) return;
  QPainter painter(viewport());
  const QRect place = PageRect();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(place, page_.image);
  painter.setPen(palette().color(QPalette::Shadow));
  painter.drawRect(place.adjusted(-1, -1, 0, 0));
}

void PageView::resizeEvent(QResizeEvent*) {
  SetRanges();
  if (resized) resized();
}

void PageView::wheelEvent(QWheelEvent* event) {
  const int turned = event->angleDelta().y();
  if (event->modifiers() & Qt::ControlModifier) {
    if (turned != 0) zoom(turned > 0);
    return;
  }
  const QScrollBar* bar = verticalScrollBar();
  if (turned < 0 && bar->value() == bar->maximum()) return turnBy(1);
  if (turned > 0 && bar->value() == 0) return turnBy(-1);
  QAbstractScrollArea::wheelEvent(event);
}

void PageView::ScrollOrTurn(int direction) {
  QScrollBar* bar = verticalScrollBar();
  if (bar->value() == (direction > 0 ? bar->maximum() : 0)) return turnBy(direction);
  bar->setValue(bar->value() + direction * bar->pageStep() * 9 / 10);
}

void PageView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_PageDown:
    case Qt::Key_Space:
      return ScrollOrTurn(1);
    case Qt::Key_PageUp:
    case Qt::Key_Backspace:
      return ScrollOrTurn(-1);
    case Qt::Key_Home:
      return turnToEnd(false);
    case Qt::Key_End:
      return turnToEnd(true);
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void PageView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  dragged_ = event->pos();
  viewport()->setCursor(Qt::ClosedHandCursor);
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
  if (!(event->buttons() & Qt::LeftButton)) return;
  const QPoint moved = event->pos() - dragged_;
  dragged_ = event->pos();
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
  verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
}

void PageView::mouseReleaseEvent(QMouseEvent*) { viewport()->unsetCursor(); }

}  // namespace folvane::documents
