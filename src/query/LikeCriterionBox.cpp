#include "query/LikeCriterionBox.h"

#include "query/SimpleCondition.h"
#include "widgets/TextBox.h"

namespace folvane {

LikeCriterionBox::LikeCriterionBox(QWidget* parent) : CriterionBox(parent), text_(new TextBox(this)) {
  text_->setToolTip(QStringLiteral("字段中包含的文字"));
  AddInput(*text_);
}

QString LikeCriterionBox::Result() const { return LikeCondition(DataField(), Text()); }

QString LikeCriterionBox::Text() const { return text_->text(); }

void LikeCriterionBox::SetText(const QString& text) { text_->setText(text); }

}  // namespace folvane
