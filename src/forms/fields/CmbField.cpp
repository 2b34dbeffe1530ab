#include "forms/fields/CmbField.h"

#include "shell/Lookups.h"

namespace folvane {

CmbField::CmbField(const FieldSpec& spec, QWidget* parent) : ComboField(spec, new EditCombo(parent)) {
  auto& list = static_cast<EditCombo&>(Widget());
  FillDictionary(list, spec.dictionary);
  list.SetText({});  // the first entry of a list shows itself
}

}  // namespace folvane
