#pragma once

#include "forms/EntryField.h"
#include "widgets/TextBox.h"

namespace folvane {

/// A text of one line. A field of a number type shows what a record holds as a whole number.
class TxtField : public EntryField {
 public:
  TxtField(const FieldSpec& spec, QWidget* parent);

  QString Text() const override { return box_->text(); }
  void SetText(const QString& text) override;
  bool IsComposing() const override { return box_->IsComposing(); }
  void SetAdmission(TypingGate::Admission admission) override { box_->SetAdmission(std::move(admission)); }
  void SelectAll() override { box_->selectAll(); }
  void CaretToEnd() override { box_->end(false); }

 private:
  void ShowStored(const QString& stored) override;

  TextBox* box_;
  bool showsWholeNumbers_;
};

}  // namespace folvane
