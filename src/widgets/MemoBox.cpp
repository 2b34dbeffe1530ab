#include "widgets/MemoBox.h"

#include <QSignalBlocker>
#include <QTextDocument>

namespace folvane {

MemoBox::MemoBox(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
  document()->setDocumentMargin(2);  // the text stands where that of a single-line box does
  connect(this, &QPlainTextEdit::textChanged, this, &MemoBox::TellChange);
}

void MemoBox::SetText(const QString& text) {
  if (text == text_) return;
  {
    const QSignalBlocker silence(this);
    setPlainText(text);
  }
  text_ = text;
  content_ = Content();
}

// Not toPlainText, which makes blanks of no-break spaces and line feeds of line separators.
QString MemoBox::Content() const { return document()->toRawText().replace(QChar::ParagraphSeparator, u'\n'); }

// The box tells of every change, of a composition and a program's too: only a text that differs counts.
void MemoBox::TellChange() {
  const QString content = Content();
  if (content == content_) return;
  text_ = content_ = content;
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
