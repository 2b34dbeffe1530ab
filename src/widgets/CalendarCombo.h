#pragma once

#include <QDate>
#include <QFrame>
#include <functional>

#include "widgets/EditCombo.h"

class QCalendarWidget;
class QHBoxLayout;

namespace folvane {

/// A calendar that drops down from a date box, with a row of buttons under it. It closes with a choice, with Escape and
/// with a click beside it.
class CalendarPopup : public QFrame {
  Q_OBJECT

 public:
  explicit CalendarPopup(QWidget* owner);

  /// Marks a date, today for an invalid one.
  void Mark(const QDate& date);
  /// Adds a button that runs the choice with the year and month shown.
  void AddChoice(const QString& caption, std::function<void(int year, int month)> choice);

 Q_SIGNALS:
  void Picked(const QDate& date);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void NameControls();
  void Colour();

  QCalendarWidget* calendar_;
  QHBoxLayout* choices_;
};

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
