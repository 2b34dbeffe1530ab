#include "query/RangeCriterionBox.h"

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
