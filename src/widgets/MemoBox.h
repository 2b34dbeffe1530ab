#pragma once

#include <QPlainTextEdit>

#include "widgets/TypingGate.h"

namespace folvane {

/// A text box of several lines that takes no line break from the Enter key: lines come from wrapping, and from what a
/// text already holds. Its property `text` and its signals are those of TextBox.
///
/// A text is kept as it was set, to the character, until the user changes it. From then on its line breaks are those of
/// the box, line feeds; everything else in it still is as it was.
class MemoBox : public QPlainTextEdit {
  Q_OBJECT
  Q_PROPERTY(QString text READ Text WRITE SetText)

 public:
  explicit MemoBox(QWidget* parent = nullptr);

  const QString& Text() const { return text_; }
  /// Sets the text silently. The same text leaves caret and selection alone.
  void SetText(const QString& text);
  void SetAdmission(TypingGate::Admission admission) { gate_.SetAdmission(std::move(admission)); }
  bool IsComposing() const { return gate_.IsComposing(); }

 Q_SIGNALS:
  void Changed();
  void TextCommitted();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  QString Content() const;
  void TellChange();

  TypingGate gate_;
  QString text_;
  QString content_;  ///< what the box made of the text
};

}  // namespace folvane
