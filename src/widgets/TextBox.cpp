#include "widgets/TextBox.h"

namespace folvane {

TextBox::TextBox(QWidget* parent) : QLineEdit(parent) {
  connect(this, &QLineEdit::textEdited, this, &TextBox::Changed);
}

void TextBox::keyPressEvent(QKeyEvent* event) {
  const std::optional<QString> replacement = isReadOnly() ? std::nullopt : gate_.Replacement(*event);
  if (!replacement) return QLineEdit::keyPressEvent(event);
  if (!replacement->isEmpty()) insert(*replacement);
  event->accept();
}

void TextBox::inputMethodEvent(QInputMethodEvent* event) {
  gate_.Admit(*event);
  QLineEdit::inputMethodEvent(event);
  if (!event->commitString().isEmpty()) Q_EMIT TextCommitted();
}

}  // namespace folvane
