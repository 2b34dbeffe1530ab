#pragma once

#include <QString>

#include <folvane/Design.h>

namespace folvane::design {

// Kinds of control that the layout of a form tells apart.
inline constexpr int kComboControl = 2, kFrameControl = 3, kNoControl = 5, kLinesControl = 10;

// The usual measures of a form, in twips.
inline constexpr int kUsualLeft = 1350, kUsualWidth = 3600, kLine = 300, kPitch = 480;

/// Whether it is an input, and no frame.
inline bool MakesControl(const Design::Control& control) {
  return control.type != kFrameControl && control.type != kNoControl;
}

bool HasSize(const Design::Control& control);
/// Whether one hides a part of the other.
bool Overlap(const Design::Control& one, const Design::Control& other);

/// The kind of control that fits a field best.
int ControlTypeFor(const Design::Field& field);

/// The first number that no control of that kind has.
int FreeIndex(const Design::Table& table, int type);

/// Gives a field a control at the end of the form, beside the last one where there is room, and widens the frame.
void AddToForm(Design::Table& table, const Design::Field& field);

/// Makes the control of a field one of that kind; where it would hide another one then, it goes to the end.
void SetControlType(Design::Table& table, Design::Control& control, int type);

/// Puts all controls in two columns in the order of the Enter key, wide ones over both, and the frame around them.
void ArrangeForm(Design::Table& table);

/// Puts the frame around what there is, with the usual margin; makes one where there is none.
void FitFrame(Design::Table& table);

}  // namespace folvane::design
