#pragma once

#include <QLabel>

namespace folvane {

/// A label that acts as a link: a click, Enter or space on it does something. It is underlined under the mouse and
/// while it has the focus.
class PageLink : public QLabel {
  Q_OBJECT

 public:
  PageLink(const QString& name, const QString& text, const QString& tip, QWidget* parent);

 Q_SIGNALS:
  void Clicked();

 protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Highlight();
};

}  // namespace folvane
