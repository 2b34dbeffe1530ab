#pragma once

class QWidget;

namespace folvane {

/// Turns the design's twips, 1440 to the inch, into pixels. Forms are designed for a screen of 96 DPI and a font of 9
/// point; they grow with the resolution of the screen and with a larger font.
class TwipScale {
 public:
  explicit TwipScale(const QWidget& widget);

  int ToPixels(int twips) const;
  int ToTwips(int pixels) const;
  /// The height of a control of one line, in pixels: that of the design, or more where the font needs it.
  int LineHeight() const { return lineHeight_; }

 private:
  double pixels_;  ///< to the twip
  int lineHeight_;
};

}  // namespace folvane
