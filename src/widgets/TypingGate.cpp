#include "widgets/TypingGate.h"

namespace folvane {
namespace {

bool TypesText(const QKeyEvent& event) {
  const bool command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  return !command && !event.text().isEmpty() && (event.text().front().isPrint() || event.text().front().isSurrogate());
}

}  // namespace

std::optional<QString> TypingGate::Replacement(const QKeyEvent& event) const {
  if (!admission_ || !TypesText(event)) return {};
  const QString admitted = admission_(event.text());
  return admitted == event.text() ? std::nullopt : std::optional(admitted);
}

void TypingGate::Admit(QInputMethodEvent& event) {
  composing_ = !event.preeditString().isEmpty();
  if (admission_ && !event.commitString().isEmpty())
    event.setCommitString(admission_(event.commitString()), event.replacementStart(), event.replacementLength());
}

}  // namespace folvane
