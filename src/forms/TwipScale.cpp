#include "forms/TwipScale.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace folvane {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kDesignFontTwips = 180;  // a character of 9 point
constexpr int kDesignLine = 300;
constexpr int kFrameAndMargins = 8;

}  // namespace

TwipScale::TwipScale(const QWidget& widget)
    : pixels_(std::max(widget.logicalDpiY() / kTwipsPerInch, QFontInfo(widget.font()).pixelSize() / kDesignFontTwips)),
      lineHeight_(std::max(ToPixels(kDesignLine), widget.fontMetrics().height() + kFrameAndMargins)) {}

int TwipScale::ToPixels(int twips) const { return int(std::lround(twips * pixels_)); }

int TwipScale::ToTwips(int pixels) const { return int(std::lround(pixels / pixels_)); }

}  // namespace folvane
