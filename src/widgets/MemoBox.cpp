#include "widgets/MemoBox.h"

namespace folvane {

MemoBox::MemoBox(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
  document()->setDocumentMargin(2);  // the text stands where that of a single-line box does
  connect(this, &QPlainTextEdit::textChanged, this, &MemoBox::TellChange);
}

void MemoBox::SetText(const QString& text) {
  // Line breaks as the box keeps them, so that a text stored by another program is known again.
  QString kept = text;
  kept.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  if (kept == Text()) return;
  known_ = kept;
  setPlainText(kept);
}

// The box tells of every change, of a composition and a program's too: only a text that differs counts.
void MemoBox::TellChange() {
  if (Text() == known_) return;
  known_ = Text();
  Q_EMIT Changed();
}

void MemoBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return event->ignore();
  const std::optional<QString> replacement = isReadOnly() ? std::nullopt : gate_.Replacement(*event);
  if (!replacement) return QPlainTextEdit::keyPressEvent(event);
  if (!replacement->isEmpty()) insertPlainText(*replacement);
  event->accept();
}

void MemoBox::inputMethodEvent(QInputMethodEvent* event) {
  gate_.Admit(*event);
  QPlainTextEdit::inputMethodEvent(event);
  if (!event->commitString().isEmpty()) Q_EMIT TextCommitted();
}

}  // namespace folvane
