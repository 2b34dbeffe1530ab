#pragma once

#include <QDate>

#include "widgets/CalendarPopup.h"
#include "widgets/EditCombo.h"

namespace folvane {

/// A box that drops down a calendar: what the date boxes have in common.
class CalendarCombo : public EditCombo {
  Q_OBJECT

 public:
  using EditCombo::EditCombo;
  void showPopup() override;
  void hidePopup() override;

 protected:
  /// The date that the calendar is to mark, invalid for none.
  virtual QDate Marked() const = 0;
  /// A day has been chosen in the calendar.
  virtual void TakeDay(const QDate& day) = 0;
  /// Adds the buttons under the calendar.
  virtual void AddChoices(CalendarPopup& popup) = 0;

 private:
  CalendarPopup* popup_ = nullptr;
};

}  // namespace folvane
