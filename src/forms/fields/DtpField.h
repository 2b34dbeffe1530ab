#pragma once

#include "forms/fields/ComboField.h"
#include "widgets/DateBox.h"

namespace folvane {

/// A date or none; a record gets null for none.
class DtpField : public ComboField {
 public:
  DtpField(const FieldSpec& spec, QWidget* parent) : ComboField(spec, new DateBox(parent)) {
    connect(&static_cast<DateBox&>(Widget()).Box(), &TextBox::Changed, this, &EntryField::Typing);
  }

  QVariant Value() const override { return Text().isEmpty() ? QVariant() : QVariant(Text()); }
  void Commit() override { static_cast<DateBox&>(Widget()).Commit(); }
};

}  // namespace folvane
