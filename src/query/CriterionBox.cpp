#include "query/CriterionBox.h"

#include <QHBoxLayout>
#include <QLabel>

namespace folvane {

CriterionBox::CriterionBox(QWidget* parent) : QWidget(parent), caption_(new QLabel(this)), row_(new QHBoxLayout(this)) {
  caption_->setTextFormat(Qt::PlainText);
  row_->setContentsMargins(0, 0, 0, 0);
  row_->addWidget(caption_);
}

QString CriterionBox::Caption() const { return caption_->text(); }

// The caption is no buddy of the inputs: it would read an & as the mark of a shortcut.
void CriterionBox::SetCaption(const QString& caption) {
  caption_->setText(caption);
  for (const auto& [input, part] : inputs_) input->setAccessibleName(caption + part);
}

void CriterionBox::AddInput(QWidget& input, const QString& part) {
  inputs_.emplace_back(&input, part);
  row_->addWidget(&input, 1);
  if (!focusProxy()) setFocusProxy(&input);
}

void CriterionBox::AddText(const QString& text) { row_->addWidget(new QLabel(text, this)); }

}  // namespace folvane
