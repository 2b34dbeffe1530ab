#pragma once

#include "query/CriterionBox.h"

namespace folvane {

class TextBox;

/// A text box whose condition is that the field contains the text. The condition leaves the table's name to the form.
/// Its property `text` is what was typed.
class LikeCriterionBox : public CriterionBox {
  Q_OBJECT
  Q_PROPERTY(QString text READ Text WRITE SetText)

 public:
  explicit LikeCriterionBox(QWidget* parent = nullptr);

  QString Result() const override;
  QString Text() const;
  void SetText(const QString& text);

 private:
  TextBox* text_;
};

}  // namespace folvane
