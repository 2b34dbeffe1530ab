#pragma once

#include "widgets/CodePicker.h"

namespace folvane {

/// The number of an entity class of the current fonds, which the station's settings name.
class ClassCodePicker : public CodePicker {
  Q_OBJECT

 public:
  using CodePicker::CodePicker;

 protected:
  QString ListStatement() const override;
};

}  // namespace folvane
