#pragma once

#include "widgets/CalendarCombo.h"

namespace folvane {

/// A date of a record as its text of up to 8 digits, yyyymmdd, where an unknown month or day is 00: 20021200, 20020000.
/// Digits are typed; whether they make a date is left to the check of the record. Signs between the digits, as in a
/// pasted 2002-03-04, are dropped.
class RecordDatePicker : public CalendarCombo {
  Q_OBJECT

 public:
  explicit RecordDatePicker(QWidget* parent = nullptr);

 protected:
  void TakeTyping() override;
  QDate Marked() const override;
  void TakeDay(const QDate& day) override;
  void AddChoices(CalendarPopup& popup) override;
};

}  // namespace folvane
