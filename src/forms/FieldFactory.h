#pragma once

#include <memory>

#include "forms/EntryField.h"

namespace folvane {

/// Makes the field of a kind, its control hidden in the parent. Null for a kind that is not built.
/// @throws DataError when the list of a dictionary cannot be read
std::unique_ptr<EntryField> NewField(const FieldSpec& spec, QWidget* parent);

}  // namespace folvane
