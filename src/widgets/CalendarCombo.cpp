#include "widgets/CalendarCombo.h"

#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

#include "base/Surroundings.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

CalendarPopup::CalendarPopup(QWidget* owner)
    : QFrame(owner, Qt::Popup), calendar_(new QCalendarWidget), choices_(new QHBoxLayout) {
  setObjectName(u"CalendarPopup"_s);
  setFrameShape(QFrame::StyledPanel);
  // The click beside the pop-up only closes it: passed on to the box's own button it would open it again.
  setAttribute(Qt::WA_NoMouseReplay);
  calendar_->setAccessibleName(u"日历"_s);
  NameControls();
  calendar_->setLocale(QLocale(QLocale::Chinese, QLocale::China));
  calendar_->setFirstDayOfWeek(Qt::Monday);
  calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar_->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
  calendar_->setMinimumDate(QDate(100, 1, 1));
  calendar_->setMaximumDate(QDate(9999, 12, 31));

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  layout->setSpacing(4);
  layout->addWidget(calendar_);
  layout->addLayout(choices_);
  choices_->setSpacing(2);
  choices_->addStretch();

  const auto pick = [this](const QDate& date) {
    hide();
    Q_EMIT Picked(date);
  };
  // A click tells of itself; the Enter key only activates.
  connect(calendar_, &QCalendarWidget::clicked, this, pick);
  connect(calendar_, &QCalendarWidget::activated, this, [this, pick](const QDate& date) {
    if (isVisible()) pick(date);
  });
}

void CalendarPopup::NameControls() {
  const std::pair<const char*, QString> controls[] = {
      {"qt_calendar_prevmonth", u"上个月"_s}, {"qt_calendar_nextmonth", u"下个月"_s},
      {"qt_calendar_monthbutton", u"月份"_s}, {"qt_calendar_yearbutton", u"年份"_s},
      {"qt_calendar_yearedit", u"年份"_s},    {"qt_calendar_calendarview", u"日期"_s}};
  for (const auto& [name, caption] : controls) {
    if (auto* control = calendar_->findChild<QWidget*>(QLatin1String(name))) control->setAccessibleName(caption);
  }
}

void CalendarPopup::Mark(const QDate& date) {
  Colour();
  const QDate today = Today();
  QTextCharFormat bold;
  bold.setFontWeight(QFont::Bold);
  calendar_->setDateTextFormat(QDate(), {});
  calendar_->setDateTextFormat(today, bold);
  calendar_->setSelectedDate(date.isValid() ? date : today);
}

// Arrows instead of the style's balls, and a red that can be read on light and dark.
void CalendarPopup::Colour() {
  QPalette onHeader = palette();
  onHeader.setColor(QPalette::ButtonText, palette().color(QPalette::HighlightedText));
  const std::pair<QString, Qt::ArrowType> arrows[] = {{u"qt_calendar_prevmonth"_s, Qt::LeftArrow},
                                                      {u"qt_calendar_nextmonth"_s, Qt::RightArrow}};
  for (const auto& [name, direction] : arrows) {
    auto* button = calendar_->findChild<QToolButton*>(name);
    if (!button) continue;
    button->setArrowType(direction);
    button->setPalette(onHeader);
  }
  QTextCharFormat weekend;
  const bool dark = palette().color(QPalette::Base).lightness() < 128;
  weekend.setForeground(dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xc6, 0x28, 0x28));
  for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) calendar_->setWeekdayTextFormat(day, weekend);
}

void CalendarPopup::AddChoice(const QString& caption, std::function<void(int, int)> choice) {
  auto* button = new QToolButton;
  button->setText(caption);
  button->setAutoRaise(true);
  connect(button, &QToolButton::clicked, this, [this, choice = std::move(choice)] {
    hide();
    choice(calendar_->yearShown(), calendar_->monthShown());
  });
  choices_->addWidget(button);
}

void CalendarPopup::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  calendar_->setFocus(Qt::PopupFocusReason);
}

void CalendarPopup::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_F4) return hide();
  QFrame::keyPressEvent(event);
}

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
