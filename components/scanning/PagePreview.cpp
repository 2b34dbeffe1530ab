#include "components/scanning/PagePreview.h"

#include <QPainter>

namespace folvane::scanning {

PagePreview::PagePreview(QWidget* parent) : QWidget(parent) {
  setMinimumSize(160, 200);
  setBackgroundRole(QPalette::Mid);
  setAutoFillBackground(true);
}

void PagePreview::Show(const QImage& page) {
  page_ = page;
  update();
}

void PagePreview::paintEvent(QPaintEvent*) {
  if (page_.isNull()) return;
  constexpr int kBorder = 10;
  const QRect room = rect().adjusted(kBorder, kBorder, -kBorder, -kBorder);
  QRect place(QPoint(), page_.size().scaled(room.size(), Qt::KeepAspectRatio));
  place.moveCenter(room.center());
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(place, page_.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  painter.setPen(palette().color(QPalette::Shadow));
  painter.drawRect(place.adjusted(-1, -1, 0, 0));
}

}  // namespace folvane::scanning
