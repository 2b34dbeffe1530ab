#pragma once

#include <QLineEdit>

#include "widgets/TypingGate.h"

namespace folvane {

/// A single-line text box. Its property `text` holds what was typed, pasted or committed by an input method, never a
/// composition in progress; a change by hand is told once by Changed, a change by program is not.
class TextBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit TextBox(QWidget* parent = nullptr);

  void SetAdmission(TypingGate::Admission admission) { gate_.SetAdmission(std::move(admission)); }
  bool IsComposing() const { return gate_.IsComposing(); }

 Q_SIGNALS:
  void Changed();
  /// An input method has put text in; follows Changed.
  void TextCommitted();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  TypingGate gate_;
};

}  // namespace folvane
