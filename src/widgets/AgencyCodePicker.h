#pragma once

#include "base/DocumentNumber.h"
#include "widgets/ListCombo.h"

namespace folvane {

/// A document number such as 国发〔2002〕17号. It is typed freely; the list drops down the agency words of the
/// dictionary. A chosen word takes the place of the one that stands there and leaves the rest alone, whatever brackets
/// it has; in an empty box it begins a number of this year with the caret where the running number goes.
class AgencyCodePicker : public ListCombo {
  Q_OBJECT

 public:
  explicit AgencyCodePicker(QWidget* parent = nullptr);

  /// The brackets that a number begun here gets.
  void SetYearBracket(YearBracket bracket) { bracket_ = bracket; }

 protected:
  QString TextOfChoice(const QString& word) const override;
  QString EntryOf(const QString& text) const override;
  void ReadList() override;

 private:
  void CaretToRunningNumber();

  YearBracket bracket_ = YearBracket::Tortoise;
};

}  // namespace folvane
