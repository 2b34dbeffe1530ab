#pragma once

#include <QList>

#include "widgets/CalendarCombo.h"

namespace folvane {

/// A date, or none. Its property `text` is YYYY-mm-DD, "" for none.
///
/// A date is typed as 2002-03-04, 20020304 or 2002/3/4; it counts as soon as it is complete, in another form with Enter
/// or as the box is left. What is no date by then gives way to the date before, which the box tells in a tip. Delete
/// empties the box; the arrow keys up and down change the year, month or day that the caret stands in.
class DateBox : public CalendarCombo {
  Q_OBJECT
  Q_PROPERTY(QString text READ Text WRITE SetText)

 public:
  explicit DateBox(QWidget* parent = nullptr);

  QString Text() const override;
  /// Shows a date in any form that a database gives, none for anything else. Silent.
  void SetText(const QString& text) override;
  /// Makes what is being typed count.
  void Commit();
  /// The same for the boxes of a window that is about to take their dates. @return false where one of them has given up
  /// a text since it was asked last: that one has the focus then and tells it again, and the window had better stay.
  static bool AllTaken(const QList<DateBox*>& boxes);

 protected:
  void TakeTyping() override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  QDate Marked() const override { return date_; }
  void TakeDay(const QDate& day) override { TakeDate(day); }
  void AddChoices(CalendarPopup& popup) override;

 private:
  void TakeDate(const QDate& date);
  void Show();
  void TellRefused();
  void StepSection(int count);
  void MakeRoomForDigit();

  QDate date_;
  QString refused_;  ///< what was typed last and was no date; "" once a date is there or the window has been held up
};

}  // namespace folvane
