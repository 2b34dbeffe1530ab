#pragma once

#include <QComboBox>

namespace folvane {

/// A combo box that answers the property `text`: what it shows. Set by program it takes the entry of that text, or in
/// an editable box the text itself, without a signal.
class TextCombo : public QComboBox {
  Q_OBJECT
  Q_PROPERTY(QString text READ currentText WRITE SetText)

 public:
  using QComboBox::QComboBox;
  virtual void SetText(const QString& text);
};

}  // namespace folvane
