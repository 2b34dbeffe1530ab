#pragma once

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QString>
#include <functional>
#include <optional>

namespace folvane {

/// What a text box lets in of what is typed: of a key's text and of the text that an input method commits. A
/// composition in progress is left alone, and so is what a program sets or the user pastes.
class TypingGate {
 public:
  /// Gives what goes in for what was typed; "" refuses it.
  using Admission = std::function<QString(const QString& typed)>;

  void SetAdmission(Admission admission) { admission_ = std::move(admission); }

  /// What goes in for a key; none when the key types no text or its text goes in as it is.
  std::optional<QString> Replacement(const QKeyEvent& event) const;
  /// Leaves in the event what goes in of the text it commits.
  void Admit(QInputMethodEvent& event);
  /// Whether an input method has text in hand that is not yet committed.
  bool IsComposing() const { return composing_; }

 private:
  Admission admission_;
  bool composing_ = false;
};

}  // namespace folvane
