#include "widgets/DigitBox.h"

#include <QRegularExpressionValidator>

#include "shell/TypedKeys.h"

namespace folvane {
namespace {

QString TypedDigits(const QString& typed) {
  QString digits;
  for (const QChar letter : typed) {
    if (FilterKey(letter.unicode(), QStringLiteral("0123456789"), true) != 0) digits += letter;
  }
  return digits;
}

}  // namespace

DigitBox::DigitBox(QWidget* parent) : TextBox(parent) {
  SetAdmission(&TypedDigits);
  // For what is pasted.
  setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), this));
}

}  // namespace folvane
