#pragma once

#include <QSpinBox>

namespace folvane {

/// A box for a whole number. Its property `text` set by program tells nothing; entering the box marks all of it, so
/// that typing replaces it.
class NumberBox : public QSpinBox {
  Q_OBJECT
  Q_PROPERTY(QString text READ text WRITE SetText)

 public:
  using QSpinBox::QSpinBox;

  /// Shows the number nearest to a text within the limits of the box.
  void SetText(const QString& text);

 protected:
  void focusInEvent(QFocusEvent* event) override;
};

}  // namespace folvane
