#pragma once

#include <QString>
#include <vector>

#include "forms/EntryLayout.h"

namespace folvane {

/// What an entry form shows of a field at the moment, for checks that need no controls.
struct ShownField {
  ControlId control;
  QString dataField;
  QString caption;    ///< the name that messages use
  QString limitText;  ///< the hint on its length
  QString text;       ///< "" for a date picker without a date
};

using ShownFields = std::vector<ShownField>;

/// The field of a kind and number, null when the form has none.
const ShownField* FindField(const ShownFields& fields, const ControlId& control);

}  // namespace folvane
