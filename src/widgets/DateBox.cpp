#include "widgets/DateBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QToolTip>
#include <algorithm>

#include "base/HalfWidth.h"
#include "base/Surroundings.h"
#include "data/ValueText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kFullLength = 10;  // YYYY-mm-DD

QString AdmitDateSigns(const QString& typed) {
  QString admitted;
  for (const QChar sign : ToHalfWidth(typed)) {
    if ((sign >= u'0' && sign <= u'9') || sign == u'-' || sign == u'/' || sign == u'.') admitted += sign;
  }
  return admitted;
}

QDate ReadDate(const QString& text) { return ReadDateTime(text).date(); }

bool IsComplete(const QString& text) {
  return text.size() == kFullLength || (text.size() == 8 && text.toULongLong() > 0);
}

}  // namespace

DateBox::DateBox(QWidget* parent) : CalendarCombo(parent) {
  Box().setMaxLength(kFullLength);
  Box().SetAdmission(AdmitDateSigns);
}

QString DateBox::Text() const { return date_.toString(u"yyyy-MM-dd"_s); }

void DateBox::SetText(const QString& text) {
  date_ = ReadDate(text);
  refused_.clear();
  Show();
}

void DateBox::Show() {
  if (currentText() != Text()) setEditText(Text());
}

void DateBox::TakeTyping() {
  const QString typed = currentText();
  if (typed.isEmpty()) return TakeDate({});
  const QDate date = IsComplete(typed) ? ReadDate(typed) : QDate();
  if (date.isValid()) TakeDate(date);
}

void DateBox::Commit() {
  const QString typed = currentText();
  if (const QDate date = ReadDate(typed); date.isValid()) return TakeDate(date);
  Show();
  if (typed.isEmpty()) return;
  refused_ = typed;
  QApplication::beep();
  TellRefused();
}

bool DateBox::AllTaken(const QList<DateBox*>& boxes) {
  for (DateBox* box : boxes) box->Commit();
  const auto found =
      std::find_if(boxes.begin(), boxes.end(), [](const DateBox* box) { return !box->refused_.isEmpty(); });
  if (found == boxes.end()) return true;
  (*found)->setFocus();
  (*found)->TellRefused();
  for (DateBox* box : boxes) box->refused_.clear();
  return false;
}

// Only digits and the signs between them can be typed: nothing that a tip would take for markup.
void DateBox::TellRefused() {
  QToolTip::showText(mapToGlobal(rect().bottomLeft()), u"“%1”不是日期，没有采用"_s.arg(refused_), this);
}

void DateBox::TakeDate(const QDate& date) {
  const bool differs = date != date_;
  date_ = date;
  refused_.clear();
  Show();
  if (differs) Q_EMIT Changed();
}

void DateBox::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Delete:
    case Qt::Key_Clear:
      return TakeDate({});
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Commit();
      break;
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (event->modifiers() & Qt::AltModifier) break;
      return StepSection(event->key() == Qt::Key_Up ? 1 : -1);
    default:
      if (const QString typed = ToHalfWidth(event->text()); !typed.isEmpty() && typed.front().isDigit())
        MakeRoomForDigit();
  }
  CalendarCombo::keyPressEvent(event);
}

// In a complete date a digit takes the place of the one under the caret; behind the last one it begins a new date.
void DateBox::MakeRoomForDigit() {
  if (Box().text().size() < kFullLength || Box().hasSelectedText()) return;
  int caret = Box().cursorPosition();
  if (caret >= kFullLength) return Box().selectAll();
  if (!Box().text()[caret].isDigit()) ++caret;
  Box().setSelection(caret, 1);
}

void DateBox::StepSection(int count) {
  const int caret = Box().cursorPosition();
  if (!date_.isValid()) return TakeDate(Today());
  TakeDate(caret <= 4 ? date_.addYears(count) : caret <= 7 ? date_.addMonths(count) : date_.addDays(count));
  Box().setCursorPosition(caret);
}

void DateBox::focusInEvent(QFocusEvent* event) {
  CalendarCombo::focusInEvent(event);
  if (event->reason() == Qt::OtherFocusReason) Box().selectAll();
}

void DateBox::focusOutEvent(QFocusEvent* event) {
  Commit();
  CalendarCombo::focusOutEvent(event);
}

void DateBox::AddChoices(CalendarPopup& popup) {
  popup.AddChoice(u"今天"_s, [this](int, int) { TakeDate(Today()); });
  popup.AddChoice(u"清空"_s, [this](int, int) { TakeDate({}); });
}

}  // namespace folvane
