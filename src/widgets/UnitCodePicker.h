#pragma once

#include "widgets/CodePicker.h"

namespace folvane {

/// The number of a fonds.
class UnitCodePicker : public CodePicker {
  Q_OBJECT

 public:
  using CodePicker::CodePicker;

 protected:
  QString ListStatement() const override;
};

}  // namespace folvane
