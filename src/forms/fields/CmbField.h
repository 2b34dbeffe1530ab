#pragma once

#include "forms/fields/ComboField.h"

namespace folvane {

/// A text with a list of the entries of a dictionary.
class CmbField : public ComboField {
 public:
  /// @throws DataError when the dictionary cannot be read
  CmbField(const FieldSpec& spec, QWidget* parent);
};

}  // namespace folvane
