#include "widgets/CalendarCombo.h"

namespace folvane {

void CalendarCombo::showPopup() {
  if (!popup_) {
    popup_ = new CalendarPopup(this);
    AddChoices(*popup_);
    connect(popup_, &CalendarPopup::Picked, this, [this](const QDate& day) { TakeDay(day); });
  }
  popup_->setAccessibleName(accessibleName());
  popup_->Mark(Marked());
  DropDown(*popup_);
}

void CalendarCombo::hidePopup() {
  if (popup_) popup_->hide();
  EditCombo::hidePopup();
}

}  // namespace folvane
