#include "widgets/CalendarPopup.h"

#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

#include "base/Surroundings.h"

namespace folvane {

CalendarPopup::CalendarPopup(QWidget* owner)
    : QFrame(owner, Qt::Popup), calendar_(new QCalendarWidget), choices_(new QHBoxLayout) {
  setObjectName(QStringLiteral("CalendarPopup"));
  setFrameShape(QFrame::StyledPanel);
  // The click beside the pop-up only closes it: passed on to the box's own button it would open it again.
  setAttribute(Qt::WA_NoMouseReplay);
  calendar_->setAccessibleName(QStringLiteral("日历"));
  NameParts();
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

void CalendarPopup::NameParts() {
  const std::pair<const char*, QString> parts[] = {
      {"qt_calendar_prevmonth", QStringLiteral("上个月")}, {"qt_calendar_nextmonth", QStringLiteral("下个月")},
      {"qt_calendar_monthbutton", QStringLiteral("月份")}, {"qt_calendar_yearbutton", QStringLiteral("年份")},
      {"qt_calendar_yearedit", QStringLiteral("年份")},    {"qt_calendar_calendarview", QStringLiteral("日期")}};
  for (const auto& [name, caption] : parts) {
    if (auto* part = calendar_->findChild<QWidget*>(QLatin1String(name))) part->setAccessibleName(caption);
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
  const std::pair<QString, Qt::ArrowType> arrows[] = {{QStringLiteral("qt_calendar_prevmonth"), Qt::LeftArrow},
                                                      {QStringLiteral("qt_calendar_nextmonth"), Qt::RightArrow}};
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

}  // namespace folvane
