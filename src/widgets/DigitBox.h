#pragma once

#include "widgets/TextBox.h"

namespace folvane {

/// A text box that takes only digits; a key that types anything else beeps.
class DigitBox : public TextBox {
  Q_OBJECT

 public:
  explicit DigitBox(QWidget* parent = nullptr);
};

}  // namespace folvane
