#include "components/documents/Zoom.h"

#include <algorithm>
#include <array>

namespace folvane::documents {
namespace {

constexpr double kPixelsOfPoint = 96.0 / 72;
constexpr std::array kFactors{0.05, 0.1,  0.25, 0.33, 0.5, 0.67, 0.75, 0.9, 1.0,
                              1.1,  1.25, 1.5,  2.0,  3.0, 4.0,  6.0,  8.0};
// So that a factor that was reached by fitting is not taken for the usual one next to it.
constexpr double kTolerance = 0.005;

}  // namespace

double ScaleOf(const Zoom& zoom, const QSizeF& page, const QSize& room) {
  if (zoom.fit == Zoom::Fit::None || page.isEmpty() || room.isEmpty()) return zoom.factor * kPixelsOfPoint;
  const double width = room.width() / page.width(), height = room.height() / page.height();
  const double least = kFactors.front() * kPixelsOfPoint, most = kFactors.back() * kPixelsOfPoint;
  return std::clamp(zoom.fit == Zoom::Fit::Width ? width : std::min(width, height), least, most);
}

double FactorOf(double scale) { return scale / kPixelsOfPoint; }

double LargerFactor(double factor) {
  const auto next = std::find_if(kFactors.begin(), kFactors.end(), [&](double of) { return of > factor + kTolerance; });
  return next == kFactors.end() ? kFactors.back() : *next;
}

double SmallerFactor(double factor) {
  const auto next =
      std::find_if(kFactors.rbegin(), kFactors.rend(), [&](double of) { return of < factor - kTolerance; });
  return next == kFactors.rend() ? kFactors.front() : *next;
}

}  // namespace folvane::documents
