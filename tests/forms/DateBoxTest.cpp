#include <QCalendarWidget>
#include <QTableView>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>

#include "forms/FormsFixture.h"
#include "widgets/DateBox.h"
#include "widgets/RecordDatePicker.h"

namespace folvane::test {
namespace {

template <class Box>
class CalendarBoxTest : public FormsTest {
 protected:
  CalendarBoxTest() : box_(&Window()), changes_(&box_, &EditCombo::Changed) {
    FixClock(QDateTime(QDate(2026, 7, 8), QTime(9, 0), Qt::UTC));
    box_.setGeometry(20, 20, 150, 24);
    Show();
    box_.setFocus();
  }
  QString Text() const { return box_.property("text").toString(); }
  QCalendarWidget& DroppedCalendar() {
    ClickAt(box_, QPoint(box_.width() - 6, box_.height() / 2));
    EXPECT_TRUE(QApplication::activePopupWidget());
    return *box_.template findChild<QCalendarWidget*>();
  }
  void ClickChoice(const QString& caption) {
    for (QToolButton* button : QApplication::activePopupWidget()->findChildren<QToolButton*>()) {
      if (button->text() == caption) return Click(*button);
    }
    FAIL() << "no such choice";
  }

  Box box_;
  QSignalSpy changes_;
};

class DateBoxTest : public CalendarBoxTest<DateBox> {};

TEST_F(DateBoxTest, IsEmptyWithoutADate) { EXPECT_EQ(Text(), QString()); }

TEST_F(DateBoxTest, ShowsADateInAnyFormOfTheDatabase) {
  for (const QString& stored : {u"2002-03-04"_s, u"2002/3/4"_s, u"20020304"_s, u"2002-03-04 10:20:30"_s}) {
    box_.SetText(stored);
    EXPECT_EQ(Text(), u"2002-03-04"_s) << stored.toStdString();
  }
  box_.SetText(u"不详"_s);
  EXPECT_EQ(Text(), QString());
  EXPECT_EQ(changes_.count(), 0);
}

TEST_F(DateBoxTest, TakesATypedDateOnceItIsComplete) {
  Type(box_, u"2002-03-0"_s);
  EXPECT_EQ(changes_.count(), 0);
  Type(box_, u"4"_s);
  EXPECT_EQ(Text(), u"2002-03-04"_s);
  EXPECT_EQ(changes_.count(), 1);
}

TEST_F(DateBoxTest, TakesEightDigits) {
  Type(box_, u"20020304"_s);
  EXPECT_EQ(Text(), u"2002-03-04"_s);
  EXPECT_EQ(box_.currentText(), u"2002-03-04"_s);
  EXPECT_EQ(changes_.count(), 1);
}

TEST_F(DateBoxTest, TakesAShortFormWithTheEnterKey) {
  Type(box_, u"2002/3/4"_s);
  EXPECT_EQ(changes_.count(), 0);
  Press(box_, Qt::Key_Return);
  EXPECT_EQ(Text(), u"2002-03-04"_s);
  EXPECT_EQ(changes_.count(), 1);
}

TEST_F(DateBoxTest, TakesAShortFormAsItIsLeft) {
  Type(box_, u"2002.3.4"_s);
  box_.clearFocus();
  EXPECT_EQ(box_.currentText(), u"2002-03-04"_s);
  EXPECT_EQ(changes_.count(), 1);
}

TEST_F(DateBoxTest, GivesUpWhatIsNoDate) {
  box_.SetText(u"2002-03-04"_s);
  Retype(box_, u"2002-02-30"_s);
  Press(box_, Qt::Key_Return);
  EXPECT_EQ(box_.currentText(), u"2002-03-04"_s);
  EXPECT_EQ(changes_.count(), 0);
  EXPECT_EQ(QToolTip::text(), u"“2002-02-30”不是日期，没有采用"_s);
}

TEST_F(DateBoxTest, HoldsUpItsWindowOnceForWhatIsNoDate) {
  Retype(box_, u"2002"_s);
  box_.clearFocus();
  EXPECT_FALSE(DateBox::AllTaken({&box_}));
  EXPECT_TRUE(box_.hasFocus());
  EXPECT_TRUE(DateBox::AllTaken({&box_}));
  Retype(box_, u"2002"_s);
  EXPECT_FALSE(DateBox::AllTaken({&box_}));
  Retype(box_, u"2002"_s);
  box_.clearFocus();
  box_.SetText(u"2002-03-04"_s);
  EXPECT_TRUE(DateBox::AllTaken({&box_}));
}

TEST_F(DateBoxTest, RefusesOtherCharactersAndReadsFullWidthDigits) {
  Type(box_, u"2年0月０2-0３-0４x"_s);
  EXPECT_EQ(Text(), u"2002-03-04"_s);
}

TEST_F(DateBoxTest, IsEmptiedByTheDeleteKey) {
  box_.SetText(u"2002-03-04"_s);
  Press(box_, Qt::Key_Delete);
  EXPECT_EQ(Text(), QString());
  EXPECT_EQ(changes_.count(), 1);
  Press(box_, Qt::Key_Delete);
  EXPECT_EQ(changes_.count(), 1);
}

TEST_F(DateBoxTest, IsEmptiedByTakingItsTextAway) {
  box_.SetText(u"2002-03-04"_s);
  Press(box_, Qt::Key_A, Qt::ControlModifier);
  Press(box_, Qt::Key_Backspace);
  EXPECT_EQ(Text(), QString());
  EXPECT_EQ(changes_.count(), 1);
}

TEST_F(DateBoxTest, TypesOverTheDigitUnderTheCaret) {
  box_.SetText(u"2002-03-04"_s);
  box_.Box().setCursorPosition(7);
  Type(box_, u"15"_s);
  EXPECT_EQ(Text(), u"2002-03-15"_s);
}

TEST_F(DateBoxTest, BeginsANewDateBehindTheLastDigit) {
  box_.SetText(u"2002-03-04"_s);
  box_.Box().end(false);
  Type(box_, u"20030506"_s);
  EXPECT_EQ(Text(), u"2003-05-06"_s);
  EXPECT_EQ(changes_.count(), 1);
}

TEST_F(DateBoxTest, StepsTheSectionOfTheCaret) {
  box_.SetText(u"2002-03-31"_s);
  box_.Box().setCursorPosition(6);
  Press(box_, Qt::Key_Down);
  EXPECT_EQ(Text(), u"2002-02-28"_s);
  box_.Box().setCursorPosition(1);
  Press(box_, Qt::Key_Up);
  EXPECT_EQ(Text(), u"2003-02-28"_s);
  EXPECT_EQ(changes_.count(), 2);
}

TEST_F(DateBoxTest, IsNotTurnedByTheWheel) {
  box_.SetText(u"2002-03-04"_s);
  QWheelEvent turn(QPointF(5, 5), QPointF(25, 25), {}, QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                   false);
  QCoreApplication::sendEvent(&box_, &turn);
  EXPECT_FALSE(turn.isAccepted());
  EXPECT_EQ(Text(), u"2002-03-04"_s);
}

TEST_F(DateBoxTest, DropsDownACalendarOfItsDate) {
  box_.SetText(u"2002-03-04"_s);
  EXPECT_EQ(DroppedCalendar().selectedDate(), QDate(2002, 3, 4));
}

TEST_F(DateBoxTest, TakesADayOfTheCalendarOnce) {
  box_.SetText(u"2002-03-04"_s);
  QCalendarWidget& calendar = DroppedCalendar();
  QTest::keyClick(calendar.findChild<QTableView*>(), Qt::Key_Right);
  QTest::keyClick(calendar.findChild<QTableView*>(), Qt::Key_Return);
  EXPECT_EQ(Text(), u"2002-03-05"_s);
  EXPECT_EQ(changes_.count(), 1);
  EXPECT_FALSE(QApplication::activePopupWidget());
}

TEST_F(DateBoxTest, ClosesTheCalendarWithEscape) {
  QCalendarWidget& calendar = DroppedCalendar();
  QTest::keyClick(calendar.findChild<QTableView*>(), Qt::Key_Escape);
  EXPECT_FALSE(QApplication::activePopupWidget());
  EXPECT_EQ(changes_.count(), 0);
}

TEST_F(DateBoxTest, OffersTodayAndNone) {
  DroppedCalendar();
  ClickChoice(u"今天"_s);
  EXPECT_EQ(Text(), u"2026-07-08"_s);
  DroppedCalendar();
  ClickChoice(u"清空"_s);
  EXPECT_EQ(Text(), QString());
  EXPECT_EQ(changes_.count(), 2);
}

class RecordDatePickerTest : public CalendarBoxTest<RecordDatePicker> {};

TEST_F(RecordDatePickerTest, KeepsUnknownMonthsAndDays) {
  Type(box_, u"20020000"_s);
  EXPECT_EQ(Text(), u"20020000"_s);
  EXPECT_EQ(changes_.count(), 8);
}

TEST_F(RecordDatePickerTest, TakesDigitsOnlyAndEightOfThem) {
  Type(box_, u"2002a-０3年041"_s);
  EXPECT_EQ(Text(), u"20020304"_s);
}

TEST_F(RecordDatePickerTest, DropsTheSignsOfAPastedDate) {
  Commit(box_, u"2002-03-04"_s);
  EXPECT_EQ(Text(), u"20020304"_s);
  EXPECT_EQ(changes_.count(), 1);
}

TEST_F(RecordDatePickerTest, ShowsWhatAProgramSetsAsItIs) {
  box_.SetText(u"2002.3"_s);
  EXPECT_EQ(Text(), u"2002.3"_s);
  EXPECT_EQ(changes_.count(), 0);
}

TEST_F(RecordDatePickerTest, DropsDownTheMonthItKnows) {
  box_.SetText(u"20021200"_s);
  EXPECT_EQ(DroppedCalendar().monthShown(), 12);
}

TEST_F(RecordDatePickerTest, TakesADayAMonthOrAYearOfTheCalendar) {
  box_.SetText(u"20020304"_s);
  DroppedCalendar();
  ClickChoice(u"仅年月"_s);
  EXPECT_EQ(Text(), u"20020300"_s);
  DroppedCalendar();
  ClickChoice(u"仅年"_s);
  EXPECT_EQ(Text(), u"20020000"_s);
  DroppedCalendar();
  ClickChoice(u"今天"_s);
  EXPECT_EQ(Text(), u"20260708"_s);
  EXPECT_EQ(changes_.count(), 3);
}

}  // namespace
}  // namespace folvane::test
