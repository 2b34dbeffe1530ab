#pragma once

#include "forms/EntryField.h"
#include "widgets/MemoBox.h"

namespace folvane {

/// A text of several lines.
class TxtMLineField : public EntryField {
 public:
  TxtMLineField(const FieldSpec& spec, QWidget* parent) : EntryField(spec, new MemoBox(parent)) {
    connect(&Box(), &MemoBox::Changed, this, &EntryField::Changed);
    connect(&Box(), &MemoBox::TextCommitted, this, &EntryField::TextCommitted);
  }

  QString Text() const override { return Box().Text(); }
  void SetText(const QString& text) override { Box().SetText(text); }
  bool IsComposing() const override { return Box().IsComposing(); }
  void SetAdmission(TypingGate::Admission admission) override { Box().SetAdmission(std::move(admission)); }
  void SelectAll() override { Box().selectAll(); }
  void CaretToEnd() override { Box().moveCursor(QTextCursor::End); }

 private:
  MemoBox& Box() const { return static_cast<MemoBox&>(Widget()); }
};

}  // namespace folvane
