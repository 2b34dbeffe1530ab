#include "forms/fields/TxtField.h"

#include <cmath>

#include "base/TypedValues.h"

namespace folvane {
namespace {

QString AsWholeNumber(const QString& stored) {
  const std::optional<double> number = ReadNumber(stored);
  // A number without decimals is shown as it is: it may have more digits than a double keeps.
  if (!number || *number == std::trunc(*number)) return stored;
  return QString::number(std::round(*number), 'f', 0);
}

}  // namespace

TxtField::TxtField(const FieldSpec& spec, QWidget* parent)
    : EntryField(spec, new TextBox(parent)),
      box_(static_cast<TextBox*>(&Widget())),
      showsWholeNumbers_(spec.fieldType == QStringLiteral("数值型") || spec.fieldType == QStringLiteral("自动编号")) {
  connect(box_, &TextBox::Changed, this, &EntryField::Changed);
  connect(box_, &TextBox::TextCommitted, this, &EntryField::TextCommitted);
}

void TxtField::SetText(const QString& text) {
  if (box_->text() == text) return;
  box_->setText(text);
  box_->home(false);  // a long text is read from its start
}

void TxtField::ShowStored(const QString& stored) { SetText(showsWholeNumbers_ ? AsWholeNumber(stored) : stored); }

}  // namespace folvane
