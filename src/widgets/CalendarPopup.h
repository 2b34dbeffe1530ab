#pragma once

#include <QDate>
#include <QFrame>
#include <functional>

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
  void NameParts();
  void Colour();

  QCalendarWidget* calendar_;
  QHBoxLayout* choices_;
};

}  // namespace folvane
