#pragma once

#include <QSize>
#include <QSizeF>

namespace folvane::documents {

/// How large a page is shown.
struct Zoom {
  enum class Fit { Page, Width, None };
  Fit fit = Fit::Page;
  double factor = 1;  ///< of Fit::None: 1 is the size on paper

  bool operator==(const Zoom&) const = default;
};

/// The scale, in pixels to a point, at which a page is shown in a room of that size in pixels.
double ScaleOf(const Zoom& zoom, const QSizeF& page, const QSize& room);
/// The zoom whose factor a scale is.
double FactorOf(double scale);

/// The next larger or smaller of the usual factors.
double LargerFactor(double factor);
double SmallerFactor(double factor);

}  // namespace folvane::documents
