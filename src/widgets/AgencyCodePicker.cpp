#include "widgets/AgencyCodePicker.h"

#include <QRegularExpression>

#include "base/Today.h"
#include "shell/CommonRoutines.h"

namespace folvane {

AgencyCodePicker::AgencyCodePicker(QWidget* parent) : ListCombo(parent) {
  connect(this, &QComboBox::activated, this, [this] { CaretToRunningNumber(); });
}

void AgencyCodePicker::ReadList() { FillDictionary(*this, QStringLiteral("'机关代字'")); }

QString AgencyCodePicker::EntryOf(const QString& text) const {
  static const QRegularExpression agency(QStringLiteral("^[^\\d〔\\[]*"));
  return agency.match(text).captured();
}

QString AgencyCodePicker::TextOfChoice(const QString& word) const {
  const QString number = Known().mid(EntryOf(Known()).size());
  if (!number.isEmpty()) return word + number;
  return DocumentNumber{word, bracket_, Today().toString(QStringLiteral("yyyy")), {}, {}, QStringLiteral("号")}.Join();
}

void AgencyCodePicker::CaretToRunningNumber() {
  const auto number = DocumentNumber::Split(currentText());
  if (number && number->running.isEmpty()) Box().setCursorPosition(int(currentText().size() - number->after.size()));
}

}  // namespace folvane
