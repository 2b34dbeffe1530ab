#include "forms/FieldFactory.h"

#include "forms/EntryLayout.h"
#include "forms/fields/CmbField.h"
#include "forms/fields/ComboField.h"
#include "forms/fields/DtpField.h"
#include "forms/fields/TxtField.h"
#include "forms/fields/TxtMLineField.h"
#include "widgets/AgencyCodePicker.h"
#include "widgets/CodePicker.h"
#include "widgets/RecordDatePicker.h"

namespace folvane {

std::unique_ptr<EntryField> NewField(const FieldSpec& spec, QWidget* parent) {
  switch (spec.controlType) {
    case ControlKind::Txt:
      return std::make_unique<TxtField>(spec, parent);
    case ControlKind::Cmb:
      return std::make_unique<CmbField>(spec, parent);
    case ControlKind::DTP:
      return std::make_unique<DtpField>(spec, parent);
    case ControlKind::F_FondsNo:
      return std::make_unique<ComboField>(spec, new UnitCodePicker(parent));
    case ControlKind::F_Aec:
      return std::make_unique<ComboField>(spec, new ClassCodePicker(parent));
    case ControlKind::F_Organ:
      return std::make_unique<ComboField>(spec, new AgencyCodePicker(parent));
    case ControlKind::DTP_Arch:
      return std::make_unique<ComboField>(spec, new RecordDatePicker(parent));
    case ControlKind::Txt_MLine:
      return std::make_unique<TxtMLineField>(spec, parent);
    default:
      return nullptr;
  }
}

}  // namespace folvane
