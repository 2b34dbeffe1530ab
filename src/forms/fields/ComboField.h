#pragma once

#include "forms/EntryField.h"
#include "widgets/EditCombo.h"

namespace folvane {

/// A field over any box that drops something down.
class ComboField : public EntryField {
 public:
  ComboField(const FieldSpec& spec, EditCombo* combo) : EntryField(spec, combo), combo_(combo) {
    connect(combo, &EditCombo::Changed, this, &EntryField::Changed);
    connect(&combo->Box(), &TextBox::TextCommitted, this, &EntryField::TextCommitted);
  }

  QString Text() const override { return combo_->Text(); }
  void SetText(const QString& text) override { combo_->SetText(text); }
  bool IsComposing() const override { return combo_->Box().IsComposing(); }
  void SetAdmission(TypingGate::Admission admission) override { combo_->Box().SetAdmission(std::move(admission)); }
  void SelectAll() override { combo_->Box().selectAll(); }
  void CaretToEnd() override { combo_->Box().end(false); }

 private:
  EditCombo* combo_;
};

}  // namespace folvane
