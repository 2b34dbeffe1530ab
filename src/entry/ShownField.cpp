#include "entry/ShownField.h"

#include <algorithm>

namespace folvane {

const ShownField* FindField(const ShownFields& fields, const ControlId& control) {
  const auto found =
      std::find_if(fields.begin(), fields.end(), [&](const ShownField& field) { return field.control == control; });
  return found == fields.end() ? nullptr : &*found;
}

}  // namespace folvane
