#pragma once

#include "query/CriterionBox.h"

namespace folvane {

class TextBox;

/// Two text boxes, Begin and End, for the limits of a field that holds numbers or dates; one of them is enough. The
/// condition stands by itself in brackets.
class RangeCriterionBox : public CriterionBox {
  Q_OBJECT

 public:
  explicit RangeCriterionBox(QWidget* parent = nullptr);

  QString Result() const override;

 private:
  TextBox* NewLimit(const QString& name, const QString& tip);

  TextBox *begin_, *end_;
};

}  // namespace folvane
