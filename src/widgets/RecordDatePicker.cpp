#include "widgets/RecordDatePicker.h"

#include "base/HalfWidth.h"
#include "base/Surroundings.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kDigits = 8;

QString DigitsOf(const QString& text) {
  QString digits;
  for (const QChar sign : ToHalfWidth(text)) {
    if (sign >= u'0' && sign <= u'9') digits += sign;
  }
  return digits;
}

QString RecordDate(int year, int month, int day) {
  return u"%1%2%3"_s.arg(year, 4, 10, QChar(u'0')).arg(month, 2, 10, QChar(u'0')).arg(day, 2, 10, QChar(u'0'));
}

}  // namespace

RecordDatePicker::RecordDatePicker(QWidget* parent) : CalendarCombo(parent) { Box().SetAdmission(DigitsOf); }

void RecordDatePicker::TakeTyping() {
  const QString typed = currentText();
  const QString digits = DigitsOf(typed).left(kDigits);
  if (digits != typed) {
    const int caret = Box().cursorPosition();
    setEditText(digits);
    Box().setCursorPosition(qMin(caret, int(digits.size())));
  }
  TakeByHand(digits);
}

QDate RecordDatePicker::Marked() const {
  const QString text = currentText();
  const int year = text.left(4).toInt();
  if (text.size() < 4 || year < 100) return {};
  const int month = qMax(1, text.mid(4, 2).toInt()), day = qMax(1, text.mid(6, 2).toInt());
  return QDate::isValid(year, month, day) ? QDate(year, month, day) : QDate(year, qMin(month, 12), 1);
}

void RecordDatePicker::TakeDay(const QDate& day) { TakeByHand(RecordDate(day.year(), day.month(), day.day())); }

void RecordDatePicker::AddChoices(CalendarPopup& popup) {
  popup.AddChoice(u"仅年"_s, [this](int year, int) { TakeByHand(RecordDate(year, 0, 0)); });
  popup.AddChoice(u"仅年月"_s, [this](int year, int month) { TakeByHand(RecordDate(year, month, 0)); });
  popup.AddChoice(u"今天"_s, [this](int, int) { TakeDay(Today()); });
  popup.AddChoice(u"清空"_s, [this](int, int) { TakeByHand({}); });
}

}  // namespace folvane
