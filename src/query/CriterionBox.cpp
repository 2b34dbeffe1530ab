#include "query/CriterionBox.h"

#include <QHBoxLayout>
#include <QLabel>

#include "base/HalfWidth.h"
#include "query/SimpleCondition.h"
#include "widgets/TextBox.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// The signs of numbers and dates, as an input method gives them too.
QString AdmitLimitSigns(const QString& typed) {
  QString admitted;
  for (const QChar sign : ToHalfWidth(typed)) {
    if (u"0123456789+-./"_s.contains(sign)) admitted += sign;
  }
  return admitted;
}

}  // namespace

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

LikeCriterionBox::LikeCriterionBox(QWidget* parent) : CriterionBox(parent), text_(new TextBox(this)) {
  text_->setToolTip(u"字段中包含的文字"_s);
  AddInput(*text_);
}

QString LikeCriterionBox::Result() const { return LikeCondition(DataField(), Text()); }

QString LikeCriterionBox::Text() const { return text_->text(); }

void LikeCriterionBox::SetText(const QString& text) { text_->setText(text); }

RangeCriterionBox::RangeCriterionBox(QWidget* parent)
    : CriterionBox(parent),
      begin_(NewLimit(u"Begin"_s, u"从：数字或日期，不填则不限"_s)),
      end_(NewLimit(u"End"_s, u"到：数字或日期，不填则不限"_s)) {
  AddInput(*begin_, u"从"_s);
  AddText(u"至"_s);
  AddInput(*end_, u"到"_s);
}

TextBox* RangeCriterionBox::NewLimit(const QString& name, const QString& tip) {
  auto* limit = new TextBox(this);
  limit->setObjectName(name);
  limit->setToolTip(tip);
  limit->SetAdmission(AdmitLimitSigns);
  return limit;
}

QString RangeCriterionBox::Result() const {
  return RangeCondition(DataField(), RangeLimit(begin_->text()), RangeLimit(end_->text()));
}

}  // namespace folvane
