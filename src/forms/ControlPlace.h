#pragma once

class QWidget;

namespace folvane {

class TwipScale;

/// A place on a form as it is designed, in twips, and how much of it a control takes.
struct ControlPlace {
  int left = 0, top = 0, width = 0, height = 0;
  enum Size {
    AsDesigned,
    OneLine,  ///< the width as designed
    Own,      ///< what the control itself needs
  } size = AsDesigned;
};

/// Puts a control at a place; none becomes lower than a line.
void PutInPlace(QWidget& control, const ControlPlace& place, const TwipScale& scale);

}  // namespace folvane
