#include "widgets/AgencyCodePicker.h"

#include "base/Surroundings.h"
#include "shell/Lookups.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

AgencyCodePicker::AgencyCodePicker(QWidget* parent) : ListCombo(parent) {
  connect(this, &QComboBox::activated, this, [this] { CaretToRunningNumber(); });
}

void AgencyCodePicker::ReadList() { FillDictionary(*this, u"'机关代字'"_s); }

QString AgencyCodePicker::EntryOf(const QString& text) const { return AgencyOf(text); }

QString AgencyCodePicker::TextOfChoice(const QString& word) const {
  const QString number = Known().mid(AgencyOf(Known()).size());
  if (!number.isEmpty()) return word + number;
  return DocumentNumber::Begun(word, bracket_, Today().toString(u"yyyy"_s)).Join();
}

void AgencyCodePicker::CaretToRunningNumber() {
  const auto number = DocumentNumber::Split(currentText());
  if (number && number->running.isEmpty()) Box().setCursorPosition(int(currentText().size() - number->after.size()));
}

}  // namespace folvane
