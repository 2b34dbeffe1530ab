#include "forms/ControlPlace.h"

#include <QWidget>
#include <algorithm>

#include "forms/TwipScale.h"

namespace folvane {

void PutInPlace(QWidget& control, const ControlPlace& place, const TwipScale& scale) {
  const QPoint corner(scale.ToPixels(place.left), scale.ToPixels(place.top));
  if (place.size == ControlPlace::Own) {
    control.move(corner);
    control.adjustSize();
    return;
  }
  const int designed = place.size == ControlPlace::OneLine ? 0 : scale.ToPixels(place.height);
  control.setGeometry(QRect(corner, QSize(scale.ToPixels(place.width), std::max(designed, scale.LineHeight()))));
}

}  // namespace folvane
